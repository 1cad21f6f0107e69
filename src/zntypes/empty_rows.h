#pragma once

#include "zntypes/row_parts.h"

/// The groups of the row "illegal", which does nothing: 0 or null from whatever gives something,
/// `out` unchanged from a print, `ZnErrNotSupported` from a step. Every id that has no row ends
/// there. Kinds whose functions are not written yet borrow the groups, so that a call does no
/// harm.

namespace zntms {

void * EmptyCreate(unsigned int count);
void * EmptyDelete(void * value, unsigned int count);
void EmptyConstruct(void * value, unsigned int count, unsigned int unused);
void EmptyAssign(void * dst, void * src, unsigned int count, int same);
unsigned int EmptyMove(void * dst, void const * src, unsigned char format, unsigned int count);
unsigned int EmptyNullSize(unsigned int count);
unsigned int EmptySize(void const * value, unsigned char valueFormat, unsigned char format,
                       unsigned int count);
unsigned int EmptyFileSize(MemFile * file, unsigned char format, unsigned int count);
unsigned int EmptyTranslate(void * dst, unsigned char dstFormat, unsigned int dstLength, void * src,
                            unsigned char srcFormat, unsigned int srcLength, unsigned int count);
int EmptyCompare(unsigned char format, unsigned int lengthA, void * valueA, unsigned int lengthB,
                 void * valueB, unsigned short int cmpOp, unsigned int count, int & error);
float EmptyBound(ZnIdxBounds * area, unsigned short & op, void * value, unsigned char format,
                 unsigned int count, ZnIdxBounds * out);
unsigned int EmptyHash(unsigned char format, unsigned int length, void * value, unsigned int count,
                       int & error);
ZnTypeConvertData * EmptyConvertTo(void * value, unsigned int count);
void * EmptyConvertFrom(ZnTypeConvertData * data, unsigned int count);
void * EmptyDefault(unsigned int count, int wantNull);
ZnString & EmptyPrint(ZnString & out, void * value, char const * format, unsigned int count);
void * EmptyScan(void * value, ZnString & in, char const * format, unsigned int count);

/// `IsNull` of every kind without null: always 0.
int NeverNull(void * value);
/// `GetValue` of every kind without a next value: always `ZnErrNotSupported`.
int NoStep(void * value, unsigned int length, unsigned char format, unsigned char what);

inline constexpr RowLife kEmptyLife = {&EmptyCreate,    &EmptyDelete, &EmptyConstruct,
                                       &EmptyConstruct, &EmptyAssign, &EmptyAssign};
inline constexpr RowStorage kEmptyStorage = {&EmptyMove, &EmptyMove,     &EmptyNullSize,
                                             &EmptySize, &EmptyFileSize, &EmptyTranslate};
inline constexpr RowQuery kEmptyQuery = {&EmptyCompare, &EmptyBound, &EmptyHash};
inline constexpr RowBox kEmptyBox = {&EmptyConvertTo, &EmptyConvertFrom, &EmptyDefault};
inline constexpr RowNull kNoNull = {&NeverNull, nullptr};

/// Print and scan that do nothing, with the format that the row is to have.
constexpr RowText EmptyText(char const * format) { return {format, &EmptyPrint, &EmptyScan}; }

} // namespace zntms
