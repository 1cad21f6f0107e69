// Order numbers as characters and as words.
//
// The layout of an order number stands in `znorder.h`. Worked example: 0x610C is 01 10 00010 00011
// 00 in binary: a letter, lower case, diacritic 2 (acute), base letter 3 (A), no extension; its
// byte in code set 1 is 0xE1, spelled \'a.

#include "znorder.h"

#include "znchar.h"
#include "zncodes.h"
#include "znstring.h"
#include "znstring/order_entry.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <string_view>

using namespace zntms;

namespace {

constexpr unsigned short kFirstSymbol = 80;
constexpr unsigned short kFirstDigit = 16128;
constexpr unsigned short kFirstLetter = 16384;
constexpr unsigned short kUndefinedOrder = 13;

constexpr char const * kDiacriticWords[] = {
    "cedilla",      "accent acute", "accent grave", "accent circumflex",     "tilde",
    "diaeresis",    "ring above",   "stroke",       "accent caron",          "accent macron",
    "accent breve", "dot above",    "ogonek",       "accent o_double acute",
};

struct Symbol {
  unsigned short order;
  char character; ///< `.` if it has no plain byte
  char const * word;
};

constexpr Symbol kSymbols[] = {
    {112, '_', "_"},
    {114, '.', "macron sign"},
    {115, '.', "soft hyphen"},
    {116, '-', "-"},
    {117, ',', ","},
    {118, ';', ";"},
    {119, ':', ":"},
    {120, '!', "!"},
    {121, '.', "inverted exclamation mark"},
    {122, '?', "?"},
    {124, '/', "solidus"},
    {126, '.', "full stop"},
    {129, '.', "middle dot"},
    {130, '.', "cedilla"},
    {132, '\'', "apostrophe"},
    {135, '"', "\""},
    {138, '.', "left pointing o_double angle quotation mark"},
    {139, '.', "right pointing o_double angle quotation mark"},
    {140, '(', "("},
    {142, ')', ")"},
    {144, '[', "["},
    {145, ']', "]"},
    {146, '{', "{"},
    {147, '}', "}"},
    {148, '.', "section sign"},
    {149, '.', "pilcrow sign"},
    {150, '.', "copyright sign"},
    {151, '.', "registered sign"},
    {153, '@', "@"},
    {154, '.', "currency sign"},
    {155, '.', "cent sign"},
    {156, '$', "$"},
    {157, '.', "pound sign"},
    {158, '.', "yen sign"},
    {159, '*', "*"},
    {160, '.', "reverse solidus"},
    {161, '&', "&"},
    {162, '#', "#"},
    {163, '%', "%"},
    {165, '+', "+"},
    {167, '.', "plus minus sign"},
    {168, '\'', "'"},
    {169, '`', "`"},
    {171, '^', "^"},
    {174, '.', "diaeresis"},
    {176, '~', "~"},
    {178, '.', "division sign"},
    {179, '.', "multiplication sign"},
    {181, '<', "<"},
    {183, '=', "="},
    {185, '>', ">"},
    {186, '.', "not sign"},
    {187, '|', "|"},
    {188, '.', "broken bar"},
    {189, '.', "degree sign"},
    {190, '.', "micron sign"},
    {219, '.', "inverted question mark"},
};

/// Null if the number has neither character nor word.
Symbol const * FindSymbol(unsigned short order) {
  auto const found = std::ranges::lower_bound(kSymbols, order, {}, &Symbol::order);
  return found != std::end(kSymbols) && found->order == order ? found : nullptr;
}

/// Spellings of the letters 192 to 255 of code set 1; empty for the two signs among them.
constexpr char const * kSpellings[64] = {
    "\\`A",  "\\'A", "\\^A", "\\~A",  "\\\"A", "\\AA",  "\\AE",  "\\,C", "\\`E",  "\\'E", "\\^E",
    "\\\"E", "\\`I", "\\'I", "\\^I",  "\\\"I", "\\-D",  "\\~N",  "\\`O", "\\'O",  "\\^O", "\\~O",
    "\\\"O", "",     "\\-O", "\\`U",  "\\'U",  "\\^U",  "\\\"U", "\\'Y", "\\TH",  "\\ss", "\\`a",
    "\\'a",  "\\^a", "\\~a", "\\\"a", "\\aa",  "\\ae",  "\\,c",  "\\`e", "\\'e",  "\\^e", "\\\"e",
    "\\`i",  "\\'i", "\\^i", "\\\"i", "\\-d",  "\\~n",  "\\`o",  "\\'o", "\\^o",  "\\~o", "\\\"o",
    "",      "\\-o", "\\`u", "\\'u",  "\\^u",  "\\\"u", "\\'y",  "\\th", "\\\"y",
};

struct Letter {
  unsigned short letterCase;
  unsigned short diacritic;
  unsigned short base;
  unsigned short extension;

