#pragma once

#include <string_view>

class ZnDateTimeN;

/// The two engines on plain character data; `PrintDateTime` and `ScanDateTime` wrap them.

namespace zntms {

/// The bytes of a printed result with its terminator.
inline constexpr unsigned int kPrintBytes = 2560;
/// No directive prints more; the work buffer has as much room again behind the result.
inline constexpr unsigned int kDirectiveBytes = 32;

/// Prints into a buffer of `kPrintBytes` + `kDirectiveBytes` bytes, with a terminator; gives the
/// length, which is below `kPrintBytes`.
unsigned int PrintFields(char * buffer, ZnDateTimeN const & value, char const * format);

/// Reads `text` and sets all fields of `value`; false if the text ended before the format.
bool ScanFields(ZnDateTimeN & value, std::string_view text, char const * format);

} // namespace zntms
