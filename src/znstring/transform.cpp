#include <string>

#include "znchar.h"
#include "znstring.h"
#include "znstring/edit.h"
#include "znstring/units.h"

/// A text by its characters: access, trimming spaces, changing each of them.

using namespace zntms;

namespace {

bool IsSpaceAt(ZnString const & s, unsigned int place) {
  char const * const where = s.text + place * WidthOf(s.codeSet);
  return ZnChar(where, s.codeSet, s.language, 1).IsSpace() != 0;
}

} // namespace

ZnChar ZnString::operator[](int i) {
  if (i < 0 || i > Len())
    return ZnChar(static_cast<unsigned short>(0), GetDefault16CodeSet(), GetDefaultLanguage());
  return ZnChar(*this, i * static_cast<int>(WidthOf(codeSet)));
}

ZnString & ZnString::LeftTrim() {
  unsigned int const length = Len();
  unsigned int spaces = 0;
  while (spaces < length && IsSpaceAt(*this, spaces))
    ++spaces;
  return spaces == 0 ? *this : Cut(0, static_cast<short>(spaces));
}

ZnString & ZnString::RightTrim() {
  if (!text)
    return *this;
  unsigned int end = capacity / WidthOf(codeSet) - 1;
  while (end > 1 && IsSpaceAt(*this, end - 1))
    --end;
  return Cut(static_cast<unsigned short>(end), -1);
}

ZnString & ZnString::Trim() {
  LeftTrim();
  return RightTrim();
}

ZnString & ZnString::Transform(ZnCharOperation & op) {
  if (capacity == 0)
    return *this;
  unsigned int const width = WidthOf(codeSet);
  std::size_t const most = ZnStringMaxBytes - width; // without the terminator
  std::string out;
  out.reserve(capacity);
  ZnStringIterator source(text, codeSet, 255, 255);
  for (; !source.IsEOS(); ++source) {
    if (out.size() == most) {
      ZnStringReportOverflow();
      break;
    }
    char unit[2] = {};
    ZnChar target(unit, codeSet, 255, 255);
    target = op.Apply(*source, &source);
    out.append(unit, width);
  }
  out.append(width, '\0');

  char * const fresh = new char[out.size()];
  std::memcpy(fresh, out.data(), out.size());
  delete[] text;
  text = fresh;
  capacity = static_cast<unsigned short>(out.size());
  return *this;
}

ZnString & ZnString::ToLower() {
  ZnCharToLower lower;
  return Transform(lower);
}

ZnString & ZnString::ToUpper() {
  ZnCharToUpper upper;
  return Transform(upper);
}
