#include <algorithm>

#include "zanin.h"
#include "znstring/edit.h"
#include "znstring/number_text.h"
#include "znstring/shared_text.h"
#include "znstring/units.h"

/// Appending to a text, taking parts of it, and changing it in place.

using namespace zntms;

namespace {

/// Appends `length` characters of `source`.
ZnString & Append(ZnString & target, char const * source, unsigned char sourceCodeSet,
                  unsigned int length) {
  ZnStringEdit(target, source, sourceCodeSet, target.Len(), 0, static_cast<unsigned short>(length),
               1, EditAssignAt);
  return target;
}

/// Appends a text up to its terminator, cut as a string would hold it; null is an empty text.
ZnString & AppendText(ZnString & target, char const * source, unsigned char sourceCodeSet) {
  unsigned int const width = WidthOf(sourceCodeSet);
  static constexpr char none[2] = {};
  char const * const text = source ? source : none;
  return Append(target, text, sourceCodeSet, std::min(TextLength(text, width), MaxChars(width)));
}

ZnString & AppendNumber(ZnString & target, NumberText const & number) {
  return Append(target, number.CStr(), ZnString::GetDefault8CodeSet(), number.Length());
}

/// One character as a text with terminator.
struct CharText {
  char units[4] = {};

  explicit CharText(char c) { units[0] = c; }
  explicit CharText(unsigned short c) { WriteUnit(units, c); }
};

/// `n` copies of a character from `position` on, in place of the rest of the text.
ZnString & Repeat(ZnString & target, unsigned short position, CharText const & c,
                  unsigned char codeSet, unsigned int n) {
  ZnStringEdit(target, c.units, codeSet, position, 0, 1, static_cast<unsigned short>(n),
               EditAssignAt);
  return target;
}

ZnString & ExpandBy(ZnString & target, unsigned short n, CharText const & c,
                    unsigned char codeSet) {
  unsigned short const length = target.Len();
  return length >= n ? target : Repeat(target, length, c, codeSet, n - length);
}

} // namespace

// ---- Append -------------------------------------------------------------------------------------

void ZnString::operator+=(ZnString const & other) {
  Append(*this, other.StrGet(), other.codeSet, other.Len());
}

ZnString operator+(ZnString const & a, ZnString const & b) {
  ZnString sum(a.codeSet, a.language);
  sum += a;
  sum += b;
  return sum;
}

ZnString & ZnString::operator<<(ZnString const & other) {
  *this += other;
  return *this;
}

ZnString & ZnString::operator<<(char c) {
  return c == 0 ? *this : Append(*this, CharText(c).units, GetDefault8CodeSet(), 1);
}

ZnString & ZnString::operator<<(unsigned short c) {
  if (WidthOf(codeSet) == 1)
    return *this << static_cast<unsigned int>(c);
  return c == 0 ? *this : Append(*this, CharText(c).units, GetDefault16CodeSet(), 1);
}

ZnString & ZnString::operator<<(short number) { return AppendNumber(*this, NumberText(number)); }
ZnString & ZnString::operator<<(int number) { return AppendNumber(*this, NumberText(number)); }
ZnString & ZnString::operator<<(unsigned int number) {
  return AppendNumber(*this, NumberText(number));
}
ZnString & ZnString::operator<<(long long number) {
  return AppendNumber(*this, NumberText(number));
}
ZnString & ZnString::operator<<(unsigned long long number) {
  return AppendNumber(*this, NumberText(number));
}
ZnString & ZnString::operator<<(float number) { return *this << static_cast<double>(number); }
ZnString & ZnString::operator<<(double number) { return AppendNumber(*this, NumberText(number)); }

ZnString & ZnString::operator<<(char const * source) {
  return AppendText(*this, source, GetDefault8CodeSet());
}
ZnString & ZnString::operator<<(unsigned short const * source) {
  return AppendText(*this, reinterpret_cast<char const *>(source), GetDefault16CodeSet());
}

// ---- Parts of the text --------------------------------------------------------------------------

ZnString ZnString::Copy(unsigned short position, short length) const {
  unsigned short const whole = Len();
  if (position >= whole)
    return EmptySubstring();
  unsigned short const part =
      std::min(static_cast<unsigned short>(length), static_cast<unsigned short>(whole - position));
  ZnString copy(codeSet, language);
  ZnStringEdit(copy, text, codeSet, 0, position, part, 1, EditAssignAt);
  return copy;
}

ZnString ZnString::Left(unsigned short n) const {
  return Copy(0, static_cast<short>(std::min(n, Len())));
}

ZnString ZnString::Right(unsigned short n) const {
  unsigned short const whole = Len();
  unsigned short const part = std::min(n, whole);
  return Copy(static_cast<unsigned short>(whole - part), static_cast<short>(part));
}

// ---- Edits --------------------------------------------------------------------------------------

ZnString & ZnString::Cut(unsigned short position, short count) {
  unsigned int const whole = Len();
  if (position >= whole)
    return *this;
  unsigned int const cut =
      std::min<unsigned int>(static_cast<unsigned short>(count), whole - position);
  ZnStringEdit(*this, text, codeSet, position, static_cast<unsigned short>(position + cut),
               static_cast<unsigned short>(whole - position - cut), 1, EditAssignAt);
  return *this;
}

ZnString & ZnString::Insert(ZnString const & other, unsigned short position) {
  if (position <= Len())
    ZnStringEdit(*this, other.StrGet(), other.codeSet, position, 0, other.Len(), 1, EditInsert);
  return *this;
}

ZnString & ZnString::Replace(ZnString const & other, unsigned short position) {
  unsigned short const whole = Len();
  if (position >= whole)
    return *this;
  unsigned short const count = std::min(other.Len(), static_cast<unsigned short>(whole - position));
  ZnStringEdit(*this, other.StrGet(), other.codeSet, position, 0, count, 1, EditOverwrite);
  return *this;
}

ZnString & ZnString::Expand(unsigned short n, char c) {
  return ExpandBy(*this, n, CharText(c), GetDefault8CodeSet());
}
ZnString & ZnString::Expand(unsigned short n, unsigned short c) {
  return ExpandBy(*this, n, CharText(c), GetDefault16CodeSet());
}

ZnString & ZnString::Fill(unsigned short n, char c) {
  return Repeat(*this, 0, CharText(c), GetDefault8CodeSet(), n);
}
ZnString & ZnString::Fill(unsigned short n, unsigned short c) {
  return Repeat(*this, 0, CharText(c), GetDefault16CodeSet(), n);
}
