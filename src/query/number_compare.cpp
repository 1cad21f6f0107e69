#include "zncompare.h"

#include "query/compare_frame.h"
#include "query/number_order.h"
#include "znboolean.h"

/// The compare rows of plain numbers: the frame, with the kind's reader and order.

namespace {

using namespace zntms;

template <class Number, bool swapped>
int CompareForm(unsigned int lengthA, void const * valueA, unsigned int lengthB,
                void const * valueB, unsigned int count, int & error) {
  return CompareFrame(
      sizeof(Number), lengthA, valueA, lengthB, valueB, count, error, [](Bytes a, Bytes b) {
        return OrderNumbers(ReadNumber<Number, swapped>(a), ReadNumber<Number, swapped>(b));
      });
}

template <class Number>
int CompareNumbers(unsigned char format, unsigned int lengthA, void const * valueA,
                   unsigned int lengthB, void const * valueB, unsigned int count, int & error) {
  return sizeof(Number) > 1 && IsSwapped(format)
             ? CompareForm<Number, true>(lengthA, valueA, lengthB, valueB, count, error)
             : CompareForm<Number, false>(lengthA, valueA, lengthB, valueB, count, error);
}

} // namespace

#define ZANTMS_NUMBER_COMPARE(name, Number)                                                        \
  int name(unsigned char format, unsigned int lengthA, void * valueA, unsigned int lengthB,        \
           void * valueB, unsigned short int, unsigned int count, int & error) {                   \
    return CompareNumbers<Number>(format, lengthA, valueA, lengthB, valueB, count, error);         \
  }

ZANTMS_NUMBER_COMPARE(CharCompare, signed char)
ZANTMS_NUMBER_COMPARE(ByteCompare, unsigned char)
ZANTMS_NUMBER_COMPARE(ShortCompare, short)
ZANTMS_NUMBER_COMPARE(WordCompare, unsigned short)
ZANTMS_NUMBER_COMPARE(LongCompare, int)
ZANTMS_NUMBER_COMPARE(DwordCompare, unsigned int)
ZANTMS_NUMBER_COMPARE(IntCompare, int)
ZANTMS_NUMBER_COMPARE(UnsignedCompare, unsigned int)
ZANTMS_NUMBER_COMPARE(O_8BCompare, long long)
ZANTMS_NUMBER_COMPARE(O_U8BCompare, unsigned long long)
ZANTMS_NUMBER_COMPARE(FloatCompare, float)
ZANTMS_NUMBER_COMPARE(DoubleCompare, double)

#undef ZANTMS_NUMBER_COMPARE

int BooleanCompare(unsigned char, unsigned int lengthA, void * valueA, unsigned int lengthB,
                   void * valueB, unsigned short int, unsigned int count, int & error) {
  return CompareFrame(1, lengthA, valueA, lengthB, valueB, count, error, [](Bytes a, Bytes b) {
    return Order(ReadNumber<ZnBoolean, false>(a), ReadNumber<ZnBoolean, false>(b));
  });
}
