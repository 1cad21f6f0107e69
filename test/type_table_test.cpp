#include "zantms.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

// What callers of the engine hold on to: names, formats, sizes and ids of the rows.

namespace {

struct RowFacts {
  char id;
  char const * idName;
  char const * name;
  char const * format;
  unsigned short memLen;
  unsigned short fixed;
  bool null;
};

constexpr RowFacts kRows[] = {
    {Zn1B_T, "Zn1B_T", "o_char", "%c", 1, 1, false},
    {Zn2B_T, "Zn2B_T", "o_2b", "%hd", 2, 1, false},
    {Zn4B_T, "Zn4B_T", "o_4b", "%ld", 4, 1, false},
    {ZnDOUBLE_T, "ZnDOUBLE_T", "o_double", "%.17g", 8, 1, false},
    {ZnFLOAT_T, "ZnFLOAT_T", "o_float", "%.17g", 4, 1, false},
    {ZnU2B_T, "ZnU2B_T", "o_u2b", "%hu", 2, 1, false},
    {ZnU4B_T, "ZnU4B_T", "o_u4b", "%lu", 4, 1, false},
    {ZnINT_T, "ZnINT_T", "int", "%d", 4, 1, false},
    {ZnUNSIGNED_T, "ZnUNSIGNED_T", "unsigned", "%u", 4, 1, false},
    {ZnENUM_T, "ZnENUM_T", "enum", "%d", 4, 1, false},
    {ZnU1B_T, "ZnU1B_T", "o_u1b", "%c", 1, 1, false},
    {ZnSTRING_T, "ZnSTRING_T", "ZnString", "%s", 16, 0, true},
    {ZnDATE_T, "ZnDATE_T", "ZnDate", "%a %e.%b %Y", 4, 1, true},
    {ZnTIME_T, "ZnTIME_T", "ZnTime", "%I:%M:%S %p", 3, 1, true},
    {ZnBLOCKID_T, "ZnBLOCKID_T", "BlockId", "#%lu", 4, 1, false},
    {ZnOBJID_T, "ZnOBJID_T", "ZnObjId", "(%H-%L#%B)", 12, 1, true},
    {ZnCLID_T, "ZnCLID_T", "ZnClassId", "(%Cv%V)", 4, 1, true},
    {ZnREF_T, "ZnREF_T", "ZnRef", "(%D:%H-%L#%B, %C)", 16, 1, true},
    {ZnBLOB_T, "ZnBLOB_T", "ZnBlob", "[BLOB,len=%L]", 8, 0, true},
    {ZnDATIME_T, "ZnDATIME_T", "ZnDateTime", "%a %e.%b %Y %I:%M:%S %p", 8, 1, true},
    {ZnISTRING_T, "ZnISTRING_T", "ZnIString", "%s", 16, 0, false},
    {ZnCASEISTRING_T, "ZnCASEISTRING_T", "ZnCaseIString", "%s", 16, 0, false},
    {D_DATE_T, "D_DATE_T", "d_Date", "%a %b %e", 4, 1, false},
    {D_TIME_T, "D_TIME_T", "d_Time", "%I:%M:%S %p", 6, 1, false},
    {D_TIMESTAMP_T, "D_TIMESTAMP_T", "d_Timestamp", "%a %b %e %I:%M:%S %p", 10, 1, false},
    {D_INTERVAL_T, "D_INTERVAL_T", "d_Interval", "%e days, %I hours, %M minutes, %S seconds", 4, 1,
     false},
    {ZnINT64_T, "ZnINT64_T", "ZnInt64", "%S", 8, 1, false},
    {ZnBOOLEAN_T, "ZnBOOLEAN_T", "ZnBoolean", "noop", 1, 1, true},
    {ZnNULL_1B_T, "ZnNULL_1B_T", "ZnNull_char", "%c", 2, 1, true},
    {ZnNULL_U1B_T, "ZnNULL_U1B_T", "ZnNull_uchar", "%c", 2, 1, true},
    {ZnNULL_2B_T, "ZnNULL_2B_T", "ZnNull_short", "%hd", 4, 1, true},
    {ZnNULL_U2B_T, "ZnNULL_U2B_T", "ZnNull_ushort", "%hu", 4, 1, true},
    {ZnNULL_INT_T, "ZnNULL_INT_T", "ZnNull_int", "%d", 8, 1, true},
    {ZnNULL_UNSIGNED_T, "ZnNULL_UNSIGNED_T", "ZnNull_unsigned", "%u", 8, 1, true},
    {ZnNULL_4B_T, "ZnNULL_4B_T", "ZnNull_long", "%ld", 8, 1, true},
    {ZnNULL_U4B_T, "ZnNULL_U4B_T", "ZnNull_ulong", "%lu", 8, 1, true},
    {ZnNULL_FLOAT_T, "ZnNULL_FLOAT_T", "ZnNull_float", "%.17g", 8, 1, true},
    {ZnNULL_DOUBLE_T, "ZnNULL_DOUBLE_T", "ZnNull_double", "%.17g", 16, 1, true},
    {ZnNULL_ZNINT64_T, "ZnNULL_ZNINT64_T", "ZnNull_ZnInt64", "%S", 12, 1, true},
    {ZnSEAL_T, "ZnSEAL_T", "ZnSeal", "noop", 6, 1, false},
    {ZnDATIME_N_T, "ZnDATIME_N_T", "ZnDateTimeN", "%X", 12, 1, true},
    {ZnTIMESPAN_T, "ZnTIMESPAN_T", "ZnTimeSpan", "%V", 12, 1, true},
    {Zn8B_T, "Zn8B_T", "o_8b", "%I64d", 8, 1, false},
    {ZnU8B_T, "ZnU8B_T", "o_u8b", "%I64u", 8, 1, false},
    {ZnNULL_8B_T, "ZnNULL_8B_T", "ZnNull_8b", "%I64d", 16, 1, true},
    {ZnNULL_U8B_T, "ZnNULL_U8B_T", "ZnNull_u8b", "%I64u", 16, 1, true},
    {ZnRES_T, "ZnRES_T", "illegal", "illegal", 0, 1, false},
};

TEST(TypeTable, HoldsTheAgreedRows) {
  ZnTypeMgr mgr;
  int id = 0;
  for (RowFacts const & facts : kRows) {
    SCOPED_TRACE(facts.name);
    EXPECT_EQ(facts.id, id++);
    char found = 99;
    EXPECT_EQ(mgr.Name2ZnTypeId(facts.name, found), 0);
    EXPECT_EQ(found, facts.id);
    EXPECT_STREQ(mgr.NameGet(facts.id), facts.name);
    EXPECT_STREQ(mgr.TypeIdNameGet(facts.id), facts.idName);
    EXPECT_STREQ(mgr.ExchangeFormat(facts.id, nullptr), facts.format);
    EXPECT_EQ(mgr.MemLenGet(facts.id, 1), facts.memLen);
    EXPECT_EQ(mgr.IsFixed(facts.id), facts.fixed);
    EXPECT_EQ(mgr.SupportsNullValue(facts.id), facts.null);
  }
  EXPECT_EQ(id, 47);
}

TEST(TypeTable, HasEverySlotThatCallersRelyOn) {
  for (unsigned int version : {5u, 3u}) {
    ZnTypeMgr const mgr(version);
    for (int id = -128; id < 128; ++id) {
      ZnTypeRow const & row = *mgr.rows[static_cast<unsigned char>(id)];
      EXPECT_TRUE(row.Create && row.Delete && row.Store && row.Load && row.NullSizeGet &&
                  row.SizeGet && row.SizeGetFromMemFile && row.Compare && row.EvalAndBound &&
                  row.Hash && row.ConvertTo && row.ConvertFrom && row.Constructor &&
                  row.Destructor && row.Assignment && row.Copy && row.Translate && row.IsNull &&
                  row.PrintToString && row.ScanFromString && row.DefaultValue && row.GetValue)
          << id;
      EXPECT_EQ(row.reserved, nullptr);
    }
  }
}

// Ids that share functions, slot for slot.
TEST(TypeTable, SharesFunctionsAmongRowsOfOneWidth) {
  ZnTypeMgr const mgr;
  auto const row = [&mgr](char id) -> ZnTypeRow const & { return *mgr.rows[int(id)]; };
  struct Pair {
    char a, b;
    bool ownStorage;
  };
  for (auto [a, b, ownStorage] : {Pair{Zn2B_T, ZnU2B_T, false}, Pair{Zn4B_T, ZnU4B_T, false},
                                  Pair{ZnINT_T, ZnUNSIGNED_T, true}, Pair{Zn1B_T, ZnU1B_T, false},
                                  Pair{Zn8B_T, ZnU8B_T, false}}) {
    ZnTypeRow const & x = row(a);
    ZnTypeRow const & y = row(b);
    SCOPED_TRACE(x.name);
    EXPECT_TRUE(x.SizeGetFromMemFile == y.SizeGetFromMemFile && x.Constructor == y.Constructor &&
                x.Destructor == y.Destructor && x.Assignment == y.Assignment && x.Copy == y.Copy &&
                x.PrintToString == y.PrintToString && x.ScanFromString == y.ScanFromString &&
                x.DefaultValue == y.DefaultValue);
    EXPECT_EQ(x.Translate == y.Translate, !ownStorage);
    EXPECT_EQ(x.Store == y.Store, !ownStorage);
    EXPECT_TRUE(x.Compare != y.Compare && x.EvalAndBound != y.EvalAndBound && x.Hash != y.Hash &&

                x.GetValue != y.GetValue);
  }
  auto const slots = [&row](char id) {
    ZnTypeRow copy = row(id);
    copy.name = copy.idName = copy.format = nullptr;
    return copy;
  };
  auto const same = [](ZnTypeRow const & a, ZnTypeRow const & b) {
    return std::memcmp(&a, &b, sizeof a) == 0;
  };
  EXPECT_TRUE(same(slots(ZnBLOCKID_T), slots(ZnU4B_T)));
  ZnTypeRow enumeration = slots(ZnENUM_T);
  EXPECT_EQ(enumeration.GetValue(nullptr, 0, 8, 'M'), ZnErrNotSupported);
  enumeration.GetValue = row(ZnINT_T).GetValue;
  EXPECT_TRUE(same(enumeration, slots(ZnINT_T)));
  EXPECT_EQ(row(D_INTERVAL_T).Compare, row(ZnFLOAT_T).Compare);
  EXPECT_EQ(row(ZnDOUBLE_T).Load, row(ZnDOUBLE_T).Store);
}

TEST(TypeTable, OldTableDiffersInTheStringRowAlone) {
  ZnTypeMgr const full;
  ZnTypeMgr const old(3);
  for (int id = 0; id < 256; ++id) {
    if (id == ZnSTRING_T)
      EXPECT_NE(old.rows[id], full.rows[id]);
    else
      EXPECT_EQ(old.rows[id], full.rows[id < 28 ? id : int(ZnRES_T)]) << id;
    EXPECT_EQ(full.rows[id] == full.rows[int(ZnRES_T)], id >= 46) << id;
  }
  EXPECT_STREQ(old.NameGet(ZnSTRING_T), "ZnString");
  EXPECT_EQ(old.SupportsNullValue(ZnSTRING_T), 0);
  char id = 0;
  EXPECT_EQ(old.Name2ZnTypeId("ZnNull_int", id), 1);
  EXPECT_EQ(id, 28);
}

TEST(TypeMgr, ChoosesTheTableByTheFactory) {
  struct Case {
    unsigned int version;
    unsigned short factory;
  };
  for (auto [version, factory] :
       {Case{0, 0}, Case{3, 3}, Case{4, 4}, Case{5, 5}, Case{10, 10}, Case{11, 3}, Case{12, 4},
        Case{4000, 4}, Case{0xFFFFFFFF, 4}, Case{65536 + 3, 4}}) {
    ZnTypeMgr mgr(version);
    EXPECT_EQ(mgr.factory, factory) << version;
    EXPECT_EQ(mgr.rows == ZnTypeMgr(3).rows, factory < 4) << version;
    mgr.SetFactory(3);
    EXPECT_EQ(mgr.rows, ZnTypeMgr(3).rows);
  }
  EXPECT_EQ(ZnTypeMgr().factory, 5);
}

TEST(TypeMgr, TellsMetadata) {
  ZnTypeMgr mgr;
  for (int id = -128; id < 128; ++id)
    EXPECT_EQ(ZnTypeMgr::IsValidType(static_cast<char>(id)), (id >= 0 && id < 47) || id >= 100)
        << id;
  for (char id : {char(100), char(101), ZnRES_T, char(127), char(60), char(-1)})
    EXPECT_STREQ(mgr.NameGet(id), "illegal");
  char buffer[20];
  EXPECT_EQ(mgr.NameGet(ZnSTRING_T, buffer), buffer);
  EXPECT_STREQ(buffer, "ZnString");
  EXPECT_EQ(mgr.TypeIdNameGet(ZnNULL_UNSIGNED_T, buffer), buffer);
  EXPECT_STREQ(buffer, "ZnNULL_UNSIGNED_T");
  char id = 1;
  EXPECT_EQ(mgr.Name2ZnTypeId("zndate", id), 1);
  EXPECT_EQ(id, 47);
  EXPECT_EQ(mgr.MemLenGet(ZnREF_T, 5000), 14464);
  EXPECT_EQ(mgr.MemLenGet(ZnINT_T, 65537), 4);
  char base[64];
  EXPECT_EQ(mgr.GetArrayElement(ZnINT_T, base, 5, 5), nullptr);
  EXPECT_EQ(mgr.GetArrayElement(ZnINT_T, base, 4, 5), base + 16);
  EXPECT_EQ(mgr.GetArrayElement(ZnINT_T, base, 5, 0), base + 20);
  ZnTypeMgr const old(3);
  for (char const place : {ZnRES_T, char(100), char(127)})
    EXPECT_EQ(mgr.GetArrayElement(place, base, 1, 0), base) << int(place);
  for (char const place : {char(47), char(99), char(-1)})
    EXPECT_EQ(mgr.GetArrayElement(place, base, 1, 0), nullptr) << int(place);
  for (char const place : {ZnNULL_1B_T, ZnRES_T, char(100)})
    EXPECT_EQ(old.GetArrayElement(place, base, 1, 0), nullptr) << int(place);
  EXPECT_EQ(old.GetArrayElement(ZnBOOLEAN_T, base, 1, 0), base + 1);
  EXPECT_EQ(mgr.DiskIsNullValue(ZnNULL_INT_T, base), ZnErrNotSupported);
  EXPECT_EQ(mgr.ComparePtrGet(ZnINT_T), nullptr);
}

TEST(TypeMgr, TellsCapabilities) {
  ZnTypeMgr const mgr;
  std::string const integers = {0, 1, 2, 5, 6, 7, 8, 9, 10, 15, 26, 42, 43};
  std::string const clocks = {12, 13, 19, 22, 23, 24, 40};
  for (int i = -128; i < 128; ++i) {
    char const id = static_cast<char>(i);
    EXPECT_EQ(mgr.SupportsCapability(id, 2), integers.find(id) != std::string::npos) << i;
    EXPECT_EQ(mgr.SupportsCapability(id, 3), clocks.find(id) != std::string::npos) << i;
    EXPECT_EQ(mgr.SupportsCapability(id, 0) + mgr.SupportsCapability(id, 4), 0);
  }
}

TEST(TypeMgr, ExchangesSlotsForEveryManager) {
  ZnTypeMgr mgr;
  ZnTypeMgr old(2);
  EXPECT_STREQ(mgr.ExchangeFormat(Zn4B_T, "<%ld>"), "%ld");
  EXPECT_STREQ(old.ExchangeFormat(Zn4B_T, nullptr), "<%ld>");
  EXPECT_STREQ(old.ExchangeFormat(Zn4B_T, "%ld"), "<%ld>");
  EXPECT_EQ(mgr.ExchangeZnTypeCmpFunc(ZnINT_T, &CharCompare), &IntCompare);
  EXPECT_EQ(mgr.CmpFuncPtrGet(ZnINT_T), &CharCompare);
  EXPECT_EQ(mgr.ExchangeZnTypeCmpFunc(ZnINT_T, &IntCompare), &CharCompare);
}

TEST(IllegalRow, DoesNothing) {
  ZnTypeMgr mgr;
  char buffer[8] = "same";
  int error = 7;
  unsigned short op = 1;
  for (char id : {ZnRES_T, char(100), char(99), char(-1)}) {
    EXPECT_EQ(mgr.Create(id, 3), nullptr);
    EXPECT_EQ(mgr.Delete(id, buffer, 1), nullptr);
    EXPECT_EQ(mgr.DefaultValue(id, 1, 1), nullptr);
    EXPECT_EQ(mgr.Store(id, buffer, buffer, 1, 1) + mgr.Load(id, buffer, buffer, 1, 1), 0u);
    EXPECT_EQ(mgr.DiskLenGet(id, buffer, 1, 1, 8) + mgr.DiskLenGetFromMemFile(id, nullptr, 1, 1),
              0u);
    EXPECT_EQ(mgr.Translate(id, buffer, 1, 8, buffer, 1, 8, 1), 0u);
    EXPECT_EQ(mgr.Cmp(id, 0, buffer, 0, buffer, 0, 1, 8, error), 0);
    EXPECT_EQ(mgr.Hash(id, 0, buffer, 1, 8, error), 0u);
    EXPECT_EQ(mgr.EvalAndBound(id, nullptr, op, buffer, 1, 1, nullptr, nullptr), 0.0F);
    EXPECT_EQ(mgr.IsNullValue(id, buffer), 0);
    EXPECT_EQ(mgr.SetNullPtrGet(id), nullptr);
    for (unsigned char what : {'M', 'N', 'O'})
      EXPECT_EQ(mgr.GetValue(id, buffer, 0, 1, what), ZnErrNotSupported);
    EXPECT_STREQ(buffer, "same");
  }
}

} // namespace
