#pragma once

#include "zanbs.h"
#include "zantms.h"

#include <gtest/gtest.h>

#include <ostream>
#include <random>
#include <string>

/// What the tests of dates and times share: a clock that stands still, and texts.

inline long long clockSeconds = 0;
inline int clockNanoseconds = 0;
inline int clockZone = 0;

class FixedClock {
public:
  FixedClock(long long seconds, int nanoseconds, int zone) {
    clockSeconds = seconds;
    clockNanoseconds = nanoseconds;
    clockZone = zone;
    bksSetClock(&kClock);
  }
  ~FixedClock() { bksSetClock(nullptr); }

private:
  static constexpr BksClock kClock = {[](long long & seconds, int & nanoseconds) {
                                        seconds = clockSeconds;
                                        nanoseconds = clockNanoseconds;
                                      },
                                      [](long long) { return clockZone; }};
};

inline std::string Str(ZnString const & text) { return text.StrGet(); }

template <class Value>
std::string Print(Value const & value, char const * format = nullptr) {
  ZnString out;
  value.PrintToZnString(out, format);
  return Str(out);
}

/// All fields in a row.
inline std::string Raw(ZnDate const & v) {
  return std::to_string(v.year) + ' ' + std::to_string(v.month) + ' ' + std::to_string(v.day);
}
inline std::string Raw(ZnTime const & v) {
  return std::to_string(v.hour) + ' ' + std::to_string(v.minute) + ' ' + std::to_string(v.second);
}
inline std::string Raw(ZnDateTime const & v) { return Raw(v.date) + ' ' + Raw(v.time); }
inline std::string Raw(ZnDateTimeN const & v) {
  return Raw(ZnDateTime(ZnDate(v.year, v.month, v.day), ZnTime(v.hour, v.minute, v.second))) + ' ' +
         std::to_string(v.nanoseconds);
}
inline std::string Raw(ZnTimeSpan const & v) { return Raw(v.AsDateTimeN()); }
