// The compare and hash rows of strings, over memory form and over stored keys.
//
// An index may cut a key short. Comparison then covers only what both keys hold, and error 2101
// tells the engine that the result rests on a part. Worked example: a key that holds "abc" of
// "abcdef" against the pattern "abc*" is a match without error, for the pattern ends with its
// asterisk where the key ends; against "abcx" it is 0 with the error 2101.

#include "zanbs.h"
#include "zncodes.h"
#include "znquery.h"
#include "znstrcmp.h"
#include "znstring.h"
#include "znstring/characters.h"
#include "zntypevl/stored_text.h"
#include "zntypevl/string_query.h"

#include "query/elements.h"
#include "query/hash_frame.h"

#include <algorithm>

namespace zntms {
namespace {

char const * TextOf(ZnString const & s) { return s.text != nullptr ? s.text : kEmptyText; }

bool HasWildcards(unsigned short cmpOp) {
  return (cmpOp & (ZnCmpNoWildcards | ZnCmpKeysOnly)) == 0;
}

int CompareInMemory(unsigned int lengthA, void const * valueA, unsigned int lengthB,
                    void const * valueB, unsigned short cmpOp, unsigned int count, int & error) {
  auto const * a = static_cast<ZnString const *>(valueA);
  auto const * b = static_cast<ZnString const *>(valueB);
  unsigned int const held = std::min(ElementsHeld(lengthA, count, sizeof(ZnString)),
                                     ElementsHeld(lengthB, count, sizeof(ZnString)));
  int result = 0;
  unsigned int i = 0;
  while (i < held && result == 0) {
    result = ZnStrCmp(a[i].codeSet, a[i].language, TextOf(a[i]), b[i].codeSet, b[i].language,
                      TextOf(b[i]), cmpOp, -1, ZnFormatMemory, nullptr);
    ++i;
  }
  if (i == held && held < count)
    error = ZnErrIncomplete;
  return result;
}

/// How many characters of two texts, of which at least one is cut, can be compared.
struct Reach {
  unsigned int characters;
  bool incomplete; ///< the result says nothing about what was cut off
};

Reach ReachOf(StoredTexts const & a, bool cutA, StoredTexts const & b, bool cutB,
              unsigned short cmpOp, unsigned char byteOrder) {
  unsigned int const charactersA = a.Characters();
  unsigned int const charactersB = b.Characters();
  bool const spacesCount = (cmpOp & ZnCmpIgnoreSpaces) == 0;
  if (HasWildcards(cmpOp)) {
    unsigned int const star =
        ZnFindWildcard(b.codeSet, b.language, b.text, 1, static_cast<unsigned short>(charactersB),
                       nullptr, byteOrder);
    if (star != 65535) {
      bool const isPrefixPattern =
          !cutB && spacesCount && star + 1 == charactersB && charactersA >= star;
      return {std::min(star, charactersA), !isPrefixPattern};
    }
  }
  if (cutA && cutB)
    return {std::min(charactersA, charactersB), true};
  return cutA ? Reach{charactersA, charactersB >= charactersA || !spacesCount}
              : Reach{charactersB, charactersA >= charactersB || !spacesCount};
}

int CompareStoredPair(StoredTexts & a, StoredTexts & b, unsigned short cmpOp,
                      unsigned char byteOrder, int & error) {
  bool const mixedA = a.TakeMixedMark();
  bool const mixedB = b.TakeMixedMark();
  if (mixedA)
    error = ZnErrMixedFirstKey;
  else if (mixedB)
    error = ZnErrMixedSecondKey;
  bool const cutA = a.cut == StoredTexts::Cut::Text;
  bool const cutB = b.cut == StoredTexts::Cut::Text || (mixedB && HasWildcards(cmpOp));

  auto const compare = [&](unsigned int maxLength, int * difference) {
    return ZnStrCmp(a.codeSet, a.language, a.text, b.codeSet, b.language, b.text, cmpOp,
                    static_cast<short>(maxLength), byteOrder, difference);
  };
  if (!cutA && !cutB)
    return compare(65535, nullptr);

  Reach const reach = ReachOf(a, cutA, b, cutB, cmpOp, byteOrder);
  if (reach.incomplete && error == 0)
    error = ZnErrIncomplete;
  int difference = 0;
  int result = compare(reach.characters, &difference);
  if (result == 0 && a.Characters() != b.Characters()) {
    if (cutA && !cutB && reach.characters == b.Characters())
      result = 1;
    else if (cutB && !cutA && reach.characters == a.Characters())
      result = -1;
  }
  return (cmpOp & ZnCmpIgnoreSpaces) != 0 ? difference : result;
}

int CompareStored(unsigned char format, unsigned int lengthA, void const * valueA,
                  unsigned int lengthB, void const * valueB, unsigned short cmpOp,
                  unsigned int count, int & error, bool oldData) {
  StoredTexts a(valueA, lengthA, format, oldData);
  StoredTexts b(valueB, lengthB, format, oldData);
  for (;;) {
    a.Read();
    b.Read();
    if (a.TooLong() || b.TooLong()) {
      error = ZnErrNotSupported;
      return -1;
    }
    int const result = CompareStoredPair(a, b, cmpOp, format & 15, error);
    if (--count == 0)
      return result;
    if (!a.Advance() || !b.Advance())
      error = ZnErrIncomplete;
    if (result != 0 || error != 0)
      return result;
  }
}

int Compare(unsigned char format, unsigned int lengthA, void const * valueA, unsigned int lengthB,
            void const * valueB, unsigned short cmpOp, unsigned int count, int & error,
            bool oldData) {
  error = 0;
  if (count == 0)
    return 0;
  return format == ZnFormatMemory
             ? CompareInMemory(lengthA, valueA, lengthB, valueB, cmpOp, count, error)
             : CompareStored(format, lengthA, valueA, lengthB, valueB, cmpOp, count, error,
                             oldData);
}

unsigned int HashInMemory(unsigned int length, void const * value, unsigned int count) {
  auto const * strings = static_cast<ZnString const *>(value);
  unsigned int const held = ElementsHeld(length, count, sizeof(ZnString));
  unsigned int total = 0;
  for (unsigned int i = 0; i < held; ++i)
    total ^=
        HashString(strings[i].codeSet, WithoutMixedMark(strings[i].codeSet, strings[i].language),
                   strings[i].text, -1, ZnFormatMemory);
  return total * kHashMultiplier;
}

unsigned int HashStored(unsigned char format, unsigned int length, void const * value,
                        unsigned int count, int & error, bool oldData) {
  StoredTexts texts(value, length, format, oldData);
  unsigned int total = 0;
  do {
    texts.Read();
    if (texts.TooLong()) {
      error = ZnErrNotSupported;
      return 0;
    }
    texts.TakeMixedMark();
    bool const cut = texts.cut == StoredTexts::Cut::Text;
    total ^= HashString(texts.codeSet, texts.language, const_cast<char *>(texts.text),
                        cut ? static_cast<short>(texts.Characters()) : -1, format & 15);
  } while (--count != 0 && texts.Advance());
  return total * kHashMultiplier;
}

unsigned int Hash(unsigned char format, unsigned int length, void const * value, unsigned int count,
                  int & error, bool oldData) {
  error = 0;
  if (count == 0)
    return 0;
  return format == ZnFormatMemory ? HashInMemory(length, value, count)
                                  : HashStored(format, length, value, count, error, oldData);
}

} // namespace

int OldStringCompare(unsigned char format, unsigned int lengthA, void * valueA,
                     unsigned int lengthB, void * valueB, unsigned short int cmpOp,
                     unsigned int count, int & error) {
  return Compare(format, lengthA, valueA, lengthB, valueB, cmpOp, count, error, true);
}

unsigned int StringHash(unsigned char format, unsigned int length, void * value, unsigned int count,
                        int & error) {
  return Hash(format, length, value, count, error, false);
}

unsigned int OldStringHash(unsigned char format, unsigned int length, void * value,
                           unsigned int count, int & error) {
  return Hash(format, length, value, count, error, true);
}

} // namespace zntms

int StringCompare(unsigned char format, unsigned int lengthA, void * valueA, unsigned int lengthB,
                  void * valueB, unsigned short int cmpOp, unsigned int count, int & error) {
  return zntms::Compare(format, lengthA, valueA, lengthB, valueB, cmpOp, count, error, false);
}
