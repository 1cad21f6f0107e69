#include <algorithm>
#include <cstring>

#include "zanin.h"
#include "znstring/edit.h"
#include "znstring/number_text.h"
#include "znstring/units.h"

/// Construction, assignment and life of strings.

namespace {

using namespace zntms;

char const * Bytes(unsigned short const * text) { return reinterpret_cast<char const *>(text); }

/// Makes a text of the string's own code set the whole of it, as much as fits. Nothing stays, is
/// converted or overflows, so that an edit comes down to one copy. A buffer of the very size that
/// the text takes is used again: values that print one after the other often are of one length.
void AssignText(ZnString & target, char const * source, unsigned int length) {
  unsigned int const width = WidthOf(target.codeSet);
  unsigned int const bytes = std::min(length, MaxChars(width)) * width;
  if (target.capacity == bytes + width) {
    std::memmove(target.text, source, bytes);
  } else {
    char * const buffer = new char[bytes + width];
    std::memcpy(buffer, source, bytes);
    delete[] target.text;
    target.text = buffer;
    target.capacity = static_cast<unsigned short>(bytes + width);
  }
  WriteChar(target.text + bytes, width, 0);
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

void Free(ZnString & target) {
  delete[] target.text;
  target.text = nullptr;
  target.capacity = 0;
}

} // namespace

/// Writes the digits into the buffer itself.
void zntms::ZnStringAssignNumber(ZnString & target, DecimalNumber number) {
  unsigned int const length = number.Length();
  if (target.capacity != length + 1) {
    char * const buffer = new char[length + 1];
    delete[] target.text;
    target.text = buffer;
    target.capacity = static_cast<unsigned short>(length + 1);
  }
  target.codeSet = ZnString::GetDefault8CodeSet();
  target.language = ZnString::GetDefaultLanguage();
  number.Write(target.text);
  target.text[length] = 0;
}

void zntms::ZnStringAssignNumber(ZnString & target, NumberText const & number) {
  target.codeSet = ZnString::GetDefault8CodeSet();
  target.language = ZnString::GetDefaultLanguage();
  AssignText(target, number.CStr(), number.Length());
}

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
ZnString::ZnString(long long number) : text(nullptr), capacity(0) {
  ZnStringAssignNumber(*this, DecimalNumber::Of(number));
}
ZnString::ZnString(unsigned long long number) : text(nullptr), capacity(0) {
  ZnStringAssignNumber(*this, DecimalNumber{number, false});
}
ZnString::ZnString(double number) : text(nullptr), capacity(0) {
  ZnStringAssignNumber(*this, NumberText(number));
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
  if (!source)
    Free(*this);
  codeSet = GetDefault8CodeSet();
  language = GetDefaultLanguage();
  AssignText(*this, source);
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
