#include "znstring/wildcards.h"

#include "zanin.h"
#include "znchar.h"
#include "znstrcmp.h"
#include "znstring.h"
#include "znstring/characters.h"

namespace zntms {

constinit WildcardOrder asteriskOrder('*');
constinit WildcardOrder questionOrder('?');
constinit WildcardOrder escapeOrder('\\');

unsigned short WildcardOrder::Fill() {
  unsigned short const order =
      ZnLanguageContext::QueryCodeSet(1)->orderTable->Lookup(character_)->order;
  Set(order);
  return order;
}

namespace {

int SetToOrderOf(WildcardOrder & wildcard, ZnChar const & c) {
  ZnChar copy(c);
  wildcard.Set(ZnStringIterator(copy).GetNextOrder(0));
  return 0;
}

/// Code set 0 has bytes for wildcards, whatever the orders are.
unsigned int FindWildcardByte(char const * text, bool asteriskOnly, unsigned int limit) {
  for (unsigned int i = 0; i < limit && text[i] != 0; ++i)
    if (text[i] == '*' || (text[i] == '?' && !asteriskOnly))
      return i;
  return 65535;
}

unsigned int FindWildcardOrder(ZnStringIterator it, bool asteriskOnly, unsigned int limit) {
  char const * const start = it.current;
  unsigned int const width = CharacterWidth(it.codeSet);
  unsigned short const asterisk = asteriskOrder.Get();
  unsigned short const question = questionOrder.Get();
  auto const place = [&] { return static_cast<unsigned int>(it.current - start) / width; };
  while (place() < limit) {
    unsigned short const order = it.GetNextOrder(1);
    if (order == 0)
      break;
    if (order == asterisk || (order == question && !asteriskOnly))
      return place() == 0 ? 0 : place() - 1;
  }
  return 65535;
}

} // namespace
} // namespace zntms

using namespace zntms;

unsigned short ZnFindWildcard(unsigned char codeSet, unsigned char language, char const * text,
                              int asteriskOnly, unsigned short limit, unsigned short * byteOffset,
                              unsigned char byteOrder) {
  if (text == nullptr)
    text = kEmptyText;
  unsigned int const place =
      codeSet == 0 ? FindWildcardByte(text, asteriskOnly != 0, limit)
                   : FindWildcardOrder(ZnStringIterator(text, codeSet, language, byteOrder),
                                       asteriskOnly != 0, limit);
  if (place != 65535 && byteOffset != nullptr)
    *byteOffset = static_cast<unsigned short>(place * CharacterWidth(codeSet));
  return static_cast<unsigned short>(place);
}

int ZnString::SetAsterisk(ZnChar const & c) { return SetToOrderOf(asteriskOrder, c); }
int ZnString::SetQuestion(ZnChar const & c) { return SetToOrderOf(questionOrder, c); }
int ZnString::SetEscape(ZnChar const & c) { return SetToOrderOf(escapeOrder, c); }
