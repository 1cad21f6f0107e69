// The entry of comparison: nulls, bytes, and which reader and which start serve the texts.

#include "znstrcmp.h"

#include "zanin.h"
#include "zncodes.h"
#include "znstring/byte_match.h"
#include "znstring/characters.h"
#include "znstring/comparison.h"
#include "znstring/order_reader.h"
#include "znstring/quick_comparison.h"

using namespace zntms;

namespace {

constexpr unsigned short kLiteral = ZnCmpNoWildcards | ZnCmpKeysOnly;

template <class Reader>
int CompareReaders(Reader const & a, Reader const & b, unsigned short cmpOp, Extent const & extent,
                   bool fixClass) {
  if ((cmpOp & ZnCmpKeysOnly) != 0)
    return CompareByKeys(a, b, extent.limit);
  if ((cmpOp & ZnCmpNoWildcards) != 0)
    return Comparison<Reader, false>([&] { return a; }, [&] { return b; }, cmpOp, extent, {})
        .Run(fixClass);
  return Comparison<Reader, true>([&] { return a; }, [&] { return b; }, cmpOp, extent, {})
      .Run(fixClass);
}

/// Nobody counts units here, so that a common start may be skipped, as long as nobody looks for
/// wildcards in it.
template <int Width>
inline int CompareQuickly(OrderSource & sourceA, char const * a, OrderSource & sourceB,
                          char const * b, unsigned short cmpOp) {
  QuickComparison<Width> comparison(sourceA, a, sourceB, b);
  if ((cmpOp & kLiteral) == 0)
    return comparison.template Run<true>(cmpOp);
  if ((&sourceA == &sourceB || sourceA.ReadsLike(sourceB)) && comparison.SkipCommonStart())
    return 0;
  return (cmpOp & ZnCmpKeysOnly) != 0 ? comparison.RunByKeys()
                                      : comparison.template Run<false>(cmpOp);
}

int CompareTexts(OrderSource & sourceA, char const * a, OrderSource & sourceB, char const * b,
                 unsigned short cmpOp, Extent const & extent) {
  unsigned int const width = CharacterWidth(sourceA.codeSet);
  if (!sourceA.HasPages() || !sourceB.HasPages() || width != CharacterWidth(sourceB.codeSet)) {
    bool const fixClass =
        sourceA.codeSet == kOrderTextCodeSet || sourceB.codeSet == kOrderTextCodeSet;
    return CompareReaders(IteratorReader(sourceA, a), IteratorReader(sourceB, b), cmpOp, extent,
                          fixClass);
  }
  if (extent.limit == ~0u)
    return width == 1 ? CompareQuickly<1>(sourceA, a, sourceB, b, cmpOp)
                      : CompareQuickly<2>(sourceA, a, sourceB, b, cmpOp);
  return width == 1 ? CompareReaders(OrderReader<1>(sourceA, a), OrderReader<1>(sourceB, b), cmpOp,
                                     extent, false)
                    : CompareReaders(OrderReader<2>(sourceA, a), OrderReader<2>(sourceB, b), cmpOp,
                                     extent, false);
}

/// A text as it was given.
struct GivenText {
  char const * text; ///< null for empty text
  unsigned char codeSet;
  unsigned char language;

