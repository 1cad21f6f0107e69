#include "output.h"

#include "failure.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace zantm {

void Write(std::string_view text) {
  if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size())
    throw Failure(ExitDatabase, std::string("standard output: ") + std::strerror(errno));
}

void Flush() {
  if (std::fflush(stdout) != 0)
    throw Failure(ExitDatabase, std::string("standard output: ") + std::strerror(errno));
}

void Report(std::string_view text) {
  std::fflush(stdout);
  std::string line = "zantm: ";
  for (char c : text)
    line += c == '\n' || c == '\r' ? ' ' : c;
  line += '\n';
  std::fwrite(line.data(), 1, line.size(), stderr);
}

size_t Width(std::string_view text) {
  return std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; });
}

std::string Padded(std::string_view text, size_t width, bool right) {
  std::string padding(width - std::min(width, Width(text)), ' ');
  return right ? padding.append(text) : std::string(text).append(padding);
}

std::string CsvQuoted(std::string_view text) {
  bool plain = text.find_first_of(",\"\r\n") == std::string_view::npos && !text.empty();
  if (plain)
    return std::string(text);
  std::string out = "\"";
  for (char c : text) {
    if (c == '"')
      out += '"';
    out += c;
  }
  return out += '"';
}

} // namespace zantm
