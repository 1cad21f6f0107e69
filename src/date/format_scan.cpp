#include "date/carry.h"
#include "date/directives.h"
#include "date/format.h"
#include "date/scan_value.h"
#include "znstring/narrow_text.h"

#include <algorithm>
#include <charconv>

/// Scanning of dates and times.
///
/// Worked example: the text '2000/01/02' under "%Y-%m-%d". `%Y` reads the integer 2000. The
/// literal '-' takes one character of the text, whatever it is, here the '/'. `%m` reads 1, and so
/// on. Under '2000-01' the text ends before `%d`: the result is a failure, with year and month
/// read.
///
/// White space in front of every element of the format is skipped on both sides. Nothing is
/// rejected: a number that is missing counts as 0, one that is too large is cut to its field.

namespace {

using namespace zntms;

bool IsSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
bool IsDigit(char c) { return static_cast<unsigned char>(c - '0') < 10; }

/// Directives that read nothing but an integer into their field.
bool IsInteger(Kind kind) {
  return kind == Kind::Two || kind == Kind::Hour12 || kind == Kind::Year || kind == Kind::Number;
}

/// The number of the digits from `in` on, modulo 2 to the power 32; `in` goes behind them.
unsigned int Digits(char const *& in, char const * end) {
  unsigned int number = 0;
  for (; in != end && IsDigit(*in); ++in)
    number = number * 10 + static_cast<unsigned int>(*in - '0');
  return number;
}

class Scanner {
public:
  explicit Scanner(std::string_view text) : in_(text.data()), end_(text.data() + text.size()) {}

  /// False if the text ended before the format.
  bool Run(char const * format);
  void Give(ZnDateTimeN & value) const;

private:
  void Wildcard(Directive directive);
  void Read(Directive directive);
  int Integer(std::ptrdiff_t width);
  int Integer() { return Integer(end_ - in_); }
  int Month();
  void Seconds();
  void TotalDays();
  void ReadHalfDay();
  void ApplyHalfDay();
  /// The next character, 0 at the end of the text.
  char Peek() const { return in_ != end_ ? *in_ : '\0'; }
  std::string_view Rest() const { return {in_, static_cast<std::size_t>(end_ - in_)}; }
  void Skip(std::ptrdiff_t characters) { in_ += std::min(characters, end_ - in_); }
  template <unsigned int Count>
  int MatchName(Name const (&names)[Count]);

