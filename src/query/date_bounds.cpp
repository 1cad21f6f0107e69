#include "query/date_query.h"

#include "query/bounds.h"
#include "zndate.h"
#include "zntypes/date_form.h"

#include <algorithm>

/// The bound rows of dates and times: a constant with wildcards becomes the range of all values
/// that could match it.
///
/// Worked example: the date 2024-02-* and the comparison "equal". The low key gets 2024-02-01, the
/// high key 2024-02-29, and bit 3 of the operator word tells that keys between the two have still
/// to be compared. In an index from 2024-01-01 to 2024-12-31 the estimate counts days: 29 of 366.
///
/// Each kind tells three things: how a constant widens, which number a key stands for, and how the
/// share is estimated. All elements of an array widen, each by itself; the first one is estimated.
/// Keys that the record held before the call stay as they are.

namespace zntms {

namespace {

template <class Fields>
struct Widened {
  Fields low;
  Fields high;
  bool wildcard = false;         ///< a field of the constant is one
  bool aboveNanoseconds = false; ///< and it is not that of the nanoseconds
};

/// The keys that a call records, null where it records none.
struct NewKeys {
  char * low = nullptr;
  char * high = nullptr;
};

NewKeys SaveNewKeys(ZnIdxBounds * out, void const * value, unsigned short op, unsigned int size) {
  if (out == nullptr)
    return {};
  bool const hadLow = out->lowKey != nullptr;
  bool const hadHigh = out->highKey != nullptr;
  ZnBoundsSave(out, value, op, size);
  return {hadLow ? nullptr : static_cast<char *>(out->lowKey),
          hadHigh ? nullptr : static_cast<char *>(out->highKey)};
}

/// Writes the widened elements over the recorded ones.
template <class Fields>
void WriteKeys(NewKeys const & keys, unsigned int offset, Widened<Fields> const & widened,
               unsigned char format) {
  if (keys.low != nullptr)
    widened.low.Write(keys.low + offset, format);
  if (keys.high != nullptr)
    widened.high.Write(keys.high + offset, format);
}

template <DateLayout layout, class Position>
KeyRange<double> ReadPositions(ZnIdxBounds const * area, unsigned char format, Position position) {
  return ReadRange<double>(area, [&](void const * at) {
    return static_cast<double>(position(StoredFields<layout>::Read(at, format)));
  });
}

/// The rows that estimate by `ZnEvalRange` on positions one apart. `Kind` gives the layout, the
/// mask of the operator word, `Widen` and `Position`.
template <class Kind>
float BoundByRange(ZnIdxBounds * area, unsigned short & op, void const * value,
                   unsigned char format, unsigned int count, ZnIdxBounds * out) {
  constexpr DateLayout layout = Kind::layout;
  bool const exact = (op & ZnCmpNoWildcards) != 0;
  op &= Kind::mask;
  NewKeys const keys = SaveNewKeys(out, value, op, count * layout.stored);
  if (count == 0)
    return 0;
  auto const [lo, hi] = ReadPositions<layout>(area, format, Kind::Position);

  double low = 0;
  double high = 0;
  bool wildcard = false;
  auto const * at = static_cast<Bytes>(value);
  for (unsigned int i = 0; i < count; ++i) {
    auto const widened =
        Kind::Widen(StoredFields<layout>::Read(at + std::size_t(i) * layout.stored, format), exact);
    if (i == 0) {
      low = Kind::Position(widened.low);
      high = Kind::Position(widened.high);
    }
    WriteKeys(keys, i * layout.stored, widened, format);
    // Nanoseconds are no part of an estimate, and count only where they are recorded.
    wildcard |= widened.aboveNanoseconds || (widened.wildcard && out != nullptr);
    if (layout.hasNanoseconds && widened.aboveNanoseconds && out != nullptr) {
      out->lowCondition &= 0xFFFE;
      out->highCondition &= 0xFFFE;
    }
  }
  if (wildcard)
    op |= ZnOpWildcard;
  return static_cast<float>(ZnEvalRange(op, low, high, lo, hi, 1.0) / (hi - lo + 1.0));
}

// ---- ZnDate: real days between the first day number and the year before the last ----------------

struct DateKind {
  static constexpr DateLayout layout = kDateLayout;
  static constexpr unsigned short mask = 0x800F;
  using Fields = StoredFields<layout>;

