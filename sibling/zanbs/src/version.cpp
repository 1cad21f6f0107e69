#include "zanbs.h"

/// The version check: the build tells this component's own version.
///
/// Example: component 1.2 fits a module that asks for 1.1 with flags 3, gives 2 to one that asks
/// for 1.3, and 1 to one that asks for 2.0.

namespace {
constexpr unsigned int kMajor = ZANBS_VERSION_MAJOR;
constexpr unsigned int kMinor = ZANBS_VERSION_MINOR;
} // namespace

int CheckZnVersionNumber(unsigned int major, unsigned int minor, unsigned int, unsigned int,
                         unsigned int, int flags) {
  if ((flags & 1) != 0 && major != kMajor)
    return 1;
  if ((flags & 2) != 0 && minor > kMinor)
    return 2;
  return 0;
}
