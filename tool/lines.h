#pragma once

#include <fstream>
#include <iosfwd>
#include <string>

/// Reads a file, or standard input, line by line and counts the lines.

namespace zantm {

class LineReader {
public:
  /// "-" or "" is standard input. A `Failure` for a file that cannot be opened.
  explicit LineReader(std::string const & path);

  /// The next line without its end ("\n" or "\r\n"); false at the end of the file. A `Failure`
  /// for a read error.
  bool Next(std::string & line);
  /// Number of the line that `Next` gave last, from 1.
  unsigned long long Number() const { return number_; }
  std::string const & Name() const { return name_; }

private:
  std::string name_;
  std::ifstream file_;
  std::istream * stream_;
  unsigned long long number_ = 0;
};

/// "NAME:LINE".
std::string Place(LineReader const & reader);

} // namespace zantm
