#pragma once

/// Day numbers of the Gregorian calendar, without a cut-over: the arithmetic under `ZnDate`.
///
/// Worked example: `DayNumber(2000, 1, 1)` is 2451545, the Julian Day Number of that day, and
/// `DateOfDayNumber(2451545)` gives the three fields back.
///
/// Both directions are exact and inverse for all dates of 16-bit years. A day number is the sum of
/// whole years and of whole months by a table; a date goes the direct way of Neri and Schneider,
/// "Euclidean affine functions and their application to calendar algorithms" (2022). Months outside
/// of a calendar go by the formula of Fliegel and Van Flandern (1968), which gives the same for
/// those within from year -4800 on. No argument overflows.

namespace zntms {

struct CalendarDate {
  int year;
  int month;
  int day;
};

/// The formula for any fields. Divisions truncate; the terms fit 32 bits for 16-bit years.
constexpr int DayNumberByFormula(int year, int month, int day) {
  int const a = (month - 14) / 12;
  return 1461 * (year + 4800 + a) / 4 + 367 * (month - 2 - 12 * a) / 12 -
         3 * ((year + 4900 + a) / 100) / 4 + day - 32075;
}

/// Years count from 1 March of year -44800, a multiple of 400 years before all others.
inline constexpr int kEraYear = 44800;
inline constexpr int kEraDay = -32044 - 100 * 146097;

/// Days from 1 March to the first of each month; January and February end the year before. A month
/// of 13 is the January of the next year.
inline constexpr int kDaysToMonth[] = {306, 337, 0, 31, 61, 92, 122, 153, 184, 214, 245, 275, 306};

constexpr int DayNumber(int year, int month, int day) {
  auto const index = static_cast<unsigned int>(month - 1);
  if (index >= 13)
    return DayNumberByFormula(year, month, day);
  auto const y = static_cast<unsigned int>(year + kEraYear - (index < 2));
  unsigned int const century = y / 100;
  unsigned int const days = 1461 * y / 4 - century + century / 4;
  return static_cast<int>(days) + kDaysToMonth[index] + kEraDay - 1 + day;
}

/// The steps for any day number; sums wrap where the day lies outside of the calendar.
constexpr CalendarDate DateByFormula(int dayNumber) {
  auto wrap = [](long long wide) {
    return static_cast<int>(static_cast<unsigned int>(static_cast<unsigned long long>(wide)));
  };
  int l = wrap(dayNumber + 68569LL);
  int const n = wrap(4LL * l) / 146097;
  l = wrap(l - (146097LL * n + 3) / 4);
  int const i = wrap(4000LL * (l + 1LL)) / 1461001;
  l = wrap(l - 1461LL * i / 4 + 31);
  int const j = wrap(80LL * l) / 2447;
  int const day = wrap(l - 2447LL * j / 80);
  l = j / 11;
  return {wrap(100LL * (n - 49) + i + l), wrap(j + 2 - 12LL * l), day};
}

constexpr CalendarDate DateOfDayNumber(int dayNumber) {
  constexpr int kLast = (1 << 29) - 68570;
  if (dayNumber < kEraDay || dayNumber > kLast)
    return DateByFormula(dayNumber);
  unsigned int const n1 = 4 * static_cast<unsigned int>(dayNumber - kEraDay) + 3;
  unsigned int const century = n1 / 146097;
  unsigned int const n2 = n1 % 146097 | 3;
  unsigned long long const p2 = 2939745ULL * n2;
  unsigned int const dayOfYear = static_cast<unsigned int>(p2) / 2939745 / 4; // from 1 March
  unsigned int const n3 = 2141 * dayOfYear + 197913;
  bool const winter = dayOfYear >= 306;
  auto const year = static_cast<int>(100 * century + static_cast<unsigned int>(p2 >> 32));
  auto const month = static_cast<int>(n3 >> 16);
  return {year + winter - kEraYear, winter ? month - 12 : month,
          static_cast<int>((n3 & 0xFFFF) / 2141 + 1)};
}

/// a / b and a mod b rounded down, for b above 0.
constexpr int FloorDiv(int a, int b) { return a / b - (a % b < 0); }
constexpr int FloorMod(int a, int b) { return a % b < 0 ? a % b + b : a % b; }

/// Zeller's congruence for any year: 0 is Monday.
constexpr int WeekdayOfDate(int year, int month, int day) {
  bool const winter = month < 3;
  int const y = year - winter;
  int const m = winter ? month + 10 : month - 2;
  int const k = FloorMod(y, 100);
  int const h = day + 77 + FloorDiv(13 * m - 1, 5) + FloorDiv(5 * k, 4) + FloorDiv(y, 400) -
                2 * FloorDiv(y, 100);
  return FloorMod(h - 1, 7);
}

} // namespace zntms
