#include "znistring.h"

#include <algorithm>
#include <charconv>
#include <cstring>

#include "znstring/collate.h"
#include "znstring/number_read.h"
#include "znstring/number_text.h"

/// The operations of the two older string classes, written once for both.

using namespace zntms;

namespace {

/// A new text; null for none.
char * NewText(char const * source, std::size_t length) {
  if (length == 0)
    return nullptr;
  char * const text = new char[length + 1];
  std::memcpy(text, source, length);
  text[length] = 0;
  return text;
}

char * NewText(NumberText const & number) { return NewText(number.CStr(), number.Length()); }

char * NewText(double number) {
  char digits[512]; // the longest has 316 characters
  auto const end = std::to_chars(digits, std::end(digits), number, std::chars_format::fixed, 6);
  return NewText(digits, static_cast<std::size_t>(end.ptr - digits));
}

std::size_t LengthOf(char const * text) { return text ? std::strlen(text) : 0; }

/// The text with the characters from `position` to `end` replaced by `length` others.
char * Spliced(char const * text, std::size_t position, std::size_t end, char const * source,
               std::size_t length) {
  std::size_t const rest = LengthOf(text) - end;
  if (position + length + rest == 0)
    return nullptr;
  char * const spliced = new char[position + length + rest + 1];
  if (position != 0)
    std::memcpy(spliced, text, position);
  if (length != 0)
    std::memcpy(spliced + position, source, length);
  if (rest != 0)
    std::memcpy(spliced + position + length, text + end, rest);
  spliced[position + length + rest] = 0;
  return spliced;
}

void Exchange(char *& text, char * fresh) {
  delete[] text;
  text = fresh;
}

template <class Change>
void ChangeBytes(char * text, Change const & change) {
  for (; text && *text != 0; ++text)
    *text = static_cast<char>(change(static_cast<unsigned char>(*text)));
}

/// The bytes outside the pattern of 32 between the cases: y with diaeresis and the ligature oe.
constexpr unsigned int kLowerY = 159, kUpperY = 255, kLowerLigature = 156, kUpperLigature = 140;

unsigned int LowerByte(unsigned int c) {
  if ((c >= 'A' && c <= 'Z') || (c >= 192 && c <= 222 && c != 215))
    return c + 32;
  return c == kUpperY ? kLowerY : c == kUpperLigature ? kLowerLigature : c;
}

unsigned int UpperByte(unsigned int c) {
  if ((c >= 'a' && c <= 'z') || (c >= 224 && c <= 254 && c != 247))
    return c - 32;
  return c == kLowerY ? kUpperY : c == kLowerLigature ? kUpperLigature : c;
}

CollatedText TextOf(char const * text, unsigned char mark) {
  return {text ? std::string_view(text) : std::string_view(), mark};
}

} // namespace

// The template's parameter is short here: the lines below repeat it for every operation.
#define TWIN template <ZnCollation twin>
#define STRING ZnCollatedString<twin>

// ---- Construction and assignment ----------------------------------------------------------------

TWIN STRING::ZnCollatedString(ZnCollatedString const & other)
    : text(NewText(other.text, LengthOf(other.text))), mark(other.mark) {}
TWIN STRING::ZnCollatedString(char c) : text(NewText(&c, c != 0)), mark(0) {}
TWIN STRING::ZnCollatedString(short n) : text(NewText(NumberText(int(n)))), mark(0) {}
TWIN STRING::ZnCollatedString(int n) : text(NewText(NumberText(n))), mark(0) {}
TWIN STRING::ZnCollatedString(unsigned int n) : text(NewText(NumberText(n))), mark(0) {}
TWIN STRING::ZnCollatedString(long long n) : text(NewText(NumberText(n))), mark(0) {}
TWIN STRING::ZnCollatedString(unsigned long long n) : text(NewText(NumberText(n))), mark(0) {}
TWIN STRING::ZnCollatedString(double n) : text(NewText(n)), mark(0) {}
TWIN STRING::ZnCollatedString(char const * source)
    : text(NewText(source, LengthOf(source))), mark(0) {}
TWIN STRING::ZnCollatedString(char const * source, unsigned short len)
    : text(source ? NewText(source, strnlen(source, len)) : nullptr), mark(0) {}

