#pragma once

#include <zantms.h>

#include <string>
#include <vector>

/// Texts as comparison sees them: unit by unit, and level by level.
///
/// Worked example: "résumé" against "Resume" has equal letters; the accents decide, for they count
/// before upper and lower case.

namespace zantm {

/// One unit of a text.
struct OrderUnit {
  std::string text; ///< the characters that it came from; empty for a further unit of the same
  unsigned short order;
  unsigned char scriptClass;
  std::string words;
};

std::vector<OrderUnit> UnitsOf(ZnString & text);

/// How two texts compare on one level, if all levels before it are equal.
struct LevelResult {
  char const * level;
  int order;
  bool reached; ///< false behind the level that decides
};

/// The four levels; `flags` as for a comparison without wildcards.
std::vector<LevelResult> LevelsOf(ZnString & a, ZnString & b, unsigned short flags);

/// Table of units, one a line, each behind `indent`.
std::string UnitTable(ZnString & text, std::string const & indent);

} // namespace zantm