  static constexpr ZnDate lowest{-4713, 11, 24};
  static constexpr short highestYear = 32766;

  static int Position(Fields const & f) { return DayNumber(f.year, f.single[0], f.single[1]); }

  static int DaysOfMonth(int year, int month) {
    return DayNumber(year, month + 1, 1) - DayNumber(year, month, 1);
  }

  static Widened<Fields> Widen(Fields const & constant, bool) {
    Widened<Fields> result{constant, constant};
    Fields & low = result.low;
    Fields & high = result.high;
    if (constant.year == -1) {
      result.wildcard = true;
      low.year = lowest.year;
      high.year = highestYear;
    }
    bool const lowestYear = low.year == lowest.year;
    if (constant.single[0] == -1) {
      result.wildcard = true;
      low.single[0] = 1;
      high.single[0] = 12;
    }
    if (lowestYear)
      low.single[0] = std::max(low.single[0], lowest.month);
    bool const lowestMonth = lowestYear && low.single[0] == lowest.month;
    if (constant.single[1] == -1) {
      result.wildcard = true;
      low.single[1] = 1;
      high.single[1] = static_cast<signed char>(DaysOfMonth(high.year, high.single[0]));
    }
    if (lowestMonth)
      low.single[1] = std::max(low.single[1], lowest.day);
    result.aboveNanoseconds = result.wildcard;
    return result;
  }
};

// ---- Times: from the first wildcard on every field takes its full range -------------------------

template <DateLayout timeLayout>
struct TimeKind {
  static constexpr DateLayout layout = timeLayout;
  static constexpr unsigned short mask = 0x8007;
  using Fields = StoredFields<layout>;

  /// Seconds where every month counts 31 days.
  static double Position(Fields const & f) {
    constexpr int kRadix[] = {12, 31, 24, 60, 60};
    constexpr unsigned int kSkipped = sizeof kRadix / sizeof *kRadix - layout.Single();
    double position = f.year;
    for (unsigned int i = 0; i < layout.Single(); ++i)
      position = position * kRadix[kSkipped + i] + f.single[i];
    return position;
  }

