#include "query/date_query.h"

#include "d_time.h"
#include "query/hash_frame.h"
#include "zntypes/date_form.h"

/// The hash rows of dates and times: the frame, with the words of their fields.
///
/// Worked example: the date 2000-01-02 has the word (2000 << 16) + (1 << 8) + 2, in memory and in
/// stored form alike. A date with a time has the exclusive or of the two words.
///
/// The two forms of `d_Time` and `d_Timestamp` have different words: that of memory takes the zone
/// out, that of the stored form folds the bytes as they stand.

namespace zntms {

namespace {

/// Three numbers beside one another, each with its sign, the sum in 32 bits.
unsigned int PackWord(int first, int second, int third) {
  return (static_cast<unsigned int>(first) << 16) + (static_cast<unsigned int>(second) << 8) +
         static_cast<unsigned int>(third);
}

unsigned int BytesWord(Bytes at) {
  auto const byte = [at](int i) { return static_cast<signed char>(at[i]); };
  return PackWord(byte(0), byte(1), byte(2));
}

template <bool swapped>
unsigned int DateWord(Bytes at) {
  return PackWord(ReadNumber<short, swapped>(at), static_cast<signed char>(at[2]),
                  static_cast<signed char>(at[3]));
}

template <DateLayout layout, bool swapped>
unsigned int ElementWord(Bytes at, unsigned int nanosecondsAt) {
  unsigned int word = 0;
  if constexpr (layout.hasYear)
    word = DateWord<swapped>(at);
  if constexpr (layout.Single() != 2)
    word ^= BytesWord(at + (layout.hasYear ? 4 : 0));
  if constexpr (layout.hasNanoseconds)
    word ^= ReadNumber<unsigned int, swapped>(at + nanosecondsAt);
  return word;
}

template <DateLayout layout>
unsigned int HashElements(unsigned char format, unsigned int length, void const * value,
                          unsigned int count, int & error) {
  if (HasMemoryNibble(format))
    return HashFrame(layout.memLen, length, value, count, error,
                     [](Bytes at) { return ElementWord<layout, false>(at, 8); });
  constexpr unsigned int nanosecondsAt = layout.NanosecondsAt();
  if (IsSwapped(format))
    return HashFrame(layout.stored, length, value, count, error,
                     [](Bytes at) { return ElementWord<layout, true>(at, nanosecondsAt); });
  return HashFrame(layout.stored, length, value, count, error,
                   [](Bytes at) { return ElementWord<layout, false>(at, nanosecondsAt); });
}

unsigned int StdDateWord(Bytes at, unsigned char format) {
  return IsSwapped(format) ? DateWord<true>(at) : DateWord<false>(at);
}

unsigned int StdTimeWord(d_Time const & time) {
  return (static_cast<unsigned int>(time.hour()) << 24) +
         (static_cast<unsigned int>(time.minute()) << 16) +
         static_cast<unsigned short>(static_cast<int>(time.second()));
}

/// The six bytes of a stored time, each moved in from the right.
template <class Byte>
unsigned int ShiftWord(Bytes at) {
  unsigned int word = 0;
  for (int i = 0; i < 6; ++i)
    word = (word << 4) ^ static_cast<unsigned int>(static_cast<Byte>(at[i]));
  return word;
}

} // namespace

unsigned int HashDates(unsigned char format, unsigned int length, void * value, unsigned int count,
                       int & error) {
  return HashElements<kDateLayout>(format, length, value, count, error);
}

unsigned int HashTimes(unsigned char format, unsigned int length, void * value, unsigned int count,
                       int & error) {
  return HashElements<kTimeLayout>(format, length, value, count, error);
}

unsigned int HashDateTimes(unsigned char format, unsigned int length, void * value,
                           unsigned int count, int & error) {
  return HashElements<kDateTimeLayout>(format, length, value, count, error);
}

unsigned int HashDateTimeNs(unsigned char format, unsigned int length, void * value,
                            unsigned int count, int & error) {
  return HashElements<kDateTimeNLayout>(format, length, value, count, error);
}

unsigned int HashStdDates(unsigned char format, unsigned int length, void * value,
                          unsigned int count, int & error) {
  return HashFrame(kDateLayout.stored, length, value, count, error,
                   [format](Bytes at) { return StdDateWord(at, format); });
}

unsigned int HashStdTimes(unsigned char format, unsigned int length, void * value,
                          unsigned int count, int & error) {
  bool const memory = format == ZnFormatMemory;
  return HashFrame(kStdTimeLayout.stored, length, value, count, error, [memory](Bytes at) {
    return memory ? StdTimeWord(ReadValue<d_Time>(at)) : ShiftWord<unsigned char>(at);
  });
}

unsigned int HashStdTimestamps(unsigned char format, unsigned int length, void * value,
                               unsigned int count, int & error) {
  bool const memory = format == ZnFormatMemory;
  return HashFrame(
      kStdTimestampLayout.stored, length, value, count, error, [format, memory](Bytes at) {
        return StdDateWord(at, format) ^
               (memory ? StdTimeWord(ReadValue<d_Time>(at + 4)) : ShiftWord<signed char>(at + 4));
      });
}

} // namespace zntms
