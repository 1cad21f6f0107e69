#include "zntypes/number_box.h"

/// The boxes that have names of their own.

using namespace zntms;

namespace {

// Characters go through 16-bit numbers, unsigned kinds through 32-bit ones.
constexpr RowBox kChar = kNumberBox<signed char, short, short>;
constexpr RowBox kByte = kNumberBox<unsigned char, unsigned int, int>;
constexpr RowBox kShort = kNumberBox<short, short, short>;
constexpr RowBox kWord = kNumberBox<unsigned short, unsigned int, int>;

} // namespace

ZnTypeConvertData * CharConvertToZnString(void * value, unsigned int count) {
  return kChar.to(value, count);
}
void * CharConvertFromZnString(ZnTypeConvertData * data, unsigned int count) {
  return kChar.from(data, count);
}
ZnTypeConvertData * O_U1BConvertToZnString(void * value, unsigned int count) {
  return kByte.to(value, count);
}
void * O_U1BConvertFromZnString(ZnTypeConvertData * data, unsigned int count) {
  return kByte.from(data, count);
}
ZnTypeConvertData * ShortConvertToZnString(void * value, unsigned int count) {
  return kShort.to(value, count);
}
void * ShortConvertFromZnString(ZnTypeConvertData * data, unsigned int count) {
  return kShort.from(data, count);
}
ZnTypeConvertData * WordConvertToZnString(void * value, unsigned int count) {
  return kWord.to(value, count);
}
void * WordConvertFromZnString(ZnTypeConvertData * data, unsigned int count) {
  return kWord.from(data, count);
}
