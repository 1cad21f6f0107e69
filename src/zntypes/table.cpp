#include "zntypes/table.h"

#include "zncodes.h"

#include "query/number_query.h"
#include "zntypes/blob_rows.h"
#include "zntypes/date_rows.h"
#include "zntypes/empty_rows.h"
#include "zntypes/ident_rows.h"
#include "zntypes/int64_rows.h"
#include "zntypes/nullable_rows.h"
#include "zntypes/number_box.h"
#include "zntypes/number_rows.h"
#include "zntypes/seal_rows.h"
#include "zntypes/string_rows.h"

/// The type table: a line a row, in the order of the ids. Columns are the groups of
/// `row_parts.h`: names, text, size, life, stored forms, queries, boxes, null, step.
///
/// A new kind of value defines its groups in the header of its family; its line stands here.

namespace zntms {

namespace {

using Schar = signed char;
using Uchar = unsigned char;
using Ushort = unsigned short;
using Uint = unsigned int;
using Llong = long long;
using Ullong = unsigned long long;

// clang-format off
constinit ZnTypeRow fullRows[kFullRowCount] = {
  //       name             id name             text                 size     life                  stored forms          queries                               boxes              null            step
  MakeRow("o_char",         "Zn1B_T",           CharText("%c"),      {1, 1},  kNumberLife<1>,       kCharStorage,         kNumberQuery<Schar, &CharCompare>,    kCharBox,          kNoNull,        &StepInteger<Schar>),
  MakeRow("o_2b",           "Zn2B_T",           ShortText("%hd"),    {2, 1},  kNumberLife<2>,       kShortStorage,        kNumberQuery<short, &ShortCompare>,   kShortBox,         kNoNull,        &StepInteger<short>),
  MakeRow("o_4b",           "Zn4B_T",           LongText("%ld"),     {4, 1},  kNumberLife<4>,       kLongStorage,         kNumberQuery<int, &LongCompare>,      kIntBox,           kNoNull,        &StepInteger<int>),
  MakeRow("o_double",       "ZnDOUBLE_T",       kDoubleText,         {8, 1},  kNumberLife<8>,       kDoubleStorage,       kNumberQuery<double, &DoubleCompare>, kDoubleBox,        kNoNull,        &StepFloat<double>),
  MakeRow("o_float",        "ZnFLOAT_T",        kFloatText,          {4, 1},  kNumberLife<4>,       kFloatStorage,        kNumberQuery<float, &FloatCompare>,   kFloatBox,         kNoNull,        &StepFloat<float>),
  MakeRow("o_u2b",          "ZnU2B_T",          ShortText("%hu"),    {2, 1},  kNumberLife<2>,       kShortStorage,        kNumberQuery<Ushort, &WordCompare>,   kWordBox,          kNoNull,        &StepInteger<Ushort>),
  MakeRow("o_u4b",          "ZnU4B_T",          LongText("%lu"),     {4, 1},  kNumberLife<4>,       kLongStorage,         kNumberQuery<Uint, &DwordCompare>,    kUnsignedBox,      kNoNull,        &StepInteger<Uint>),
  MakeRow("int",            "ZnINT_T",          LongText("%d"),      {4, 1},  kNumberLife<4>,       kIntStorage,          kNumberQuery<int, &IntCompare>,       kIntBox,           kNoNull,        &StepInteger<int>),
  MakeRow("unsigned",       "ZnUNSIGNED_T",     LongText("%u"),      {4, 1},  kNumberLife<4>,       kUnsignedStorage,     kNumberQuery<Uint, &UnsignedCompare>, kUnsignedBox,      kNoNull,        &StepInteger<Uint>),
  MakeRow("enum",           "ZnENUM_T",         LongText("%d"),      {4, 1},  kNumberLife<4>,       kIntStorage,          kNumberQuery<int, &IntCompare>,       kIntBox,           kNoNull,        &NoStep),
  MakeRow("o_u1b",          "ZnU1B_T",          CharText("%c"),      {1, 1},  kNumberLife<1>,       kCharStorage,         kNumberQuery<Uchar, &ByteCompare>,    kByteBox,          kNoNull,        &StepInteger<Uchar>),
  MakeRow("ZnString",       "ZnSTRING_T",       kStringText,         {16, 0}, kStringLife,          kStringStorage,       kStringQuery,                         kStringBox,        kStringNull,    kStringStep),
  MakeRow("ZnDate",         "ZnDATE_T",         kDateText,           {4, 1},  kDateLife,            kDateStorage,         kDateQuery,                           kDateBox,          kDateNull,      kDateStep),
  MakeRow("ZnTime",         "ZnTIME_T",         kTimeText,           {3, 1},  kTimeLife,            kTimeStorage,         kTimeQuery,                           kTimeBox,          kTimeNull,      kTimeStep),
  MakeRow("BlockId",        "ZnBLOCKID_T",      LongText("#%lu"),    {4, 1},  kNumberLife<4>,       kLongStorage,         kNumberQuery<Uint, &DwordCompare>,    kUnsignedBox,      kNoNull,        &StepInteger<Uint>),
  MakeRow("ZnObjId",        "ZnOBJID_T",        kObjIdText,          {12, 1}, kObjIdLife,           kObjIdStorage,        kObjIdQuery,                          kObjIdBox,         kObjIdNull,     kObjIdStep),
  MakeRow("ZnClassId",      "ZnCLID_T",         kClassIdText,        {4, 1},  kClassIdLife,         kClassIdStorage,      kClassIdQuery,                        kClassIdBox,       kClassIdNull,   kClassIdStep),
  MakeRow("ZnRef",          "ZnREF_T",          kRefText,            {16, 1}, kRefLife,             kRefStorage,          kRefQuery,                            kRefBox,           kRefNull,       kRefStep),
  MakeRow("ZnBlob",         "ZnBLOB_T",         kBlobText,           {8, 0},  kBlobLife,            kBlobStorage,         kBlobQuery,                           kBlobBox,          kBlobNull,      kBlobStep),
  MakeRow("ZnDateTime",     "ZnDATIME_T",       kDateTimeText,       {8, 1},  kDateTimeLife,        kDateTimeStorage,     kDateTimeQuery,                       kDateTimeBox,      kDateTimeNull,  kDateTimeStep),
  MakeRow("ZnIString",      "ZnISTRING_T",      kIStringText,        {16, 0}, kIStringLife,         kIStringStorage,      kIStringQuery,                        kIStringBox,       kNoNull,        kIStringStep),
  MakeRow("ZnCaseIString",  "ZnCASEISTRING_T",  kCaseIStringText,    {16, 0}, kCaseIStringLife,     kCaseIStringStorage,  kCaseIStringQuery,                    kCaseIStringBox,   kNoNull,        kCaseIStringStep),
  MakeRow("d_Date",         "D_DATE_T",         kStdDateText,        {4, 1},  kStdDateLife,         kStdDateStorage,      kStdDateQuery,                        kStdDateBox,       kNoNull,        kStdDateStep),
  MakeRow("d_Time",         "D_TIME_T",         kStdTimeText,        {6, 1},  kStdTimeLife,         kStdTimeStorage,      kStdTimeQuery,                        kStdTimeBox,       kNoNull,        kStdTimeStep),
  MakeRow("d_Timestamp",    "D_TIMESTAMP_T",    kStdTimestampText,   {10, 1}, kStdTimestampLife,    kStdTimestampStorage, kStdTimestampQuery,                   kStdTimestampBox,  kNoNull,        kStdTimestampStep),
  MakeRow("d_Interval",     "D_INTERVAL_T",     kStdIntervalText,    {4, 1},  kStdIntervalLife,     kStdIntervalStorage,  kNumberQuery<float, &FloatCompare>,   kStdIntervalBox,   kNoNull,        kStdIntervalStep),
  MakeRow("ZnInt64",        "ZnINT64_T",        kInt64Text,          {8, 1},  kInt64Life,           kInt64Storage,        kInt64Query,                          kInt64Box,         kNoNull,        kInt64Step),
  MakeRow("ZnBoolean",      "ZnBOOLEAN_T",      kBooleanText,        {1, 1},  kBooleanLife,         kBooleanStorage,      kBooleanQuery,                        kBooleanBox,       kBooleanNull,   kBooleanStep),
  MakeRow("ZnNull_char",    "ZnNULL_1B_T",      kNullCharText,       {2, 1},  kNullLife<Schar>,     kNullStorage<Schar>,  kNullQuery<Schar>,                    kNullCharBox,      kNull<Schar>,   &StepNull<Schar>),
  MakeRow("ZnNull_uchar",   "ZnNULL_U1B_T",     kNullUcharText,      {2, 1},  kNullLife<Uchar>,     kNullStorage<Uchar>,  kNullQuery<Uchar>,                    kNullUcharBox,     kNull<Uchar>,   &StepNull<Uchar>),
  MakeRow("ZnNull_short",   "ZnNULL_2B_T",      kNullShortText,      {4, 1},  kNullLife<short>,     kNullStorage<short>,  kNullQuery<short>,                    kNullShortBox,     kNull<short>,   &StepNull<short>),
  MakeRow("ZnNull_ushort",  "ZnNULL_U2B_T",     kNullUshortText,     {4, 1},  kNullLife<Ushort>,    kNullStorage<Ushort>, kNullQuery<Ushort>,                   kNullUshortBox,    kNull<Ushort>,  &StepNull<Ushort>),
  MakeRow("ZnNull_int",     "ZnNULL_INT_T",     kNullIntText,        {8, 1},  kNullLife<int>,       kNullStorage<int>,    kNullQuery<int>,                      kNullIntBox,       kNull<int>,     &StepNull<int>),
  MakeRow("ZnNull_unsigned","ZnNULL_UNSIGNED_T",kNullUnsignedText,   {8, 1},  kNullLife<Uint>,      kNullStorage<Uint>,   kNullQuery<Uint>,                     kNullUnsignedBox,  kNull<Uint>,    &StepNull<Uint>),
  MakeRow("ZnNull_long",    "ZnNULL_4B_T",      kNullLongText,       {8, 1},  kNullLife<int>,       kNullStorage<int>,    kNullQuery<int>,                      kNullIntBox,       kNull<int>,     &StepNull<int>),
  MakeRow("ZnNull_ulong",   "ZnNULL_U4B_T",     kNullUlongText,      {8, 1},  kNullLife<Uint>,      kNullStorage<Uint>,   kNullQuery<Uint>,                     kNullUnsignedBox,  kNull<Uint>,    &StepNull<Uint>),
  MakeRow("ZnNull_float",   "ZnNULL_FLOAT_T",   kNullFloatText,      {8, 1},  kNullLife<float>,     kNullStorage<float>,  kNullQuery<float>,                    kNullFloatBox,     kNull<float>,   &StepNull<float>),
  MakeRow("ZnNull_double",  "ZnNULL_DOUBLE_T",  kNullDoubleText,     {16, 1}, kNullLife<double>,    kNullStorage<double>, kNullQuery<double>,                   kNullDoubleBox,    kNull<double>,  &StepNull<double>),
  MakeRow("ZnNull_ZnInt64", "ZnNULL_ZNINT64_T", kNullInt64Text,      {12, 1}, kNullInt64Life,       kNullInt64Storage,    kNullInt64Query,                      kNullInt64Box,     kNullInt64Null, kNullInt64Step),
  MakeRow("ZnSeal",         "ZnSEAL_T",         kSealText,           {6, 1},  kSealLife,            kSealStorage,         kSealQuery,                           kSealBox,          kNoNull,        kSealStep),
  MakeRow("ZnDateTimeN",    "ZnDATIME_N_T",     kDateTimeNText,      {12, 1}, kDateTimeNLife,       kDateTimeNStorage,    kDateTimeNQuery,                      kDateTimeNBox,     kDateTimeNNull, kDateTimeNStep),
  MakeRow("ZnTimeSpan",     "ZnTIMESPAN_T",     kTimeSpanText,       {12, 1}, kTimeSpanLife,        kTimeSpanStorage,     kTimeSpanQuery,                       kTimeSpanBox,      kTimeSpanNull,  kTimeSpanStep),
  MakeRow("o_8b",           "Zn8B_T",           O_8BText("%I64d"),   {8, 1},  kNumberLife<8>,       k8BStorage,           kNumberQuery<Llong, &O_8BCompare>,    k8BBox,            kNoNull,        &StepInteger<Llong>),
  MakeRow("o_u8b",          "ZnU8B_T",          O_8BText("%I64u"),   {8, 1},  kNumberLife<8>,       k8BStorage,           kNumberQuery<Ullong, &O_U8BCompare>,  kU8BBox,           kNoNull,        &StepInteger<Ullong>),
  MakeRow("ZnNull_8b",      "ZnNULL_8B_T",      kNull8BText,         {16, 1}, kNullLife<Llong>,     kNullStorage<Llong>,  kNullQuery<Llong>,                    kNull8BBox,        kNull<Llong>,   &StepNull<Llong>),
  MakeRow("ZnNull_u8b",     "ZnNULL_U8B_T",     kNullU8BText,        {16, 1}, kNullLife<Ullong>,    kNullStorage<Ullong>, kNullQuery<Ullong>,                   kNullU8BBox,       kNull<Ullong>,  &StepNull<Ullong>),
  MakeRow("illegal",        "ZnRES_T",          EmptyText("illegal"),{0, 1},  kEmptyLife,           kEmptyStorage,        kEmptyQuery,                          kEmptyBox,         kNoNull,        &NoStep),
};

// The one row of old data that is not shared: strings without null, code set and language.
constinit ZnTypeRow oldStringRow =
  MakeRow("ZnString",       "ZnSTRING_T",       kOldStringText,      {16, 0}, kOldStringLife,       kOldStringStorage,    kOldStringQuery,                      kOldStringBox,     kNoNull,        kOldStringStep);
// clang-format on

/// The places 0 to 255 in full, so that a dispatch has nothing to test: `count` rows, then the row
/// that does nothing.
consteval RowTable TableOf(int count) {
  RowTable table{};
  for (int id = 0; id < int(table.size()); ++id)
    table[id] = &fullRows[id < count ? id : int(ZnRES_T)];
  return table;
}

consteval RowTable OldTable() {
  RowTable table = TableOf(kOldRowCount);
  table[ZnSTRING_T] = &oldStringRow;
  return table;
}

} // namespace

constinit RowTable const kFullTable = TableOf(kFullRowCount);
constinit RowTable const kOldTable = OldTable();

} // namespace zntms
