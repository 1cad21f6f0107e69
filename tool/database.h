#pragma once

#include "value.h"

#include <lmdb.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// A database file: one table of rows with an index for each column, in LMDB.
///
/// Worked example: the table of `name:ZnString,people:o_u4b` has these sub-databases:
///
///     meta      version, columns, order fingerprint, labels of texts
///     rows      row number -> the stored forms of all columns, one after the other
///     index.0   key of `name` and row number -> nothing, ordered by the compare row of ZnString
///     rest.0    row numbers whose `name` has no key that tells all of it
///     index.1, rest.1   the same for `people`
///
/// Everything stored is little-endian: that is the order in which all compare rows read numbers
/// in place, the identity rows order by worth, and keys can be stepped.
///
/// A `Database` is one transaction: it reads one state of the file, or makes one new state by
/// `Commit`. Without `Commit`, and if the process dies, the file stays as it was.

namespace zantm {

using RowNumber = std::uint32_t;

struct Column {
  std::string name;
  char type;
  std::string format; ///< for scan and print; empty: the type's own
};

class Database {
public:
  /// Opens an existing file for reading.
  static Database Reading(std::string const & path);
  /// Opens or makes a file for writing; `mapSize` is the largest size that it may reach.
  static Database Writing(std::string const & path, size_t mapSize);
  Database(Database const &) = delete;
  Database & operator=(Database const &) = delete;
  ~Database();

  std::string const & Path() const { return path_; }
  /// Empty if the file holds no table yet.
  std::vector<Column> const & Columns() const { return columns_; }
  /// The place of a column; a `Failure` that lists the columns if there is none.
  size_t ColumnByName(std::string_view name) const;

  // ---- Writing
  /// Starts a table of these columns in place of what the file holds.
  void MakeTable(std::vector<Column> const & columns);
  /// The formats that the columns were found to have.
  void SetFormats(std::vector<Column> const & columns);
  void Commit();

  // ---- Rows
  RowNumber RowCount();
  void AppendRow(RowNumber number, Bytes const & row);
  /// The row's bytes; they live as long as nothing is written.
  MDB_val Row(RowNumber number);
  /// The part of a row that holds a column.
  MDB_val Cell(MDB_val row, size_t column) const;

  // ---- Indexes
  MDB_txn * Transaction() const { return transaction_; }
  MDB_dbi IndexOf(size_t column) const { return indexes_[column]; }
  MDB_dbi RestOf(size_t column) const { return rests_[column]; }
  /// A `Failure` that names the file, unless `result` is 0.
  void Check(int result) const;

private:
  Database(std::string const & path, bool writing, size_t mapSize);
  void Close();
  void OpenTables(bool create);
  void ReadMeta();
  void WriteMeta();
  std::string Meta(char const * key);
  void PutMeta(char const * key, std::string const & value);

  std::string path_;
  bool writing_;
  bool fresh_ = false; ///< the file did not exist before
  MDB_env * environment_ = nullptr;
  MDB_txn * transaction_ = nullptr;
  MDB_dbi meta_ = 0, rows_ = 0;
  std::vector<MDB_dbi> indexes_, rests_;
  std::vector<Column> columns_;
};

} // namespace zantm
