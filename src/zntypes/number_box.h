#pragma once

#include "zntypes/empty_rows.h"
#include "zntypes/number_rows.h"

/// Boxes of plain numbers: values as strings and back.

namespace zntms {

template <unsigned int width>
inline constexpr RowBox kUnwrittenNumberBox = {&EmptyConvertTo, &EmptyConvertFrom,
                                               &DefaultNumbers<width>};

inline constexpr RowBox kCharBox = kUnwrittenNumberBox<1>;
inline constexpr RowBox kByteBox = kUnwrittenNumberBox<1>;
inline constexpr RowBox kShortBox = kUnwrittenNumberBox<2>;
inline constexpr RowBox kWordBox = kUnwrittenNumberBox<2>;
inline constexpr RowBox kIntBox = kUnwrittenNumberBox<4>;
inline constexpr RowBox kUnsignedBox = kUnwrittenNumberBox<4>;
inline constexpr RowBox kFloatBox = kUnwrittenNumberBox<4>;
inline constexpr RowBox kDoubleBox = kUnwrittenNumberBox<8>;
inline constexpr RowBox k8BBox = kUnwrittenNumberBox<8>;
inline constexpr RowBox kU8BBox = kUnwrittenNumberBox<8>;

} // namespace zntms
