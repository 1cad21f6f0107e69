#pragma once

#include "znexport.h"
#include "znoptions.h"

/// Start, stop and self-description of the library as a loaded module.

class ZnTypeMgr;

/// Starts (non-zero) or stops (0) the library. A start makes a new default manager for factory
/// version 5; a stop frees the present one. Not counted, not locked.
ZANTMS_EXPORT void ___ZnTypemgrContext(int start);

/// Gives the default manager as it was, null before the start and after the stop. `mgr` replaces
/// it unless null; the displaced one is the caller's from then on, while the new one is freed
/// with `delete` at the stop.
ZANTMS_EXPORT ZnTypeMgr * DefaultTypeMgr(ZnTypeMgr * mgr = nullptr);

extern "C" {
/// Tells what the module is; each pointer may be null. `name` receives a process-wide buffer,
/// composed anew at each call: display name, a blank, the dotted version, a blank.
ZANTMS_EXPORT void GetZnTypeMgrInfo(char const ** compiler, unsigned int * compilerVersion,
                                    char const ** name, char const ** buildDate,
                                    char const ** moduleName);

/// Whether the base services fit this module, by `CheckZnVersionNumber` with the two low bits of
/// `flags` set: 0 if they do.
ZANTMS_EXPORT int ZnCheckDll(int flags);

/// Tells what the module is; no pointer may be null. Gives the display name.
ZANTMS_EXPORT char const * ZnDescribeDll(unsigned int * major, unsigned int * minor,
                                         unsigned int * patch, unsigned int * build,
                                         unsigned int * revision, char const ** moduleName,
                                         char const ** buildTime, char const ** unknown,
                                         unsigned int * compilerVersion, char const ** compiler,
                                         char const ** empty);
}
