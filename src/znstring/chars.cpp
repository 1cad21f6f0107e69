// Single characters: reading, mapping between code sets, case, kind, comparison.
//
// A character of a one-byte code set is the byte itself; one of a two-byte code set is read and
// written in the byte order of its place. Worked example: a reference of byte order 2 to the bytes
// 01 53 of code set 253 has the value 0x0153; assigning it `s` of code set 1 writes 00 73.

#include "zanin.h"
#include "znchar.h"
#include "zncodes.h"
#include "znstrcmp.h"
#include "znstring.h"
#include "znstring/characters.h"

#include <algorithm>

using namespace zntms;

namespace {

unsigned char NativeFor0(unsigned char codeSet) {
  return codeSet == 0 ? ZnLanguageContext::GetNativeCodeSet() : codeSet;
}

unsigned char Default8For255(unsigned char codeSet) {
  return codeSet == 255 ? ZnLanguageContext::GetDefault8CodeSet() : codeSet;
}

unsigned char Default16For255(unsigned char codeSet) {
  return codeSet == 255 ? ZnLanguageContext::GetDefault16CodeSet() : codeSet;
}

unsigned char DefaultLanguageFor255(unsigned char language) {
  return language == 255 ? ZnLanguageContext::GetDefaultLanguage() : language;
}

unsigned short CutToWidth(unsigned short c, unsigned char codeSet) {
  return CharacterWidth(codeSet) == 1 ? c & 0xFF : c;
}

enum class Case { Lower, Upper };

ZnChar ToCase(ZnChar const & c, Case wanted, ZnStringIterator * source) {
  unsigned short const value = c.Value();
  bool const lower = wanted == Case::Lower;
  if (c.codeSet == 0) {
    unsigned short const first = lower ? 'A' : 'a';
    bool const changes = value >= first && value < first + 26;
    return ZnChar(static_cast<unsigned short>(changes ? value ^ 0x20 : value), 0, c.language);
  }
  unsigned short const asked = CharacterWidth(c.codeSet) == 1
                                   ? static_cast<unsigned short>(static_cast<signed char>(value))
                                   : value;
  ZnUnicodeProps const * const props =
      ZnLanguageContext::QueryCodeSet(c.codeSet)->GetUnicodeProps(asked, c.language);
  unsigned short const mapped = props == nullptr ? 0 : lower ? props->lower : props->upper;
  if (mapped == 0)
    return ZnChar(c);
  if (!lower && source != nullptr && props->upperList != nullptr && props->upperList->count > 0)
    source->SetOverflow(props->upperList, 255);
  return ZnChar(mapped, kUnicodeCodeSet, c.language).MapTo(c.codeSet);
}

} // namespace

ZnChar::ZnChar(ZnString & s, int byteOffset)
    : place(s.StrGet() + byteOffset), value(0), codeSet(s.codeSet), language(s.language),
      byteOrder(1) {}

ZnChar::ZnChar(ZnChar const & other)
    : place(nullptr), value(other.Value()), codeSet(other.codeSet),
      language(DefaultLanguageFor255(other.language)), byteOrder(1) {}

ZnChar::ZnChar(char c, unsigned char codeSetId, unsigned char languageId)
    : place(nullptr), value(static_cast<unsigned char>(c)), codeSet(Default8For255(codeSetId)),
      language(DefaultLanguageFor255(languageId)), byteOrder(1) {}

ZnChar::ZnChar(unsigned short c, unsigned char codeSetId, unsigned char languageId)
    : place(nullptr), value(0), codeSet(Default16For255(codeSetId)),
      language(DefaultLanguageFor255(languageId)), byteOrder(1) {
  value = CutToWidth(c, codeSet);
}

ZnChar::ZnChar(char const * where, unsigned char codeSetId, unsigned char languageId,
               unsigned char order)
    : place(const_cast<char *>(where)), value(0), codeSet(Default8For255(codeSetId)),
      language(DefaultLanguageFor255(languageId)), byteOrder(order == 255 ? 1 : order) {}

ZnChar::~ZnChar() { place = nullptr; }

unsigned short ZnChar::Value() const {
  if (place != nullptr)
    return ReadCharacter(place, codeSet, byteOrder);
  unsigned short const c = CutToWidth(value, codeSet);
  return CharacterWidth(codeSet) == 2 && IsBigEndian(byteOrder) ? SwapBytes(c) : c;
}

ZnChar & ZnChar::operator=(ZnChar const & other) {
  if (place != nullptr) {
    WriteCharacter(place, other.MapTo(codeSet).Value(), codeSet, byteOrder);
    return *this;
  }
  unsigned short const c = other.Value();
  codeSet = other.codeSet;
  language = other.language;
  byteOrder = other.byteOrder;
  return *this = c;
}

