#include "znident.h"

#include "znstring/narrow_text.h"
#include "znstring/number_text.h"
#include "znstring/text_buffer.h"

/// Print and scan of the identity records.
///
/// All of them go through a `ZnRef`, which has every field, and a `TextForm`, which says which of
/// the fields a class has. Worked example: by "(%H-%L#%B)" the object (high 12, low 34, block 5)
/// prints as "(12-34#5)". Older formats name fields by position: "%hu/%lu" prints the same object
/// as "12/34", since `h` and `l` stand for the next 16-bit or 32-bit field and take the letter
/// behind them along.

namespace zntms {
namespace {

/// How a scan takes a character of the format that is no directive.
enum class Literal {
  AnyCharacter,  ///< it passes over one character of the text
  SameCharacter, ///< it passes over the same character, or over another that is no digit
  BehindBlanks   ///< blanks and "(" count for nothing; else as `AnyCharacter`
};

struct TextForm {
  std::string_view letters;    ///< directives by letter
  std::string_view positional; ///< the fields of positional directives, in their order
  bool longs;                  ///< `l` is a positional directive
  Literal literal;
};

constexpr TextForm kClassIdForm = {"CV", "CV", false, Literal::AnyCharacter};
constexpr TextForm kObjIdForm = {"HLB", "HLB", true, Literal::SameCharacter};
constexpr TextForm kRefForm = {"CVDHLB", "DHLBC", true, Literal::BehindBlanks};

constexpr char const * kClassIdFormat = "(%Cv%V)";
constexpr char const * kObjIdFormat = "(%H-%L#%B)";
constexpr char const * kRefFormat = "(%D:%H-%L#%B, %C)";
constexpr char const * kRefRowFormat = "(%D:%H-%L#%B,%Cv%V)";
constexpr char const * kLocalRefFormat = "(%H-%L#%B,%C)";

constexpr bool IsLong(char letter) { return letter == 'L' || letter == 'B'; }

/// Calls `use` with the field of a letter; not at all for no letter.
template <class Ref, class Use>
void WithField(Ref & ref, char letter, Use use) {
  switch (letter) {
  case 'B':
    return use(ref.block);
  case 'L':
    return use(ref.low);
  case 'H':
    return use(ref.high);
  case 'D':
    return use(ref.databaseId);
  case 'C':
    return use(ref.classNumber);
  case 'V':
    return use(ref.classVersion);
  }
}

struct Directive {
  bool found;
  char letter; ///< 0 for a position without a field
};

/// Reads the directive behind a `%`; `format` moves behind it if there is one. `position` is the
/// running index of positional directives.
Directive TakeDirective(TextForm const & form, char const *& format, unsigned int & position) {
  char const c = *format;
  if (c == 'h' || (c == 'l' && form.longs)) {
    char const letter = position < form.positional.size() ? form.positional[position] : '\0';
    ++position;
    format += format[1] ? 2 : 1;
    return {true, letter && IsLong(letter) == (c == 'l') ? letter : '\0'};
  }
  if (c && form.letters.find(c) != std::string_view::npos) {
    ++format;
    return {true, c};
  }
  return {false, '\0'};
}

ZnString & Print(ZnString & out, ZnRef const & ref, TextForm const & form, char const * format) {
  TextBuffer text;
  unsigned int position = 0;
  while (*format) {
    char const c = *format++;
    if (c != '%') {
      text.Put(c);
    } else if (Directive const directive = TakeDirective(form, format, position); directive.found) {
      unsigned int number = 0;
      WithField(ref, directive.letter, [&](auto const & field) { number = field; });
      text.PutNumber(number);
    } else if (*format) {
      text.Put(*format++);
    }
  }
  return out = text.CStr();
}

constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// Reads blanks, a sign and decimal digits modulo 2 to the power 32; `text` moves behind them.
/// False, without a move, if there is no digit.
bool TakeNumber(std::string_view & text, unsigned int & number) {
  std::size_t at = 0;
  while (at < text.size() && IsBlank(text[at]))
    ++at;
  bool const negative = at < text.size() && text[at] == '-';
  if (at < text.size() && (negative || text[at] == '+'))
    ++at;
  if (at == text.size() || !IsDigit(text[at]))
    return false;
  unsigned int magnitude = 0;
  for (; at < text.size() && IsDigit(text[at]); ++at)
    magnitude = magnitude * 10 + static_cast<unsigned int>(text[at] - '0');
  number = negative ? 0 - magnitude : magnitude;
  text.remove_prefix(at);
  return true;
}

/// Passes a literal of the format at `format` that is to stand for the same character of the text.
/// A text without the high word has no "-": then the format goes on at its own.
void TakeSameCharacter(std::string_view & text, char const *& format) {
  char const literal = *format++;
  if (literal == text.front() || !IsDigit(text.front())) {
    text.remove_prefix(1);
  } else if (text.find('-') == std::string_view::npos) {
    if (char const * const dash = std::strchr(format, '-'))
      format = dash;
  }
}

ZnRef Scan(std::string_view text, TextForm const & form, char const * format) {
  ZnRef ref;
  unsigned int position = 0;
  auto const passable = [&](char c) {
    return form.literal == Literal::BehindBlanks && (IsBlank(c) || c == '(');
  };
  for (;;) {
    while (passable(*format))
      ++format;
    while (!text.empty() && passable(text.front()))
      text.remove_prefix(1);
    if (!*format || text.empty())
      return ref;

    if (*format != '%') {
      if (form.literal == Literal::SameCharacter) {
        TakeSameCharacter(text, format);
      } else {
        ++format;
        text.remove_prefix(1);
      }
      continue;
    }
    ++format;
    if (Directive const directive = TakeDirective(form, format, position); directive.found) {
      unsigned int number = 0;
      if (TakeNumber(text, number))
        WithField(ref, directive.letter, [&](auto & field) {
          field = static_cast<std::remove_reference_t<decltype(field)>>(number);
        });
    } else {
      if (*format)
        ++format;
      text.remove_prefix(1);
    }
  }
}

template <class Value>
ZnString & PrintValue(ZnString & out, Value const & value, TextForm const & form,
                      char const * format) {
  if (value.IsNullValue())
    return out = NullPrintString();
  ZnRef ref;
  ref = value;
  return Print(out, ref, form, format);
}

void TakeFields(ZnClassId & value, ZnRef const & ref) {
  value.classNumber = ref.classNumber;
  value.classVersion = ref.classVersion;
}

void TakeFields(ZnObjId & value, ZnRef const & ref) {
  value.block = ref.block;
  value.low = ref.low;
  value.high = ref.high;
}

void TakeFields(ZnRef & value, ZnRef const & ref) { value = ref; }

template <class Value>
void * ScanValue(void * place, ZnString const & in, TextForm const & form, char const * format) {
  if (!place)
    return nullptr;
  Value & value = *static_cast<Value *>(place);
  NarrowText const text(in);
  value = Value();
  if (BeginsWithNullText(text))
    value.SetNullValue();
  else
    TakeFields(value, Scan(text.View(), form, format));
  return place;
}

constexpr char const * OrDefault(char const * format, char const * standard) {
  return format ? format : standard;
}

} // namespace
} // namespace zntms

