#pragma once

#include "query/elements.h"
#include "zntypes/fixed_storage.h"

#include <array>
#include <bit>

/// Dates and times as bytes: where their fields stand in memory and in stored form.
///
/// Worked example: the `ZnDateTimeN` 2000-01-02 03:04:05.000000006 in big-endian form is the 11
/// bytes 07 D0 | 01 02 03 04 05 | 00 00 00 06. In memory the year stands in host order, and a spare
/// byte fills up to offset 8, where the nanoseconds stand.
///
/// All classes are alike: a 16-bit year (in those with a date), bytes that never change, and 32-bit
/// nanoseconds (in those of the highest resolution). A format with low nibble 2 reverses the two
/// numbers; every other one leaves them as they are.

namespace zntms {

struct DateLayout {
  unsigned int memLen;
  unsigned int stored; ///< bytes of an element in stored form
  bool hasYear;
  bool hasNanoseconds;

  constexpr unsigned int YearBytes() const { return hasYear ? 2 : 0; }
  constexpr unsigned int Single() const { return stored - YearBytes() - (hasNanoseconds ? 4 : 0); }
  constexpr unsigned int NanosecondsAt() const { return YearBytes() + Single(); }
};

inline constexpr DateLayout kDateLayout = {4, 4, true, false};
inline constexpr DateLayout kTimeLayout = {3, 3, false, false};
inline constexpr DateLayout kDateTimeLayout = {8, 7, true, false};
inline constexpr DateLayout kDateTimeNLayout = {12, 11, true, true}; ///< spans too
inline constexpr DateLayout kStdTimeLayout = {6, 6, false, false};
inline constexpr DateLayout kStdTimestampLayout = {10, 10, true, false};

/// An element in memory form at any address.
template <class Value>
Value ReadValue(void const * at) {
  std::array<unsigned char, sizeof(Value)> bytes;
  std::memcpy(bytes.data(), at, sizeof(Value));
  return std::bit_cast<Value>(bytes);
}

/// The fields of a stored element.
template <DateLayout layout>
struct StoredFields {
  short year = 0;
  std::array<signed char, layout.Single()> single{}; ///< the fields of one byte, in their order
  int nanoseconds = 0;

  static StoredFields Read(void const * at, unsigned char format) {
    auto const * bytes = static_cast<Bytes>(at);
    StoredFields fields;
    if constexpr (layout.hasYear)
      fields.year = ReadNumber<short>(bytes, format);
    std::memcpy(fields.single.data(), bytes + layout.YearBytes(), layout.Single());
    if constexpr (layout.hasNanoseconds)
      fields.nanoseconds = ReadNumber<int>(bytes + layout.NanosecondsAt(), format);
    return fields;
  }

  void Write(char * at, unsigned char format) const {
    auto const put = [at, format](auto word, unsigned int offset) {
      IsSwapped(format) ? WriteNumber<true>(at + offset, word)
                        : WriteNumber<false>(at + offset, word);
    };
    if constexpr (layout.hasYear)
      put(static_cast<std::uint16_t>(year), 0);
    std::memcpy(at + layout.YearBytes(), single.data(), layout.Single());
    if constexpr (layout.hasNanoseconds)
      put(static_cast<std::uint32_t>(nanoseconds), layout.NanosecondsAt());
  }
};

/// One element between memory and stored form, for `kFixedStorage`.
template <class Record, DateLayout layout>
struct DateCodec {
  using Value = Record;
  static constexpr unsigned int kSize = layout.stored;
  static constexpr unsigned int kMemoryNanosecondsAt = 8;
  static_assert(sizeof(Value) == layout.memLen && std::is_trivially_copyable_v<Value>);

  template <bool swapped>
  static void Write(char * at, Value const & value) {
    Move<swapped>(at, &value, layout.NanosecondsAt(), kMemoryNanosecondsAt);
  }
  template <bool swapped>
  static void Read(Value & value, char const * at) {
    Move<swapped>(&value, at, kMemoryNanosecondsAt, layout.NanosecondsAt());
  }

private:
  template <bool swapped>
  static void Move(void * dst, void const * src, unsigned int dstNanosecondsAt,
                   unsigned int srcNanosecondsAt) {
    auto * const to = static_cast<char *>(dst);
    auto const * const from = static_cast<char const *>(src);
    if constexpr (layout.hasYear)
      WriteNumber<false>(to, ReadNumber<std::uint16_t, swapped>(from));
    std::memcpy(to + layout.YearBytes(), from + layout.YearBytes(), layout.Single());
    if constexpr (layout.hasNanoseconds)
      WriteNumber<false>(to + dstNanosecondsAt,
                         ReadNumber<std::uint32_t, swapped>(from + srcNanosecondsAt));
  }
};

} // namespace zntms
