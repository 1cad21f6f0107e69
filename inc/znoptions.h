#pragma once

#include "znexport.h"

/// Options of the whole process, for program start: not locked.

/// Option word, 0 at load. Bit 0: strings read numbers as decimal only (`atoi`), not with the
/// base that their prefix tells.
ZANTMS_EXPORT int & ___ZnTypeMgrOptions();
