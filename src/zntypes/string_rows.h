#pragma once

#include "zntypes/empty_rows.h"

/// Groups of the text rows: the three string kinds, and the string row of old data.

namespace zntms {

// ZnString
inline constexpr RowText kStringText = EmptyText("%s");
inline constexpr RowLife kStringLife = kClassLife<ZnString>;
inline constexpr RowStorage kStringStorage = kEmptyStorage;
inline constexpr RowQuery kStringQuery = kEmptyQuery;
inline constexpr RowBox kStringBox = kEmptyBox;
inline constexpr RowNull kStringNull = kEmptyNull;
inline constexpr ZnTypeRow::StepFunc kStringStep = &NoStep;

// ZnString in the one-length form of old data; shares text, life and box with the row above
inline constexpr RowText kOldStringText = EmptyText("%s");
inline constexpr RowLife kOldStringLife = kStringLife;
inline constexpr RowStorage kOldStringStorage = kEmptyStorage;
inline constexpr RowQuery kOldStringQuery = kEmptyQuery;
inline constexpr RowBox kOldStringBox = kEmptyBox;
inline constexpr ZnTypeRow::StepFunc kOldStringStep = &NoStep;

// ZnIString
inline constexpr RowText kIStringText = EmptyText("%s");
inline constexpr RowLife kIStringLife = kEmptyLife;
inline constexpr RowStorage kIStringStorage = kEmptyStorage;
inline constexpr RowQuery kIStringQuery = kEmptyQuery;
inline constexpr RowBox kIStringBox = kEmptyBox;
inline constexpr ZnTypeRow::StepFunc kIStringStep = &NoStep;

// ZnCaseIString
inline constexpr RowText kCaseIStringText = EmptyText("%s");
inline constexpr RowLife kCaseIStringLife = kEmptyLife;
inline constexpr RowStorage kCaseIStringStorage = kEmptyStorage;
inline constexpr RowQuery kCaseIStringQuery = kEmptyQuery;
inline constexpr RowBox kCaseIStringBox = kEmptyBox;
inline constexpr ZnTypeRow::StepFunc kCaseIStringStep = &NoStep;

} // namespace zntms
