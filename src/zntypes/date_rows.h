#pragma once

#include "zntypes/empty_rows.h"

/// Groups of the date and time rows.

namespace zntms {

// ZnDate
inline constexpr RowText kDateText = EmptyText("%a %e.%b %Y");
inline constexpr RowLife kDateLife = kEmptyLife;
inline constexpr RowStorage kDateStorage = kEmptyStorage;
inline constexpr RowQuery kDateQuery = kEmptyQuery;
inline constexpr RowBox kDateBox = kEmptyBox;
inline constexpr RowNull kDateNull = kEmptyNull;
inline constexpr ZnTypeRow::StepFunc kDateStep = &NoStep;

// ZnTime
inline constexpr RowText kTimeText = EmptyText("%I:%M:%S %p");
inline constexpr RowLife kTimeLife = kEmptyLife;
inline constexpr RowStorage kTimeStorage = kEmptyStorage;
inline constexpr RowQuery kTimeQuery = kEmptyQuery;
inline constexpr RowBox kTimeBox = kEmptyBox;
inline constexpr RowNull kTimeNull = kEmptyNull;
inline constexpr ZnTypeRow::StepFunc kTimeStep = &NoStep;

// ZnDateTime
inline constexpr RowText kDateTimeText = EmptyText("%a %e.%b %Y %I:%M:%S %p");
inline constexpr RowLife kDateTimeLife = kEmptyLife;
inline constexpr RowStorage kDateTimeStorage = kEmptyStorage;
inline constexpr RowQuery kDateTimeQuery = kEmptyQuery;
inline constexpr RowBox kDateTimeBox = kEmptyBox;
inline constexpr RowNull kDateTimeNull = kEmptyNull;
inline constexpr ZnTypeRow::StepFunc kDateTimeStep = &NoStep;

// ZnDateTimeN
inline constexpr RowText kDateTimeNText = EmptyText("%X");
inline constexpr RowLife kDateTimeNLife = kEmptyLife;
inline constexpr RowStorage kDateTimeNStorage = kEmptyStorage;
inline constexpr RowQuery kDateTimeNQuery = kEmptyQuery;
inline constexpr RowBox kDateTimeNBox = kEmptyBox;
inline constexpr RowNull kDateTimeNNull = kEmptyNull;
inline constexpr ZnTypeRow::StepFunc kDateTimeNStep = &NoStep;

// ZnTimeSpan
inline constexpr RowText kTimeSpanText = EmptyText("%V");
inline constexpr RowLife kTimeSpanLife = kEmptyLife;
inline constexpr RowStorage kTimeSpanStorage = kEmptyStorage;
inline constexpr RowQuery kTimeSpanQuery = kEmptyQuery;
inline constexpr RowBox kTimeSpanBox = kEmptyBox;
inline constexpr RowNull kTimeSpanNull = kEmptyNull;
inline constexpr ZnTypeRow::StepFunc kTimeSpanStep = &NoStep;

// d_Date
inline constexpr RowText kStdDateText = EmptyText("%a %b %e");
inline constexpr RowLife kStdDateLife = kEmptyLife;
inline constexpr RowStorage kStdDateStorage = kEmptyStorage;
inline constexpr RowQuery kStdDateQuery = kEmptyQuery;
inline constexpr RowBox kStdDateBox = kEmptyBox;
inline constexpr ZnTypeRow::StepFunc kStdDateStep = &NoStep;

// d_Time
inline constexpr RowText kStdTimeText = EmptyText("%I:%M:%S %p");
inline constexpr RowLife kStdTimeLife = kEmptyLife;
inline constexpr RowStorage kStdTimeStorage = kEmptyStorage;
inline constexpr RowQuery kStdTimeQuery = kEmptyQuery;
inline constexpr RowBox kStdTimeBox = kEmptyBox;
inline constexpr ZnTypeRow::StepFunc kStdTimeStep = &NoStep;

// d_Timestamp
inline constexpr RowText kStdTimestampText = EmptyText("%a %b %e %I:%M:%S %p");
inline constexpr RowLife kStdTimestampLife = kEmptyLife;
inline constexpr RowStorage kStdTimestampStorage = kEmptyStorage;
inline constexpr RowQuery kStdTimestampQuery = kEmptyQuery;
inline constexpr RowBox kStdTimestampBox = kEmptyBox;
inline constexpr ZnTypeRow::StepFunc kStdTimestampStep = &NoStep;

// d_Interval; its queries are those of the float row
inline constexpr RowText kStdIntervalText = EmptyText("%e days, %I hours, %M minutes, %S seconds");
inline constexpr RowLife kStdIntervalLife = kEmptyLife;
inline constexpr RowStorage kStdIntervalStorage = kEmptyStorage;
inline constexpr RowBox kStdIntervalBox = kEmptyBox;
inline constexpr ZnTypeRow::StepFunc kStdIntervalStep = &NoStep;

} // namespace zntms
