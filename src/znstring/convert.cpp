#include <algorithm>

#include "zanin.h"
#include "znstring/edit.h"
#include "znstring/units.h"

/// Text from one code set to another, character by character.

namespace zntms {

namespace {

constexpr unsigned char kUnicode = 253;

unsigned char NativeForZero(unsigned char codeSet) {
  return codeSet != 0 ? codeSet : ZnLanguageContext::GetNativeCodeSet();
}

/// Bytes to Unicode by the table of their code set.
void WidenChars(char * target, unsigned short const * toUnicode, char const * source,
                unsigned int count) {
  for (unsigned int i = 0; i < count; ++i)
    WriteUnit(target + 2 * i, toUnicode[ReadChar(source + i, 1)]);
}

template <unsigned int From, unsigned int To>
void MapChars(char * target, ZnCodeSet const & to, char const * source, unsigned char fromCodeSet,
              unsigned int count) {
  for (unsigned int i = 0; i < count; ++i)
    WriteChar(target + i * To, To, to.Map(ReadChar(source + i * From, From), fromCodeSet));
}

/// Writes `count` characters and the terminator.
void ConvertText(unsigned char from, unsigned char to, char const * source, unsigned int count,
                 char * target) {
  bool const wideSource = WidthOf(from) == 2;
  bool const wideTarget = WidthOf(to) == 2;
  unsigned short const * const toUnicode =
      to == kUnicode ? ZnLanguageContext::QueryCodeSet(from)->toUnicode : nullptr;
  if (from == to) {
    std::memcpy(target, source, count * WidthOf(to));
  } else if (toUnicode != nullptr && !wideSource) {
    WidenChars(target, toUnicode, source, count);
  } else {
    ZnCodeSet const & record = *ZnLanguageContext::QueryCodeSet(to);
    auto const map = wideSource ? (wideTarget ? MapChars<2, 2> : MapChars<2, 1>)
                                : (wideTarget ? MapChars<1, 2> : MapChars<1, 1>);
    map(target, record, source, from, count);
  }
  WriteChar(target + count * WidthOf(to), WidthOf(to), 0);
}

} // namespace

unsigned int ZnStringConvert(unsigned char fromCodeSet, unsigned char toCodeSet,
                             char const * source, char *& buffer) {
  return ZnStringConvert(fromCodeSet, toCodeSet, source, TextLength(source, WidthOf(fromCodeSet)),
                         buffer);
}

unsigned int ZnStringConvert(unsigned char fromCodeSet, unsigned char toCodeSet,
                             char const * source, unsigned int length, char *& buffer) {
  unsigned int const width = WidthOf(toCodeSet);
  if (length > MaxChars(width)) {
    ZnStringReportOverflow();
    length = MaxChars(width);
  }
  unsigned int const size = (length + 1) * width;
  buffer = new char[size];
  ConvertText(NativeForZero(fromCodeSet), NativeForZero(toCodeSet), source, length, buffer);
  return size;
}

unsigned int ZnStringConvertInto(unsigned char fromCodeSet, unsigned char toCodeSet,
                                 char const * source, unsigned short length, ZnString & target) {
  unsigned int const width = WidthOf(toCodeSet);
  unsigned int count = TextLength(source, WidthOf(fromCodeSet));
  count = std::min<unsigned int>(count, length);
  if (count > MaxChars(width)) {
    ZnStringReportOverflow();
    count = MaxChars(width);
  }
  unsigned int const size = (count + 1) * width;
  if (!target.text || target.capacity < size) {
    char * const fresh = new char[size];
    delete[] target.text;
    target.text = fresh;
    target.capacity = static_cast<unsigned short>(size);
  }
  ConvertText(NativeForZero(fromCodeSet), NativeForZero(toCodeSet), source, count, target.text);
  std::memset(target.text + size, 0, target.capacity - size);
  return count;
}

} // namespace zntms
