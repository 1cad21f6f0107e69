#pragma once

#include "database.h"

#include <string>
#include <string_view>

/// Reads a condition, `COLUMN OP VALUE`, `COLUMN is null` or `COLUMN is not null`.
///
/// Worked example: "people >= 100000" is the column `people`, the operator word 5 (equal or
/// above), and the text "100000".

namespace zantm {

struct Predicate {
  enum Kind { Compare, IsNull, IsNotNull };
  Kind kind;
  size_t column;
  unsigned short op; ///< operator word of `EvalAndBound`
  std::string value; ///< without the quotes that it may stand in

  /// Whether a comparison result is a hit.
  bool Selects(int order) const {
    return (op & (order == 0 ? ZnOpEqual : order < 0 ? ZnOpBelow : ZnOpAbove)) != 0;
  }
};

/// A `Failure` that tells what is wrong with the text.
Predicate ParsePredicate(std::string_view text, Database const & database);

} // namespace zantm
