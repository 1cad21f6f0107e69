#pragma once

#include "zncodes.h"
#include "znexport.h"
#include "znquery.h"
#include "zntyperow.h"

class ZnString;
class ZnTypeConvertData;
class MemFile;

/// What `ZnTypeMgr::StoreTimeStamp` stores: has the memory layout of a `ZnDateTimeN`.
struct ZnTimeStampRecord {
  short year;
  signed char month;
  signed char day;
  signed char hour;
  signed char minute;
  signed char second;
  int nanosecond;
};

/// The one generic interface over all types of value: finds the row of a type id and hands on the
/// arguments.
///
/// Worked example: three `int` values go to their big-endian stored form by
/// `mgr.Store(ZnINT_T, dst, values, ZnFormatBigEndian, 3)`, which gives 12.
///
/// Ids: 0 to 46 name rows; ids of 100 and above all mean the row of id 46, which does nothing. So
/// does every other id that has no row in the table in use: no operation reads outside it.
/// Counts are numbers of elements; in memory they lie `MemLenGet(id, 1)` bytes apart, stored
/// ones stand back to back. A manager owns nothing; copies are as good as the original. No
/// operation locks; the exchange operations change the row for every manager of the process.
class ZANTMS_EXPORT ZnTypeMgr {
public:
  ZnTypeRow * const * rows; ///< the table in use, 256 rows, by the unsigned value of the id
  unsigned short factory;   ///< effective factory version

  /// Factory versions 0 to 3 and 11 use the table of old data, in which only ids 0 to 27 have a
  /// row, all others the full table. Versions of 12 and above count as 4, version 11 as 3.
  explicit ZnTypeMgr(unsigned int version = 5);
  void SetFactory(unsigned int version);

  // ---- Metadata --------------------------------------------------------------------------------

  /// 1 for ids 0 to 46 and 100 to 127, else 0; from the number alone, whatever the table holds.
  static int IsValidType(char id);
  /// The type's name; copied with its terminator into `buffer`, which is given back, unless that
  /// is null. The longest name takes 16 bytes.
  char * NameGet(char id, char * buffer = nullptr) const;
  /// The name of the id constant, in the same way; the longest takes 18 bytes.
  char * TypeIdNameGet(char id, char * buffer = nullptr) const;
  /// Finds the id of a type name, which is compared byte by byte. 0 if found; else 1, with the
  /// number of rows in `id`.
  int Name2ZnTypeId(char const * name, char & id) const;
  /// Bytes of `count` values in memory, from the low 16 bits of `count`, modulo 65536.
  unsigned short MemLenGet(char id, unsigned int count) const;
  /// 1 if the stored size does not depend on the value.
  unsigned short IsFixed(char id) const;
  /// The place of an element; null if `count` is not 0 and `index` not below it, and for an id
  /// that has no row in the table in use. A count of 0 stands for an unknown length.
  void * GetArrayElement(char id, void * base, unsigned int index, unsigned int count) const;
  unsigned short SupportsNullValue(char id) const;
  /// Capability 1: the type has a null value; 2: integer kinds; 3: `StoreTimeStamp` serves it.
  unsigned short SupportsCapability(char id, unsigned short capability) const;

  // ---- Life of values --------------------------------------------------------------------------

  /// New values; the caller owns them and gives them back by `Delete` with the same count (at
  /// least one on the same side of 1).
  void * Create(char id, unsigned int count) const;
  /// Always gives null.
  void * Delete(char id, void * value, unsigned int count) const;
  /// New default values, owned as after `Create`; nulls if `wantNull` is not 0 and there are any.
  void * DefaultValue(char id, unsigned int count, int wantNull) const;

  // ---- Stored forms ----------------------------------------------------------------------------

  /// Bytes written; `dst` must have room for `DiskLenGet(id, src, format, count, 8)` bytes.
  unsigned int Store(char id, void * dst, void const * src, unsigned char format,
                     unsigned int count) const;
  /// Bytes read.
  unsigned int Load(char id, void * dst, void const * src, unsigned char format,
                    unsigned int count) const;
  /// Bytes that `count` values take in `format`; `valueFormat` tells in which form `value` is.
  unsigned int DiskLenGet(char id, void const * value, unsigned char format, unsigned int count,
                          unsigned char valueFormat) const;
  /// The same for stored values at the current place of a file.
  unsigned int DiskLenGetFromMemFile(char id, MemFile * file, unsigned char format,
                                     unsigned int count) const;
  /// Brings values from one form to another; bytes.
  unsigned int Translate(char id, void * dst, unsigned char dstFormat, unsigned int dstLength,
                         void * src, unsigned char srcFormat, unsigned int srcLength,
                         unsigned int count) const;

  // ---- Queries ---------------------------------------------------------------------------------

