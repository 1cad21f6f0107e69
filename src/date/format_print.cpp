#include "date/directives.h"
#include "zndatetimen.h"
#include "znstring.h"
#include "znstring/nulltext.h"

#include <cstring>

/// Printing of dates and times.
///
/// Worked example: the format '%?(J.)%H:%M:%f' on a span of 3 hours, 4 minutes and 5.25 seconds.
/// `%?(` notes where the output stands and opens a group. `J` counts 0 days; as nothing has been
/// printed and the directive is optional, its text is dropped. The literal '.' goes to the output.
/// The group closes with nothing printed, so the output falls back to its start and the '.'
/// vanishes. The rest prints '03:04:05.250'.
///
/// The walk writes straight into the work buffer: a directive writes at most `kDirectiveBytes`, so
/// it never needs to look at the end, and what went over the limit is cut behind it.

namespace {

using namespace zntms;

/// The bytes of a printed result with its terminator.
constexpr unsigned int kPrintBytes = 2560;
/// No directive prints more; the work buffer has as much room again behind the result.
constexpr unsigned int kDirectiveBytes = 32;

constexpr char kPairs[] = "00010203040506070809101112131415161718192021222324"
                          "25262728293031323334353637383940414243444546474849"
                          "50515253545556575859606162636465666768697071727374"
                          "75767778798081828384858687888990919293949596979899";

char * PutPair(char * out, unsigned int number) {
  std::memcpy(out, kPairs + 2 * number, 2);
  return out + 2;
}

char * PutText(char * out, char const * text, unsigned int length) {
  std::memcpy(out, text, length);
  return out + length;
}

/// At least `digits` digits, behind a minus if the number is negative.
char * PutNumber(char * out, long long number, unsigned int digits) {
  auto rest = static_cast<unsigned long long>(number);
  if (number < 0) {
    *out++ = '-';
    rest = 0 - rest;
  }
  char reversed[20];
  unsigned int length = 0;
  do {
    reversed[length++] = static_cast<char>('0' + rest % 10);
    rest /= 10;
  } while (rest != 0);
  while (length < digits)
    reversed[length++] = '0';
  while (length != 0)
    *out++ = reversed[--length];
  return out;
}

/// Two digits or more, by a table for the numbers of every clock and calendar.
char * PutTwo(char * out, int number) {
  return static_cast<unsigned int>(number) < 100 ? PutPair(out, static_cast<unsigned int>(number))
                                                 : PutNumber(out, number, 2);
}

char * PutYear(char * out, int year) {
  if (static_cast<unsigned int>(year) >= 10000)
    return PutNumber(out, year, 4);
  auto const number = static_cast<unsigned int>(year);
  return PutPair(PutPair(out, number / 100), number % 100);
}

/// No more than `length` characters of a name.
char * PutName(char * out, Name const & name, unsigned int length) {
  return PutText(out, name.text, name.length < length ? name.length : length);
}

/// Three digits for a month that there is not.
char * PutMonthName(char * out, int month, unsigned int length) {
  if (month < 1 || month > 12)
    return PutNumber(out, month, 3);
  return PutName(out, kMonthNames[month - 1], length);
}

/// Seconds with the shortest of no, three, six or nine digits behind the point.
char * PutSeconds(char * out, int second, int nanoseconds) {
  if (nanoseconds == 0)
    return second < 0 ? PutNumber(out, second, 1) : PutTwo(out, second);
  long long const total = second * 1000000000LL + nanoseconds;
  auto const size = static_cast<unsigned long long>(total < 0 ? -total : total);
  // A minus takes one of the two places before the point.
  if (total < 0)
    *out++ = '-';
  out = PutNumber(out, static_cast<long long>(size / 1000000000), total < 0 ? 1 : 2);
  *out++ = '.';
  auto fraction = static_cast<unsigned int>(size % 1000000000);
  unsigned int const digits = nanoseconds % 1000000 == 0 ? 3 : nanoseconds % 1000 == 0 ? 6 : 9;
  for (unsigned int group = 3; group <= digits; group += 3) {
    unsigned int const three = fraction / 1000000;
    fraction = fraction % 1000000 * 1000;
    *out++ = static_cast<char>('0' + three / 100);
    out = PutPair(out, three % 100);
  }
  return out;
}

/// Looks for %p and %P. Every `%` takes the character behind it along, so that '%%p' and '%?p'
/// do not count.
bool NamesHalfDay(char const * format) {
  for (char const * p = std::strchr(format, '%'); p != nullptr && p[1] != 0;
       p = std::strchr(p + 2, '%'))
    if (p[1] == 'p' || p[1] == 'P')
      return true;
  return false;
}

class Printer {
public:
  Printer(ZnDateTimeN const & value, char const * format)
      : field_{value.year,   value.month,  value.day,        value.hour,
               value.minute, value.second, value.nanoseconds},
        format_(format) {}