  bool IsUpper() const { return letterCase == 0; }
  unsigned char Character() const {
    return static_cast<unsigned char>(base + (IsUpper() ? 62 : 94));
  }
};

Letter FieldsOf(unsigned short order) {
  return {static_cast<unsigned short>(order >> 12 & 3),
          static_cast<unsigned short>(order >> 7 & 31),
          static_cast<unsigned short>(order >> 2 & 31), static_cast<unsigned short>(order & 3)};
}

unsigned short DigitValue(unsigned short order) {
  return static_cast<unsigned short>(((order & ~1u) - kFirstDigit) / 10);
}

bool IsIdeograph(unsigned short order, unsigned char scriptClass) {
  return (order & 0x8000) != 0 || (scriptClass & 0x7F) >= kIdeographClass;
}

/// The byte of code set 1 with this order, or 0.
unsigned char FindAccented(unsigned short order) {
  for (unsigned int byte = 128; byte < 256; ++byte)
    if (ZnCharOrder(ZnChar(static_cast<char>(byte), 1, 1)) == order)
      return static_cast<unsigned char>(byte);
  return 0;
}

/// Text that is put together of pieces, of which the longest come to under 80 bytes.
class Words {
public:
  Words & operator<<(std::string_view piece) {
    std::size_t const room = sizeof text_ - 1 - length_;
    piece = piece.substr(0, room);
    std::ranges::copy(piece, text_ + length_);
    length_ += piece.size();
    return *this;
  }
  Words & operator<<(char c) { return *this << std::string_view(&c, 1); }
  Words & Number(unsigned int number, int base = 10, int width = 1) {
    char digits[16];
    char const * const end = std::to_chars(digits, digits + sizeof digits, number, base).ptr;
    for (auto have = end - digits; have < width; ++have)
      *this << '0';
    return *this << std::string_view(digits, end);
  }
  char const * CStr() const { return text_; }

private:
  char text_[128] = {};
  std::size_t length_ = 0;
};

void DescribeLetter(Words & words, unsigned short order) {
  Letter const letter = FieldsOf(order);
  words << (letter.IsUpper() ? "upper " : "lower ") << "letter "
        << static_cast<char>(letter.Character());
  if (letter.diacritic != 0) {
    words << " with ";
    if (letter.diacritic <= std::size(kDiacriticWords))
      words << kDiacriticWords[letter.diacritic - 1];
  }
  if (letter.extension != 0)
    words << " with extension";
}

} // namespace

int ZnConvertOrderToChar(unsigned short order, unsigned char scriptClass, unsigned char & c,
                         int mapAccents, char const ** name) {
  c = 7;
  if (IsIdeograph(order, scriptClass)) {
    c = 127;
  } else if (order < kFirstSymbol) {
    c = ' ';
  } else if (order < kFirstDigit) {
    if (Symbol const * const symbol = FindSymbol(order))
      c = static_cast<unsigned char>(symbol->character);
  } else if (order < kFirstLetter) {
    c = static_cast<unsigned char>('0' + DigitValue(order));
  } else {
    Letter const letter = FieldsOf(order);
    c = letter.Character();
    unsigned char const accented =
        letter.diacritic != 0 && mapAccents != 0 ? FindAccented(order) : 0;
    if (accented != 0) {
      c = accented;
      if (name != nullptr)
        *name = accented >= 192 ? kSpellings[accented - 192] : "";
    }
  }
  return 0;
}

int ZnConvertOrderToString(unsigned short order, unsigned char scriptClass, ZnString & out) {
  Words words;
  if (IsIdeograph(order, scriptClass)) {
    words << "HAN character 0x";
    words.Number(order, 16, 4) << '\n';
  } else if (order < kFirstSymbol) {
    words << (order == kUndefinedOrder ? "undefined ordering indicator" : "space");
  } else if (order < kFirstDigit) {
    Symbol const * const symbol = FindSymbol(order);
    words << "symbol " << (symbol != nullptr ? symbol->word : "");
  } else if (order < kFirstLetter) {
    words << "digit ";
    words.Number(DigitValue(order));
    if ((order & 1) != 0)
      words << " with expand";
  } else {
    DescribeLetter(words, order);
  }
  out = words.CStr();
  return 0;
}

int ZnExtractDigitFromOrder(unsigned short order, unsigned short & digit, unsigned short & expand) {
  if (order < kFirstDigit || order >= kFirstLetter)
    return ZnErrWrongArgument;
  digit = DigitValue(order);
  expand = order & 1;
  return 0;
}

int ZnExtractSymbolFromOrder(unsigned short order, unsigned short & symbol) {
  if (order < kFirstSymbol || order >= kFirstDigit)
    return ZnErrWrongArgument;
  symbol = static_cast<unsigned short>(order - kFirstSymbol);
  return 0;
}
