#include <algorithm>

#include "zanin.h"
#include "znstring/edit.h"
#include "znstring/number_text.h"
#include "znstring/units.h"

/// Construction, assignment and life of strings.

namespace {

using namespace zntms;

char const * Bytes(unsigned short const * text) { return reinterpret_cast<char const *>(text); }

/// Fills a fresh string with text of its own code set, as much of it as fits.
void AssignText(ZnString & target, char const * source, unsigned int length) {
  unsigned int const chars = std::min(length, MaxChars(WidthOf(target.codeSet)));
  ZnStringEdit(target, source, target.codeSet, 0, 0, static_cast<unsigned short>(chars), 1,
               EditAssignAt);
}

/// The same up to the terminator; a null source leaves the string without text.
void AssignText(ZnString & target, char const * source) {
  if (source)
    AssignText(target, source, TextLength(source, WidthOf(target.codeSet)));
}

/// A single character, none for 0.
void AssignChar(ZnString & target, unsigned short c) {
  char units[4] = {};
  unsigned int const width = WidthOf(target.codeSet);
  WriteChar(units, width, c);
  if (ReadChar(units, width) != 0)
    AssignText(target, units, 1);
}

void AssignNumber(ZnString & target, NumberText const & number) {
  AssignText(target, number.CStr(), number.Length());
}

void Free(ZnString & target) {
  delete[] target.text;
  target.text = nullptr;
  target.capacity = 0;
}

} // namespace

// ---- Construction -------------------------------------------------------------------------------

ZnString::ZnString() { Init(); }

ZnString::ZnString(unsigned char codeSetId, unsigned char languageId)
    : text(nullptr), capacity(0), codeSet(codeSetId), language(languageId) {}

ZnString::ZnString(ZnString const & other) {
  if (&other == this)
    return;
  text = nullptr;
  capacity = 0;
  codeSet = other.codeSet;
  language = other.language;
  if (other.text)
    AssignText(*this, other.text, other.Len());
}

ZnString::ZnString(char c) : ZnString(static_cast<unsigned char>(c)) {}
ZnString::ZnString(unsigned char c) : ZnString(GetDefault8CodeSet(), GetDefaultLanguage()) {
  AssignChar(*this, c);
}
ZnString::ZnString(unsigned short c) : ZnString(GetDefault16CodeSet(), GetDefaultLanguage()) {
  AssignChar(*this, c);
}

ZnString::ZnString(short number) : ZnString(static_cast<int>(number)) {}
ZnString::ZnString(int number) : ZnString(static_cast<long long>(number)) {}
ZnString::ZnString(unsigned int number) : ZnString(static_cast<unsigned long long>(number)) {}
ZnString::ZnString(long long number) : ZnString(GetDefault8CodeSet(), GetDefaultLanguage()) {
  AssignNumber(*this, NumberText(number));
}
ZnString::ZnString(unsigned long long number)
    : ZnString(GetDefault8CodeSet(), GetDefaultLanguage()) {
  AssignNumber(*this, NumberText(number));
}
ZnString::ZnString(double number) : ZnString(GetDefault8CodeSet(), GetDefaultLanguage()) {
  AssignNumber(*this, NumberText(number));
}

ZnString::ZnString(char const * source) : ZnString(GetDefault8CodeSet(), GetDefaultLanguage()) {
  AssignText(*this, source);
}
ZnString::ZnString(unsigned short const * source)
    : ZnString(GetDefault16CodeSet(), GetDefaultLanguage()) {
  AssignText(*this, Bytes(source));
}

ZnString::ZnString(char const * source, unsigned short len)
    : ZnString(GetDefault8CodeSet(), GetDefaultLanguage()) {
  ZnStringAssignCounted(*this, source, codeSet, len, 1);
}
ZnString::ZnString(unsigned short const * source, unsigned short len)
    : ZnString(GetDefault16CodeSet(), GetDefaultLanguage()) {
  ZnStringAssignCounted(*this, Bytes(source), codeSet, len, 1);
}

ZnString::~ZnString() { delete[] text; }

// ---- Assignment ---------------------------------------------------------------------------------

ZnString & ZnString::operator=(ZnString const & other) {
  if (&other != this) {
    ZnString copy(other);
    Destruct(copy);
  }
  return *this;
}

ZnString & ZnString::operator=(char const * source) {
  ZnString copy(source);
  Destruct(copy);
  return *this;
}

ZnString & ZnString::operator=(unsigned short const * source) {
  ZnString copy(source);
  Destruct(copy);
  return *this;
}

// ---- Lifecycle ----------------------------------------------------------------------------------

void ZnString::Destroy() {
  Free(*this);
  codeSet = 0;
  language = 0;
}

void ZnString::d_deactivate() { Destroy(); }

void ZnString::Init() {
  text = nullptr;
  capacity = 0;
  codeSet = GetDefaultCodeSet();
  language = GetDefaultLanguage();
}

void ZnString::Destruct(ZnString & other) {
  if (&other == this)
    return;
  delete[] text;
  text = other.text;
  capacity = other.capacity;
  codeSet = other.codeSet;
  language = other.language;
  other.text = nullptr;
  other.capacity = 0;
}

int ZnString::SetNullValue() {
  Free(*this);
  codeSet = 0;
  language = 254;
  return 0;
}