  char * Run(char * out, char * limit);

private:
  bool IsZero(Directive directive) const;
  bool IsWildcard(Directive directive) const;
  char * Put(char * out, Directive directive, char name) const;
  int TotalDays() const { return (field_[kYear] * 12 + field_[kMonth]) * 30 + field_[kDay]; }
  char * PutHour12(char * out) const;
  char * PutHalfDay(char * out, char const (&am)[3], char const (&pm)[3]) const {
    return PutText(out, field_[kHour] >= 12 && NamesHalfDay(format_) ? pm : am, 2);
  }
  char * PutWeekday(char * out, unsigned int length) const;

  int const field_[kFieldCount];
  char const * const format_;
};

/// With a half day in the format midnight and noon are 12; without, midnight is 0.
char * Printer::PutHour12(char * out) const {
  int const hour = field_[kHour];
  if (hour > 12)
    return PutTwo(out, hour - 12);
  return PutTwo(out, hour == 0 && NamesHalfDay(format_) ? 12 : hour);
}

char * Printer::PutWeekday(char * out, unsigned int length) const {
  ZnDate const date(field_[kYear], field_[kMonth], field_[kDay]);
  return PutName(out, kWeekdayNames[date.GetDayOfTheDate()], length);
}

bool Printer::IsZero(Directive directive) const {
  switch (directive.kind) {
  case Kind::Text:
    return false;
  case Kind::TotalDays:
    return TotalDays() == 0;
  case Kind::Fraction:
    return field_[kSecond] == 0 && field_[kNanoseconds] == 0;
  default:
    return field_[directive.field] == 0;
  }
}

bool Printer::IsWildcard(Directive directive) const {
  switch (directive.kind) {
  case Kind::Text:
  case Kind::HalfDay:
  case Kind::UpperHalfDay:
    return false;
  case Kind::TotalDays:
    return field_[kYear] == -1 && field_[kMonth] == -1 && field_[kDay] == -1;
  default:
    return field_[directive.field] == -1;
  }
}

/// The text of a directive, called `name` in the format; gives the end of it.
char * Printer::Put(char * out, Directive directive, char name) const {
  int const number = field_[directive.field];
  switch (directive.kind) {
  case Kind::Two:
    return PutTwo(out, number);
  case Kind::Year:
    return PutYear(out, number);
  case Kind::ShortYear:
    return PutTwo(out, number % 100);
  case Kind::MonthName:
    return PutMonthName(out, number, 3);
  case Kind::LongMonthName:
    return PutMonthName(out, number, 9);
  case Kind::WeekdayName:
    return PutWeekday(out, 3);
  case Kind::LongWeekdayName:
    return PutWeekday(out, 9);
  case Kind::Hour12:
    return PutHour12(out);
  case Kind::HalfDay:
    return PutHalfDay(out, "am", "pm");
  case Kind::UpperHalfDay:
    return PutHalfDay(out, "AM", "PM");
  case Kind::Number:
    return PutNumber(out, number, 1);
  case Kind::Fraction:
    return PutSeconds(out, number, field_[kNanoseconds]);
  case Kind::TotalDays:
    return PutNumber(out, TotalDays(), 1);
  default:
    *out = name;
    return out + 1;
  }
}

char * Printer::Run(char * out, char * limit) {
  char * group = nullptr;      // start of the open group
  char const * back = nullptr; // where the format goes on behind a template
  bool printed = false;        // a directive has written text
  for (char const * p = format_;;) {
    char const c = *p++;
    if (c != '%') {
      if (c == 0) {
        if (back == nullptr)
          return out;
        p = back;
        back = nullptr;
      } else if (c == ')' && group != nullptr) {
        if (!printed)
          out = group;
        group = nullptr;
      } else {
        *out = c;
        out += out < limit;
      }
      continue;
    }
    Directive directive = DirectiveOf(*p);
    bool const optional = directive.kind == Kind::Optional;
    if (optional) {
      if (*++p == '(') {
        group = out;
        ++p;
      }
      directive = DirectiveOfOptional(*p);
    }
    if (directive.kind == Kind::End)
      continue;
    char const name = *p++;
    // Most directives are numbers of two digits.
    auto const number = static_cast<unsigned int>(field_[directive.field]);
    if (directive.kind == Kind::Two && number < 100 && (!optional || printed || number != 0)) {
      out = PutPair(out, number);
      printed = true;
    } else if (directive.kind == Kind::Template) {
      back = p;
      p = TemplateOf(name);
    } else if (IsWildcard(directive)) {
      *out++ = '*';
    } else if (!optional || printed || !IsZero(directive)) {
      out = Put(out, directive, name);
      printed = true;
    }
    if (out > limit)
      out = limit;
  }
}

/// As the assignment of a text; over a text of the same length it is written in place.
void Assign(ZnString & target, char const * text, unsigned int length) {
  if (target.text == nullptr || target.capacity != length + 1 ||
      target.codeSet != ZnString::GetDefault8CodeSet()) {
    target = text;
    return;
  }
  std::memcpy(target.text, text, length + 1);
  target.language = ZnString::GetDefaultLanguage();
}

} // namespace

