#pragma once

#include "znexport.h"

/// Names of things in the database: classes, objects and references to objects.
///
/// Worked example: a `ZnRef` with `databaseId` 3, `low` 9, `block` 4 and `classNumber` 12 prints
/// as "(3:0-9#4, 12)", and that text scans back to it.
///
/// All four classes are plain records. The number of an object is the pair (`high`, `low`);
/// `block` only tells where the object lies and never takes part in equality, order or hash.
///
/// What the classes share:
/// - `operator==` gives 1 or 0; `operator!=` is three-way: negative, 0 or positive.
/// - Print and scan follow a format of text and directives: `%C` class number, `%V` class version,
///   `%D` database, `%H` and `%L` high and low word of the object number, `%B` block, as far as the
///   class has the field. A null format stands for the default that is told. A print replaces
///   `out`, which it gives back; a text is cut after 511 bytes. A null prints and scans as the null
///   print string. A scan never fails: fields that it does not reach become 0.
/// - `ZnClassId`, `ZnObjId` and `ZnRef` are types of the table, and their static members are the
///   functions of its row (`zntyperow.h`). Stored forms hold the fields without gaps: 4 bytes
///   `classNumber`, `classVersion`; 10 bytes `block`, `low`, `high`; 14 bytes `block`, `low`,
///   `high`, `databaseId`, `classNumber`. `Compare` in stored form reads every key as
///   little-endian, from the last byte to the first.

class MemFile;
class ZnString;
struct ZnIdxBounds;
class ZnLocalRef;

namespace zntms {

template <class Word>
constexpr int ThreeWay(Word a, Word b) {
  return (a > b) - (a < b);
}

/// Of two object numbers: the difference of the high words, or -1, 0 or 1 from the low ones.
template <class A, class B>
constexpr int CompareObjectNumbers(A const & a, B const & b) {
  return a.high != b.high ? a.high - b.high : ThreeWay(a.low, b.low);
}

} // namespace zntms

/// A class and its version. The default format is "(%Cv%V)".
class ZANTMS_EXPORT ZnClassId {
public:
  unsigned short classNumber = 0;
  unsigned short classVersion = 0;

  unsigned short ClassNumberGet() const { return classNumber; }
  unsigned short ClassVersionGet() const { return classVersion; }
  void ClassNumberSet(unsigned short number) { classNumber = number; }
  void ClassVersionSet(unsigned short version) { classVersion = version; }

  /// Null if both fields are 65535; a zero class id is a value.
  int IsNullValue() const { return classNumber == 65535 && classVersion == 65535; }
  int SetNullValue();

  int operator==(ZnClassId const & other) const { return (*this != other) == 0; }
  /// Null first, then by `classNumber`, then by `classVersion`; -1, 0 or 1.
  int operator!=(ZnClassId const & other) const {
    if (IsNullValue() || other.IsNullValue())
      return other.IsNullValue() - IsNullValue();
    return classNumber != other.classNumber ? zntms::ThreeWay(classNumber, other.classNumber)
                                            : zntms::ThreeWay(classVersion, other.classVersion);
  }
  int operator>(ZnClassId const & other) const { return (*this != other) > 0; }

  ZnString & PrintToZnString(ZnString & out, char const * format = nullptr) const;
  void ScanFromZnString(ZnString const & in, char const * format = nullptr);

  /// An array has no count word ahead of it: `Delete` frees by the pointer alone.
  static void * Create(unsigned int count);
  static void * Delete(void * value, unsigned int count);
  static unsigned int Store(void * dst, void const * src, unsigned char format, unsigned int count);
  static unsigned int Load(void * dst, void const * src, unsigned char format, unsigned int count);
  static unsigned int NullSizeGet(unsigned int count);
  static unsigned int SizeGet(void const * value, unsigned char valueFormat, unsigned char format,
                              unsigned int count);
  static unsigned int SizeGetFromMemFile(MemFile * file, unsigned char format, unsigned int count);
  static int Compare(unsigned char format, unsigned int lengthA, void * valueA,
                     unsigned int lengthB, void * valueB, unsigned short int cmpOp,
                     unsigned int count, int & error);
  /// Always 1.0, without bounds.
  static float EvalAndBound(ZnIdxBounds * area, unsigned short & op, void * value,
                            unsigned char format, unsigned int count, ZnIdxBounds * out);
  static unsigned int Hash(unsigned char format, unsigned int length, void * value,
                           unsigned int count, int & error);
  static ZnString & PrintToString(ZnString & out, void * value, char const * format,
                                  unsigned int count);
  static void * ScanFromString(void * value, ZnString & in, char const * format,
                               unsigned int count);
  static unsigned int Translate(void * dst, unsigned char dstFormat, unsigned int dstLength,
                                void * src, unsigned char srcFormat, unsigned int srcLength,
                                unsigned int count);
};

