#pragma once

#include "znstringstore.h"
#include "zntypes/row_parts.h"

/// The storage groups of the string rows, new and old.

namespace zntms {

unsigned int StringNullSizeGet(unsigned int count);

inline constexpr RowStorage kNewStringStorage = {&StringStore,          &StringLoad,
                                                 &StringNullSizeGet,    &StringSizeGet,
                                                 &ZnStringSizeFromFile, &ZnStringTranslate};
inline constexpr RowStorage kOneLengthStorage = {&ZnOldStringStore,        &StringLoad,
                                                 &StringNullSizeGet,       &ZnOldStringSizeGet,
                                                 &ZnOldStringSizeFromFile, &ZnOldStringTranslate};

} // namespace zntms
