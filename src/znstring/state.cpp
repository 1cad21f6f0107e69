#include <algorithm>
#include <memory>

#include "zanin.h"
#include "znstring/edit.h"
#include "znstring/nulltext.h"
#include "znstring/shared_text.h"
#include "znstring/units.h"

/// What a string is: its length, its states, its code set, and the process-wide defaults.

using namespace zntms;

namespace {

/// Converts the text of a string that has one, even without terminator; the id of the code set
/// stays.
void ConvertOwnText(ZnString & s, unsigned char toCodeSet) {
  char * converted;
  unsigned int const size = ZnStringConvert(s.codeSet, toCodeSet, s.text, s.Len(), converted);
  delete[] s.text;
  s.text = converted;
  s.capacity = static_cast<unsigned short>(size);
}

} // namespace

// ---- State --------------------------------------------------------------------------------------

unsigned short ZnString::Len() const {
  if (!text)
    return 0;
  return static_cast<unsigned short>(TextLengthWithin(text, WidthOf(codeSet), capacity));
}

char * ZnString::StrGet() const {
  alignas(8) static char empty[4] = {};
  return text ? text : empty;
}

int ZnString::IsEmpty() const { return !text || ReadChar(text, WidthOf(codeSet)) == 0; }

int ZnString::operator!() const { return IsEmpty(); }

int ZnString::IsNullValue() const { return language == 254 || (codeSet == 254 && language == 0); }

// ---- Code set -----------------------------------------------------------------------------------

void ZnString::SetCodeSet(unsigned char cs) {
  if (text && WidthOf(cs) != WidthOf(codeSet))
    ConvertOwnText(*this, cs);
  codeSet = cs;
}

int ZnString::SetCodeSetCode(unsigned char cs) {
  if (text && WidthOf(cs) != WidthOf(codeSet))
    return ZnErrWrongArgument;
  codeSet = cs;
  return 0;
}

int ZnString::MapToCodeSet(unsigned char cs) {
  if (cs == 0)
    return ZnErrWrongArgument;
  if (text && cs != codeSet)
    ConvertOwnText(*this, cs);
  codeSet = cs;
  return 0;
}

int ZnString::CopyMapped(ZnString const & src, unsigned char cs, short len) {
  if (&src == this)
    return ZnErrWrongArgument;
  unsigned int const count =
      ZnStringConvertInto(src.codeSet, cs, src.StrGet(), static_cast<unsigned short>(len), *this);
  codeSet = cs;
  language = src.language;
  return static_cast<int>(count);
}

// ---- Process-wide -------------------------------------------------------------------------------

unsigned char ZnString::GetDefaultCodeSet() { return ZnLanguageContext::GetDefaultCodeSet(); }
unsigned char ZnString::GetDefault8CodeSet() { return ZnLanguageContext::GetDefault8CodeSet(); }
unsigned char ZnString::GetDefault16CodeSet() { return ZnLanguageContext::GetDefault16CodeSet(); }
unsigned char ZnString::GetDefaultLanguage() { return ZnLanguageContext::GetDefaultLanguage(); }
unsigned short ZnString::GetDefaultCmpOp() { return ZnLanguageContext::GetDefaultCmpOp(); }
void ZnString::SetDefaultCodeSet(unsigned char cs) { ZnLanguageContext::SetDefaultCodeSet(cs); }
void ZnString::SetDefaultLanguage(unsigned char languageId) {
  ZnLanguageContext::SetDefaultLanguage(languageId);
}
void ZnString::SetDefaultCmpOp(unsigned short cmpOp) { ZnLanguageContext::SetDefaultCmpOp(cmpOp); }

// The shared strings are made at first use, so that other constants may be built from them in any
// order, and no later than at load, for the defaults may change afterwards.

ZnString & ZnString::EmptyString() {
  static ZnString empty;
  return empty;
}

namespace zntms {

ZnString const & EmptySubstring() {
  static ZnString const empty("");
  return empty;
}

ZnString & NullPrintString() {
  static ZnString text("{NULL}");
  return text;
}

} // namespace zntms
