#include "zntypes/date_text.h"

#include "date/carry.h"
#include "date/standard_access.h"
#include "znstring/narrow_text.h"

#include <algorithm>

namespace zntms {

namespace {

int Number(ZnString const & text) { return static_cast<int>(text); }

/// Takes the text up to the first `mark` away, the mark included; its place, or -1.
int CutThrough(ZnString & text, char mark) {
  std::size_t const at = NarrowText(text).View().find(mark);
  if (at == std::string_view::npos)
    return -1;
  // One cut takes no more than a short counts.
  for (std::size_t left = at + 1; left != 0;) {
    auto const piece = static_cast<short>(std::min<std::size_t>(left, 32767));
    text.Cut(0, piece);
    left -= static_cast<std::size_t>(piece);
  }
  return static_cast<int>(at);
}

void WriteParts(ZnString & out, int days, int seconds) {
  out += ZnString(days);
  out += ZnString(":");
  out += ZnString(seconds);
}

} // namespace

void DateText::Write(ZnString & out, Value const & value) { out += ZnString(value.dayabs()); }
void DateText::Read(Value & value, ZnString & in) { value = ZnDate(Number(in)); }

void TimeText::Write(ZnString & out, Value const & value) {
  out += ZnString(static_cast<int>(value));
}
void TimeText::Read(Value & value, ZnString & in) { value = ZnTime(Number(in)); }

void DateTimeText::Write(ZnString & out, Value const & value) {
  WriteParts(out, value.date, value.time);
}

void DateTimeText::Read(Value & value, ZnString & in) {
  value = ZnDateTime(ZnDate(Number(in)), ZnTime(0));
  int const colon = CutThrough(in, ':');
  if (colon == 0)
    value.date = ZnDate::ClearValue();
  if (colon >= 0 && !in.IsEmpty())
    value.time = ZnTime(Number(in));
}

void DateTimeNText::Write(ZnString & out, Value const & value) {
  WriteParts(out, DatePart(value), TimePart(value));
  if (value.nanoseconds > 0) {
    out += ZnString(".");
    out += ZnString(value.nanoseconds);
  }
}

/// Without a day number, the text counts from 1 January of year 0, or is null if it holds nothing
/// but zeros.
void DateTimeNText::Read(Value & value, ZnString & in) {
  int const days = Number(in);
  int const colon = CutThrough(in, ':');
  int const seconds = colon >= 0 ? Number(in) : 0;
  int const nanoseconds = colon >= 0 && CutThrough(in, '.') >= 0 ? Number(in) : 0;
  if (days != 0)
    value = ZnDateTimeN(ZnDate(days));
  else if (seconds != 0 || nanoseconds != 0)
    value = ZnDateTimeN::ZeroValue();
  else {
    value = colon == 0 ? ZnDateTimeN::ClearValue() : ZnDateTimeN::NullValue();
    return;
  }
  SetTimePart(value, ZnTime(seconds));
  value.nanoseconds = nanoseconds;
}

void TimeSpanText::Write(ZnString & out, Value const & value) {
  out += ZnString(value.GetTotalSeconds_f());
}

void TimeSpanText::Read(Value & value, ZnString & in) {
  auto const seconds = static_cast<double>(in);
  if (seconds == 0.0)
    value.SetNullValue();
  else
    value.SetTotalSeconds(seconds);
}

// The standard classes write Julian Day Numbers, which are one above their own.

namespace {

int DayText(d_Date const & date) { return StandardAccess::AbsDay(date) + 1; }
int SecondsText(d_Time const & time) {
  return (time.hour() * 60 + time.minute()) * 60 + static_cast<int>(time.second());
}

d_Date DateOfText(int number) {
  return StandardAccess::FromAbsDay(static_cast<int>(static_cast<unsigned int>(number) - 1));
}

} // namespace

void StdDateText::Write(ZnString & out, Value const & value) { out += ZnString(DayText(value)); }
void StdDateText::Read(Value & value, ZnString & in) { value = DateOfText(Number(in)); }
void StdDateText::SetDefault(Value & value) { value = DateOfText(0); }

void StdTimeText::Write(ZnString & out, Value const & value) {
  out += ZnString(SecondsText(value));
}
void StdTimeText::Read(Value & value, ZnString & in) { value = d_Time(Number(in)); }

void StdTimestampText::Write(ZnString & out, Value const & value) {
  WriteParts(out, DayText(value.date()), SecondsText(value.time()));
}

void StdTimestampText::Read(Value & value, ZnString & in) {
  d_Date date = DateOfText(Number(in));
  int const colon = CutThrough(in, ':');
  if (colon == 0)
    date = d_Date(0, 0, 0);
  value = d_Timestamp(date, d_Time(colon >= 0 && !in.IsEmpty() ? Number(in) : 0));
}

void StdTimestampText::SetDefault(Value & value) { value = d_Timestamp(DateOfText(0), d_Time(0)); }

void StdIntervalText::Write(ZnString & out, Value const & value) {
  out += ZnString(Truncate(StandardAccess::Seconds(value)));
}
void StdIntervalText::Read(Value & value, ZnString & in) {
  value = d_Interval(Number(in), 0, 0, 0.0F);
}

} // namespace zntms