  static Widened<Fields> Widen(Fields const & constant, bool exact) {
    Widened<Fields> result{constant, constant};
    if (layout.hasYear && !exact && constant.year == -1) {
      result.wildcard = true;
      result.low.year = -32768;
      result.high.year = 32767;
    }
    for (unsigned int i = 0; i < layout.Single(); ++i) {
      result.wildcard |= !exact && constant.single[i] == -1;
      if (result.wildcard) {
        result.low.single[i] = -128;
        result.high.single[i] = 127;
      }
    }
    result.aboveNanoseconds = result.wildcard;
    if (layout.hasNanoseconds && (result.wildcard || (!exact && constant.nanoseconds == -1))) {
      result.wildcard = true;
      result.low.nanoseconds = 0;
      result.high.nanoseconds = 1000000000;
    }
    return result;
  }
};

// ---- Standard classes: a plain position in the range --------------------------------------------

/// The values below, above and at position `p` of `range` positions, as a share.
float ShareOfPosition(unsigned short op, double p, double range) {
  double sum = 0;
  if ((op & ZnOpBelow) != 0)
    sum += p;
  if ((op & ZnOpAbove) != 0)
    sum += range - p - 1;
  if ((op & ZnOpEqual) != 0)
    sum += 1;
  return static_cast<float>(std::max(sum, 0.0) / range);
}

/// `key` is the position of the constant.
template <DateLayout layout, class Position>
float BoundByPosition(ZnIdxBounds const * area, unsigned short op, double key, unsigned char format,
                      Position position) {
  auto const [lo, hi] = ReadPositions<layout>(area, format, position);
  return ShareOfPosition(op, key - lo, hi - lo + 1.0);
}

template <DateLayout layout, class Position>
float BoundPlain(ZnIdxBounds * area, unsigned short & op, void const * value, unsigned char format,
                 unsigned int count, ZnIdxBounds * out, Position position) {
  op &= 0x800F;
  ZnBoundsSave(out, value, op, count * layout.stored);
  if (count == 0)
    return 0;
  double const key = position(StoredFields<layout>::Read(value, format));
  return BoundByPosition<layout>(area, op, key, format, position);
}

using StdDateFields = StoredFields<kDateLayout>;

/// Wildcards take all that a field can hold.
Widened<StdDateFields> WidenStdDate(StdDateFields const & constant) {
  Widened<StdDateFields> result{constant, constant};
  if (constant.year == -1) {
    result.low.year = -32768;
    result.high.year = 32767;
  }
  for (unsigned int i = 0; i < 2; ++i) {
    if (constant.single[i] != -1)
      continue;
    result.low.single[i] = -128;
    result.high.single[i] = 127;
  }
  return result;
}

double StdDatePosition(StdDateFields const & f) {
  return ((f.year + 40000) * 12 + f.single[0]) * 31 + f.single[1];
}

} // namespace

float BoundDates(ZnIdxBounds * area, unsigned short & op, void * value, unsigned char format,
                 unsigned int count, ZnIdxBounds * out) {
  return BoundByRange<DateKind>(area, op, value, format, count, out);
}

float BoundTimes(ZnIdxBounds * area, unsigned short & op, void * value, unsigned char format,
                 unsigned int count, ZnIdxBounds * out) {
  return BoundByRange<TimeKind<kTimeLayout>>(area, op, value, format, count, out);
}

float BoundDateTimes(ZnIdxBounds * area, unsigned short & op, void * value, unsigned char format,
                     unsigned int count, ZnIdxBounds * out) {
  return BoundByRange<TimeKind<kDateTimeLayout>>(area, op, value, format, count, out);
}

float BoundDateTimeNs(ZnIdxBounds * area, unsigned short & op, void * value, unsigned char format,
                      unsigned int count, ZnIdxBounds * out) {
  return BoundByRange<TimeKind<kDateTimeNLayout>>(area, op, value, format, count, out);
}

float BoundStdDates(ZnIdxBounds * area, unsigned short & op, void * value, unsigned char format,
                    unsigned int count, ZnIdxBounds * out) {
  op &= 0x800F;
  NewKeys const keys = SaveNewKeys(out, value, op, count * kDateLayout.stored);
  if (count == 0)
    return 0;
  auto const * at = static_cast<Bytes>(value);
  for (unsigned int i = 0; i < count; ++i)
    WriteKeys(keys, i * kDateLayout.stored,
              WidenStdDate(StdDateFields::Read(at + std::size_t(i) * kDateLayout.stored, format)),
              format);
  StdDateFields constant = StdDateFields::Read(value, format);
  if (constant.year == -1)
    return 1;
  // Where the keys take all months or days, the estimate takes the last.
  if (out != nullptr && constant.single[0] == -1)
    constant.single[0] = 12;
  if (out != nullptr && constant.single[1] == -1)
    constant.single[1] = 31;
  return BoundByPosition<kDateLayout>(area, op, StdDatePosition(constant), format, StdDatePosition);
}

float BoundStdTimes(ZnIdxBounds * area, unsigned short & op, void * value, unsigned char format,
                    unsigned int count, ZnIdxBounds * out) {
  return BoundPlain<kStdTimeLayout>(
      area, op, value, format, count, out, [](StoredFields<kStdTimeLayout> const & f) {
        return static_cast<double>((f.single[2] * 60 + f.single[3]) * 60 + f.single[4]);
      });
}

float BoundStdTimestamps(ZnIdxBounds * area, unsigned short & op, void * value,
                         unsigned char format, unsigned int count, ZnIdxBounds * out) {
  return BoundPlain<kStdTimestampLayout>(
      area, op, value, format, count, out, [](StoredFields<kStdTimestampLayout> const & f) {
        double const days = ((f.year + 40000.0) * 12 + f.single[0]) * 31 + f.single[1];
        return ((days + f.single[4]) * 60 + f.single[5]) * 60;
      });
}

} // namespace zntms