TWIN STRING & STRING::operator=(ZnCollatedString const & other) {
  if (&other != this) {
    Exchange(text, NewText(other.text, LengthOf(other.text)));
    mark = other.mark;
  }
  return *this;
}

TWIN STRING & STRING::operator=(char const * source) {
  Exchange(text, NewText(source, LengthOf(source)));
  mark = 0;
  return *this;
}

// ---- State and numbers --------------------------------------------------------------------------

TWIN unsigned short STRING::Len() const { return static_cast<unsigned short>(LengthOf(text)); }

TWIN STRING::operator short() const { return static_cast<short>(ReadInteger<int>(StrGet(), 10)); }
TWIN STRING::operator int() const { return ReadInteger<int>(StrGet(), 10); }
TWIN STRING::operator long long() const { return ReadInteger<long long>(StrGet(), 10); }
TWIN STRING::operator double() const { return ReadDouble(StrGet()).value; }

// ---- Edits --------------------------------------------------------------------------------------

TWIN STRING STRING::operator+(ZnCollatedString const & other) const {
  ZnCollatedString sum(*this);
  sum += other;
  return sum;
}

TWIN STRING & STRING::operator+=(ZnCollatedString const & other) {
  std::size_t const length = LengthOf(text);
  if (other.text)
    Exchange(text, Spliced(text, length, length, other.text, LengthOf(other.text)));
  return *this;
}

TWIN STRING STRING::Copy(unsigned short position, unsigned short length) const {
  ZnCollatedString part;
  std::size_t const whole = LengthOf(text);
  if (position < whole)
    part.text = NewText(text + position, std::min<std::size_t>(length, whole - position));
  return part;
}

TWIN STRING & STRING::Cut(unsigned short position, unsigned short count) {
  std::size_t const whole = LengthOf(text);
  if (position < whole && count != 0)
    Exchange(text,
             Spliced(text, position, std::min<std::size_t>(whole, position + count), nullptr, 0));
  return *this;
}

TWIN STRING & STRING::Insert(ZnCollatedString const & other, unsigned short position) {
  std::size_t const place = std::min<std::size_t>(position, LengthOf(text));
  if (other.text)
    Exchange(text, Spliced(text, place, place, other.text, LengthOf(other.text)));
  return *this;
}

TWIN STRING & STRING::Replace(ZnCollatedString const & other, unsigned short position) {
  std::size_t const whole = LengthOf(text);
  if (position < whole && other.text)
    std::memmove(text + position, other.text,
                 std::min<std::size_t>(LengthOf(other.text), whole - position));
  return *this;
}

TWIN STRING & STRING::Expand(unsigned short n, char c) {
  std::size_t const length = LengthOf(text);
  if (length < n && c != 0) {
    char * const longer = new char[n + 1u];
    if (length != 0)
      std::memcpy(longer, text, length);
    std::memset(longer + length, c, n - length);
    longer[n] = 0;
    Exchange(text, longer);
  }
  return *this;
}

TWIN STRING & STRING::Fill(unsigned short n, char c) {
  if (n == 0)
    return *this;
  if (c != 0 && n <= LengthOf(text)) {
    std::memset(text, c, n);
    return *this;
  }
  Exchange(text, nullptr);
  return Expand(n, c);
}

TWIN STRING & STRING::ToLower() {
  ChangeBytes(text, LowerByte);
  return *this;
}

TWIN STRING & STRING::ToUpper() {
  ChangeBytes(text, UpperByte);
  return *this;
}

TWIN STRING & STRING::SpaceToZero() {
  ChangeBytes(text, [](unsigned char c) { return c == ' ' ? '0' : c; });
  return *this;
}

TWIN STRING & STRING::ZeroToSpace() {
  ChangeBytes(text, [](unsigned char c) { return c == '0' ? ' ' : c; });
  return *this;
}

// ---- Comparison ---------------------------------------------------------------------------------

TWIN int STRING::SubStringPos(ZnCollatedString const & other) const {
  if (!text)
    return -1;
  char const * const found = std::strstr(text, other.StrGet());
  return found ? static_cast<int>(found - text) : -1;
}

TWIN int STRING::Compare(ZnCollatedString const & other) const {
  return ZnCollateCompare(WeightsOf(twin), TextOf(text, mark), TextOf(other.text, other.mark));
}

template class ZnCollatedString<ZnCollation::cased>;
template class ZnCollatedString<ZnCollation::caseless>;