  /// Negative, 0 or positive. Lengths are the bytes at hand on each side, 0 for as many as
  /// `count` elements take. `error` takes 0 or a code of `zncodes.h`. Inline, as a caller's loop
  /// over single values is where the cost of a call shows.
  int Cmp(char id, unsigned int lengthA, void * valueA, unsigned int lengthB, void * valueB,
          unsigned short int cmpOp, unsigned int count, unsigned char format, int & error) const {
    return rows[static_cast<unsigned char>(id)]->Compare(format, lengthA, valueA, lengthB, valueB,
                                                         cmpOp, count, error);
  }
  /// The same for whole values, without the error.
  int Cmp(char id, void * valueA, void * valueB, unsigned short int cmpOp, unsigned int count,
          unsigned char format) const {
    int error = 0;
    return Cmp(id, 0, valueA, 0, valueB, cmpOp, count, format, error);
  }
  unsigned int Hash(char id, unsigned int length, void * value, unsigned int count,
                    unsigned char format, int & error) const;
  /// Estimates which share of the key range `area` the comparison `op` against the stored
  /// constant `value` selects, and records the ends of the index scan in `out`. Both records may
  /// be null. `evalData` is not read.
  float EvalAndBound(char id, ZnIdxBounds * area, unsigned short & op, void * value,
                     unsigned char format, unsigned int count, ZnIdxBounds * out,
                     ZnEvalData * evalData) const;
  /// Steps a value to the next one (`what` "M" or "N") or to the present (`"O"`, clocks only).
  /// `value` is in memory form if `format` is 8, else in stored form, `length` bytes long.
  /// 0, `ZnErrNoNextValue` or `ZnErrNotSupported`.
  int GetValue(char id, void * value, unsigned int length, unsigned char format,
               unsigned char what) const;
  /// Stores a clock reading as a value of any date or time type (capability 3): bytes written, or
  /// `ZnErrNotSupported` for a null `src` and for every other type.
  int StoreTimeStamp(char id, void * dst, unsigned char format,
                     ZnTimeStampRecord const * src) const;

  // ---- Nulls -----------------------------------------------------------------------------------

  int IsNullValue(char id, void * value) const;
  /// Always `ZnErrNotSupported`.
  int DiskIsNullValue(char id, void * value) const;
  /// Makes the value null, or the default value in a type without null. 0, or what the row's
  /// `SetNull` gives.
  int SetNullValue(char id, void * value) const;
  /// The text by which nulls print and scan, "{NULL}" at load. Process-wide, not locked.
  static ZnString & GetNullPrintString();
  static void SetNullPrintString(ZnString const & text);

  // ---- Text ------------------------------------------------------------------------------------

  /// Boxes values as strings; the caller owns the box, which frees its strings. Null for a type
  /// without conversion.
  ZnTypeConvertData * ConvertTo(char id, void * value, unsigned int count);
  /// New values from a box, which stays the caller's; owned as after `Create`.
  void * ConvertFrom(char id, ZnTypeConvertData * data, unsigned int count);
  /// Prints by `format`, or by the row's format if that is null. Several elements print with
  /// commas between them behind what `out` holds; one element replaces it. Gives `out`.
  ZnString & PrintToZnString(char id, ZnString & out, void * value, char const * format,
                             unsigned int count) const;
  /// Scans by `format`, or by the row's format if that is null. Gives `value`.
  void * ScanFromZnString(char id, void * value, ZnString & str, char const * format,
                          unsigned int count) const;

  // ---- Slots -----------------------------------------------------------------------------------

  ZnTypeRow::MoveFunc StorePtrGet(char id) const;
  ZnTypeRow::MoveFunc LoadPtrGet(char id) const;
  ZnTypeCmpFunc CmpFuncPtrGet(char id) const;
  ZnTypeRow::ConstructFunc ConstructorPtrGet(char id) const;
  ZnTypeRow::ConstructFunc DestructorPtrGet(char id) const;
  ZnTypeRow::AssignFunc AssignmentPtrGet(char id) const;
  ZnTypeRow::AssignFunc CopyPtrGet(char id) const;
  ZnTypeRow::NullFunc IsNullPtrGet(char id) const;
  ZnTypeRow::NullFunc SetNullPtrGet(char id) const;
  /// Always null.
  void * ComparePtrGet(char id) const;

  /// Each gives the old content of the slot; null changes nothing. A format text must outlive
  /// its use. The change reaches every manager of the process.
  char const * ExchangeFormat(char id, char const * format);
  ZnTypeRow::PrintFunc ExchangePrintToZnStringFunc(char id, ZnTypeRow::PrintFunc print);
  ZnTypeRow::ScanFunc ExchangeScanFromZnStringFunc(char id, ZnTypeRow::ScanFunc scan);
  ZnTypeCmpFunc ExchangeZnTypeCmpFunc(char id, ZnTypeCmpFunc compare);

protected:
  /// Joins the boxed strings of an array: each is followed by a separator that occurs in none of
  /// them. The caller owns the string and gives it back by `Delete` of `ZnSTRING_T`, count 1.
  ZnString * ConvertToZnStringOld(void * value, char id, unsigned int count);
  /// Reads that form; `str` is consumed.
  void * ConvertFromZnStringOld(ZnString * str, char id, unsigned int count);
};
