#include "znoptions.h"

/// The option word stands with the strings, which alone read it.

int & ___ZnTypeMgrOptions() {
  static constinit int options = 0;
  return options;
}
