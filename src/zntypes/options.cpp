#include "zncontext.h"

int & ___ZnTypeMgrOptions() {
  static constinit int options = 0;
  return options;
}
