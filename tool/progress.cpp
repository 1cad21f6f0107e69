#include "progress.h"

#include <unistd.h>

#include <cstdio>

namespace zantm {

namespace {
constexpr int kBarWidth = 40;
}

Progress::Progress(std::string_view label) : label_(label), terminal_(isatty(STDERR_FILENO)) {}

void Progress::Show(double share) {
  if (!terminal_)
    return;
  int percent = static_cast<int>(share * 100);
  if (percent == percent_)
    return;
  percent_ = percent;
  int filled = percent * kBarWidth / 100;
  std::string line = "\r" + label_ + " [" + std::string(filled, '#') +
                     std::string(kBarWidth - filled, ' ') + "] " + std::to_string(percent) + "%";
  std::fputs(line.c_str(), stderr);
}

void Progress::Clear() {
  if (!terminal_ || percent_ < 0)
    return;
  std::fputs("\r\033[K", stderr);
  percent_ = -1;
}

} // namespace zantm
