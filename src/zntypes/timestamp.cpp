#include "zntypes/timestamp.h"

#include "zncodes.h"

namespace zntms {

void const * TimeStampValue(char id, ZnTimeStampRecord const & record, TimeStampRoom &) {
  switch (id) {
  case ZnDATE_T: // the front of the record
  case ZnDATIME_T:
  case ZnDATIME_N_T:
    return &record;
  case ZnTIME_T: // hour, minute and second
    return &record.hour;
  default:
    return nullptr;
  }
}

} // namespace zntms
