#include "zantms.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

/// Fields, a format and a text of any bytes through both format engines.
///
/// The first 12 bytes are the fields; what follows is the format up to its terminator, then the
/// text. What the print gives is scanned by the same format too.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
  if (size < 12)
    return 0;
  ZnDateTimeN value;
  std::memcpy(static_cast<void *>(&value), data, 12);
  std::string const rest(reinterpret_cast<char const *>(data) + 12, size - 12);
  std::string const format = rest.substr(0, rest.find('\0'));
  ZnString text(rest.c_str() + (format.size() == rest.size() ? rest.size() : format.size() + 1));

  ZnString printed;
  PrintDateTime(printed, value, format.c_str(), 1);
  if (printed.Len() > 2559)
    __builtin_trap();
  ZnDateTimeN scanned;
  ScanDateTime(&scanned, printed, format.c_str(), 1);
  ScanDateTime(&scanned, text, format.c_str(), 1);
  text.MapToCodeSet(253);
  ZnTimeSpan span;
  span.ScanFromZnString(text, format.c_str());

  // Sums of any fields.
  value.AddNanoSeconds(static_cast<__int64>(scanned.nanoseconds) << 30);
  value.AddSeconds(scanned.GetTotalSeconds_f());
  value.AddDays(scanned.GetTotalDays());
  ZnTimeSpan::Difference(value, scanned).GetTotalNanoSeconds();
  span.AddMinutes(scanned.nanoseconds);
  span.AddDays(scanned.nanoseconds);
  ZnDateTime stamp(ZnDate(scanned.year, scanned.month, scanned.day), ZnTime(value.nanoseconds));
  stamp.AddSeconds(scanned.nanoseconds);
  d_Timestamp standard;
  standard = stamp;
  standard += d_Interval(scanned.nanoseconds, value.nanoseconds, scanned.second, 0.5F);
  return 0;
}
