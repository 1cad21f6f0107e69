#pragma once

#include "zntypes/empty_rows.h"

/// Groups of the rows of the class ZnInt64 and its nullable kind.

namespace zntms {

// ZnInt64
inline constexpr RowText kInt64Text = EmptyText("%S");
inline constexpr RowLife kInt64Life = kEmptyLife;
inline constexpr RowStorage kInt64Storage = kEmptyStorage;
inline constexpr RowQuery kInt64Query = kEmptyQuery;
inline constexpr RowBox kInt64Box = kEmptyBox;
inline constexpr ZnTypeRow::StepFunc kInt64Step = &NoStep;

// ZnNull_ZnInt64
inline constexpr RowText kNullInt64Text = EmptyText("%S");
inline constexpr RowLife kNullInt64Life = kEmptyLife;
inline constexpr RowStorage kNullInt64Storage = kEmptyStorage;
inline constexpr RowQuery kNullInt64Query = kEmptyQuery;
inline constexpr RowBox kNullInt64Box = kEmptyBox;
inline constexpr RowNull kNullInt64Null = kEmptyNull;
inline constexpr ZnTypeRow::StepFunc kNullInt64Step = &NoStep;

} // namespace zntms