using namespace zntms;

ZnString & ZnClassId::PrintToString(ZnString & out, void * value, char const * format,
                                    unsigned int) {
  return PrintValue(out, *static_cast<ZnClassId *>(value), kClassIdForm,
                    OrDefault(format, kClassIdFormat));
}

void * ZnClassId::ScanFromString(void * value, ZnString & in, char const * format, unsigned int) {
  return ScanValue<ZnClassId>(value, in, kClassIdForm, OrDefault(format, kClassIdFormat));
}

ZnString & ZnClassId::PrintToZnString(ZnString & out, char const * format) const {
  return PrintValue(out, *this, kClassIdForm, OrDefault(format, kClassIdFormat));
}

void ZnClassId::ScanFromZnString(ZnString const & in, char const * format) {
  ScanValue<ZnClassId>(this, in, kClassIdForm, OrDefault(format, kClassIdFormat));
}

ZnString & ZnObjId::PrintToString(ZnString & out, void * value, char const * format, unsigned int) {
  return PrintValue(out, *static_cast<ZnObjId *>(value), kObjIdForm,
                    OrDefault(format, kObjIdFormat));
}

void * ZnObjId::ScanFromString(void * value, ZnString & in, char const * format, unsigned int) {
  return ScanValue<ZnObjId>(value, in, kObjIdForm, OrDefault(format, kObjIdFormat));
}

ZnString & ZnObjId::PrintToZnString(ZnString & out, char const * format) const {
  return PrintValue(out, *this, kObjIdForm, OrDefault(format, kObjIdFormat));
}

void ZnObjId::ScanFromZnString(ZnString const & in, char const * format) {
  ScanValue<ZnObjId>(this, in, kObjIdForm, OrDefault(format, kObjIdFormat));
}

ZnString & ZnRef::PrintToString(ZnString & out, void * value, char const * format, unsigned int) {
  return PrintValue(out, *static_cast<ZnRef *>(value), kRefForm, OrDefault(format, kRefRowFormat));
}

void * ZnRef::ScanFromString(void * value, ZnString & in, char const * format, unsigned int) {
  return ScanValue<ZnRef>(value, in, kRefForm, OrDefault(format, kRefRowFormat));
}

ZnString & ZnRef::PrintToZnString(ZnString & out, char const * format) const {
  return PrintValue(out, *this, kRefForm, OrDefault(format, kRefFormat));
}

void ZnRef::ScanFromZnString(ZnString const & in, char const * format) {
  ScanValue<ZnRef>(this, in, kRefForm, OrDefault(format, kRefFormat));
}

ZnString & ZnLocalRef::PrintToZnString(ZnString & out, char const * format) const {
  ZnRef ref;
  ref = *this;
  return PrintValue(out, ref, kRefForm, OrDefault(format, kLocalRefFormat));
}

void ZnLocalRef::ScanFromZnString(ZnString const & in, char const * format) {
  ZnRef ref;
  ref.ScanFromZnString(in, OrDefault(format, kLocalRefFormat));
  *this = ref;
}
