#include "zntypes/text_format.h"

#include <algorithm>

namespace zntms {

namespace {

constexpr std::size_t kRoomBeside = 511;

/// What stands between `%` and `s`.
struct TextConversion {
  bool left = false;
  std::size_t width = 0;
  std::size_t precision = std::string_view::npos;
  std::size_t length = 0; ///< characters of the conversion with its `%`; 0: it is none
};

/// Reads decimal digits; numbers beyond `most` count as `most`.
std::size_t ReadCount(std::string_view format, std::size_t & at, std::size_t most) {
  std::size_t count = 0;
  for (; at < format.size() && format[at] >= '0' && format[at] <= '9'; ++at)
    count = std::min(most, count * 10 + static_cast<std::size_t>(format[at] - '0'));
  return count;
}

/// `format` begins with a percent sign.
TextConversion ReadConversion(std::string_view format) {
  constexpr std::size_t most = 1 << 20;
  TextConversion conversion;
  std::size_t at = 1;
  for (; at < format.size() && (format[at] == '-' || format[at] == ' ' || format[at] == '+' ||
                                format[at] == '#' || format[at] == '0');
       ++at)
    conversion.left = conversion.left || format[at] == '-';
  conversion.width = ReadCount(format, at, most);
  if (at < format.size() && format[at] == '.') {
    ++at;
    conversion.precision = ReadCount(format, at, most);
  }
  if (at < format.size() && format[at] == 's')
    conversion.length = at + 1;
  return conversion;
}

} // namespace

std::string FormatText(std::string_view format, std::string_view text) {
  std::size_t const room = text.size() + format.size() + kRoomBeside;
  std::string out;
  bool taken = false;
  while (!format.empty()) {
    std::size_t const plain = std::min(format.find('%'), format.size());
    out.append(format.substr(0, plain));
    format.remove_prefix(plain);
    if (format.empty())
      break;
    if (format.starts_with("%%")) {
      out.push_back('%');
      format.remove_prefix(2);
      continue;
    }
    TextConversion const conversion = ReadConversion(format);
    if (conversion.length == 0 || taken) {
      out.push_back('%');
      format.remove_prefix(1);
      continue;
    }
    taken = true;
    std::string_view const part = text.substr(0, conversion.precision);
    std::size_t const padding =
        std::min(conversion.width - std::min(conversion.width, part.size()), room);
    if (!conversion.left)
      out.append(padding, ' ');
    out.append(part);
    if (conversion.left)
      out.append(padding, ' ');
    format.remove_prefix(conversion.length);
  }
  if (out.size() > room)
    out.resize(room);
  return out;
}

} // namespace zntms
