#include "database.h"

#include "column_index.h"
#include "failure.h"
#include "text.h"

#include <zanin.h>

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <sstream>
#include <utility>

namespace zantm {

namespace {

constexpr char kVersion[] = "1"; ///< of what stands in the file
constexpr size_t kMostColumns = 64;
constexpr size_t kReaderMapSize = 0; ///< a reader maps what there is

std::string OrderName() {
  char hex[17];
  auto fingerprint = ZnLanguageContext::OrderFingerprint();
  for (int i = 15; i >= 0; --i, fingerprint >>= 4)
    hex[i] = "0123456789abcdef"[fingerprint & 15];
  hex[16] = 0;
  return std::string(hex) + ", version " + std::to_string(ZnLanguageContext::OrderVersion()) +
         ", " + ZnLanguageContext::OrderSource();
}

MDB_val ValOf(std::string_view text) { return {text.size(), const_cast<char *>(text.data())}; }

} // namespace

Database Database::Reading(std::string const & path) {
  return Database(path, false, kReaderMapSize);
}

Database Database::Writing(std::string const & path, size_t mapSize) {
  return Database(path, true, mapSize);
}

void Database::Check(int result) const {
  if (result == 0)
    return;
  std::string text = result == MDB_MAP_FULL ? "the database has reached its largest size"
                     : result == MDB_INVALID || result == MDB_VERSION_MISMATCH
                         ? "is no database of zantm"
                         : mdb_strerror(result);
  throw Failure(ExitDatabase, path_ + ": " + text);
}

Database::Database(std::string const & path, bool writing, size_t mapSize)
    : path_(path), writing_(writing) {
  fresh_ = access(path.c_str(), F_OK) != 0;
  if (!writing && fresh_)
    throw Failure(ExitDatabase, path + ": " + std::strerror(errno));
  try {
    Check(mdb_env_create(&environment_));
    Check(mdb_env_set_maxdbs(environment_, 2 + 2 * kMostColumns));
    if (mapSize != 0)
      Check(mdb_env_set_mapsize(environment_, mapSize));
    unsigned int flags = MDB_NOSUBDIR | (writing ? 0 : MDB_RDONLY);
    int result = mdb_env_open(environment_, path.c_str(), flags, 0644);
    if (!writing && (result == EACCES || result == EROFS)) // no room for a lock file
      result = mdb_env_open(environment_, path.c_str(), flags | MDB_NOLOCK, 0644);
    Check(result);
    Check(mdb_txn_begin(environment_, nullptr, writing ? 0 : MDB_RDONLY, &transaction_));
    int found = mdb_dbi_open(transaction_, "meta", writing ? MDB_CREATE : 0, &meta_);
    if (found == MDB_NOTFOUND)
      throw Failure(ExitDatabase, path + ": holds no table");
    Check(found);
    ReadMeta();
  } catch (...) {
    Close();
    throw;
  }
}

Database::~Database() { Close(); }

void Database::Close() {
  if (environment_ == nullptr)
    return;
  if (transaction_ != nullptr)
    mdb_txn_abort(transaction_);
  mdb_env_close(environment_);
  if (writing_ && fresh_) { // made by us, and nothing came of it
    unlink(path_.c_str());
    unlink((path_ + "-lock").c_str());
  }
  environment_ = nullptr;
  transaction_ = nullptr;
}

void Database::Commit() {
  WriteMeta();
  Check(mdb_txn_commit(std::exchange(transaction_, nullptr)));
  fresh_ = false;
}

size_t Database::ColumnByName(std::string_view name) const {
  std::string known;
  for (size_t i = 0; i < columns_.size(); ++i) {
    if (columns_[i].name == name)
      return i;
    known.append(i == 0 ? "" : ", ").append(columns_[i].name);
  }
  throw Failure(ExitInput, path_ + ": has no column '" + std::string(name) + "', only " + known);
}

std::string Database::Meta(char const * key) {
  MDB_val name = ValOf(key), value{};
  int result = mdb_get(transaction_, meta_, &name, &value);
  if (result == MDB_NOTFOUND)
    return {};
  Check(result);
  return {static_cast<char const *>(value.mv_data), value.mv_size};
}

void Database::PutMeta(char const * key, std::string const & text) {
  MDB_val name = ValOf(key), value = ValOf(text);
  Check(mdb_put(transaction_, meta_, &name, &value, 0));
}

void Database::ReadMeta() {
  std::string version = Meta("version");
  if (version.empty()) {
    if (!writing_)
      throw Failure(ExitDatabase, path_ + ": holds no table");
    return;
  }
  if (version != kVersion)
    throw Failure(ExitDatabase,
                  path_ + ": is of version " + version + ", this command reads " + kVersion);
  if (std::string order = Meta("order"); order != OrderName())
    throw Failure(ExitDatabase, path_ + ": its keys were made by the order tables " + order +
                                    ", this library has " + OrderName() +
                                    "; load the data into a new database");
  if (std::string factory = Meta("factory"); factory != std::to_string(Manager().factory))
    throw Failure(ExitDatabase, path_ + ": its values are of factory version " + factory);
  if (DefaultText().codeSet == 255)
    DefaultText().codeSet = static_cast<unsigned char>(std::stoi(Meta("codeset")));
  if (DefaultText().language == 255)
    DefaultText().language = static_cast<unsigned char>(std::stoi(Meta("language")));
  std::istringstream lines(Meta("columns"));
  for (std::string name, type, format; std::getline(lines, name, '\t') &&
                                       std::getline(lines, type, '\t') &&
                                       std::getline(lines, format);)
    columns_.push_back({name, TypeByName(type), format});
  OpenTables(false);
}

void Database::WriteMeta() {
  std::string columns;
  for (Column const & column : columns_)
    columns += column.name + '\t' + TypeName(column.type) + '\t' + column.format + '\n';
  PutMeta("version", kVersion);
  PutMeta("order", OrderName());
  PutMeta("factory", std::to_string(Manager().factory));
  PutMeta("codeset", std::to_string(DefaultText().codeSet));
  PutMeta("language", std::to_string(DefaultText().language));
  PutMeta("columns", columns);
}

void Database::OpenTables(bool create) {
  unsigned int flags = create ? MDB_CREATE : 0;
  indexes_.clear();
  rests_.clear();
  Check(mdb_dbi_open(transaction_, "rows", flags | MDB_INTEGERKEY, &rows_));
  for (size_t i = 0; i < columns_.size(); ++i) {
    MDB_dbi dbi;
    Check(mdb_dbi_open(transaction_, ("index." + std::to_string(i)).c_str(), flags, &dbi));
    Check(mdb_set_compare(transaction_, dbi, EntryOrder(columns_[i].type)));
    indexes_.push_back(dbi);
    Check(mdb_dbi_open(transaction_, ("rest." + std::to_string(i)).c_str(), flags | MDB_INTEGERKEY,
                       &dbi));
    rests_.push_back(dbi);
  }
}

void Database::MakeTable(std::vector<Column> const & columns) {
  if (columns.size() > kMostColumns)
    throw Failure(ExitUsage, "a table has at most " + std::to_string(kMostColumns) + " columns");
  if (!columns_.empty()) {
    Check(mdb_drop(transaction_, rows_, 1));
    for (MDB_dbi dbi : indexes_)
      Check(mdb_drop(transaction_, dbi, 1));
    for (MDB_dbi dbi : rests_)
      Check(mdb_drop(transaction_, dbi, 1));
  }
  columns_ = columns;
  OpenTables(true);
}

void Database::SetFormats(std::vector<Column> const & columns) {
  for (size_t i = 0; i < columns_.size(); ++i)
    columns_[i].format = columns[i].format;
}

RowNumber Database::RowCount() {
  MDB_stat status{};
  Check(mdb_stat(transaction_, rows_, &status));
  return static_cast<RowNumber>(status.ms_entries);
}

void Database::AppendRow(RowNumber number, Bytes const & row) {
  MDB_val key = {sizeof number, &number};
  MDB_val data = {row.size(), const_cast<unsigned char *>(row.data())};
  Check(mdb_put(transaction_, rows_, &key, &data, MDB_APPEND));
}

MDB_val Database::Row(RowNumber number) {
  MDB_val key = {sizeof number, &number}, data{};
  Check(mdb_get(transaction_, rows_, &key, &data));
  return data;
}

MDB_val Database::Cell(MDB_val row, size_t column) const {
  auto at = static_cast<unsigned char *>(row.mv_data);
  for (size_t i = 0;; ++i) {
    size_t size = Manager().DiskLenGet(columns_[i].type, at, kStoredFormat, 1, kStoredFormat);
    if (i == column)
      return {size, at};
    at += size;
  }
}

} // namespace zantm
