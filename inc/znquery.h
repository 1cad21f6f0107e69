#pragma once

#include "znexport.h"

/// The range of an index that a comparison selects. The engine fills and reads it too.
/// Key buffers of a record that was given as output are allocated with `malloc` and belong to
/// the holder of the record, who frees them.
struct ZnIdxBounds {
  void * lowKey;                ///< low key in stored form, or null
  void * highKey;               ///< high key in stored form, or null
  unsigned char lowLength;      ///< bytes at `lowKey`
  unsigned char highLength;     ///< bytes at `highKey`
  unsigned short lowCondition;  ///< condition word of the engine
  unsigned short highCondition; ///< the second condition word
  unsigned char keyLimit;       ///< the longest key that the index holds, in bytes
};

/// A record of the engine, which nothing here reads.
struct ZnEvalData;

// Operator word of `EvalAndBound`: which values, beside the constant, a comparison selects.

inline constexpr unsigned short ZnOpEqual = 1;
inline constexpr unsigned short ZnOpBelow = 2;
inline constexpr unsigned short ZnOpAbove = 4;
/// Output of string and date rows: the constant holds a wildcard.
inline constexpr unsigned short ZnOpWildcard = 8;
/// Input of string rows: the index has to be searched from its start if the comparison ignores
/// spaces or symbols. Without it a text that lacks spaces or symbols of the constant, though equal
/// to it, may lie below the low key.
inline constexpr unsigned short ZnOpFromStart = 0x1000;
