#pragma once

#include "query/number_query.h"
#include "znboolean.h"
#include "zncompare.h"
#include "znseal.h"
#include "zntypes/class_box.h"
#include "zntypes/empty_rows.h"
#include "zntypes/fixed_storage.h"
#include "zntypes/number_rows.h"

/// Groups of the rows of seals and truth values. Both have one stored form in every format: a seal
/// its three words with the high byte first, a truth value its byte.

namespace zntms {

struct SealCodec {
  using Value = ZnSeal;
  static constexpr unsigned int kSize = 6;

  template <bool>
  static void Write(char * at, Value const & value) {
    WriteNumber<true>(at, value.sealHigh);
    WriteNumber<true>(at + 2, value.sealMiddle);
    WriteNumber<true>(at + 4, value.sealLow);
  }
  template <bool>
  static void Read(Value & value, char const * at) {
    value.sealHigh = ReadNumber<unsigned short, true>(at);
    value.sealMiddle = ReadNumber<unsigned short, true>(at + 2);
    value.sealLow = ReadNumber<unsigned short, true>(at + 4);
  }
};

struct BooleanCodec {
  using Value = ZnBoolean;
  static constexpr unsigned int kSize = 1;

  template <bool>
  static void Write(char * at, Value const & value) {
    WriteNumber<false>(at, value.state);
  }
  template <bool>
  static void Read(Value & value, char const * at) {
    value.state = ReadNumber<unsigned char, false>(at);
  }
};

struct SealText {
  using Value = ZnSeal;
  static void Write(ZnString & out, Value const & value) { value.PrintToZnString(out); }
  static void Read(Value & value, ZnString const & in) { value.ScanFromZnString(in); }
};

/// Boxes hold digits, not the words that truth values print as.
struct BooleanText {
  using Value = ZnBoolean;
  static void Write(ZnString & out, Value const & value);
  static void Read(Value & value, ZnString const & in);
};

ZnString & SealPrint(ZnString & out, void * value, char const * format, unsigned int count);
void * SealScan(void * value, ZnString & in, char const * format, unsigned int count);
int ZnSealCompare(unsigned char format, unsigned int lengthA, void * valueA, unsigned int lengthB,
                  void * valueB, unsigned short int cmpOp, unsigned int count, int & error);
unsigned int HashSeals(unsigned char format, unsigned int length, void * value, unsigned int count,
                       int & error);
float BoundSeals(ZnIdxBounds * area, unsigned short & op, void * value, unsigned char format,
                 unsigned int count, ZnIdxBounds * out);
int StepBoolean(void * value, unsigned int length, unsigned char format, unsigned char what);

inline constexpr RowText kSealText = {"noop", &SealPrint, &SealScan};
inline constexpr RowLife kSealLife = kClassLife<ZnSeal>;
inline constexpr RowStorage kSealStorage = kFixedStorage<SealCodec>;
inline constexpr RowQuery kSealQuery = {&ZnSealCompare, &BoundSeals, &HashSeals};
inline constexpr RowBox kSealBox = kClassBox<SealText>;
inline constexpr ZnTypeRow::StepFunc kSealStep = &NoStep;

inline constexpr RowText kBooleanText = {"noop", &BooleanPrint, &BooleanScan};
inline constexpr RowLife kBooleanLife = kClassLife<ZnBoolean>;
inline constexpr RowStorage kBooleanStorage = kFixedStorage<BooleanCodec>;
inline constexpr RowQuery kBooleanQuery = {&BooleanCompare, &BoundBooleans, &HashBooleans};
inline constexpr RowBox kBooleanBox = kClassBox<BooleanText>;
inline constexpr RowNull kBooleanNull = kClassNull<ZnBoolean>;
inline constexpr ZnTypeRow::StepFunc kBooleanStep = &StepBoolean;

} // namespace zntms
