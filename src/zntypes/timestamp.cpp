#include "zntypes/timestamp.h"

#include "d_time.h"
#include "zncodes.h"
#include "zndatetimen.h"

#include <cstddef>
#include <new>

namespace zntms {

static_assert(sizeof(ZnTimeStampRecord) == sizeof(ZnDateTimeN) &&
              offsetof(ZnTimeStampRecord, hour) == offsetof(ZnDateTimeN, hour) &&
              offsetof(ZnTimeStampRecord, nanosecond) == offsetof(ZnDateTimeN, nanoseconds));

namespace {

d_Date DateOf(ZnTimeStampRecord const & record) {
  return {record.year, static_cast<unsigned short>(record.month),
          static_cast<unsigned short>(record.day)};
}

d_Time TimeOf(ZnTimeStampRecord const & record) {
  auto const second = static_cast<float>(record.second + record.nanosecond / 1e9);
  return {static_cast<unsigned short>(record.hour), static_cast<unsigned short>(record.minute),
          second};
}

} // namespace

void const * TimeStampValue(char id, ZnTimeStampRecord const & record, TimeStampRoom & room) {
  switch (id) {
  case ZnDATE_T: // the front of the record
  case ZnDATIME_T:
  case ZnDATIME_N_T:
    return &record;
  case ZnTIME_T: // hour, minute and second
    return &record.hour;
  case D_DATE_T:
    return new (room.bytes) d_Date(DateOf(record));
  case D_TIME_T:
    return new (room.bytes) d_Time(TimeOf(record));
  case D_TIMESTAMP_T:
    return new (room.bytes) d_Timestamp(DateOf(record), TimeOf(record));
  default:
    return nullptr;
  }
}

} // namespace zntms
