#include "zndatecompare.h"

#include "d_time.h"
#include "query/compare_frame.h"
#include "zndatetimen.h"
#include "zntypes/date_form.h"

/// The compare rows of dates and times: the frame, with one order for all stored forms.
///
/// Worked example: the stored dates 2024-03-15 and *-03-01, the second as a pattern. The years
/// differ, but that of the second is a wildcard; the months are equal; the days give 1.

namespace {

using namespace zntms;

/// Signed bytes in their order; a wildcard in `b` is passed over unless the order is exact.
int OrderBytes(Bytes a, Bytes b, unsigned int number, bool exact) {
  for (unsigned int i = 0; i < number; ++i) {
    if (a[i] == b[i] || (!exact && b[i] == 0xFF))
      continue;
    return static_cast<signed char>(a[i]) < static_cast<signed char>(b[i]) ? -1 : 1;
  }
  return 0;
}

/// The years in front; those of the standard classes compare without sign.
template <class Year, bool swapped>
int OrderYears(Bytes a, Bytes b, bool exact) {
  auto const yearA = ReadNumber<Year, swapped>(a);
  auto const yearB = ReadNumber<Year, swapped>(b);
  return !exact && yearB == static_cast<Year>(-1) ? 0 : Order(yearA, yearB);
}

template <DateLayout layout, bool swapped>
int OrderStored(Bytes a, Bytes b, bool exact) {
  if constexpr (layout.hasYear)
    if (int const order = OrderYears<short, swapped>(a, b, exact); order != 0)
      return order;
  constexpr unsigned int at = layout.YearBytes();
  if (int const order = OrderBytes(a + at, b + at, layout.Single(), exact); order != 0)
    return order;
  if constexpr (layout.hasNanoseconds) {
    auto const nsA = ReadNumber<int, swapped>(a + layout.NanosecondsAt());
    auto const nsB = ReadNumber<int, swapped>(b + layout.NanosecondsAt());
    return !exact && nsB == -1 ? 0 : Order(nsA, nsB);
  }
  return 0;
}

/// What the rows are given.
struct Sides {
  unsigned char format;
  unsigned int lengthA;
  void const * valueA;
  unsigned int lengthB;
  void const * valueB;
  unsigned int count;
};

template <class Pair>
int Frame(Sides const & sides, unsigned int size, int & error, Pair pair) {
  return CompareFrame(size, sides.lengthA, sides.valueA, sides.lengthB, sides.valueB, sides.count,
                      error, pair);
}

template <class Value, DateLayout layout>
int CompareDates(Sides const & sides, unsigned short flags, int & error) {
  if (HasMemoryNibble(sides.format))
    return Frame(sides, layout.memLen, error, [flags](Bytes a, Bytes b) {
      return ReadValue<Value>(a).Compare(ReadValue<Value>(b), flags);
    });
  bool const exact = (flags & ZnCmpNoWildcards) != 0;
  if (IsSwapped(sides.format))
    return Frame(sides, layout.stored, error,
                 [exact](Bytes a, Bytes b) { return OrderStored<layout, true>(a, b, exact); });
  return Frame(sides, layout.stored, error,
               [exact](Bytes a, Bytes b) { return OrderStored<layout, false>(a, b, exact); });
}

/// A standard class in memory compares by its three-way `operator!=`.
template <class Value, DateLayout layout, class Stored>
int CompareStandard(Sides const & sides, int & error, Stored stored) {
  if (sides.format == ZnFormatMemory)
    return Frame(sides, layout.memLen, error, [](Bytes a, Bytes b) {
      return static_cast<int>(ReadValue<Value>(a) != ReadValue<Value>(b));
    });
  return Frame(sides, layout.stored, error, stored);
}

int OrderStoredStdDate(Bytes a, Bytes b, unsigned char format, bool exact) {
  int const order = IsSwapped(format) ? OrderYears<unsigned short, true>(a, b, exact)
                                      : OrderYears<unsigned short, false>(a, b, exact);
  return order != 0 ? order : OrderBytes(a + 2, b + 2, 2, exact);
}

} // namespace

#define ZANTMS_DATE_COMPARE(name, Value, layout)                                                   \
  int name(unsigned char format, unsigned int lengthA, void * valueA, unsigned int lengthB,        \
           void * valueB, unsigned short int cmpOp, unsigned int count, int & error) {             \
    return CompareDates<Value, layout>({format, lengthA, valueA, lengthB, valueB, count}, cmpOp,   \
                                       error);                                                     \
  }

ZANTMS_DATE_COMPARE(ZnDateCompare, ZnDate, kDateLayout)
ZANTMS_DATE_COMPARE(ZnTimeCompare, ZnTime, kTimeLayout)
ZANTMS_DATE_COMPARE(ZnDateTimeCompare, ZnDateTime, kDateTimeLayout)
ZANTMS_DATE_COMPARE(ZnDateTimeNCompare, ZnDateTimeN, kDateTimeNLayout)
ZANTMS_DATE_COMPARE(ZnTimeSpanCompare, ZnTimeSpan, kDateTimeNLayout)

#undef ZANTMS_DATE_COMPARE

int d_DateCompare(unsigned char format, unsigned int lengthA, void * valueA, unsigned int lengthB,
                  void * valueB, unsigned short int cmpOp, unsigned int count, int & error) {
  bool const exact = (cmpOp & ZnCmpNoWildcards) != 0;
  return CompareStandard<d_Date, kDateLayout>(
      {format, lengthA, valueA, lengthB, valueB, count}, error,
      [format, exact](Bytes a, Bytes b) { return OrderStoredStdDate(a, b, format, exact); });
}

int d_TimeCompare(unsigned char format, unsigned int lengthA, void * valueA, unsigned int lengthB,
                  void * valueB, unsigned short int, unsigned int count, int & error) {
  return CompareStandard<d_Time, kStdTimeLayout>(
      {format, lengthA, valueA, lengthB, valueB, count}, error,
      [](Bytes a, Bytes b) { return OrderBytes(a, b, 6, true); });
}

int d_TimestampCompare(unsigned char format, unsigned int lengthA, void * valueA,
                       unsigned int lengthB, void * valueB, unsigned short int cmpOp,
                       unsigned int count, int & error) {
  bool const exact = (cmpOp & ZnCmpNoWildcards) != 0;
  return CompareStandard<d_Timestamp, kStdTimestampLayout>(
      {format, lengthA, valueA, lengthB, valueB, count}, error, [format, exact](Bytes a, Bytes b) {
        int const order = OrderStoredStdDate(a, b, format, exact);
        return order != 0 ? order : OrderBytes(a + 4, b + 4, 6, true);
      });
}
