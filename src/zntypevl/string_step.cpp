#include "znchar.h"
#include "zncodes.h"
#include "znstrcmp.h"
#include "znstringbounds.h"
#include "zntypevl/key_text.h"
#include "zntypevl/stored_text.h"

#include <algorithm>

/// Steps an index key to the next one.
///
/// Worked example: 0A 00 FE 01 0C 50 10 50 14 50 00 FF, the key of "abc", becomes that of "abca":
/// 0C 00 FE 01 0C 50 10 50 14 50 0C 50. In an area of twelve bytes nothing is left of the end mark,
/// and the key counts as cut.

namespace zntms {

namespace {

constexpr unsigned char kSteppedFormat = ZnFormatIndexKey | ZnFormatLittleEndian;

unsigned short SmallestLetter(unsigned int width) {
  return width == 1 ? 'a' : ZnCharOrder(ZnChar('a', 255, 0));
}

/// Replaces the first wildcard of the key by the largest unit; false if there is none.
bool ReplaceWildcard(void * key, unsigned int length) {
  StoredTexts texts(key, length, kSteppedFormat, false);
  texts.Read();
  if (texts.TooLong()) // the text of a key has at most 250 bytes, and its end mark
    return false;
  unsigned short offset = 0;
  unsigned short const place = ZnFindWildcard(texts.codeSet, texts.language, texts.text, 0,
                                              static_cast<unsigned short>(texts.Characters()),
                                              &offset, ZnFormatLittleEndian);
  unsigned int const width = WidthOf(texts.codeSet);
  if (place == 65535 || offset + width > texts.bytes)
    return false;
  WriteLargest(static_cast<char *>(key) + kStringHead + offset, width);
  return true;
}

} // namespace
} // namespace zntms

using namespace zntms;

int ZnStringGetValue(void * key, unsigned int length, unsigned char format, unsigned char what) {
  if (format != kSteppedFormat || (what != 'M' && what != 'N') || key == nullptr ||
      length < kStringHead)
    return ZnErrNotSupported;
  if (what == 'M' && ReplaceWildcard(key, length))
    return 0;
  auto * const bytes = static_cast<char *>(key);
  char * const text = bytes + kStringHead;
  unsigned int const told = ReadLength(bytes, format);
  unsigned int const width = WidthOf(static_cast<unsigned char>(bytes[2]));
  unsigned int const room = length - kStringHead;
  unsigned int used = told < kStringHead ? 0 : std::min(told - kStringHead, room);
  used -= used % width;
  if (used + width <= room && told + width <= 65535) {
    char const endMark[kStringEndMark] = {0, static_cast<char>(0xFF)};
    unsigned int const behind = used + width;
    std::memcpy(text + behind, endMark, std::min(kStringEndMark, room - behind));
    WriteChar(text + used, width, SmallestLetter(width));
    WriteLength(bytes, behind + kStringHead, format);
    return 0;
  }
  if (used == 0)
    return ZnErrNoNextValue;
  char * const last = text + used - width;
  if (width == 2)
    WriteLargest(last, width);
  else if (static_cast<unsigned char>(*last) == 0xFF)
    return ZnErrNoNextValue;
  else
    ++*last;
  return 0;
}
