#include <zantms.h>

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "string_support.h"

/// UTF-8 both ways, against a decoder and an encoder that go by the table alone.

namespace {

using Units = std::vector<unsigned short>;

/// Decodes one sequence by trial of every length; its bytes, or -1.
int ReferenceDecode(std::string const & in, std::size_t at, unsigned short & out) {
  for (unsigned bytes = 1; bytes <= 6; ++bytes) {
    ZnUtf8Row const & row = ZnUtf8Table[bytes - 1];
    unsigned long long value = static_cast<unsigned char>(in[at]);
    if ((value & row.mask) != row.lead)
      continue;
    value -= row.lead;
    for (unsigned i = 1; i < bytes; ++i) {
      if (at + i >= in.size() || (in[at + i] & 0xC0) != 0x80)
        return -1;
      value = value << 6 | (in[at + i] & 0x3F);
    }
    out = static_cast<unsigned short>(value);
    return value < row.min ? -1 : static_cast<int>(bytes);
  }
  return -1;
}

std::string ReferenceEncode(Units const & units) {
  std::string out;
  for (unsigned const u : units) {
    char bytes[6];
    out.append(bytes, static_cast<std::size_t>(ZnWChar2MultiByte(bytes, static_cast<wchar_t>(u))));
  }
  return out;
}

ZnString WideString(Units units) {
  units.push_back(0);
  return ZnString(units.data());
}

TEST(MultiByte, KnowsTheSequencesOfEveryLength) {
  struct {
    std::string bytes;
    int result;
    unsigned value;
  } const cases[] = {
      {"a", 1, 'a'},
      {std::string(1, '\0'), 1, 0},
      {"\xC3\xA4", 2, 0xE4},
      {"\xE2\x82\xAC", 3, 0x20AC},
      {"\xED\xA0\xBD", 3, 0xD83D},
      {"\xF0\x9F\x98\x80", 4, 0xF600},
      {"\xF8\x88\x80\x80\x81", 5, 1},
      {"\xFD\xBF\xBF\xBF\xBF\xBF", 6, 0xFFFF},
      {"\xC0\x80", -1, 0},
      {"\xC1\xBF", -1, 0},
      {"\xE0\x9F\xBF", -1, 0},
      {"\xF0\x8F\xBF\xBF", -1, 0},
      {"\x80", -1, 0},
      {"\xFE\x80\x80\x80\x80\x80\x80", -1, 0},
      {"\xFF", -1, 0},
      {"\xE2\x82", -1, 0},
      {"\xE2\x28\xA1", -1, 0},
      {"", -1, 0},
  };
  for (auto c : cases) {
    SCOPED_TRACE(::testing::PrintToString(c.bytes));
    unsigned short out = 0;
    EXPECT_EQ(ZnMultiByte2WChar(&out, c.bytes.data(), c.bytes.size()), c.result);
    EXPECT_EQ(out, c.result > 0 ? c.value : 0);
  }
  EXPECT_EQ(ZnMultiByte2WChar(nullptr, nullptr, 3), 0);
  char out[6];
  EXPECT_EQ(ZnWChar2MultiByte(nullptr, L'a'), 0);
  EXPECT_EQ(ZnWChar2MultiByte(out, 0x20AC), 3);
  EXPECT_EQ(std::string(out, 3), "\xE2\x82\xAC");
  EXPECT_EQ(ZnWChar2MultiByte(out, 0x7FFFFFFF), 6);
  EXPECT_EQ(std::string(out, 6), "\xFD\xBF\xBF\xBF\xBF\xBF");
  EXPECT_EQ(ZnWChar2MultiByte(out, static_cast<wchar_t>(0x80000000)), -1);
}

TEST(MultiByte, DecodesAsTheTableSays) {
  std::mt19937 random(7);
  auto const below = [&](unsigned n) { return static_cast<unsigned>(random() % n); };
  for (int round = 0; round < 20000; ++round) {
    // Runs of one length, sometimes damaged, so that every fast path is entered and left.
    std::string in;
    while (in.size() < 60 && below(8) != 0) {
      unsigned const kind = below(6);
      for (unsigned n = below(20); n > 0; --n) {
        char bytes[6];
        unsigned const most[] = {0x80, 0x800, 0x10000, 0x10000, 0x200000, 0x7FFFFFFF};
        auto const c = static_cast<wchar_t>(below(most[kind]));
        in.append(bytes, static_cast<std::size_t>(ZnWChar2MultiByte(bytes, c)));
      }
    }
    if (!in.empty() && below(3) == 0)
      in[below(static_cast<unsigned>(in.size()))] = static_cast<char>(below(256));
    if (below(4) == 0)
      in.resize(in.size() - std::min<std::size_t>(in.size(), below(4)));

    Units expected;
    std::vector<std::size_t> starts;
    int status = 0;
    std::size_t at = 0;
    while (at < in.size()) {
      unsigned short unit;
      int const bytes = ReferenceDecode(in, at, unit);
      if (bytes < 0) {
        status = -1;
        break;
      }
      starts.push_back(at);
      expected.push_back(unit);
      at += static_cast<std::size_t>(bytes);
    }
    unsigned const room = below(3) == 0 ? below(20) : 100;
    std::vector<unsigned short> out(room + 1, 0x1234);
    int const result = ZnMultiByteStr2WCharStr(out.data(), static_cast<int>(room), in.data(),
                                               static_cast<int>(in.size()));
    SCOPED_TRACE(::testing::PrintToString(in));
    ASSERT_EQ(result, status < 0 ? -1 : static_cast<int>(expected.size()));
    for (std::size_t i = 0; i < std::min<std::size_t>(room, expected.size()); ++i)
      ASSERT_EQ(out[i], expected[i]);
    ASSERT_EQ(out[room], 0x1234);

    // A string ends at the first character 0, and keeps what came before a malformed sequence.
    ZnString s(static_cast<unsigned char>(1), static_cast<unsigned char>(9));
    int const taken = ZnMBS2ZnString(in.c_str(), s, static_cast<int>(in.size()));
    auto const stop =
        static_cast<std::size_t>(std::find(expected.begin(), expected.end(), 0) - expected.begin());
    int const end = stop < expected.size() ? static_cast<int>(starts[stop])
                    : status < 0           ? -1
                                           : static_cast<int>(in.size());
    ASSERT_EQ(taken, end);
    ASSERT_EQ(s.codeSet, 253);
    ASSERT_EQ(s.language, 9);
    ASSERT_EQ(s.Len(), stop);
    for (unsigned i = 0; i < stop; ++i)
      ASSERT_EQ(UnitAt(s, i), expected[i]);
  }
}

TEST(MultiByte, EncodesAsTheTableSays) {
  std::mt19937 random(11);
  auto const below = [&](unsigned n) { return static_cast<unsigned>(random() % n); };
  for (int round = 0; round < 20000; ++round) {
    Units units;
    bool const latin = below(2) == 0;
    while (units.size() < 50 && below(6) != 0) {
      unsigned const most[] = {0x80, 0x100, latin ? 0x100u : 0x800u, latin ? 0x80u : 0x10000u};
      unsigned const kind = below(4);
      for (unsigned n = below(20); n > 0; --n)
        units.push_back(static_cast<unsigned short>(1 + below(most[kind] - 1)));
    }
    std::string const expected = ReferenceEncode(units);
    ZnString s = WideString(units);
    if (latin)
      s.MapToCodeSet(1);
    bool const ascii = latin && expected.size() == units.size();
    unsigned const room = below(2) == 0 ? below(60) : 200;
    std::vector<char> out(room + 1, 'x');
    int const result = ZnString2ZnMBS(s, out.data(), static_cast<int>(room));
    SCOPED_TRACE(::testing::PrintToString(expected));
    if (expected.size() <= room) {
      ASSERT_EQ(result, static_cast<int>(expected.size()));
      ASSERT_EQ(std::string(out.data(), expected.size()), expected);
      std::size_t const cleared = ascii ? room : std::min<std::size_t>(expected.size() + 1, room);
      for (std::size_t i = expected.size(); i < cleared; ++i)
        ASSERT_EQ(out[i], 0);
    } else if (ascii) {
      ASSERT_EQ(result, -static_cast<int>(expected.size()));
    } else {
      std::size_t fits = 0;
      Units part;
      for (unsigned short const u : units) {
        part.push_back(u);
        std::size_t const bytes = ReferenceEncode(part).size();
        if (bytes > room)
          break;
        fits = bytes;
      }
      ASSERT_EQ(result, -static_cast<int>(fits));
      ASSERT_EQ(std::string(out.data(), fits), expected.substr(0, fits));
    }
    ASSERT_EQ(out[room], 'x');

    unsigned const some = below(20);
    Units const few(units.begin(), units.begin() + std::min<std::size_t>(some, units.size()));
    int const measured = ascii && some != 0 ? static_cast<int>(units.size())
                                            : static_cast<int>(ReferenceEncode(few).size());
    ASSERT_EQ(ZnMBSLength(s, static_cast<unsigned short>(some)), measured);

    char * made = nullptr;
    int size = 0;
    ASSERT_EQ(ZnString2MultiByteString(s, made, size), static_cast<int>(expected.size()));
    ASSERT_EQ(size, static_cast<int>(expected.size()) + 1);
    ASSERT_EQ(std::string(made), expected);
    delete[] made;
    char * given = out.data();
    size = static_cast<int>(room);
    bool const fits = expected.size() <= room && room != 0;
    int const told = room == 0 ? static_cast<int>(expected.size())
                     : fits    ? static_cast<int>(expected.size())
                               : -1;
    ASSERT_EQ(ZnString2MultiByteString(s, given, size), told);
    ASSERT_EQ(size, told == -1  ? static_cast<int>(expected.size())
                    : room == 0 ? told + 1
                                : static_cast<int>(room));
    if (room == 0)
      delete[] given;
  }
}

TEST(MultiByte, StopsAtItsByteLimit) {
  for (unsigned const length : {32767u, 32768u, 40000u}) {
    std::string const in(length, 'a');
    ZnString s;
    EXPECT_EQ(ZnMBS2ZnString(in.c_str(), s, static_cast<int>(length)),
              length < 32768 ? static_cast<int>(length) : -2);
    EXPECT_EQ(s.Len(), 32765);
  }
  std::string euros;
  for (int i = 0; i < 12000; ++i)
    euros += "\xE2\x82\xAC";
  ZnString s;
  EXPECT_EQ(ZnMBS2ZnString(euros.c_str(), s, static_cast<int>(euros.size())), -2);
  EXPECT_EQ(s.Len(), 10923) << "the sequence that passes the limit is whole";
  ZnString long3;
  long3.SetCodeSet(253);
  long3.Fill(32765, static_cast<unsigned short>(0x20AC));
  char * out = nullptr;
  int size = 0;
  EXPECT_EQ(ZnString2MultiByteString(long3, out, size), 3 * 32765);
  EXPECT_EQ(std::string(out).size(), 3u * 32765);
  delete[] out;
}

TEST(MultiByte, WritesBytesBelow128AsTheirCodeSetTells) {
  ZnString s("1%345678");
  s.codeSet = CodeSetNamed("IBM864"); // an Arabic percent sign
  char out[16];
  EXPECT_EQ(ZnString2ZnMBS(s, out, 16), 9);
  EXPECT_EQ(std::string(out), "1\xD9\xAA"
                              "345678");
  EXPECT_EQ(ZnMBSLength(s, 3), 4);
  s = "abc";
  for (unsigned char const codeSet : {5, 6}) { // ASCII is measured whole in the first five alone
    s.codeSet = codeSet;
    EXPECT_EQ(ZnMBSLength(s, 2), codeSet == 5 ? 3 : 2);
  }
  ZnString wide = WideString({'a', 0xE4});
  wide.codeSet = 225; // two bytes a character, and no table of its own
  EXPECT_EQ(ZnString2ZnMBS(wide, out, 16), 3);
  EXPECT_EQ(std::string(out), "a\xC3\xA4");
}

TEST(MultiByte, DropsWhatAStringHeld) {
  ZnString s("old");
  EXPECT_EQ(ZnMBS2ZnString("x", s, 0), 0);
  EXPECT_EQ(s.text, nullptr);
  EXPECT_EQ(s.codeSet, 253);
  ZnString t("old");
  EXPECT_EQ(ZnMBS2ZnString(nullptr, t, 3), -1);
  EXPECT_EQ(t.Len(), 0);
  ZnString u("gr\xC3\xBC\xC3\x9F"
             "e");
  EXPECT_EQ(ZnMultiByteString2ZnString(u, u), 7);
  EXPECT_EQ(Latin(u), "gr\xFC\xDF"
                      "e");
  EXPECT_EQ(ZnMBS2ZnString("ab", t, -1), 0);
  EXPECT_EQ(ZnMBS2ZnString("ab", t, 1000), 2) << "nothing behind the zero byte is read";
}

} // namespace
