#pragma once

#include "database.h"

#include <optional>

/// The index of a column: keys, their order, building and walking.
///
/// Worked example: the rows 0 to 2 hold the `int` values 7, 5, 7. The index holds the entries
/// `05 00 00 00`+1, `07 00 00 00`+0, `07 00 00 00`+2: the key form of the value and the row
/// number, ordered by the compare row of the type, equal values by row number.
///
/// A key may tell less than the value: a text that changes script ends there in its key, a long
/// text is cut. The compare row says so when it compares such a key with itself. Where the rest
/// of the text counts, such a key cannot tell the value's true place; its row goes to the rest of
/// the index, a plain list of row numbers that every query looks through.

namespace zantm {

inline constexpr unsigned char kStoredFormat = ZnFormatLittleEndian;
inline constexpr unsigned char kKeyFormat = ZnFormatLittleEndian | ZnFormatIndexKey;
/// The longest key, in bytes: bounds count their bytes in 8 bits, and text keys stay below 255.
inline constexpr unsigned char kLongestKey = 254;

/// LMDB's order of the entries of an index for values of a type.
MDB_cmp_func * EntryOrder(char type);

/// Makes the key of a value. False if the key does not tell the whole value.
bool MakeKey(Value const & value, Bytes & key);

/// Collects the entries of one column and puts them into its index in order.
class IndexBuilder {
public:
  /// `memory` is the number of bytes that may be collected before they are sorted and put.
  IndexBuilder(Database & database, size_t column, size_t memory);
  void Add(Value const & value, RowNumber row);
  /// Puts what is left.
  void Finish();

private:
  void Put();

  Database & database_;
  size_t column_;
  size_t memory_;
  MDB_cmp_func * order_;
  Bytes key_;
  Bytes entries_;                     ///< key and row number, back to back
  std::vector<std::uint64_t> places_; ///< place in `entries_` times 512, plus length
  std::vector<RowNumber> rest_;
};

/// Walks the entries of an index between two keys.
class IndexWalk {
public:
  struct Entry {
    MDB_val key;
    RowNumber row;
  };

  IndexWalk(Database & database, size_t column);
  ~IndexWalk();
  IndexWalk(IndexWalk const &) = delete;
  IndexWalk & operator=(IndexWalk const &) = delete;

  /// The smallest or the largest key; none in an empty index.
  std::optional<Bytes> EndKey(bool largest);
  /// Sets the walk on the entries from `low` up to `high`, both included; null is no bound.
  void Between(Bytes const * low, Bytes const * high);
  bool Next(Entry & entry);
  /// The rows whose keys do not tell all.
  bool NextRest(RowNumber & row);

private:
  Database & database_;
  MDB_cmp_func * order_;
  MDB_cursor * entries_ = nullptr;
  MDB_cursor * rest_ = nullptr;
  Bytes low_, high_;
  bool started_ = false, bounded_ = false, restStarted_ = false;
};

} // namespace zantm
