#pragma once

/// Marks what the library shows to its users; everything else stays hidden.
#if defined(__GNUC__)
#define ZANTMS_EXPORT __attribute__((visibility("default")))
#else
#define ZANTMS_EXPORT
#endif

/// 64-bit integers under the name that the engine's sources use.
using __int64 = long long;
