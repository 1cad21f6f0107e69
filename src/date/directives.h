#pragma once

#include "zndatetimen.h"

/// The format language as data: what each directive means to both engines, the names in English
/// and the formats behind directives.
///
/// Worked example: `DirectiveOf('m')` is {Kind::Two, kMonth}: two digits of the field that stands
/// at `kMonth` of the fields in a row. Printing writes it, scanning reads an integer into it.

namespace zntms {

/// Places of the fields in a row of integers, by which the engines work.
enum FieldPlace : unsigned char { kYear, kMonth, kDay, kHour, kMinute, kSecond, kNanoseconds };
inline constexpr unsigned int kFieldCount = 7;

enum class Kind : unsigned char {
  Two,  ///< a number of two digits
  Year, ///< of four digits
  Hour12,
  Number,    ///< without leading zeros; the last of those that read nothing but an integer
  End,       ///< there is no character
  Optional,  ///< a question mark before the directive
  Text,      ///< the character itself; also the percent sign
  ShortYear, ///< its last two digits
  MonthName, ///< of three letters
  LongMonthName,
  WeekdayName, ///< of three letters, of the date to which the field belongs
  LongWeekdayName,
  HalfDay, ///< in lower case
  UpperHalfDay,
  Fraction,  ///< seconds with a fraction: this field and the next
  TotalDays, ///< of year, month and day of a span
  Template   ///< stands for a whole format
};

/// Directives that read nothing but an integer into their field.
constexpr bool IsInteger(Kind kind) { return kind <= Kind::Number; }

struct Directive {
  Kind kind;
  FieldPlace field; ///< the one whose wildcard and zero count
};

struct DirectiveTable {
  Directive at[256];

  constexpr DirectiveTable() : at{} {
    struct Entry {
      char directive;
      Directive meaning;
    };
    constexpr Entry kEntries[] = {{0, {Kind::End, kYear}},
                                  {'?', {Kind::Optional, kYear}},
                                  {'Y', {Kind::Year, kYear}},
                                  {'y', {Kind::ShortYear, kYear}},
                                  {'m', {Kind::Two, kMonth}},
                                  {'b', {Kind::MonthName, kMonth}},
                                  {'B', {Kind::LongMonthName, kMonth}},
                                  {'d', {Kind::Two, kDay}},
                                  {'e', {Kind::Two, kDay}},
                                  {'a', {Kind::WeekdayName, kDay}},
                                  {'A', {Kind::LongWeekdayName, kDay}},
                                  {'H', {Kind::Two, kHour}},
                                  {'I', {Kind::Hour12, kHour}},
                                  {'p', {Kind::HalfDay, kHour}},
                                  {'P', {Kind::UpperHalfDay, kHour}},
                                  {'M', {Kind::Two, kMinute}},
                                  {'S', {Kind::Two, kSecond}},
                                  {'N', {Kind::Number, kNanoseconds}},
                                  {'f', {Kind::Fraction, kSecond}},
                                  {'J', {Kind::TotalDays, kYear}},
                                  {'D', {Kind::Template, kYear}},
                                  {'T', {Kind::Template, kYear}},
                                  {'O', {Kind::Template, kYear}},
                                  {'X', {Kind::Template, kYear}},
                                  {'V', {Kind::Template, kYear}}};
    for (Directive & meaning : at)
      meaning = {Kind::Text, kYear};
    for (Entry const & entry : kEntries)
      at[static_cast<unsigned char>(entry.directive)] = entry.meaning;
  }
};

inline constexpr DirectiveTable kDirectives;

inline Directive DirectiveOf(char c) { return kDirectives.at[static_cast<unsigned char>(c)]; }

/// Behind one question mark a second one is a character like any other.
inline Directive DirectiveOfOptional(char c) {
  return c == '?' ? Directive{Kind::Text, kYear} : DirectiveOf(c);
}

struct Name {
  char const * text;
  unsigned char length;
};

inline constexpr Name kMonthNames[12] = {{"Januar", 6},  {"Februar", 7},  {"March", 5},
                                         {"April", 5},   {"May", 3},      {"June", 4},
                                         {"July", 4},    {"August", 6},   {"September", 9},
                                         {"October", 7}, {"November", 8}, {"December", 8}};

/// By `ZnDaysOfTheWeek`.
inline constexpr Name kWeekdayNames[7] = {{"Monday", 6},   {"Tuesday", 7}, {"Wednesday", 9},
                                          {"Thursday", 8}, {"Friday", 6},  {"Saturday", 8},
                                          {"Sunday", 6}};

/// The format that a directive of kind `Template` stands for. It holds no such directive.
constexpr char const * TemplateOf(char directive) {
  switch (directive) {
  case 'D':
    return "%Y-%m-%d";
  case 'T':
    return "%H:%M:%S";
  case 'O':
    return "%Y-%m-%dT%H:%M:%S";
  case 'V':
    return "%J.%H:%M:%f";
  default: // X
    return "%Y-%m-%dT%H:%M:%f";
  }
}

// Formats that apply where a caller gives none.

inline constexpr char const * kDateFormat = "%Y-%m-%d";
inline constexpr char const * kTimeFormat = "%H:%M:%S";
inline constexpr char const * kDateTimeFormat = "%Y-%m-%dT%H:%M:%S";
inline constexpr char const * kDateTimeNFormat = "%X";
inline constexpr char const * kTimeSpanFormat = "%V";

} // namespace zntms
