#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Reads a CSV file record by record (RFC 4180: quotes, doubled quotes, line ends in quotes) and
/// knows the place of each.
///
/// Worked example: `Aachen,"1 234",` gives three fields: `Aachen`, `1 234`, and one that is
/// missing, for it is empty and has no quotes. Empty lines are passed over.

struct csv_parser;

namespace zantm {

struct CsvField {
  std::string_view text;
  bool missing; ///< empty and without quotes
};

class CsvFile {
public:
  /// "-" is standard input. A `Failure` for a file that cannot be opened.
  explicit CsvFile(std::string const & path);
  ~CsvFile();
  CsvFile(CsvFile const &) = delete;
  CsvFile & operator=(CsvFile const &) = delete;

  /// The next record; false at the end. The fields live until the next call. A `Failure` with
  /// its place for what is no CSV.
  bool Next(std::vector<CsvField> & fields);

  std::string const & Name() const { return name_; }
  /// Line in which the last record began, from 1.
  unsigned long long Line() const { return recordLine_; }
  /// Share of the file that has been read, 0 to 1; 0 if the size is not known.
  double Progress() const;

private:
  bool ReadLine(std::string_view & line);
  void TakeField(void * text, size_t length);

  std::string name_;
  int file_;
  csv_parser * parser_;
  unsigned long long size_ = 0, read_ = 0;
  unsigned long long line_ = 0, recordLine_ = 0;
  std::vector<char> buffer_;
  size_t begin_ = 0, end_ = 0;
  bool atEnd_ = false;

  /// The record under construction: texts back to back, and where each ends.
  std::string texts_;
  struct Mark {
    size_t end;
    bool missing;
  };
  std::vector<Mark> marks_;
  bool complete_ = false;
};

} // namespace zantm