  char const * in_;
  char const * const end_;
  int field_[kFieldCount] = {}; // wider than those of a value, while they are read
  char half_ = 0;               // 'a', 'p' or none
};

/// An optional sign and digits, no more than `width` characters.
int Scanner::Integer(std::ptrdiff_t width) {
  bool const negative = Peek() == '-';
  if (negative || Peek() == '+') {
    ++in_;
    --width;
  }
  unsigned int const number = Digits(in_, in_ + std::clamp<std::ptrdiff_t>(width, 0, end_ - in_));
  return static_cast<int>(negative ? 0 - number : number);
}

/// The name whose first three characters stand here, or -1. What agrees with the name is skipped.
template <unsigned int Count>
int Scanner::MatchName(Name const (&names)[Count]) {
  for (unsigned int i = 0; i < Count; ++i) {
    std::string_view const name(names[i].text, names[i].length);
    if (!Rest().starts_with(name.substr(0, 3)))
      continue;
    for (char const c : name) {
      if (Peek() != c)
        break;
      ++in_;
    }
    return static_cast<int>(i);
  }
  return -1;
}

int Scanner::Month() {
  if (int const index = MatchName(kMonthNames); index >= 0)
    return index + 1;
  char const * const start = in_;
  int const month = Integer(3);
  in_ = start;
  Skip(3);
  return month;
}

/// A number with a fraction. Digits are taken as they stand, so that what was printed comes back
/// to the nanosecond; digits behind the ninth of a fraction do not count. A number in any other
/// notation goes through a double.
void Scanner::Seconds() {
  char const * const start = in_;
  bool const negative = Peek() == '-';
  if (negative || Peek() == '+')
    ++in_;
  char const * const digits = in_;
  unsigned int whole = Digits(in_, end_);
  int fraction = 0;
  if (Peek() == '.') {
    int unit = 100000000;
    for (++in_; IsDigit(Peek()); ++in_, unit /= 10)
      fraction += unit * (*in_ - '0');
  }
  if (in_ == digits || Peek() == 'e' || Peek() == 'E') {
    double s = 0;
    std::from_chars(digits, end_, s);
    bool const fits = s >= 0 && s < 4e9; // nor is it an infinity or no number
    whole = fits ? static_cast<unsigned int>(static_cast<long long>(s)) : 0;
    fraction = fits ? static_cast<int>(static_cast<long long>(s * 1e9) % 1000000000) : 0;
  }
  field_[kSecond] = static_cast<int>(negative ? 0 - whole : whole);
  field_[kNanoseconds] = negative ? -fraction : fraction;
  in_ = start;
  while (IsDigit(Peek()) || Peek() == '+' || Peek() == '-' || Peek() == '.')
    ++in_;
}

/// The days of a span as years, months and days.
void Scanner::TotalDays() {
  int const total = Integer();
  field_[kYear] = total / 360;
  field_[kMonth] = total % 360 / 30;
  field_[kDay] = total % 30;
}

void Scanner::ReadHalfDay() {
  char const letter = static_cast<char>(Peek() | 0x20); // lower case
  if (letter == 'a' || letter == 'p')
    half_ = letter;
  Skip(2);
}

/// The hour on the clock of 24 hours.
void Scanner::ApplyHalfDay() {
  int & hour = field_[kHour];
  if (half_ == 'p' && hour < 12)
    hour += 12;
  else if (half_ == 'a' && hour == 12)
    hour = 0;
}

/// A `*` in the text: the fields that the directive names take the wildcard.
void Scanner::Wildcard(Directive directive) {
  ++in_;
  switch (directive.kind) {
  case Kind::Text:
  case Kind::WeekdayName:
  case Kind::LongWeekdayName:
  case Kind::HalfDay:
  case Kind::UpperHalfDay:
    break;
  case Kind::Fraction:
    field_[kSecond] = field_[kNanoseconds] = -1;
    break;
  case Kind::TotalDays:
    field_[kYear] = field_[kMonth] = field_[kDay] = -1;
    break;
  default:
    field_[directive.field] = -1;
    break;
  }
}

void Scanner::Read(Directive directive) {
  int & field = field_[directive.field];
  if (IsInteger(directive.kind)) {
    field = Integer();
    return;
  }
  switch (directive.kind) {
  case Kind::ShortYear:
    field = Integer();
    // Through unsigned: the text may hold any number.
    field = static_cast<int>(static_cast<unsigned int>(field) + (field > 30 ? 1900U : 2000U));
    break;
  case Kind::MonthName:
  case Kind::LongMonthName:
    field = Month();
    break;
  case Kind::WeekdayName:
  case Kind::LongWeekdayName:
    MatchName(kWeekdayNames);
    break;
  case Kind::Fraction:
    Seconds();
    break;
  case Kind::TotalDays:
    TotalDays();
    break;
  case Kind::HalfDay:
  case Kind::UpperHalfDay:
    ReadHalfDay();
    break;
  default:
    Skip(1);
    break;
  }
}

bool Scanner::Run(char const * format) {
  bool group = false;
  char const * back = nullptr; // where the format goes on behind a template
  char const * in = in_;       // a member would be written back at every step
  for (char const * p = format;;) {
    char const c = *p++;
    if (c > ' ' && in != end_ && *in == c && c != '%' && c != ')') {
      ++in; // what most literals meet
      continue;
    }
    if (IsSpace(c))
      continue;
    while (in != end_ && IsSpace(*in))
      ++in;
    if (c != '%') {
      if (c == 0) {
        if (back == nullptr)
          break;
        p = back;
        back = nullptr;
      } else if (c == ')' && group) {
        group = false;
      } else if (in != end_ && (!IsDigit(*in) || *in == c)) {
        ++in; // a literal stands for any one character, but not for another digit
      }
      continue;
    }
    Directive directive = DirectiveOf(*p);
    if (directive.kind == Kind::Optional) {
      if (*++p == '(') {
        group = true;
        ++p;
      }
      directive = DirectiveOfOptional(*p);
    }
    if (directive.kind == Kind::End)
      continue;
    char const name = *p++;
    if (in == end_)
      return false;
    if (IsInteger(directive.kind) && IsDigit(*in)) {
      field_[directive.field] = static_cast<int>(Digits(in, end_));
      continue;
    }
    if (directive.kind == Kind::Template) {
      back = p;
      p = TemplateOf(name);
      continue;
    }
    in_ = in;
    if (*in == '*' && name != '%')
      Wildcard(directive);
    else
      Read(directive);
    in = in_;
  }
  ApplyHalfDay();
  return true;
}

void Scanner::Give(ZnDateTimeN & value) const {
  value.year = static_cast<short>(field_[kYear]);
  value.month = static_cast<signed char>(field_[kMonth]);
  value.day = static_cast<signed char>(field_[kDay]);
  value.hour = static_cast<signed char>(field_[kHour]);
  value.minute = static_cast<signed char>(field_[kMinute]);
  value.second = static_cast<signed char>(field_[kSecond]);
  value.nanoseconds = field_[kNanoseconds];
}

} // namespace