  bool IsNull() const { return IsNullText(codeSet, language); }
  char const * Text() const { return text != nullptr ? text : kEmptyText; }
};

struct Manner {
  unsigned short cmpOp;
  short maxLength;
  unsigned char byteOrder;
};

// Its arguments fit into registers, so that whoever ends in a call to it has a small frame.
[[gnu::noinline]] int CompareAny(GivenText a, GivenText b, Manner manner, int * lastDifference) {
  auto const [cmpOp, maxLength, byteOrder] = manner;
  if (b.IsNull())
    return a.IsNull() ? 0 : 1;
  if (a.IsNull()) {
    if ((cmpOp & kLiteral) != 0)
      return -1;
    a.text = kEmptyText;
  }
  if (maxLength == 0)
    return 0;
  if (a.codeSet == 0 && b.codeSet == 0)
    return (cmpOp & kLiteral) == 0 ? MatchBytes(b.text, a.text, maxLength)
                                   : CompareBytes(a.text, b.text, maxLength);

  Extent const extent{maxLength == -1 ? ~0u : static_cast<unsigned short>(maxLength), maxLength,
                      (cmpOp & ZnCmpIgnoreSpaces) != 0 && maxLength > 0 ? lastDifference : nullptr};
  OrderSource sourceA(a.codeSet, a.language, byteOrder);
  OrderSource sourceB(b.codeSet, b.language, byteOrder);
  return CompareTexts(sourceA, a.Text(), sourceB, b.Text(), cmpOp, extent);
}

/// Compares whole texts of one code set and language that no first look decided.
template <int Width>
[[gnu::noinline]] int CompareClosely(unsigned char codeSet, unsigned char language, char const * a,
                                     char const * b, unsigned short cmpOp) {
  OrderSource source(codeSet, language, 1);
  if (!source.HasPages())
    return CompareReaders(IteratorReader(source, a), IteratorReader(source, b), cmpOp, Extent(),
                          false);
  return CompareQuickly<Width>(source, a, source, b, cmpOp);
}

/// The same without wildcards, with some care.
template <int Width>
[[gnu::noinline]] int CompareCarefully(unsigned char codeSet, unsigned char language,
                                       char const * a, char const * b, unsigned short cmpOp) {
  return CompareDifferences<Width, true>(codeSet, language, a, b, cmpOp, [=](std::size_t skip) {
    if (skip == 0)
      return CompareClosely<Width>(codeSet, language, a, b, cmpOp);
    OrderSource source(codeSet, language, 1);
    return QuickComparison<Width>(source, a + skip, source, b + skip).template Run<false>(cmpOp);
  });
}

/// Compares whole texts of one code set and language, two-byte ones in the order of the host.
template <int Width>
inline int CompareAlike(unsigned char codeSet, unsigned char language, char const * a,
                        char const * b, unsigned short cmpOp) {
  return CompareDifferences<Width, false>(codeSet, language, a, b, cmpOp, [=](std::size_t) {
    return CompareCarefully<Width>(codeSet, language, a, b, cmpOp);
  });
}

/// The same with wildcards in the second text, or by keys.
template <int Width>
[[gnu::noinline]] int MatchAlike(unsigned char codeSet, unsigned char language, char const * a,
                                 char const * b, unsigned short cmpOp) {
  int const result =
      (cmpOp & ZnCmpKeysOnly) == 0 ? CompareFirst<Width>(codeSet, language, a, b) : 0;
  return result != 0 ? result : CompareClosely<Width>(codeSet, language, a, b, cmpOp);
}

} // namespace

int ZnStrCmp(unsigned char codeSetA, unsigned char languageA, char const * textA,
             unsigned char codeSetB, unsigned char languageB, char const * textB,
             unsigned short cmpOp, short maxLength, unsigned char byteOrder, int * lastDifference) {
  // Most texts are of one code set and language, compared whole, and most of these are decided by
  // the first letters that differ.
  bool const alike = ((codeSetA ^ codeSetB) | (languageA ^ languageB) | (maxLength + 1)) == 0;
  if (alike && languageA < kNullLanguage && codeSetA - 1u < kOrderTextCodeSet - 1u &&
      textA != nullptr && textB != nullptr) [[likely]] {
    bool const literal = (cmpOp & kLiteral) == ZnCmpNoWildcards;
    if (CharacterWidth(codeSetA) == 1)
      return literal ? CompareAlike<1>(codeSetA, languageA, textA, textB, cmpOp)
                     : MatchAlike<1>(codeSetA, languageA, textA, textB, cmpOp);
    if (!IsBigEndian(byteOrder))
      return literal ? CompareAlike<2>(codeSetA, languageA, textA, textB, cmpOp)
                     : MatchAlike<2>(codeSetA, languageA, textA, textB, cmpOp);
  }
  return CompareAny({textA, codeSetA, languageA}, {textB, codeSetB, languageB},
                    {cmpOp, maxLength, byteOrder}, lastDifference);
}
