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

/// Folds units until there are `length` of them; -1: until the end. Behind the end units count 0.
template <class NextKey>
unsigned int Fold(short length, NextKey && next) {
  unsigned int hash = 0;
  if (length < 0) {
    while (unsigned int const key = next())
      hash = key + hash * 9;
    return hash;
  }
  for (short i = 0; i < length; ++i)
    hash = next() + hash * 9;
  return hash;
}

template <class Reader>
unsigned int FoldKeys(Reader reader, short length) {
  return Fold(length, [&] {
    unsigned short const order = reader.Next();
    return ZnOrderKey(order, reader.ScriptClass());
  });
}

} // namespace

unsigned int HashString(unsigned char codeSet, unsigned char language, char * text, short length,
                        unsigned char byteOrder) {
  if (IsNullText(codeSet, language))
    return kNullHash;
  if (length == 0 || text == nullptr)
    return 0;
  if (codeSet == 0)
    return Fold(length, [&]() -> unsigned int {
      return *text == 0 ? 0 : static_cast<unsigned char>(*text++);
    });
  OrderSource source(codeSet, language, byteOrder);
  if (!source.HasPages())
    return FoldKeys(IteratorReader(source, text), length);
  return CharacterWidth(source.codeSet) == 1 ? FoldKeys(OrderReader<1>(source, text), length)
                                             : FoldKeys(OrderReader<2>(source, text), length);
}
