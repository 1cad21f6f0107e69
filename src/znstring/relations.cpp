#include "zanin.h"
#include "znstrcmp.h"
#include "znstring.h"
#include "znstring/units.h"

/// How two strings relate, how a text hashes, and lists in a text.

using namespace zntms;

// ---- Comparison ---------------------------------------------------------------------------------

int ZnString::Compare(ZnString const & other, short length, unsigned short cmpOp) const {
  unsigned short const flags = cmpOp == ZnCmpDefault ? GetDefaultCmpOp() : cmpOp;
  return ZnStrCmp(codeSet, language, text, other.codeSet, other.language, other.text, flags, length,
                  1, nullptr);
}

int ZnString::EqualsIgnoreLanguage(ZnString const & other) const {
  unsigned char const common = language == other.language ? language : 0;
  return ZnStrCmp(codeSet, common, text, other.codeSet, common, other.text, ZnCmpKeysOnly, -1, 1,
                  nullptr) == 0;
}

bool ZnString::operator==(ZnString const & other) const {
  return this == &other || Compare(other) == 0;
}
int ZnString::operator!=(ZnString const & other) const { return Compare(other); }
bool ZnString::operator<(ZnString const & other) const { return Compare(other) < 0; }
bool ZnString::operator<=(ZnString const & other) const { return Compare(other) <= 0; }
bool ZnString::operator>(ZnString const & other) const { return Compare(other) > 0; }
bool ZnString::operator>=(ZnString const & other) const { return Compare(other) >= 0; }

// ---- Hashes -------------------------------------------------------------------------------------

namespace {

constexpr unsigned char kUnicode = 253;

/// `h` becomes 9 h + c over the units of the text in Unicode, else over its bytes with their sign;
/// `mask` tells the bits of `c` that count.
unsigned int HashUnits(ZnString const & s, unsigned int mask) {
  char const * const text = s.StrGet();
  unsigned int const length = s.Len();
  unsigned int hash = 0;
  if (s.codeSet == kUnicode) {
    for (unsigned int i = 0; i < length; ++i)
      hash = hash * 9 + (ReadUnit(text + 2 * i) & mask);
  } else {
    for (unsigned int i = 0; i < length * WidthOf(s.codeSet); ++i)
      hash = hash * 9 + (static_cast<unsigned int>(static_cast<signed char>(text[i])) & mask);
  }
  return hash;
}

} // namespace

unsigned int HashZnString(ZnString const & s) { return HashUnits(s, ~0u); }
unsigned int HashZnString7(ZnString const & s) { return HashUnits(s, 127); }

// ---- Lists --------------------------------------------------------------------------------------

int ZnSplitList(ZnString & source, ZnString & item, ZnString const & delimiter,
                unsigned short & position) {
  constexpr short none = -1;
  short found = source.Find(delimiter, position, ZnCmpDefault);
  if (found == 0) {
    ++position;
    found = source.Find(delimiter, position, ZnCmpDefault);
  }
  unsigned short end = static_cast<unsigned short>(found);
  if (found == none) {
    end = source.Len();
    if (position >= end)
      return ZnErrEndOfList;
  }
  item = source.Copy(position, static_cast<short>(end - position));
  item.Trim();
  position = static_cast<unsigned short>(end + 1);
  return 0;
}
