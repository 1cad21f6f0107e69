// Hash of a text by its comparison keys.
//
// Worked example: "ab" in code set 1, Latin class 5, has the keys 0x05400C20 and 0x05401020; the
// hash is the first times 9 plus the second.

#include "zanin.h"
#include "znstrcmp.h"
#include "znstring.h"
#include "znstring/characters.h"
#include "znstring/order_reader.h"

using namespace zntms;

namespace {

constexpr unsigned int kNullHash = 0xFEFE7575;

/// Folds the keys of `length` units, -1: up to the end. Behind the end units count 0.
template <class Reader>
unsigned int FoldKeys(Reader reader, short length) {
  unsigned int hash = 0;
  unsigned int left = length < 0 ? ~0u : static_cast<unsigned int>(length);
  while (left != 0) {
    reader.TakeLetters(left, [&](unsigned int key) {
      hash = key + hash * 9;
      --left;
    });
    if (left == 0)
      break;
    unsigned short const order = reader.Next();
    if (order == 0 && length < 0)
      break;
    hash = ZnOrderKey(order, reader.ScriptClass()) + hash * 9;
    --left;
  }
  return hash;
}

/// The same for the bytes of code set 0, which are their own keys.
unsigned int FoldBytes(char const * text, short length) {
  unsigned int hash = 0;
  unsigned int left = length < 0 ? ~0u : static_cast<unsigned int>(length);
  for (; left != 0 && (length > 0 || *text != 0); --left)
    hash = (*text != 0 ? static_cast<unsigned char>(*text++) : 0) + hash * 9;
  return hash;
}

} // namespace

unsigned int HashString(unsigned char codeSet, unsigned char language, char * text, short length,
                        unsigned char byteOrder) {
  if (IsNullText(codeSet, language))
    return kNullHash;
  if (length == 0 || text == nullptr)
    return 0;
  if (codeSet == 0)
    return FoldBytes(text, length);
  OrderSource source(codeSet, language, byteOrder);
  if (!source.HasPages())
    return FoldKeys(IteratorReader(source, text), length);
  return CharacterWidth(source.codeSet) == 1 ? FoldKeys(OrderReader<1>(source, text), length)
                                             : FoldKeys(OrderReader<2>(source, text), length);
}
