#include "zantms.h"

#include "stored_support.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

// Class ids, object ids and references: order, validity, steps, text, and their rows.

namespace {

ZnObjId Object(unsigned short high, unsigned int low, unsigned int block = 0) {
  return {block, low, high};
}

ZnRef Ref(unsigned short database, unsigned short high, unsigned int low, unsigned int block = 0,
          unsigned short classNumber = 0, unsigned short classVersion = 0) {
  return {block, low, high, database, classNumber, classVersion};
}

// ---- Order and validity -------------------------------------------------------------------------

TEST(Ident, ClassIdsOrderNullFirst) {
  ZnClassId const ascending[] = {{65535, 65535}, {0, 0},     {0, 9},
                                 {1, 0},         {65535, 0}, {65535, 65534}};
  for (int i = 0; i < 6; ++i)
    for (int j = 0; j < 6; ++j) {
      EXPECT_EQ(ascending[i] != ascending[j], (i > j) - (i < j)) << i << " " << j;
      EXPECT_EQ(ascending[i] > ascending[j], i > j);
    }
  EXPECT_TRUE(ascending[0].IsNullValue());
  EXPECT_FALSE(ascending[4].IsNullValue());
}

TEST(Ident, ObjectsOrderByNumberAlone) {
  EXPECT_EQ(Object(0, 9, 5) == Object(0, 9, 7), 1);
  EXPECT_EQ(Object(0, 9, 5) != Object(0, 9, 7), 0);
  EXPECT_EQ(Object(2, 5) != Object(9, 1), -7);
  EXPECT_EQ(Object(2, 5) != Object(2, 0xFFFFFFFF), -1);
  ZnObjId highest = Object(0, 0, 77);
  highest.SetHighestValue();
  EXPECT_EQ(highest.block, 0u);
  EXPECT_GT(highest != Object(0xFFFF, 0xFFFFFFFE), 0);

  EXPECT_EQ(Ref(7, 2, 5) != Ref(1, 9, 1), -7);
  EXPECT_EQ(Ref(7, 2, 5) != Ref(1, 2, 6), -1);
  EXPECT_EQ(Ref(7, 2, 5) != Ref(1, 2, 5), 1);
  EXPECT_EQ(Ref(7, 2, 5, 1, 1) != Ref(7, 2, 5, 2, 2), 0);
  EXPECT_EQ(Ref(7, 2, 5) == Ref(1, 2, 5), 0);
}

TEST(Ident, LocalReferencesMatchDatabaseZero) {
  ZnLocalRef const local = {1, 5, 2, 3, 4};
  EXPECT_EQ(local == Ref(0, 2, 5), 1);
  EXPECT_EQ(local == Ref(8, 2, 5), 0);
  EXPECT_EQ(local != Ref(0, 2, 5), 0);
  EXPECT_EQ(local != Ref(8, 2, 5), -1);
  EXPECT_EQ(local != Ref(8, 1, 5), 1);
  EXPECT_EQ(local == (ZnLocalRef{9, 5, 2, 9, 9}), 1);
  EXPECT_EQ(local != (ZnLocalRef{9, 6, 2, 9, 9}), -1);
}

TEST(Ident, ReferencesTellIfTheyAreValid) {
  struct Case {
    ZnRef ref;
    int valid;
    int validOrigin;
  };
  Case const cases[] = {
      {Ref(3, 0, 9, 0, 12), 1, 1},    {Ref(3, 0, 9, 0, 0), 0, 0},  {Ref(65535, 0, 9, 0, 12), 0, 1},
      {Ref(65535, 0, 9, 0, 0), 0, 1}, {Ref(3, 0, 0, 4, 12), 0, 0}, {Ref(65535, 0, 0, 4, 12), 0, 0},
      {Ref(3, 1, 0, 0, 12), 1, 1},
  };
  for (Case const & c : cases) {
    EXPECT_EQ(c.ref.IsValid(), c.valid);
    EXPECT_EQ(c.ref.IsInvalid(), !c.valid);
    EXPECT_EQ(c.ref.IsValidOriginId(), c.validOrigin);
    EXPECT_EQ(c.ref.IsInvalidOriginId(), !c.validOrigin);
  }
}

TEST(Ident, ObjectNumbersStepAcrossTheWords) {
  struct Case {
    short amount;
    ZnObjId before;
    ZnObjId after;
  };
  Case const cases[] = {
      {1, Object(0, 0xFFFFFFFF), Object(1, 0)},       {-1, Object(1, 0), Object(0, 0xFFFFFFFF)},
      {2, Object(3, 0xFFFFFFFF), Object(4, 1)},       {0, Object(3, 7), Object(3, 7)},
      {-32768, Object(3, 7), Object(2, 0xFFFF8007)},  {1, Object(0xFFFF, 0xFFFFFFFF), Object(0, 0)},
      {-1, Object(0, 0), Object(0xFFFF, 0xFFFFFFFF)}, {32767, Object(3, 7), Object(3, 32774)},
  };
  for (Case const & c : cases) {
    ZnObjId stepped = c.before;
    stepped.block = 42;
    stepped += c.amount;
    EXPECT_EQ(stepped == c.after, 1) << c.amount;
    EXPECT_EQ(stepped.block, 42u);
    if (c.amount == 1 || c.amount == -1) {
      ZnObjId once = c.before;
      c.amount == 1 ? ++once : --once;
      EXPECT_EQ(once == c.after, 1);
    }
  }
}

TEST(Ident, AssignmentsTakeTheFieldsOfTheirSource) {
  ZnRef ref = Ref(3, 1, 2, 4, 12, 7);
  ref = Object(10, 20, 40);
  EXPECT_EQ(ref.high, 10);
  EXPECT_EQ(ref.block, 40u);
  EXPECT_EQ(ref.databaseId, 3);
  ref = ZnClassId{70, 80};
  EXPECT_EQ(ref.classVersion, 80);
  ref = static_cast<unsigned short>(9);
  EXPECT_EQ(ref.databaseId, 9);
  ZnLocalRef local;
  local = ref;
  EXPECT_EQ(local == (ZnLocalRef{40, 20, 10, 0, 0}), 1);
  EXPECT_EQ(local.classNumber, 70);
  ref = local;
  EXPECT_EQ(ref.databaseId, 0);
  EXPECT_EQ(ref.classNumber, 70);
  local = Object(1, 2, 3);
  local = ZnClassId{4, 5};
  EXPECT_EQ(local.block, 3u);
  EXPECT_EQ(local.classVersion, 5);
  EXPECT_EQ(ref.SetNullValue(), 0);
  EXPECT_EQ(ref.IsNullValue(), 1);
  EXPECT_EQ(ref.classNumber, 70);
}

// ---- Text ---------------------------------------------------------------------------------------

template <class Record>
std::string Print(Record const & record, char const * format = nullptr) {
  ZnString out("old");
  return record.PrintToZnString(out, format).StrGet();
}

TEST(Ident, PrintsByFormat) {
  ZnClassId const classId = {12, 7};
  ZnObjId const object = Object(12, 34, 5);
  ZnRef const ref = Ref(3, 0, 9, 4, 12, 7);
  ZnLocalRef const local = {4, 9, 0, 12, 7};
  EXPECT_EQ(Print(classId), "(12v7)");
  EXPECT_EQ(Print(object), "(12-34#5)");
  EXPECT_EQ(Print(ref), "(3:0-9#4, 12)");
  EXPECT_EQ(Print(local), "(0-9#4,12)");
  EXPECT_EQ(Print(ZnClassId{65535, 65535}), "{NULL}");
  EXPECT_EQ(Print(Object(0, 0, 5)), "{NULL}");
  EXPECT_EQ(Print(Ref(3, 0, 0, 4, 12)), "{NULL}");
  EXPECT_EQ(Print(Object(65535, 0xFFFFFFFF, 0xFFFFFFFF)), "(65535-4294967295#4294967295)");

  // Letters that a class has no field for stand for themselves, as does a doubled percent sign.
  EXPECT_EQ(Print(classId, "%C%%%V%D%H%l%"), "12%7DHl");
  EXPECT_EQ(Print(object, "%C%D%V"), "CDV");
  EXPECT_EQ(Print(ref, "%q"), "q");
  EXPECT_EQ(Print(local, "%D"), "0");
  EXPECT_EQ(Print(ref, ""), "");

  // By position: h for fields of 16 bits, l for those of 32, each with the letter behind it.
  EXPECT_EQ(Print(classId, "%hu.%hu.%hu"), "12.7.0");
  EXPECT_EQ(Print(object, "%hu-%lu#%lu%lu"), "12-34#50");
  EXPECT_EQ(Print(object, "%lu %hu %H"), "0 0 12");
  EXPECT_EQ(Print(ref, "%hu:%hu-%lu#%lu, %hu;%hu"), "3:0-9#4, 12;0");
  EXPECT_EQ(Print(ref, "%h"), "3");

  std::string const wide(600, 'w');
  EXPECT_EQ(Print(object, wide.c_str()), wide.substr(0, 511));

  ZnString out;
  ZnRef copy = ref;
  EXPECT_STREQ(ZnRef::PrintToString(out, &copy, nullptr, 1).StrGet(), "(3:0-9#4,12v7)");
}

struct ScanCase {
  char const * text;
  char const * format;
  ZnRef fields;
};

template <class Record>
void ExpectScans(std::initializer_list<ScanCase> cases) {
  for (ScanCase const & c : cases) {
    Record expected;
    Record scanned;
    if constexpr (std::is_same_v<Record, ZnClassId>)
      expected = {c.fields.classNumber, c.fields.classVersion};
    else if constexpr (std::is_same_v<Record, ZnObjId>)
      expected = {c.fields.block, c.fields.low, c.fields.high};
    else
      expected = c.fields;
    std::memset(static_cast<void *>(&scanned), 0x5A, sizeof scanned);
    scanned.ScanFromZnString(ZnString(c.text), c.format);
    EXPECT_EQ(Print(scanned, "%C %V %D %H %L %B"), Print(expected, "%C %V %D %H %L %B"))
        << c.text << " by " << (c.format ? c.format : "null");
  }
}

TEST(Ident, ScansByFormat) {
  ExpectScans<ZnClassId>({
      {"(12v7)", nullptr, Ref(0, 0, 0, 0, 12, 7)},
      {"x12y7", nullptr, Ref(0, 0, 0, 0, 12, 7)},
      {"(12", nullptr, Ref(0, 0, 0, 0, 12, 0)},
      {"(65537v-1)", nullptr, Ref(0, 0, 0, 0, 1, 65535)},
      {"12 7", "%hu %hu", Ref(0, 0, 0, 0, 12, 7)},
      {"a1", "%q%C", Ref(0, 0, 0, 0, 1)},
      {"{NULL}!", nullptr, Ref(0, 0, 0, 0, 65535, 65535)},
      {"", nullptr, Ref(0, 0, 0)},
      {"(v7)", nullptr, Ref(0, 0, 0, 0, 0, 7)},
  });
  ExpectScans<ZnObjId>({
      {"(12-34#5)", nullptr, Ref(0, 12, 34, 5)},
      {"12-34#5", nullptr, Ref(0, 12, 34, 5)},
      {"34#5", nullptr, Ref(0, 0, 34, 5)},
      {"( 12- 34# 5)", nullptr, Ref(0, 12, 34, 5)},
      {"(12-34", nullptr, Ref(0, 12, 34)},
      {"12/34/5", "%hu/%lu/%lu", Ref(0, 12, 34, 5)},
      {"9", "%lu", Ref(0, 0, 0)},
      {"(4294967297-4294967297#1)", nullptr, Ref(0, 1, 1, 1)},
      {"{NULL}", nullptr, Ref(0, 0, 0)},
      {"12 34", "%H%%%L", Ref(0, 12, 34)},
      {"15", "1%L", Ref(0, 0, 5)},
  });
  ExpectScans<ZnRef>({
      {"(3:0-9#4, 12)", nullptr, Ref(3, 0, 9, 4, 12)},
      {"3:0-9#4,12", nullptr, Ref(3, 0, 9, 4, 12)},
      {" ( (3 : 1- 9 #4 ,\t12)", nullptr, Ref(3, 1, 9, 4, 12)},
      {"(3:0-9#4,12v7)", "(%D:%H-%L#%B,%Cv%V)", Ref(3, 0, 9, 4, 12, 7)},
      {"3:1-9#4, 12", "%hu:%hu-%lu#%lu, %hu", Ref(3, 1, 9, 4, 12)},
      {"((((", nullptr, Ref(0, 0, 0)},
      {"3", "((((", Ref(0, 0, 0)},
  });
  ZnRef ref = Ref(1, 2, 3, 4, 5, 6);
  ref.ScanFromZnString(ZnString("{NULL}"));
  EXPECT_EQ(ref.databaseId + ref.classNumber + ref.classVersion, 0);
  ZnLocalRef local;
  local.ScanFromZnString(ZnString("(1-9#4,12)"));
  EXPECT_EQ(Print(local), "(1-9#4,12)");
  constexpr unsigned short kWideText[] = {'(', '7', 'v', '8', ')', 0};
  ZnClassId classId;
  classId.ScanFromZnString(ZnString(kWideText));
  EXPECT_EQ(Print(classId), "(7v8)");
  EXPECT_EQ(ZnObjId::ScanFromString(nullptr, ZnString::EmptyString(), "%H", 1), nullptr);
}

// ---- Rows ---------------------------------------------------------------------------------------

class IdentRows : public testing::Test {
protected:
  ZnTypeMgr mgr;
};

TEST_F(IdentRows, StoreFieldsWithoutGaps) {
  ZnRef refs[] = {Ref(0x0102, 0x0304, 0x05060708, 0x090A0B0C, 0x0D0E, 7), Ref(1, 2, 3, 4, 5, 6)};
  EXPECT_EQ(StoredHex(mgr, ZnREF_T, refs, 1, 2), "0C0B0A0908070605040302010E0D"
                                                 "0400000003000000020001000500");
  EXPECT_EQ(StoredHex(mgr, ZnREF_T, refs, 2, 2), "090A0B0C05060708030401020D0E"
                                                 "0000000400000003000200010005");
  ZnObjId const object = Object(0x0304, 0x05060708, 0x090A0B0C);
  EXPECT_EQ(StoredHex(mgr, ZnOBJID_T, &object, 2, 1), "090A0B0C050607080304");
  ZnClassId const classId = {1, 2};
  EXPECT_EQ(StoredHex(mgr, ZnCLID_T, &classId, 2, 1), "00010002");
  EXPECT_EQ(StoredHex(mgr, ZnCLID_T, &classId, 0x81, 1), "01000200");

  for (unsigned char const format : {1, 2}) {
    unsigned char bytes[28];
    ZnRef back[2];
    back[0].classVersion = back[1].classVersion = 99;
    mgr.Store(ZnREF_T, bytes, refs, format, 2);
    EXPECT_EQ(mgr.Translate(ZnREF_T, back, 8, 0, bytes, format, 0, 2), 28u);
    EXPECT_EQ(Print(back[0], "%D %H %L %B %C %V"), Print(refs[0], "%D %H %L %B %C") + " 0");
    EXPECT_EQ(Print(back[1], "%D %H %L %B %C %V"), "1 2 3 4 5 0");
  }
  ZnRef moved[2];
  EXPECT_EQ(mgr.Translate(ZnREF_T, moved, 8, 0, refs, 8, 0, 2), 32u);
  EXPECT_EQ(moved[0].classVersion, 7);
  EXPECT_EQ(mgr.DiskLenGet(ZnREF_T, nullptr, 1, 3, 8), 42u);
  EXPECT_EQ(mgr.DiskLenGetFromMemFile(ZnOBJID_T, nullptr, 1, 3), 30u);
}

/// The order by bytes from a higher offset to a lower one.
int CompareBytesDown(unsigned char const * a, unsigned char const * b,
                     std::initializer_list<int> offsets) {
  for (int const at : offsets)
    if (a[at] != b[at])
      return a[at] - b[at];
  return 0;
}

TEST_F(IdentRows, CompareStoredKeysFromTheLastByte) {
  std::vector<ZnRef> refs;
  for (unsigned int const low : {0u, 1u, 0x100u, 0x10000u, 0x80000000u, 0xFFFFFFFFu})
    for (unsigned short const high : {0, 1, 0x8000})
      for (unsigned short const database : {0, 2, 0x200})
        refs.push_back(Ref(database, high, low, low + high, high, 3));
  for (unsigned char const format : {1, 2, 0x81, 0x88})
    for (ZnRef & x : refs)
      for (ZnRef & y : refs) {
        unsigned char a[14];
        unsigned char b[14];
        mgr.Store(ZnREF_T, a, &x, format & 15 & ~8, 1);
        mgr.Store(ZnREF_T, b, &y, format & 15 & ~8, 1);
        ASSERT_EQ(mgr.Cmp(ZnREF_T, a, b, 0, 1, format),
                  CompareBytesDown(a, b, {11, 10, 9, 8, 7, 6, 5, 4}));
        ASSERT_EQ(mgr.Cmp(ZnOBJID_T, a, b, 0, 1, format),
                  CompareBytesDown(a, b, {9, 8, 7, 6, 5, 4}));
        ASSERT_EQ(mgr.Cmp(ZnCLID_T, a + 4, b + 4, 0, 1, format),
                  x.low == 0xFFFFFFFF && y.low != 0xFFFFFFFF ? -1
                  : y.low == 0xFFFFFFFF && x.low != 0xFFFFFFFF
                      ? 1
                      : CompareBytesDown(a + 4, b + 4, {1, 0, 3, 2}));
      }
}

TEST_F(IdentRows, CompareWithoutTheBlock) {
  ZnObjId a = Object(3, 9, 0x05060708);
  ZnObjId b = Object(3, 9, 0x0A0B0C0D);
  EXPECT_EQ(mgr.Cmp(ZnOBJID_T, &a, &b, 0, 1, 8), 0);
  for (unsigned char const format : {1, 2}) {
    unsigned char stored[2][10];
    mgr.Store(ZnOBJID_T, stored[0], &a, format, 1);
    mgr.Store(ZnOBJID_T, stored[1], &b, format, 1);
    EXPECT_EQ(mgr.Cmp(ZnOBJID_T, stored[0], stored[1], 0, 1, format), 0);
  }
}

TEST_F(IdentRows, CompareMemoryByTheClassAndHeedNoLength) {
  ZnRef a[] = {Ref(9, 1, 1), Ref(9, 1, 1), Ref(9, 1, 1)};
  ZnRef b[] = {Ref(9, 1, 1), Ref(9, 1, 1), Ref(1, 1, 2)};
  int error = 5;
  EXPECT_EQ(mgr.Cmp(ZnREF_T, 1, a, 1, b, 0, 3, 8, error), -1); // stored, 9 would decide
  std::swap(a[0], b[2]);
  EXPECT_EQ(mgr.Cmp(ZnREF_T, 1, a, 1, b, 0, 3, 8, error), 1); // by the first pair
  std::swap(a[0], b[2]);
  EXPECT_EQ(error, 0);
  unsigned char storedA[42];
  unsigned char storedB[42];
  mgr.Store(ZnREF_T, storedA, a, 1, 3);
  mgr.Store(ZnREF_T, storedB, b, 1, 3);
  EXPECT_EQ(mgr.Cmp(ZnREF_T, storedA, storedB, 0, 3, 1), 8);
  EXPECT_EQ(mgr.Cmp(ZnREF_T, 28, storedA, 42, storedB, 0, 3, 1, error), 0);
  EXPECT_EQ(error, ZnErrIncomplete);
  EXPECT_EQ(mgr.Cmp(ZnREF_T, 0, nullptr, 0, nullptr, 0, 0, 8, error), 0);
}

TEST_F(IdentRows, HashTheObjectNumber) {
  ZnRef refs[] = {Ref(3, 1, 0x12345678, 99, 12, 7), Ref(8, 4, 0x89, 5)};
  ZnClassId classIds[] = {{0x1234, 0x00FF}, {65535, 65535}};
  for (unsigned char const format : {8, 1}) {
    unsigned char bytes[32];
    int error = 7;
    mgr.Store(ZnREF_T, bytes, refs, format, 2);
    void * const value = format == 8 ? static_cast<void *>(refs) : bytes;
    EXPECT_EQ(mgr.Hash(ZnREF_T, 1, value, 2, format, error),
              (0x12345678u ^ 1 ^ 3 ^ 0x89 ^ 4 ^ 8) * 1103515245u);
    EXPECT_EQ(error, 0);
    EXPECT_EQ(mgr.Hash(ZnOBJID_T, 0, value, 1, format, error), (0x12345678u ^ 1) * 1103515245u);
    mgr.Store(ZnCLID_T, bytes, classIds, 1, 2);
    EXPECT_EQ(mgr.Hash(ZnCLID_T, 0, format == 8 ? static_cast<void *>(classIds) : bytes, 2, format,
                       error),
              (0x1234u ^ 0xFF) * 1103515245u);
    EXPECT_EQ(mgr.Hash(ZnCLID_T, 0, bytes, 0, format, error), 0u);
  }
  unsigned char big[14];
  int error;
  mgr.Store(ZnREF_T, big, refs, 2, 1);
  EXPECT_EQ(mgr.Hash(ZnREF_T, 0, big, 1, 2, error), (0x78563412u ^ 0x0100 ^ 0x0300) * 1103515245u);
}

TEST_F(IdentRows, StepTheObjectAndKeepTheRest) {
  struct Case {
    ZnRef before;
    unsigned char what;
    int result;
    ZnRef after;
  };
  Case const cases[] = {
      {Ref(3, 0, 0xFFFFFFFF, 4, 12), 'N', 0, Ref(3, 1, 0, 4, 12)},
      {Ref(3, 0, 0, 4, 12), 'M', 0, Ref(3, 0, 1, 4, 12)},
      {Ref(3, 65535, 0xFFFFFFFF, 4), 'M', ZnErrNoNextValue, Ref(3, 65535, 0xFFFFFFFF, 4)},
      {Ref(3, 1, 2, 4, 12), 'O', 0, Ref(3, 1, 2, 4, 12)},
      {Ref(3, 1, 2, 4, 12), 2, 0, Ref(3, 0, 0, 0, 12)},
      {Ref(3, 1, 2, 4, 12), 'P', ZnErrNotSupported, Ref(3, 1, 2, 4, 12)},
  };
  for (Case const & c : cases) {
    ZnRef ref = c.before;
    ZnObjId object = Object(ref.high, ref.low, ref.block);
    auto const step = [&](char id, void * value) {
      return mgr.rows[static_cast<unsigned char>(id)]->GetValue(value, 0, 8, c.what);
    };
    EXPECT_EQ(step(ZnREF_T, &ref), c.result);
    EXPECT_EQ(step(ZnOBJID_T, &object), c.result);
    EXPECT_EQ(ref == c.after, 1);
    EXPECT_EQ(ref.block, c.after.block);
    EXPECT_EQ(ref.classNumber, c.after.classNumber);
    EXPECT_EQ(object == Object(c.after.high, c.after.low), 1);
    EXPECT_EQ(step(ZnCLID_T, &ref), ZnErrNotSupported);
  }
}

TEST_F(IdentRows, EstimateByThePositionOfTheObject) {
  ZnObjId lo = Object(0, 0);
  ZnObjId hi = Object(0, 99);
  ZnObjId const constant = Object(0, 50);
  auto const estimate = [&](bool known, unsigned short op, ZnObjId const & value) {
    unsigned char keys[3][10];
    mgr.Store(ZnOBJID_T, keys[0], &lo, 2, 1);
    mgr.Store(ZnOBJID_T, keys[1], &hi, 2, 1);
    mgr.Store(ZnOBJID_T, keys[2], &value, 2, 1);
    ZnIdxBounds area = {keys[0], keys[1], 10, 10, 0, 0, 0};
    return mgr.EvalAndBound(ZnOBJID_T, known ? &area : nullptr, op, keys[2], 2, 1, nullptr,
                            nullptr);
  };
  EXPECT_FLOAT_EQ(estimate(true, ZnOpEqual, constant), 0.01F);
  EXPECT_FLOAT_EQ(estimate(true, ZnOpBelow, constant), 0.50F);
  EXPECT_FLOAT_EQ(estimate(true, ZnOpAbove | ZnOpBelow, constant), 0.99F);
  EXPECT_EQ(estimate(true, ZnOpBelow, Object(1, 0)), 1.0F);
  EXPECT_EQ(estimate(false, ZnOpBelow, constant), 1.0F);
  EXPECT_EQ(estimate(false, ZnOpEqual, constant), 0.0F);
  EXPECT_EQ(estimate(false, ZnOpEqual, Object(0, 0)), 1.0F);
  lo = Object(0, 65500); // the high word counts 65535 numbers
  hi = Object(1, 34);
  EXPECT_EQ(estimate(true, ZnOpBelow, Object(1, 0)), 0.5F);

  unsigned char key[14];
  ZnRef const ref = Ref(0x8000, 0, 0);
  mgr.Store(ZnREF_T, key, &ref, 1, 1);
  unsigned short op = 0xFFF8 | ZnOpBelow;
  ZnIdxBounds out = {};
  EXPECT_NEAR(mgr.EvalAndBound(ZnREF_T, nullptr, op, key, 1, 1, &out, nullptr), 0.5, 0.001);
  EXPECT_EQ(op, 0x8008 | ZnOpBelow);
  EXPECT_EQ(out.lowKey, nullptr);
  EXPECT_EQ(out.highLength, 14);
  std::free(out.highKey);
  out = {};
  op = ZnOpAbove;
  unsigned char pair[28] = {};
  EXPECT_NEAR(mgr.EvalAndBound(ZnREF_T, nullptr, op, pair, 1, 2, &out, nullptr), 1.0, 1e-6);
  EXPECT_EQ(out.lowLength, 28);
  std::free(out.lowKey);
  out = {};
  op = ZnOpEqual;
  EXPECT_NEAR(mgr.EvalAndBound(ZnREF_T, nullptr, op, pair, 1, 1, nullptr, nullptr), 0.0, 1e-9);
  mgr.EvalAndBound(ZnOBJID_T, nullptr, op, pair, 1, 2, &out, nullptr);
  EXPECT_EQ(out.lowLength, 20);
  EXPECT_EQ(out.highLength, 20);
  std::free(out.lowKey);
  std::free(out.highKey);
  out = {};
  op = 7;
  EXPECT_NEAR(mgr.EvalAndBound(ZnREF_T, nullptr, op, key, 1, 1, nullptr, nullptr), 1.0, 1e-6);
  op = 0x7FF1;
  EXPECT_EQ(mgr.EvalAndBound(ZnCLID_T, nullptr, op, key, 1, 1, &out, nullptr), 1.0F);
  EXPECT_EQ(op, 0x7FF1);
}

TEST_F(IdentRows, BoxTheTextOfTheMembers) {
  ZnRef refs[] = {Ref(3, 0, 9, 4, 12, 7), Ref(3, 0, 0, 4, 12)};
  ZnTypeConvertData * const box = mgr.ConvertTo(ZnREF_T, refs, 2);
  EXPECT_STREQ(box->GetString(0)->StrGet(), "(3:0-9#4, 12)");
  EXPECT_TRUE(box->GetString(1)->IsNullValue());
  auto * const back = static_cast<ZnRef *>(mgr.ConvertFrom(ZnREF_T, box, 3));
  EXPECT_EQ(back[0] == refs[0], 1);
  EXPECT_TRUE(back[1].IsNullValue());
  EXPECT_TRUE(back[2].IsNullValue());
  mgr.Delete(ZnREF_T, back, 3);
  delete box;
}

TEST_F(IdentRows, MakeDefaultsAndNulls) {
  for (char const id : {ZnCLID_T, ZnOBJID_T, ZnREF_T})
    for (unsigned int const count : {0u, 1u, 3u})
      for (int const wantNull : {0, 1}) {
        void * const values = mgr.DefaultValue(id, count, wantNull);
        for (unsigned int i = 0; i < count; ++i) {
          void * const value = mgr.GetArrayElement(id, values, i, count);
          EXPECT_EQ(mgr.IsNullValue(id, value), wantNull || id != ZnCLID_T);
        }
        EXPECT_EQ(mgr.Delete(id, values, count), nullptr);
      }
  // The array of class ids alone has no count word ahead of it.
  auto * const classIds = static_cast<ZnClassId *>(mgr.Create(ZnCLID_T, 2));
  EXPECT_EQ(classIds[1].classNumber, 0);
  ::operator delete(classIds);
}

} // namespace
