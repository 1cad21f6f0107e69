#include "zanbs.h"

namespace {
constexpr unsigned int kMajor = 1;
constexpr unsigned int kMinor = 0;
} // namespace

int CheckZnVersionNumber(unsigned int major, unsigned int minor, unsigned int, unsigned int,
                         unsigned int, int flags) {
  if ((flags & 1) != 0 && major != kMajor)
    return 1;
  if ((flags & 2) != 0 && minor > kMinor)
    return 2;
  return 0;
}
