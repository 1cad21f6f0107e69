#include "zntypes/text_format.h"

#include <algorithm>
#include <utility>

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

FormattedAround FormatAround(std::string_view format, std::size_t length) {
  std::size_t const room = length + format.size() + kRoomBeside;
  FormattedAround around;
  bool taken = false;
  while (!format.empty()) {
    std::string & out = taken ? around.after : around.before;
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
    around.length = std::min(length, conversion.precision);
    std::size_t const padding =
        std::min(conversion.width - std::min(conversion.width, around.length), room);
    (conversion.left ? around.after : around.before).append(padding, ' ');
    format.remove_prefix(conversion.length);
  }
  around.before.resize(std::min(around.before.size(), room));
  around.length = std::min(around.length, room - around.before.size());
  around.after.resize(std::min(around.after.size(), room - around.before.size() - around.length));
  return around;
}

std::string FormatText(std::string_view format, std::string_view text) {
  FormattedAround around = FormatAround(format, text.size());
  return std::move(around.before) + std::string(text.substr(0, around.length)) + around.after;
}

} // namespace zntms
