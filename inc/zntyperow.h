#pragma once

#include "znexport.h"

/// The row of a type: what the library can do with its values, as names and function pointers.

class ZnString;
class ZnTypeConvertData;
class MemFile;
struct ZnIdxBounds;

/// Compares `count` elements; negative, 0 or positive. `lengthA` and `lengthB` are the bytes at
/// hand on each side, 0 for as many as `count` elements take. `error` takes 0 or a code.
using ZnTypeCmpFunc = int (*)(unsigned char format, unsigned int lengthA, void * valueA,
                              unsigned int lengthB, void * valueB, unsigned short int cmpOp,
                              unsigned int count, int & error);

/// Slots in the order of the interface. A slot that a type does not have is null. Rows are
/// process-wide and writable: the exchange operations of `ZnTypeMgr` change four of the slots.
struct ZnTypeRow {
  using CreateFunc = void * (*)(unsigned int count);
  using DeleteFunc = void * (*)(void * value, unsigned int count);
  using MoveFunc = unsigned int (*)(void * dst, void const * src, unsigned char format,
                                    unsigned int count);
  using NullSizeFunc = unsigned int (*)(unsigned int count);
  using SizeFunc = unsigned int (*)(void const * value, unsigned char valueFormat,
                                    unsigned char format, unsigned int count);
  using FileSizeFunc = unsigned int (*)(MemFile * file, unsigned char format, unsigned int count);
  using BoundFunc = float (*)(ZnIdxBounds * area, unsigned short & op, void * value,
                              unsigned char format, unsigned int count, ZnIdxBounds * out);
  using HashFunc = unsigned int (*)(unsigned char format, unsigned int length, void * value,
                                    unsigned int count, int & error);
  using ConvertToFunc = ZnTypeConvertData * (*)(void * value, unsigned int count);
  using ConvertFromFunc = void * (*)(ZnTypeConvertData * data, unsigned int count);
  using ConstructFunc = void (*)(void * value, unsigned int count, unsigned int unused);
  using AssignFunc = void (*)(void * dst, void * src, unsigned int count, int same);
  using TranslateFunc = unsigned int (*)(void * dst, unsigned char dstFormat,
                                         unsigned int dstLength, void * src,
                                         unsigned char srcFormat, unsigned int srcLength,
                                         unsigned int count);
  using NullFunc = int (*)(void * value);
  using PrintFunc = ZnString & (*)(ZnString & out, void * value, char const * format,
                                   unsigned int count);
  using ScanFunc = void * (*)(void * value, ZnString & in, char const * format, unsigned int count);
  using DefaultFunc = void * (*)(unsigned int count, int wantNull);
  using StepFunc = int (*)(void * value, unsigned int length, unsigned char format,
                           unsigned char what);

  char const * name;               ///< type name, as `ZnTypeMgr::Name2ZnTypeId` searches it
  char const * idName;             ///< name of the id constant
  CreateFunc Create;               ///< allocates and constructs; the caller owns the result
  DeleteFunc Delete;               ///< destroys and frees what `Create` gave; always gives null
  MoveFunc Store;                  ///< memory form to stored form; bytes written
  MoveFunc Load;                   ///< stored form to memory form; bytes read
  NullSizeFunc NullSizeGet;        ///< stored bytes of nulls
  SizeFunc SizeGet;                ///< stored bytes of values
  FileSizeFunc SizeGetFromMemFile; ///< the same of values at the current place of a file
  ZnTypeCmpFunc Compare;
  BoundFunc EvalAndBound; ///< share of a key range that a comparison selects, and its end keys
  HashFunc Hash;
  ConvertToFunc ConvertTo;     ///< boxes values as strings
  ConvertFromFunc ConvertFrom; ///< makes values of boxed strings
  ConstructFunc Constructor;   ///< constructs in raw memory
  ConstructFunc Destructor;    ///< destroys without freeing
  AssignFunc Assignment;       ///< `same` 0: element by element; else all from the one at `src`
  AssignFunc Copy;             ///< the same into raw memory
  TranslateFunc Translate;     ///< between any two forms; bytes
  NullFunc IsNull;
  NullFunc SetNull;    ///< gives 0; absent in types without null
  char const * format; ///< default print and scan format
  PrintFunc PrintToString;
  ScanFunc ScanFromString;
  unsigned short memLen; ///< bytes of one value in memory
  unsigned short fixed;  ///< 1 if the stored size does not depend on the value
  DefaultFunc DefaultValue;
  StepFunc GetValue; ///< steps a value to the next one
  void * reserved;   ///< null
};
