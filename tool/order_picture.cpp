#include "order_picture.h"

#include "output.h"
#include "text.h"
#include "value.h"

namespace zantm {

namespace {

std::string Hex(unsigned short number) {
  std::string text = "0x0000";
  for (size_t i = 5; i > 1; --i, number >>= 4)
    text[i] = "0123456789abcdef"[number & 15];
  return text;
}

std::string WordsOf(unsigned short order, unsigned char scriptClass) {
  ZnString words;
  ZnConvertOrderToString(order, scriptClass, words);
  std::string text = ToUtf8(words);
  while (!text.empty() && text.back() == '\n')
    text.pop_back();
  return text;
}

} // namespace

std::vector<OrderUnit> UnitsOf(ZnString & text) {
  std::vector<OrderUnit> units;
  char const * begin = text.StrGet();
  unsigned int width = text.codeSet > 224 ? 2 : 1;
  ZnStringIterator iterator(text);
  // The place moves with the last unit of a character; the first one is to bear its text.
  size_t taken = 0, first = 0;
  while (unsigned short order = iterator.GetNextOrder(1)) {
    units.push_back({"", order, iterator.scriptClass, WordsOf(order, iterator.scriptClass)});
    size_t at = static_cast<size_t>(iterator.current - begin) / width;
    if (at == taken)
      continue;
    units[first].text =
        ToUtf8(text.Copy(static_cast<unsigned short>(taken), static_cast<short>(at - taken)));
    taken = at;
    first = units.size();
  }
  return units;
}

std::vector<LevelResult> LevelsOf(ZnString & a, ZnString & b, unsigned short flags) {
  // A level is what a comparison finds that ignores the levels behind it.
  constexpr unsigned short kCase = ZnCmpIgnoreCase, kAccents = ZnCmpIgnoreAccents,
                           kRest = ZnCmpIgnoreSpaces | ZnCmpIgnoreSymbols;
  struct Level {
    char const * name;
    unsigned short ignored;
  };
  std::vector<LevelResult> results;
  bool decided = false;
  for (Level level : {Level{"letters and digits", kCase | kAccents | kRest},
                      Level{"accents, the last difference", kCase | kRest},
                      Level{"case, the first difference", kRest},
                      Level{"spaces and symbols, the last difference", 0}}) {
    auto cmpOp = static_cast<unsigned short>(flags | ZnCmpNoWildcards | level.ignored);
    int order = decided ? 0 : Manager().Cmp(ZnSTRING_T, &a, &b, cmpOp, 1, ZnFormatMemory);
    results.push_back({level.name, order, !decided});
    decided = decided || order != 0;
  }
  return results;
}

std::string UnitTable(ZnString & text, std::string const & indent) {
  std::string table = indent + "text  order   class  words\n";
  for (OrderUnit const & unit : UnitsOf(text))
    table += indent + Padded(unit.text, 4) + "  " + Hex(unit.order) +
             Padded(std::to_string(unit.scriptClass), 7, true) + "  " + unit.words + "\n";
  return table;
}

} // namespace zantm
