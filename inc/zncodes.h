#pragma once

/// Numbers that the library shares with the engine: type ids, format bytes, comparison flags and
/// result codes. They are stored, or compiled into callers, and never change.

/// A type id. The interface spells it `char`; ids are never negative.
using ZnTypeId = signed char;

inline constexpr char Zn1B_T = 0;
inline constexpr char Zn2B_T = 1;
inline constexpr char Zn4B_T = 2;
inline constexpr char ZnDOUBLE_T = 3;
inline constexpr char ZnFLOAT_T = 4;
inline constexpr char ZnU2B_T = 5;
inline constexpr char ZnU4B_T = 6;
inline constexpr char ZnINT_T = 7;
inline constexpr char ZnUNSIGNED_T = 8;
inline constexpr char ZnENUM_T = 9;
inline constexpr char ZnU1B_T = 10;
inline constexpr char ZnSTRING_T = 11;
inline constexpr char ZnDATE_T = 12;
inline constexpr char ZnTIME_T = 13;
inline constexpr char ZnBLOCKID_T = 14;
inline constexpr char ZnOBJID_T = 15;
inline constexpr char ZnCLID_T = 16;
inline constexpr char ZnREF_T = 17;
inline constexpr char ZnBLOB_T = 18;
inline constexpr char ZnDATIME_T = 19;
inline constexpr char ZnISTRING_T = 20;
inline constexpr char ZnCASEISTRING_T = 21;
inline constexpr char D_DATE_T = 22;
inline constexpr char D_TIME_T = 23;
inline constexpr char D_TIMESTAMP_T = 24;
inline constexpr char D_INTERVAL_T = 25;
inline constexpr char ZnINT64_T = 26;
inline constexpr char ZnBOOLEAN_T = 27;
inline constexpr char ZnNULL_1B_T = 28;
inline constexpr char ZnNULL_U1B_T = 29;
inline constexpr char ZnNULL_2B_T = 30;
inline constexpr char ZnNULL_U2B_T = 31;
inline constexpr char ZnNULL_INT_T = 32;
inline constexpr char ZnNULL_UNSIGNED_T = 33;
inline constexpr char ZnNULL_4B_T = 34;
inline constexpr char ZnNULL_U4B_T = 35;
inline constexpr char ZnNULL_FLOAT_T = 36;
inline constexpr char ZnNULL_DOUBLE_T = 37;
inline constexpr char ZnNULL_ZNINT64_T = 38;
inline constexpr char ZnSEAL_T = 39;
inline constexpr char ZnDATIME_N_T = 40;
inline constexpr char ZnTIMESPAN_T = 41;
inline constexpr char Zn8B_T = 42;
inline constexpr char ZnU8B_T = 43;
inline constexpr char ZnNULL_8B_T = 44;
inline constexpr char ZnNULL_U8B_T = 45;
inline constexpr char ZnRES_T = 46;

// Format byte. The low nibble names the form, the high bits are read by the string rows.

inline constexpr unsigned char ZnFormatLittleEndian = 1; ///< stored, least significant byte first
inline constexpr unsigned char ZnFormatBigEndian = 2;    ///< stored, most significant byte first
inline constexpr unsigned char ZnFormatMemory = 8;       ///< as it lies in memory
inline constexpr unsigned char ZnFormatRawText = 32;     ///< the target's code set is 0
inline constexpr unsigned char ZnFormatNativeText = 64;  ///< code set 0 becomes the native one
inline constexpr unsigned char ZnFormatIndexKey = 128;   ///< the target is an index key

// Comparison flags, the word `cmpOp`.

inline constexpr unsigned short ZnCmpNoWildcards = 0x10;
inline constexpr unsigned short ZnCmpIgnoreCase = 0x20;
inline constexpr unsigned short ZnCmpIgnoreAccents = 0x40;
inline constexpr unsigned short ZnCmpIgnoreSpaces = 0x80;
inline constexpr unsigned short ZnCmpKeysOnly = 0x100;
inline constexpr unsigned short ZnCmpIgnoreSymbols = 0x200;
/// As an argument: the process-wide default flags.
inline constexpr unsigned short ZnCmpDefault = 65535;

// Result codes.

inline constexpr int ZnErrWrongArgument = -2002; ///< wrong argument of a string operation
inline constexpr int ZnErrEndOfList = -2005;     ///< no further item in a split list
inline constexpr int ZnErrNotSupported = -2999;  ///< the type has no such operation
inline constexpr int ZnErrNoNextValue = 2091;    ///< `GetValue`: there is no next value
inline constexpr int ZnErrIncomplete = 2101;     ///< a key held fewer elements than asked for
inline constexpr int ZnErrMixedFirstKey = 2114;  ///< the first key mixes script classes
inline constexpr int ZnErrMixedSecondKey = 2115; ///< only the second key does
