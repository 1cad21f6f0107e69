// The entry of comparison: nulls, bytes, and which reader and which start serve the texts.

#include "znstrcmp.h"

#include "zanin.h"
#include "zncodes.h"
#include "znstring/byte_match.h"
#include "znstring/characters.h"
#include "znstring/common_start.h"
#include "znstring/comparison.h"
#include "znstring/order_reader.h"

using namespace zntms;

namespace {

constexpr unsigned short kLiteral = ZnCmpNoWildcards | ZnCmpKeysOnly;

/// How far to read and where to tell the difference.
struct Extent {
  unsigned int limit;
  int outputLimit;
  int * lastDifference;
};

template <class Reader>
int CompareUnits(Reader const & a, Reader const & b, unsigned short cmpOp, Extent const & extent,
                 bool fixClass) {
  Comparison<Reader> comparison(a, b, cmpOp, extent.limit, extent.outputLimit,
                                extent.lastDifference);
  if ((cmpOp & ZnCmpKeysOnly) != 0)
    return comparison.RunOnKeys();
  return (cmpOp & ZnCmpNoWildcards) != 0 ? comparison.template Run<false>(fixClass)
                                         : comparison.template Run<true>(fixClass);
}

template <int Width>
int ComparePages(OrderSource & a, OrderSource & b, unsigned short cmpOp, Extent const & extent) {
  OrderReader<Width> readerA(a);
  OrderReader<Width> readerB(b);
  bool const sameReading =
      a.iterator.codeSet == b.iterator.codeSet && a.iterator.language == b.iterator.language;
  // Without a limit nobody counts units, and without wildcards nobody looks at equal ones.
  if (sameReading && (cmpOp & kLiteral) != 0 && extent.limit == ~0u) {
    unsigned int const common = CommonStart<Width>(a.iterator.current, b.iterator.current, a);
    if (common == kSameText)
      return 0;
    readerA.Skip(common);
    readerB.Skip(common);
  }
  return CompareUnits(readerA, readerB, cmpOp, extent, false);
}

/// Whether the texts can be read by pages: no order text, no code set without order table, and
/// two-byte characters in the order of the host.
bool HasPages(OrderSource const & source) {
  return source.pages != nullptr && source.iterator.codeSet != kOrderTextCodeSet &&
         (CharacterWidth(source.iterator.codeSet) == 1 || !IsBigEndian(source.iterator.byteOrder));
}

} // namespace

int ZnStrCmp(unsigned char codeSetA, unsigned char languageA, char const * textA,
             unsigned char codeSetB, unsigned char languageB, char const * textB,
             unsigned short cmpOp, short maxLength, unsigned char byteOrder, int * lastDifference) {
  bool const nullA = IsNullText(codeSetA, languageA);
  if (IsNullText(codeSetB, languageB))
    return nullA ? 0 : 1;
  if (nullA) {
    if ((cmpOp & kLiteral) != 0)
      return -1;
    textA = kEmptyText;
  }
  if (maxLength == 0)
    return 0;
  if (codeSetA == 0 && codeSetB == 0)
    return (cmpOp & kLiteral) == 0 ? MatchBytes(textB, textA, maxLength)
                                   : CompareBytes(textA, textB, maxLength);
  if (codeSetA == 0)
    codeSetA = ZnLanguageContext::GetNativeCodeSet();
  if (codeSetB == 0)
    codeSetB = ZnLanguageContext::GetNativeCodeSet();

  Extent const extent{maxLength == -1 ? ~0u : static_cast<unsigned short>(maxLength), maxLength,
                      (cmpOp & ZnCmpIgnoreSpaces) != 0 && maxLength > 0 ? lastDifference : nullptr};
  OrderSource a(textA != nullptr ? textA : kEmptyText, codeSetA, languageA, byteOrder);
  OrderSource b(textB != nullptr ? textB : kEmptyText, codeSetB, languageB, byteOrder);
  if (HasPages(a) && HasPages(b) &&
      CharacterWidth(a.iterator.codeSet) == CharacterWidth(b.iterator.codeSet))
    return CharacterWidth(a.iterator.codeSet) == 1 ? ComparePages<1>(a, b, cmpOp, extent)
                                                   : ComparePages<2>(a, b, cmpOp, extent);
  bool const fixClass = codeSetA == kOrderTextCodeSet || codeSetB == kOrderTextCodeSet;
  return CompareUnits(IteratorReader(a), IteratorReader(b), cmpOp, extent, fixClass);
}
