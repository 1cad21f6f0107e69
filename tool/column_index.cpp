#include "column_index.h"

#include "failure.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>
#include <utility>

namespace zantm {

namespace {

constexpr size_t kRowBytes = sizeof(RowNumber);
constexpr size_t kMostTypes = 47;
constexpr unsigned int kLengthBits = 9; ///< an entry is shorter than 512 bytes

RowNumber RowOfEntry(MDB_val const & entry) {
  RowNumber row;
  std::memcpy(&row, static_cast<char const *>(entry.mv_data) + entry.mv_size - kRowBytes,
              kRowBytes);
  return row;
}

/// LMDB hands its comparators no context, so each type id has a function of its own.
template <char Type>
int CompareEntries(MDB_val const * a, MDB_val const * b) {
  static ZnTypeCmpFunc const compare = Manager().CmpFuncPtrGet(Type);
  int error = 0;
  int order = compare(kKeyFormat, static_cast<unsigned int>(a->mv_size - kRowBytes), a->mv_data,
                      static_cast<unsigned int>(b->mv_size - kRowBytes), b->mv_data,
                      ZnCmpNoWildcards, 1, error);
  if (order != 0)
    return order;
  RowNumber rowA = RowOfEntry(*a), rowB = RowOfEntry(*b);
  return rowA < rowB ? -1 : rowA > rowB;
}

template <size_t... Types>
constexpr std::array<MDB_cmp_func *, sizeof...(Types)> Comparators(std::index_sequence<Types...>) {
  return {CompareEntries<static_cast<char>(Types)>...};
}

Bytes WithRow(Bytes const & key, RowNumber row) {
  Bytes entry = key;
  auto bytes = reinterpret_cast<unsigned char const *>(&row);
  entry.insert(entry.end(), bytes, bytes + kRowBytes);
  return entry;
}

MDB_val ValOf(Bytes const & bytes) {
  return {bytes.size(), const_cast<unsigned char *>(bytes.data())};
}

} // namespace

MDB_cmp_func * EntryOrder(char type) {
  static constexpr auto comparators = Comparators(std::make_index_sequence<kMostTypes>());
  return comparators[static_cast<size_t>(type)];
}

bool MakeKey(Value const & value, Bytes & key) {
  char type = value.Type();
  unsigned int room = Manager().DiskLenGet(type, value.Data(), kKeyFormat, 1, ZnFormatMemory);
  key.resize(room);
  unsigned int size =
      Manager().Translate(type, key.data(), kKeyFormat, std::min<unsigned int>(room, kLongestKey),
                          value.Data(), ZnFormatMemory, Manager().MemLenGet(type, 1), 1);
  if (size > kLongestKey)
    throw Failure(ExitInput, "a key of " + std::to_string(size) + " bytes does not fit into " +
                                 "an index, which holds " + std::to_string(kLongestKey));
  key.resize(size);
  if (Manager().IsFixed(type) != 0)
    return true;
  int error = 0;
  Manager().Cmp(type, size, key.data(), size, key.data(), ZnCmpNoWildcards, 1, kKeyFormat, error);
  return error == 0;
}

IndexBuilder::IndexBuilder(Database & database, size_t column, size_t memory)
    : database_(database), column_(column), memory_(memory),
      order_(EntryOrder(database.Columns()[column].type)) {}

void IndexBuilder::Add(Value const & value, RowNumber row) {
  if (!MakeKey(value, key_)) {
    rest_.push_back(row);
    return;
  }
  places_.push_back(entries_.size() << kLengthBits | (key_.size() + kRowBytes));
  entries_.insert(entries_.end(), key_.begin(), key_.end());
  auto bytes = reinterpret_cast<unsigned char const *>(&row);
  entries_.insert(entries_.end(), bytes, bytes + kRowBytes);
  if (entries_.size() + places_.size() * sizeof places_[0] > memory_)
    Put();
}

void IndexBuilder::Put() {
  auto entry = [this](std::uint64_t place) -> MDB_val {
    return {place & ((1u << kLengthBits) - 1), entries_.data() + (place >> kLengthBits)};
  };
  std::sort(places_.begin(), places_.end(), [&](std::uint64_t a, std::uint64_t b) {
    MDB_val x = entry(a), y = entry(b);
    return order_(&x, &y) < 0;
  });
  MDB_dbi index = database_.IndexOf(column_);
  MDB_stat status{};
  database_.Check(mdb_stat(database_.Transaction(), index, &status));
  // Into an empty index sorted entries go page after page; later ones find their places.
  unsigned int flags = status.ms_entries == 0 ? MDB_APPEND : 0;
  for (std::uint64_t place : places_) {
    MDB_val key = entry(place), nothing{};
    database_.Check(mdb_put(database_.Transaction(), index, &key, &nothing, flags));
  }
  places_.clear();
  entries_.clear();
}

void IndexBuilder::Finish() {
  Put();
  for (RowNumber row : rest_) {
    MDB_val key = {sizeof row, &row}, nothing{};
    database_.Check(
        mdb_put(database_.Transaction(), database_.RestOf(column_), &key, &nothing, MDB_APPEND));
  }
  rest_.clear();
}

IndexWalk::IndexWalk(Database & database, size_t column)
    : database_(database), order_(EntryOrder(database.Columns()[column].type)) {
  database.Check(mdb_cursor_open(database.Transaction(), database.IndexOf(column), &entries_));
  database.Check(mdb_cursor_open(database.Transaction(), database.RestOf(column), &rest_));
}

IndexWalk::~IndexWalk() {
  if (entries_ != nullptr)
    mdb_cursor_close(entries_);
  if (rest_ != nullptr)
    mdb_cursor_close(rest_);
}

std::optional<Bytes> IndexWalk::EndKey(bool largest) {
  MDB_val key{}, nothing{};
  int result = mdb_cursor_get(entries_, &key, &nothing, largest ? MDB_LAST : MDB_FIRST);
  if (result == MDB_NOTFOUND)
    return std::nullopt;
  database_.Check(result);
  auto first = static_cast<unsigned char const *>(key.mv_data);
  return Bytes(first, first + key.mv_size - kRowBytes);
}

void IndexWalk::Between(Bytes const * low, Bytes const * high) {
  low_ = low != nullptr ? WithRow(*low, 0) : Bytes();
  bounded_ = high != nullptr;
  if (bounded_)
    high_ = WithRow(*high, std::numeric_limits<RowNumber>::max());
  started_ = false;
}

bool IndexWalk::Next(Entry & entry) {
  MDB_val key = ValOf(low_), nothing{};
  MDB_cursor_op step = started_ ? MDB_NEXT : low_.empty() ? MDB_FIRST : MDB_SET_RANGE;
  started_ = true;
  int result = mdb_cursor_get(entries_, &key, &nothing, step);
  if (result == MDB_NOTFOUND)
    return false;
  database_.Check(result);
  if (bounded_) {
    MDB_val high = ValOf(high_);
    if (order_(&key, &high) > 0)
      return false;
  }
  entry.row = RowOfEntry(key);
  entry.key = {key.mv_size - kRowBytes, key.mv_data};
  return true;
}

bool IndexWalk::NextRest(RowNumber & row) {
  MDB_val key{}, nothing{};
  int result = mdb_cursor_get(rest_, &key, &nothing, restStarted_ ? MDB_NEXT : MDB_FIRST);
  restStarted_ = true;
  if (result == MDB_NOTFOUND)
    return false;
  database_.Check(result);
  std::memcpy(&row, key.mv_data, sizeof row);
  return true;
}

} // namespace zantm