ZnChar & ZnChar::operator=(char c) {
  if (place != nullptr)
    *place = c;
  else
    value = static_cast<unsigned char>(c);
  return *this;
}

ZnChar & ZnChar::operator=(unsigned short c) {
  if (place != nullptr)
    WriteCharacter(place, c, codeSet, byteOrder);
  else
    value = CharacterWidth(codeSet) == 2 && IsBigEndian(byteOrder) ? SwapBytes(c) : c;
  return *this;
}

int ZnChar::Compare(ZnChar const & other, unsigned short cmpOp) const {
  if (cmpOp == ZnCmpDefault)
    cmpOp = ZnLanguageContext::GetDefaultCmpOp();
  // Each side is a text of its own, so that no neighbour joins in.
  char mine[4] = {};
  char others[4] = {};
  WriteCharacter(mine, Value(), codeSet, 1);
  WriteCharacter(others, other.Value(), other.codeSet, 1);
  return ZnStrCmp(codeSet, language, mine, other.codeSet, other.language, others, cmpOp, 1, 1,
                  nullptr);
}

int ZnChar::operator==(ZnChar const & other) const { return Compare(other, ZnCmpDefault) == 0; }
int ZnChar::operator!=(ZnChar const & other) const { return Compare(other, ZnCmpDefault); }
int ZnChar::operator<(ZnChar const & other) const { return Compare(other, ZnCmpDefault) < 0; }
int ZnChar::operator<=(ZnChar const & other) const { return Compare(other, ZnCmpDefault) <= 0; }
int ZnChar::operator>(ZnChar const & other) const { return Compare(other, ZnCmpDefault) > 0; }
int ZnChar::operator>=(ZnChar const & other) const { return Compare(other, ZnCmpDefault) >= 0; }
int ZnChar::operator==(char other) const { return *this == ZnChar(other); }
int ZnChar::operator!=(char other) const { return *this != ZnChar(other); }
int ZnChar::operator<(char other) const { return *this < ZnChar(other); }
int ZnChar::operator<=(char other) const { return *this <= ZnChar(other); }
int ZnChar::operator>(char other) const { return *this > ZnChar(other); }
int ZnChar::operator>=(char other) const { return *this >= ZnChar(other); }
int ZnChar::operator==(unsigned short other) const { return *this == ZnChar(other); }
int ZnChar::operator!=(unsigned short other) const { return *this != ZnChar(other); }
int ZnChar::operator<(unsigned short other) const { return *this < ZnChar(other); }
int ZnChar::operator<=(unsigned short other) const { return *this <= ZnChar(other); }
int ZnChar::operator>(unsigned short other) const { return *this > ZnChar(other); }
int ZnChar::operator>=(unsigned short other) const { return *this >= ZnChar(other); }

unsigned short ZnCharOrder(ZnChar const & c) {
  unsigned char const codeSet = NativeFor0(c.codeSet);
  unsigned short value = c.Value();
  ZnOrderTable const * table = ZnLanguageContext::QueryCodeSet(codeSet)->orderTable;
  if (table == nullptr) {
    ZnCodeSet const * const unicode = ZnLanguageContext::QueryCodeSet(kUnicodeCodeSet);
    value = unicode->Map(value, codeSet);
    table = unicode->orderTable;
  }
  ZnCharOrderProps const * const entry = table->Lookup(value);
  return entry != nullptr ? entry->order : value;
}

int ZnChar::IsSpace() const { return ZnCharOrder(*this) < 80; }

int ZnChar::IsSymbol() const {
  unsigned short const order = ZnCharOrder(*this);
  return order >= 80 && order <= 16127;
}

int ZnChar::IsDigit() const {
  unsigned short const order = ZnCharOrder(*this);
  return order >= 16128 && order <= 16383;
}

int ZnChar::IsAlpha() const {
  unsigned short const order = ZnCharOrder(*this);
  return order >= 16384 && order <= 32767;
}

int ZnChar::IsHan() const { return ZnCharOrder(*this) >= 32768; }

ZnChar ZnChar::MapTo(unsigned char codeSetId) const {
  if (codeSetId == 0 || codeSetId == codeSet)
    return ZnChar(*this);
  unsigned short const mapped =
      ZnLanguageContext::QueryCodeSet(codeSetId)->Map(Value(), NativeFor0(codeSet));
  return ZnChar(mapped, codeSetId, language);
}

ZnChar ZnChar::ToLower(ZnStringIterator * source) const {
  return ToCase(*this, Case::Lower, source);
}

ZnChar ZnChar::ToUpper(ZnStringIterator * source) const {
  return ToCase(*this, Case::Upper, source);
}

ZnChar ZnCharToLower::Apply(ZnChar const & c, ZnStringIterator * source) {
  return c.ToLower(source);
}

ZnChar ZnCharToUpper::Apply(ZnChar const & c, ZnStringIterator * source) {
  return c.ToUpper(source);
}
