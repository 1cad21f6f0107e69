#pragma once

#include "znistring.h"
#include "zntypes/empty_rows.h"

/// What queries ask of the two older string classes.

namespace zntms {

/// Estimates the share of the key range `area` that a comparison with the stored text `value`
/// selects, and makes the end keys of the index scan. `ZnCmpNoWildcards` in `op` takes the text
/// literally; of the other bits the operator and 0x8000 stay.
template <ZnCollation collation>
float IStringBound(ZnIdxBounds * area, unsigned short & op, void * value, unsigned char format,
                   unsigned int count, ZnIdxBounds * out);

/// There is no hash: every value gives 0.
template <ZnCollation collation>
inline constexpr RowQuery kIStringQueries = {
    collation == ZnCollation::cased ? &ZnIStringCompare : &ZnCaseIStringCompare,
    &IStringBound<collation>, &EmptyHash};

} // namespace zntms