ZnString & PrintDateTime(ZnString & target, ZnDateTimeN const & value, char const * format,
                         unsigned int) {
  if (value.IsNullValue())
    return target = NullPrintString();
  char buffer[kPrintBytes + kDirectiveBytes];
  char * const end = Printer(value, format != nullptr ? format : kDateTimeNFormat)
                         .Run(buffer, buffer + kPrintBytes - 1);
  *end = 0;
  Assign(target, buffer, static_cast<unsigned int>(end - buffer));
  return target;
}

// The classes print through the same engine, with the fields that they do not have at 0.

namespace {

/// A null of a class is told by that class: its fields with zeros beside them are no null.
template <class Value>
void PrintValue(ZnString & out, Value const & value, ZnDateTimeN const & fields,
                char const * format, char const * standard) {
  if (value.IsNullValue())
    out = NullPrintString();
  else
    PrintDateTime(out, fields, format != nullptr ? format : standard, 1);
}

} // namespace

void ZnDate::PrintToZnString(ZnString & out, char const * format) const {
  PrintValue(out, *this, ZnDateTimeN(*this), format, kDateFormat);
}

void ZnTime::PrintToZnString(ZnString & out, char const * format) const {
  PrintValue(out, *this, ZnDateTimeN(*this), format, kTimeFormat);
}

void ZnDateTime::PrintToZnString(ZnString & out, char const * format) const {
  PrintValue(out, *this, ZnDateTimeN(*this), format, kDateTimeFormat);
}

void ZnDateTimeN::PrintToZnString(ZnString & out, char const * format) const {
  PrintDateTime(out, *this, format, 1);
}

void ZnTimeSpan::PrintToZnString(ZnString & out, char const * format) const {
  PrintDateTime(out, AsDateTimeN(), format != nullptr ? format : kTimeSpanFormat, 1);
}