/// An object of a database. The default format is "(%H-%L#%B)".
class ZANTMS_EXPORT ZnObjId {
public:
  unsigned int block = 0;
  unsigned int low = 0;
  unsigned short high = 0;

  unsigned int BlockGet() const { return block; }
  unsigned int LowGet() const { return low; }
  unsigned short HighGet() const { return high; }
  void BlockSet(unsigned int number) { block = number; }
  void LowSet(unsigned int word) { low = word; }
  void HighSet(unsigned short word) { high = word; }

  /// Null if the object number is 0, whatever `block` holds.
  int IsNullValue() const { return low == 0 && high == 0; }
  int SetNullValue();

  int operator==(ZnObjId const & other) const { return low == other.low && high == other.high; }
  /// The difference of `high`, or -1, 0 or 1 from `low`.
  int operator!=(ZnObjId const & other) const { return zntms::CompareObjectNumbers(*this, other); }

  // Steps of the object number, which wraps; `block` stays.

  ZnObjId & operator++() { return *this += 1; }
  ZnObjId & operator--() { return *this += -1; }
  ZnObjId & operator+=(short amount);
  /// The object number above all others, with `block` 0.
  void SetHighestValue();

  ZnString & PrintToZnString(ZnString & out, char const * format = nullptr) const;
  void ScanFromZnString(ZnString const & in, char const * format = nullptr);

  static void * Create(unsigned int count);
  static void * Delete(void * value, unsigned int count);
  static unsigned int Store(void * dst, void const * src, unsigned char format, unsigned int count);
  static unsigned int Load(void * dst, void const * src, unsigned char format, unsigned int count);
  static unsigned int NullSizeGet(unsigned int count);
  static unsigned int SizeGet(void const * value, unsigned char valueFormat, unsigned char format,
                              unsigned int count);
  static unsigned int SizeGetFromMemFile(MemFile * file, unsigned char format, unsigned int count);
  static int Compare(unsigned char format, unsigned int lengthA, void * valueA,
                     unsigned int lengthB, void * valueB, unsigned short int cmpOp,
                     unsigned int count, int & error);
  static float EvalAndBound(ZnIdxBounds * area, unsigned short & op, void * value,
                            unsigned char format, unsigned int count, ZnIdxBounds * out);
  static unsigned int Hash(unsigned char format, unsigned int length, void * value,
                           unsigned int count, int & error);
  static ZnString & PrintToString(ZnString & out, void * value, char const * format,
                                  unsigned int count);
  static void * ScanFromString(void * value, ZnString & in, char const * format,
                               unsigned int count);
  static unsigned int Translate(void * dst, unsigned char dstFormat, unsigned int dstLength,
                                void * src, unsigned char srcFormat, unsigned int srcLength,
                                unsigned int count);
};

/// A persistent reference: database, object and class. The default format of the members is
/// "(%D:%H-%L#%B, %C)"; `PrintToString` with a null format shows the version as well, by
/// "(%D:%H-%L#%B,%Cv%V)". The stored form has no `classVersion`: it comes back as 0.
class ZANTMS_EXPORT ZnRef {
public:
  unsigned int block = 0;
  unsigned int low = 0;
  unsigned short high = 0;
  unsigned short databaseId = 0; ///< 65535 marks a reference by origin id
  unsigned short classNumber = 0;
  unsigned short classVersion = 0;

  unsigned int BlockGet() const { return block; }
  unsigned int LowGet() const { return low; }
  unsigned short HighGet() const { return high; }
  unsigned short DatabaseIdGet() const { return databaseId; }
  unsigned short ClassNumberGet() const { return classNumber; }
  unsigned short ClassVersionGet() const { return classVersion; }
  void BlockSet(unsigned int number) { block = number; }
  void LowSet(unsigned int word) { low = word; }
  void HighSet(unsigned short word) { high = word; }
  void DatabaseIdSet(unsigned short id) { databaseId = id; }
  void ClassNumberSet(unsigned short number) { classNumber = number; }
  void ClassVersionSet(unsigned short version) { classVersion = version; }

  /// Null if the object number is 0, whatever the other fields hold.
  int IsNullValue() const { return low == 0 && high == 0; }
  /// Clears `block`, `low` and `high` and nothing else; gives 0.
  int SetNullValue();

  // Each takes over the fields of its source and leaves the others; its own kind is copied whole.

  ZnRef & operator=(ZnObjId const & object);
  ZnRef & operator=(ZnClassId const & classId);
  /// Sets `databaseId` to 0.
  ZnRef & operator=(ZnLocalRef const & local);
  ZnRef & operator=(unsigned short database);

