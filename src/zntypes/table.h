#pragma once

#include "zntyperow.h"

#include <array>

/// The two tables of rows, each reached by the unsigned value of an id.

namespace zntms {

/// Numbers of rows that the tables hold under ids of their own.
inline constexpr int kFullRowCount = 47;
inline constexpr int kOldRowCount = 28;

/// A place for each value that an id can take; ids without a row lead to the row "illegal", so
/// that a dispatch is one read and one indirect call.
using RowTable = std::array<ZnTypeRow *, 256>;

extern RowTable const kFullTable;
extern RowTable const kOldTable;

inline ZnTypeRow & RowOf(ZnTypeRow * const * rows, char id) {
  return *rows[static_cast<unsigned char>(id)];
}

} // namespace zntms
