#include "zantms.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <memory>
#include <new>
#include <string>
#include <vector>

// Numbers as boxed strings and back, and the joined form of arrays.

namespace {

ZnTypeMgr mgr;
using Box = std::unique_ptr<ZnTypeConvertData>;

Box BoxOf(std::vector<char const *> const & texts) {
  auto * const strings =
      static_cast<ZnString *>(mgr.Create(ZnSTRING_T, static_cast<unsigned int>(texts.size())));
  for (std::size_t i = 0; i < texts.size(); ++i) {
    if (texts[i] != nullptr)
      strings[i] = texts[i];
    else
      strings[i].SetNullValue();
  }
  return Box(
      ZnTypeConvertData::Make(ZnSTRING_T, static_cast<unsigned int>(texts.size()), strings, &mgr));
}

template <class Value>
std::string Written(char id, Value value) {
  Box const box(mgr.ConvertTo(id, &value, 1));
  EXPECT_EQ(box->mgr, &mgr);
  EXPECT_EQ(box->typeId, ZnSTRING_T);
  EXPECT_EQ(box->count, 1u);
  ZnString const & text = *box->GetString(0);
  return text.IsNullValue() ? "(null)" : text.StrGet();
}

template <class Value>
Value Read(char id, char const * text) {
  Box const box = BoxOf({text});
  auto * const values = static_cast<Value *>(mgr.ConvertFrom(id, box.get(), 1));
  Value const value = *values;
  mgr.Delete(id, values, 1);
  return value;
}

TEST(NumberBox, WritesDecimalText) {
  EXPECT_EQ(Written<signed char>(Zn1B_T, 65), "65");
  EXPECT_EQ(Written<signed char>(Zn1B_T, -1), "-1");
  EXPECT_EQ(Written<unsigned char>(ZnU1B_T, 200), "200");
  EXPECT_EQ(Written<short>(Zn2B_T, -300), "-300");
  EXPECT_EQ(Written<unsigned short>(ZnU2B_T, 65535), "65535");
  for (char id : {Zn4B_T, ZnINT_T, ZnENUM_T})
    EXPECT_EQ(Written<int>(id, -5), "-5");
  for (char id : {ZnU4B_T, ZnUNSIGNED_T, ZnBLOCKID_T})
    EXPECT_EQ(Written<unsigned int>(id, 4294967295u), "4294967295");
  EXPECT_EQ(Written<double>(ZnDOUBLE_T, 0.1), "0.10000000000000001");
  EXPECT_EQ(Written<float>(ZnFLOAT_T, 0.1F), "0.10000000149011612");
  EXPECT_EQ(Written<long long>(Zn8B_T, -5), "-5");
  EXPECT_EQ(Written<unsigned long long>(ZnU8B_T, ~0ull), "18446744073709551615");
  EXPECT_EQ(Written(ZnNULL_1B_T, ZnNull_char{65, 0}), "A");
  EXPECT_EQ(Written(ZnNULL_U1B_T, ZnNull_uchar{66, 0}), "B");
  EXPECT_EQ(Written(ZnNULL_2B_T, ZnNull_short{65, 0}), "65");
  EXPECT_EQ(Written(ZnNULL_U2B_T, ZnNull_ushort{65, 0}), "A");
  EXPECT_EQ(Written(ZnNULL_UNSIGNED_T, ZnNull_unsigned{4294967295u, 0}), "4294967295");
  EXPECT_EQ(Written(ZnNULL_DOUBLE_T, ZnNull_double{0.5, 0}), "0.5");
  EXPECT_EQ(Written(ZnNULL_U8B_T, ZnNull_u8b{~0ull, 0}), "18446744073709551615");
  EXPECT_EQ(Written(ZnNULL_INT_T, ZnNull_int{}), "(null)");
}

TEST(NumberBox, ReadsByTheCastsOfStrings) {
  EXPECT_EQ(Read<signed char>(Zn1B_T, "65"), 65);
  EXPECT_EQ(Read<unsigned char>(ZnU1B_T, "200"), 200);
  EXPECT_EQ(Read<short>(Zn2B_T, "0x10"), 16);
  EXPECT_EQ(Read<unsigned short>(ZnU2B_T, "65535"), 65535);
  EXPECT_EQ(Read<int>(ZnINT_T, "-12abc"), -12);
  EXPECT_EQ(Read<int>(ZnINT_T, ""), 0);
  EXPECT_EQ(Read<unsigned int>(ZnU4B_T, "4294967295.9"), 4294967295u);
  EXPECT_EQ(Read<unsigned int>(ZnU4B_T, "-1"), 4294967295u);
  EXPECT_EQ(Read<unsigned int>(ZnU4B_T, "1e300"), 0u);
  EXPECT_EQ(Read<unsigned int>(ZnU4B_T, "nan"), 0u);
  EXPECT_EQ(Read<double>(ZnDOUBLE_T, "0.1"), 0.1);
  EXPECT_EQ(Read<float>(ZnFLOAT_T, "0.1"), 0.1F);
  EXPECT_EQ(Read<long long>(Zn8B_T, "-9000000000"), -9000000000);
  EXPECT_EQ(Read<ZnNull_char>(ZnNULL_1B_T, "65").value, 65);
  EXPECT_EQ(Read<ZnNull_ushort>(ZnNULL_U2B_T, "65").value, 65);
  EXPECT_EQ(Read<ZnNull_ulong>(ZnNULL_U4B_T, "4294967295").value, 4294967295u);
  EXPECT_EQ(Read<ZnNull_8b>(ZnNULL_8B_T, "-9000000000").value, -9000000000);
  EXPECT_EQ(Read<ZnNull_int>(ZnNULL_INT_T, "").isNull, 0); // empty is not null
  EXPECT_EQ(Read<ZnNull_int>(ZnNULL_INT_T, nullptr).isNull, 1);
  EXPECT_EQ(Read<int>(ZnINT_T, nullptr), 0);
}

TEST(NumberBox, GivesBlanksWhereStringsAreMissing) {
  Box const box = BoxOf({"5"});
  box->mgr = nullptr;
  auto * const values = static_cast<ZnNull_int *>(mgr.ConvertFrom(ZnNULL_INT_T, box.get(), 3));
  EXPECT_EQ(box->mgr, &mgr);
  EXPECT_EQ(values[0].value, 5);
  EXPECT_TRUE(values[0].isNull == 0 && values[1].isNull == 1 && values[2].isNull == 1);
  mgr.Delete(ZnNULL_INT_T, values, 3);
  EXPECT_EQ(box->GetString(1), nullptr);
  EXPECT_EQ(box->GetString(-1), nullptr);
  int numbers[] = {1, 2};
  ZnTypeConvertData other(ZnINT_T, 2, numbers, nullptr);
  EXPECT_EQ(other.GetString(0), nullptr);
  auto * const zeros = static_cast<int *>(mgr.rows[int(ZnINT_T)]->ConvertFrom(&other, 2));
  EXPECT_TRUE(zeros[0] == 0 && zeros[1] == 0);
  mgr.Delete(ZnINT_T, zeros, 2);
  ZnTypeConvertData const empty;
  EXPECT_TRUE(empty.typeId == 100 && empty.mgr == nullptr && empty.data == nullptr);
  EXPECT_EQ(mgr.ConvertTo(ZnRES_T, numbers, 1), nullptr);
}

/// An engine that keeps boxes in memory of its own finds an empty one where a box has been.
TEST(NumberBox, LeavesAnEmptyBoxBehind) {
  for (bool const owner : {true, false}) {
    alignas(ZnTypeConvertData) unsigned char room[sizeof(ZnTypeConvertData)];
    void * const strings = mgr.Create(ZnSTRING_T, 2);
    std::destroy_at(new (room) ZnTypeConvertData(ZnSTRING_T, 2, strings, owner ? &mgr : nullptr));
    void * data;
    std::memcpy(&data, room + offsetof(ZnTypeConvertData, data), sizeof data);
    EXPECT_EQ(data, owner ? nullptr : strings);
    EXPECT_EQ(room[offsetof(ZnTypeConvertData, typeId)], 100);
    EXPECT_EQ(room[offsetof(ZnTypeConvertData, count)], 0);
    mgr.Delete(ZnSTRING_T, data, 2);
  }
}

TEST(NumberBox, NamedFunctionsAreTheRows) {
  auto const row = [](char id) { return mgr.rows[int(id)]; };
  EXPECT_TRUE(row(Zn1B_T)->ConvertTo == &CharConvertToZnString &&
              row(Zn1B_T)->ConvertFrom == &CharConvertFromZnString);
  EXPECT_TRUE(row(ZnU1B_T)->ConvertTo == &O_U1BConvertToZnString &&
              row(ZnU1B_T)->ConvertFrom == &O_U1BConvertFromZnString);
  EXPECT_TRUE(row(Zn2B_T)->ConvertTo == &ShortConvertToZnString &&
              row(Zn2B_T)->ConvertFrom == &ShortConvertFromZnString);
  EXPECT_TRUE(row(ZnU2B_T)->ConvertTo == &WordConvertToZnString &&
              row(ZnU2B_T)->ConvertFrom == &WordConvertFromZnString);
}

TEST(SetNullValue, FallsBackToTheDefault) {
  int number = 5;
  EXPECT_EQ(mgr.SetNullValue(ZnINT_T, &number), 0);
  EXPECT_EQ(number, 0);
  // Rows of an engine's own: without assignment the text "0" is scanned, and a code is handed on.
  ZnTypeRow row = *mgr.rows[int(ZnINT_T)];
  std::vector<ZnTypeRow *> rows(mgr.rows, mgr.rows + 256);
  rows[ZnINT_T] = &row;
  ZnTypeMgr own;
  own.rows = rows.data();
  row.Assignment = nullptr;
  number = 5;
  EXPECT_EQ(own.SetNullValue(ZnINT_T, &number), 0);
  EXPECT_EQ(number, 0);
  row.SetNull = [](void *) { return 7; };
  EXPECT_EQ(own.SetNullValue(ZnINT_T, &number), 7);
  ZnNull_double nullable{5, 0};
  EXPECT_EQ(mgr.SetNullValue(ZnNULL_DOUBLE_T, &nullable), 0);
  EXPECT_TRUE(nullable.isNull == 1 && nullable.value == 0);
  char same = 'x';
  EXPECT_EQ(mgr.SetNullValue(ZnRES_T, &same), 0);
  EXPECT_EQ(same, 'x');
}

/// Reaches the joined form, which derived managers use.
struct JoiningMgr : ZnTypeMgr {
  using ZnTypeMgr::ConvertFromZnStringOld;
  using ZnTypeMgr::ConvertToZnStringOld;
};

TEST(JoinedForm, EndsEachElementWithAFreeCharacter) {
  JoiningMgr joining;
  int numbers[] = {1, -2, 3};
  ZnString * const joined = joining.ConvertToZnStringOld(numbers, ZnINT_T, 3);
  EXPECT_STREQ(joined->StrGet(), "1\1-2\1"
                                 "3\1");
  auto * const back = static_cast<int *>(joining.ConvertFromZnStringOld(joined, ZnINT_T, 3));
  EXPECT_EQ(std::memcmp(back, numbers, sizeof numbers), 0);
  EXPECT_TRUE(joined->IsEmpty());
  mgr.Delete(ZnINT_T, back, 3);
  mgr.Delete(ZnSTRING_T, joined, 1);
  // Characters that occur are passed over.
  ZnNull_uchar characters[] = {{1, 0}, {3, 0}, {2, 0}};
  ZnString * const text = joining.ConvertToZnStringOld(characters, ZnNULL_U1B_T, 3);
  EXPECT_STREQ(text->StrGet(), "\1\4\3\4\2\4");
  mgr.Delete(ZnSTRING_T, text, 1);
  std::vector<ZnNull_uchar> all;
  for (int code = 1; code < 255; ++code)
    all.push_back({static_cast<unsigned char>(code), 0});
  ZnString * const full = joining.ConvertToZnStringOld(all.data(), ZnNULL_U1B_T, 254);
  EXPECT_EQ(full->Len(), 2 * 254);
  EXPECT_EQ(full->StrGet()[full->Len() - 1], ',');
  mgr.Delete(ZnSTRING_T, full, 1);
  ZnString * const last = joining.ConvertToZnStringOld(all.data(), ZnNULL_U1B_T, 253);
  EXPECT_EQ(last->StrGet()[1], '\xFE');
  mgr.Delete(ZnSTRING_T, last, 1);
  ZnString * const none = joining.ConvertToZnStringOld(numbers, ZnINT_T, 0);
  EXPECT_TRUE(none->IsEmpty());
  mgr.Delete(ZnSTRING_T, none, 1);
  EXPECT_EQ(joining.ConvertToZnStringOld(numbers, ZnRES_T, 1), nullptr);
  ZnString list("7,8,");
  auto * const read = static_cast<int *>(joining.ConvertFromZnStringOld(&list, ZnINT_T, 4));
  EXPECT_TRUE(read[0] == 7 && read[1] == 8 && read[2] == 0 && read[3] == 0);
  mgr.Delete(ZnINT_T, read, 4);
}

} // namespace
