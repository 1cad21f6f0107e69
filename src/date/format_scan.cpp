#include "date/carry.h"
#include "date/directives.h"
#include "date/scan_value.h"
#include "znstring/narrow_text.h"

#include <charconv>
#include <cstring>

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
unsigned int Digit(char c) { return static_cast<unsigned int>(c - '0'); }
bool IsDigit(char c) { return Digit(c) < 10; }

/// The number of the digits from `in` on, modulo 2 to the power 32; `in` goes behind them.
unsigned int Digits(char const *& in) {
  if (!IsDigit(*in))
    return 0;
  unsigned int number = Digit(*in);
  for (++in; IsDigit(*in); ++in)
    number = number * 10 + Digit(*in);
  return number;
}

/// An optional sign and digits.
int Integer(char const *& in) {
  bool const negative = *in == '-';
  if (negative || *in == '+')
    ++in;
  unsigned int const number = Digits(in);
  return static_cast<int>(negative ? 0 - number : number);
}

class Scanner {
public:
  /// The text ends with a zero byte, which is neither a digit nor a literal of any format.
  explicit Scanner(char const * text) : in_(text) {}

  /// False if the text ended before the format.
  bool Run(char const * format);
  void Give(ZnDateTimeN & value) const;

private:
  void Wildcard(Directive directive);
  void Read(Directive directive);
  int Month();
  void Seconds();
  void TotalDays();
  void ReadHalfDay();
  void ApplyHalfDay();
  void Skip(int characters) {
    for (; characters != 0 && *in_ != 0; --characters)
      ++in_;
  }
  template <unsigned int Count>
  int MatchName(Name const (&names)[Count]);

  char const * in_;
  int field_[kFieldCount] = {}; // wider than those of a value, while they are read
  char half_ = 0;               // 'a', 'p' or none
};

/// The name whose first three characters stand here, or -1. What agrees with the name is skipped.
template <unsigned int Count>
int Scanner::MatchName(Name const (&names)[Count]) {
  for (unsigned int i = 0; i < Count; ++i) {
    char const * name = names[i].text;
    if (std::strncmp(in_, name, 3) != 0)
      continue;
    for (; *name != 0 && *in_ == *name; ++name)
      ++in_;
    return static_cast<int>(i);
  }
  return -1;
}

int Scanner::Month() {
  if (int const index = MatchName(kMonthNames); index >= 0)
    return index + 1;
  char number[4] = {};
  std::strncpy(number, in_, 3);
  Skip(3);
  char const * at = number;
  return Integer(at);
}

/// A number with a fraction. Digits are taken as they stand, so that what was printed comes back
/// to the nanosecond; digits behind the ninth of a fraction do not count. A number in any other
/// notation goes through a double.
void Scanner::Seconds() {
  char const * const start = in_;
  bool const negative = *in_ == '-';
  if (negative || *in_ == '+')
    ++in_;
  char const * const digits = in_;
  unsigned int whole = Digits(in_);
  int fraction = 0;
  if (*in_ == '.') {
    int unit = 100000000;
    for (++in_; IsDigit(*in_); ++in_, unit /= 10)
      fraction += unit * (*in_ - '0');
  }
  if (in_ == digits || *in_ == 'e' || *in_ == 'E') {
    double s = 0;
    std::from_chars(digits, digits + std::strlen(digits), s);
    bool const fits = s >= 0 && s < 4e9; // nor is it an infinity or no number
    whole = fits ? static_cast<unsigned int>(static_cast<long long>(s)) : 0;
    fraction = fits ? static_cast<int>(static_cast<long long>(s * 1e9) % 1000000000) : 0;
  }
  field_[kSecond] = static_cast<int>(negative ? 0 - whole : whole);
  field_[kNanoseconds] = negative ? -fraction : fraction;
  in_ = start;
  while (IsDigit(*in_) || *in_ == '+' || *in_ == '-' || *in_ == '.')
    ++in_;
}

/// The days of a span as years, months and days.
void Scanner::TotalDays() {
  int const total = Integer(in_);
  field_[kYear] = total / 360;
  field_[kMonth] = total % 360 / 30;
  field_[kDay] = total % 30;
}

void Scanner::ReadHalfDay() {
  char const letter = static_cast<char>(*in_ | 0x20); // lower case
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
    field = Integer(in_);
    return;
  }
  switch (directive.kind) {
  case Kind::ShortYear:
    field = Integer(in_);
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
    // What most formats and texts are made of: a character that both have, then an integer.
    if (*p > ')' && *in == *p) { // neither white space nor a parenthesis nor a percent sign
      ++in;
      ++p;
    }
    char const c = *p;
    if (c == '%' && IsDigit(*in)) {
      if (Directive const directive = DirectiveOf(p[1]); IsInteger(directive.kind)) {
        field_[directive.field] = static_cast<int>(Digits(in));
        p += 2;
        continue;
      }
    }
    ++p;
    if (IsSpace(c))
      continue;
    while (IsSpace(*in))
      ++in;
    if (c != '%') {
      if (c == 0) {
        if (back == nullptr)
          break;
        p = back;
        back = nullptr;
      } else if (c == ')' && group) {
        group = false;
      } else if (*in != 0 && (!IsDigit(*in) || *in == c)) {
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
    if (*in == 0)
      return false;
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

void * ScanDateTime(ZnDateTimeN * target, ZnString & text, char const * format, unsigned int) {
  if (target == nullptr)
    return nullptr;
  NarrowText const in(text);
  if (BeginsWithNullText(in)) {
    target->SetNullValue();
    return target;
  }
  Scanner scanner(in.CStr());
  bool const complete = scanner.Run(format != nullptr ? format : kDateTimeNFormat);
  scanner.Give(*target);
  return complete ? target : nullptr;
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
