#include "zntypes/int64_rows.h"

#include "query/bounds.h"
#include "query/compare_frame.h"
#include "query/hash_frame.h"

/// Row functions of ZnInt64 and what its nullable kind has of its own.

namespace zntms {

ZnString & Int64Print(ZnString & out, void * value, char const * format, unsigned int) {
  return static_cast<ZnInt64 const *>(value)->PrintToZnString(out, format);
}

void * Int64Scan(void * value, ZnString & in, char const * format, unsigned int) {
  if (value)
    static_cast<ZnInt64 *>(value)->ScanFromZnString(in, format);
  return value;
}

/// Reversing the bytes of a word and exclusive or commute, so that words are reversed in the end.
unsigned int HashInt64(unsigned char format, unsigned int length, void * value, unsigned int count,
                       int & error) {
  return HashFold(Int64Codec::kSize, length, value, count, error,
                  [format](Bytes at, unsigned int held) {
                    auto const both = FoldNumbers<std::uint64_t>(at, held);
                    auto const word = static_cast<std::uint32_t>(both ^ both >> 32);
                    return (IsSwapped(format) ? SwapBytes(word) : word) * kHashMultiplier;
                  });
}

float BoundInt64(ZnIdxBounds * area, unsigned short & op, void * value, unsigned char format,
                 unsigned int count, ZnIdxBounds * out) {
  return BoundInt64Keys(area, op, value, count * Int64Codec::kSize, out,
                        [format](void const * at) { return LoadOne<Int64Codec>(at, format); });
}

namespace {

/// An estimate of nothing becomes 1 where the exact numbers say that the comparison selects
/// something, and so does every estimate for a null constant where the index holds values.
double FixNullRange(double range, unsigned short op, ZnNull_ZnInt64 const & constant,
                    ZnNull_ZnInt64 const & lo, ZnNull_ZnInt64 const & hi) {
  if (range == 0) {
    bool const below = (op & ZnOpAbove) == 0 && lo.value > constant.value && lo.isNull == 0;
    if (!below && ((op & ZnOpBelow) != 0 || constant.value <= hi.value))
      return 1.0;
  }
  return constant.isNull != 0 && hi.isNull == 0 ? 1.0 : range;
}

} // namespace

/// The estimate is the number of values selected, not a share of them.
float BoundNullInt64(ZnIdxBounds * area, unsigned short & op, void * value, unsigned char format,
                     unsigned int count, ZnIdxBounds * out) {
  double range = 0;
  if (area) {
    auto const read = [format](void const * at) {
      return LoadNullable<ZnInt64>(static_cast<Bytes>(at), format);
    };
    auto const [lo, hi] = ReadRange<ZnNull_ZnInt64>(area, read);
    ZnNull_ZnInt64 const constant = read(value);
    range = FixNullRange(ZnEvalNullRange(op, constant, lo, hi, 1.0), op, constant, lo, hi);
  }
  ZnBoundsSave(out, value, op, count * kNullableSize<ZnInt64>);
  return static_cast<float>(range);
}

int StepInt64(void * value, unsigned int, unsigned char format, unsigned char what) {
  if (format != ZnFormatMemory)
    return ZnErrNotSupported;
  ZnInt64 & number = *static_cast<ZnInt64 *>(value);
  switch (what) {
  case 2:
    number = 0;
    return 0;
  case 'O':
    return 0;
  case 'M':
  case 'N': {
    ZnInt64 const next = number + 1;
    if (next < number)
      return ZnErrNoNextValue;
    number = next;
    return 0;
  }
  default:
    return ZnErrNotSupported;
  }
}

} // namespace zntms

using namespace zntms;

int Int64Compare(unsigned char format, unsigned int lengthA, void * valueA, unsigned int lengthB,
                 void * valueB, unsigned short int, unsigned int count, int & error) {
  return CompareFrame(Int64Codec::kSize, lengthA, valueA, lengthB, valueB, count, error,
                      [format](Bytes a, Bytes b) {
                        return Order(LoadOne<Int64Codec>(a, format),
                                     LoadOne<Int64Codec>(b, format));
                      });
}
