#pragma once

#include "zntypemgr.h"

/// A clock reading as a value of each date and time type.

namespace zntms {

/// Room for a value that has to be made of the reading.
struct TimeStampRoom {
  alignas(8) unsigned char bytes[16];
};

/// The memory form of the reading as a value of the type, in the record itself where the type is a
/// part of it, else in `room`; null for a type that takes no clock reading.
void const * TimeStampValue(char id, ZnTimeStampRecord const & record, TimeStampRoom & room);

} // namespace zntms