bool zntms::ScanFields(ZnDateTimeN & value, std::string_view text, char const * format) {
  Scanner scanner(text);
  bool const complete = scanner.Run(format);
  scanner.Give(value);
  return complete;
}

void * ScanDateTime(ZnDateTimeN * target, ZnString & text, char const * format, unsigned int) {
  if (target == nullptr)
    return nullptr;
  NarrowText const in(text);
  if (BeginsWithNullText(in.View())) {
    target->SetNullValue();
    return target;
  }
  char const * const language = format != nullptr ? format : kDateTimeNFormat;
  return ScanFields(*target, in.View(), language) ? target : nullptr;
}

// The classes scan through the same engine and take the fields that they have.

namespace zntms {

bool ScanValue(ZnDate & value, ZnString & in, char const * format) {
  ZnDateTimeN fields(value);
  bool const complete = ScanDateTime(&fields, in, format != nullptr ? format : kDateFormat, 1);
  value = DatePart(fields);
  return complete;
}

bool ScanValue(ZnTime & value, ZnString & in, char const * format) {
  ZnDateTimeN fields(value);
  bool const complete = ScanDateTime(&fields, in, format != nullptr ? format : kTimeFormat, 1);
  value = TimePart(fields);
  return complete;
}

bool ScanValue(ZnDateTime & value, ZnString & in, char const * format) {
  ZnDateTimeN fields(value);
  bool const complete = ScanDateTime(&fields, in, format != nullptr ? format : kDateTimeFormat, 1);
  value = ZnDateTime(DatePart(fields), TimePart(fields));
  return complete;
}

bool ScanValue(ZnDateTimeN & value, ZnString & in, char const * format) {
  return ScanDateTime(&value, in, format, 1);
}

bool ScanValue(ZnTimeSpan & value, ZnString & in, char const * format) {
  ZnDateTimeN fields;
  bool const complete = ScanDateTime(&fields, in, format != nullptr ? format : kTimeSpanFormat, 1);
  value = ZnTimeSpan::FromDateTimeN(fields);
  return complete;
}

} // namespace zntms

void ZnDate::ScanFromZnString(ZnString & in, char const * format) { ScanValue(*this, in, format); }
void ZnTime::ScanFromZnString(ZnString & in, char const * format) { ScanValue(*this, in, format); }
void ZnDateTime::ScanFromZnString(ZnString & in, char const * format) {
  ScanValue(*this, in, format);
}
void ZnDateTimeN::ScanFromZnString(ZnString & in, char const * format) {
  ScanValue(*this, in, format);
}
void ZnTimeSpan::ScanFromZnString(ZnString & in, char const * format) {
  ScanValue(*this, in, format);
}