  int operator==(ZnRef const & other) const {
    return low == other.low && high == other.high && databaseId == other.databaseId;
  }
  /// The difference of `high`, or -1 or 1 from `low`, or from `databaseId`.
  int operator!=(ZnRef const & other) const {
    int const byObject = zntms::CompareObjectNumbers(*this, other);
    return byObject ? byObject : zntms::ThreeWay(databaseId, other.databaseId);
  }

  /// 1 for an object number and a `classNumber` other than 0 and a `databaseId` below 65535.
  unsigned short IsValid() const;
  unsigned short IsInvalid() const { return !IsValid(); }
  /// 1 for an object number other than 0 with `databaseId` 65535 or a `classNumber` other than 0.
  unsigned short IsValidOriginId() const;
  unsigned short IsInvalidOriginId() const { return !IsValidOriginId(); }

  ZnString & PrintToZnString(ZnString & out, char const * format = nullptr) const;
  void ScanFromZnString(ZnString const & in, char const * format = nullptr);

  static void * Create(unsigned int count);
  static void * Delete(void * value, unsigned int count);
  static unsigned int Store(void * dst, void const * src, unsigned char format, unsigned int count);
  static unsigned int Load(void * dst, void const * src, unsigned char format, unsigned int count);
  static unsigned int NullSizeGet(unsigned int count);
  static unsigned int SizeGet(void const * value, unsigned char valueFormat, unsigned char format,
                              unsigned int count);
  static unsigned int SizeGetFromMemFile(MemFile * file, unsigned char format, unsigned int count);
  static int Compare(unsigned char format, unsigned int lengthA, void * valueA,
                     unsigned int lengthB, void * valueB, unsigned short int cmpOp,
                     unsigned int count, int & error);
  /// Masks `op` in place with 0x800F.
  static float EvalAndBound(ZnIdxBounds * area, unsigned short & op, void * value,
                            unsigned char format, unsigned int count, ZnIdxBounds * out);
  static unsigned int Hash(unsigned char format, unsigned int length, void * value,
                           unsigned int count, int & error);
  static ZnString & PrintToString(ZnString & out, void * value, char const * format,
                                  unsigned int count);
  static void * ScanFromString(void * value, ZnString & in, char const * format,
                               unsigned int count);
  static unsigned int Translate(void * dst, unsigned char dstFormat, unsigned int dstLength,
                                void * src, unsigned char srcFormat, unsigned int srcLength,
                                unsigned int count);
};

/// A reference inside one database: a `ZnRef` without `databaseId`, and no type of the table.
/// The default format is "(%H-%L#%B,%C)".
class ZANTMS_EXPORT ZnLocalRef {
public:
  unsigned int block = 0;
  unsigned int low = 0;
  unsigned short high = 0;
  unsigned short classNumber = 0;
  unsigned short classVersion = 0;

  unsigned int BlockGet() const { return block; }
  unsigned int LowGet() const { return low; }
  unsigned short HighGet() const { return high; }
  unsigned short ClassNumberGet() const { return classNumber; }
  unsigned short ClassVersionGet() const { return classVersion; }
  void BlockSet(unsigned int number) { block = number; }
  void LowSet(unsigned int word) { low = word; }
  void HighSet(unsigned short word) { high = word; }
  void ClassNumberSet(unsigned short number) { classNumber = number; }
  void ClassVersionSet(unsigned short version) { classVersion = version; }

  // Each takes over the fields of its source and leaves the others; its own kind is copied whole.

  ZnLocalRef & operator=(ZnRef const & ref);
  ZnLocalRef & operator=(ZnObjId const & object);
  ZnLocalRef & operator=(ZnClassId const & classId);

  int operator==(ZnLocalRef const & other) const { return low == other.low && high == other.high; }
  /// Equal only to a reference with `databaseId` 0.
  int operator==(ZnRef const & ref) const {
    return low == ref.low && high == ref.high && ref.databaseId == 0;
  }
  /// The difference of `high`, or -1, 0 or 1 from `low`.
  int operator!=(ZnLocalRef const & other) const {
    return zntms::CompareObjectNumbers(*this, other);
  }
  /// The same, and then -1 if the `databaseId` of the reference is not 0.
  int operator!=(ZnRef const & ref) const {
    int const byObject = zntms::CompareObjectNumbers(*this, ref);
    return byObject ? byObject : -(ref.databaseId != 0);
  }

  ZnString & PrintToZnString(ZnString & out, char const * format = nullptr) const;
  void ScanFromZnString(ZnString const & in, char const * format = nullptr);
};
