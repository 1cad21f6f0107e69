#include "zntypes/string_text.h"

#include "zanin.h"
#include "znorder.h"
#include "znstring.h"
#include "znstring/nulltext.h"
#include "znstring/units.h"
#include "zntypes/text_format.h"

/// Print and scan rows of strings.
///
/// Worked example: the index key of "Ab" prints by "%s" as "Ab", by "%3M\n" as a line for each
/// order number, "upper letter A" and "lower letter b".

namespace zntms {

namespace {

constexpr unsigned char kLatin1 = 1;
constexpr unsigned char kUnicode = 253;
constexpr unsigned char kOrderText = 254;
constexpr unsigned char kMixedClass = 0x80; ///< in the language of an order text

std::string_view BytesOf(ZnString const & s) { return {s.StrGet(), s.Len()}; }

/// The code set that a print converts to: that of its output, or the default one if the output has
/// none, or the native one if that is 0 too.
unsigned char OutputCodeSet(ZnString const & out) {
  for (unsigned char codeSet : {out.codeSet, ZnString::GetDefaultCodeSet()})
    if (codeSet != 0)
      return codeSet;
  return ZnLanguageContext::GetNativeCodeSet();
}

/// Formats a text of two bytes a character in the code set of the output.
void PrintConverted(ZnString & out, ZnString const & s, char const * format) {
  ZnString text(OutputCodeSet(out), 0);
  text += s;
  FormattedAround const around = FormatAround(format, text.Len());
  ZnString all(text.codeSet, ZnString::GetDefaultLanguage());
  all += ZnString(around.before.c_str());
  all += text.Left(static_cast<unsigned short>(around.length));
  all += ZnString(around.after.c_str());
  out = all;
}

// ---- Order text ---------------------------------------------------------------------------------

/// How an order text prints: as base letters, letters, descriptions or spellings.
enum class OrderPrint { baseLetters, letters, words, spellings };

/// A format with its directive replaced by `%s`.
struct OrderFormat {
  OrderPrint print = OrderPrint::letters;
  std::string format;

  explicit OrderFormat(std::string_view text) : format(text) {
    constexpr struct {
      std::string_view directive;
      OrderPrint print;
    } directives[] = {{"%1M", OrderPrint::baseLetters},
                      {"%2M", OrderPrint::letters},
                      {"%3M", OrderPrint::words},
                      {"%4M", OrderPrint::spellings}};
    for (auto const & d : directives) {
      std::size_t const place = format.find(d.directive);
      if (place != std::string::npos) {
        print = d.print;
        format.replace(place, d.directive.size(), "%s");
        return;
      }
    }
  }
};

std::string WordsOf(unsigned short order, unsigned char scriptClass) {
  ZnString words;
  ZnConvertOrderToString(order, scriptClass, words);
  return std::string(BytesOf(words));
}

std::string SpellingOf(unsigned short order, unsigned char scriptClass) {
  unsigned char c = 0;
  char const * name = nullptr;
  ZnConvertOrderToChar(order, scriptClass, c, 1, &name);
  return name ? std::string(name) : std::string(1, static_cast<char>(c));
}

/// Prints each order number by itself through the format.
ZnString & PrintPieces(ZnString & out, ZnString const & value, OrderFormat const & format) {
  std::string all;
  bool const words = format.print == OrderPrint::words;
  unsigned int const length = value.Len();
  for (unsigned int i = 0; i < length; ++i) {
    unsigned short const order = ReadUnit(value.text + 2 * i);
    all += FormatText(format.format,
                      words ? WordsOf(order, value.language) : SpellingOf(order, value.language));
  }
  if (words && (value.language & kMixedClass) != 0)
    all += FormatText(format.format, "[MIX]");
  return out = all.c_str();
}

/// Prints one character for each order number.
ZnString & PrintLetters(ZnString & out, ZnString const & value, OrderFormat const & format) {
  bool const accents = format.print != OrderPrint::baseLetters;
  std::string letters;
  unsigned int const length = value.Len();
  for (unsigned int i = 0; i < length; ++i) {
    unsigned char c = 0;
    ZnConvertOrderToChar(ReadUnit(value.text + 2 * i), value.language, c, accents, nullptr);
    letters.push_back(static_cast<char>(c));
  }
  ZnString latin(FormatText(format.format, letters).c_str());
  if (!accents)
    return out = latin;
  latin.codeSet = kLatin1;
  ZnString mapped(OutputCodeSet(out), ZnString::GetDefaultLanguage());
  mapped += latin;
  return out = mapped;
}

} // namespace

ZnString & StringPrint(ZnString & out, void * value, char const * format, unsigned int) {
  ZnString const & s = *static_cast<ZnString const *>(value);
  if (s.IsNullValue())
    return out = NullPrintString();
  if (s.IsEmpty())
    return out = s;
  if (s.codeSet == kOrderText) {
    OrderFormat const orderFormat(format);
    bool const pieces =
        orderFormat.print == OrderPrint::words || orderFormat.print == OrderPrint::spellings;
    return pieces ? PrintPieces(out, s, orderFormat) : PrintLetters(out, s, orderFormat);
  }
  if (WidthOf(s.codeSet) == 1) {
    unsigned char const codeSet = s.codeSet;
    out = FormatText(format, BytesOf(s)).c_str();
    out.SetCodeSet(codeSet);
    return out;
  }
  unsigned char const codeSet = s.codeSet;
  PrintConverted(out, s, format);
  if (codeSet != kUnicode)
    out.SetCodeSet(codeSet);
  return out;
}

void * StringScan(void * value, ZnString & in, char const *, unsigned int) {
  if (!value)
    return value;
  ZnString & s = *static_cast<ZnString *>(value);
  ZnString const & nullText = NullPrintString();
  if (in.Compare(nullText, static_cast<short>(nullText.Len()), ZnCmpDefault) == 0)
    s.SetNullValue();
  else
    s = in;
  return value;
}

} // namespace zntms
