#include <zantms.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

#include "string_support.h"

/// Appending, cutting, inserting and replacing, against a plain string with the same limits.

namespace {

ZnString TextOf(std::string const & bytes, unsigned char codeSet) {
  ZnString s(bytes.c_str());
  s.MapToCodeSet(codeSet);
  return s;
}

/// The operations as they would be on a string without limit, cut at the limit afterwards.
struct Oracle {
  std::string text;
  std::size_t most;

  void Limit() {
    if (text.size() > most)
      text.resize(most);
  }
  void Append(std::string const & s) { text += s, Limit(); }
  void Insert(std::string const & s, std::size_t place) {
    if (place <= text.size())
      text.insert(place, s), Limit();
  }
  void Replace(std::string const & s, std::size_t place) {
    if (place < text.size()) {
      std::size_t const n = std::min(s.size(), text.size() - place);
      text.replace(place, n, s, 0, n);
    }
  }
  void Cut(std::size_t place, unsigned short count) {
    if (place < text.size())
      text.erase(place, count);
  }
  void Expand(std::size_t n, char c) {
    if (text.size() < n)
      text.resize(n, c), Limit();
  }
  void Fill(std::size_t n, char c) { text.assign(n, c), Limit(); }
  std::string Copy(std::size_t place, unsigned short count) const {
    return place < text.size() ? text.substr(place, count) : "";
  }
};

class EditWalk {
public:
  EditWalk(unsigned seed, unsigned char codeSet)
      : random_(seed), codeSet_(codeSet),
        subject_(codeSet, 1), oracle_{"", codeSet > 224 ? ZnStringMaxChars16 : ZnStringMaxChars8} {}

  void Run(int steps) {
    for (int i = 0; i < steps && !::testing::Test::HasFailure(); ++i)
      Step();
  }

private:
  unsigned Below(unsigned n) { return static_cast<unsigned>(random_() % n); }

  std::string Word() {
    // Mostly short; now and then long enough to meet the limit.
    std::string word(Below(20) == 0 ? Below(30000) : Below(12), 'x');
    for (char & c : word)
      c = static_cast<char>(Below(4) == 0 ? 0xC0 + Below(64) : 'a' + Below(26));
    return word;
  }
  unsigned short Place() {
    auto const length = static_cast<unsigned>(oracle_.text.size());
    return static_cast<unsigned short>(std::min(Below(length + 3), 65535u));
  }
  unsigned short Count() {
    return static_cast<unsigned short>(Below(8) == 0    ? 65535
                                       : Below(10) == 0 ? Below(65536)
                                                        : Below(9));
  }

  void Step() {
    std::string const word = Word();
    ZnString const source = TextOf(word, Below(2) == 0 ? 1 : 253);
    unsigned short const place = Place();
    unsigned short const count = Count();
    char const c = static_cast<char>('A' + Below(26));
    unsigned const operation = Below(9);
    SCOPED_TRACE(::testing::Message()
                 << "operation " << operation << " at " << place << " of " << oracle_.text.size()
                 << ", " << word.size() << " or " << count << " characters");
    switch (operation) {
    case 0:
      subject_ += source, oracle_.Append(word);
      break;
    case 1:
      subject_.Insert(source, place), oracle_.Insert(word, place);
      break;
    case 2:
      subject_.Replace(source, place), oracle_.Replace(word, place);
      break;
    case 3:
    case 4:
      subject_.Cut(place, static_cast<short>(count)), oracle_.Cut(place, count);
      break;
    case 5:
      subject_.Expand(count, c), oracle_.Expand(count, c);
      break;
    case 6:
      subject_.Fill(count, static_cast<unsigned short>(c)), oracle_.Fill(count, c);
      break;
    case 7:
      subject_ << word.c_str() << count << c;
      oracle_.Append(word);
      oracle_.Append(codeSet_ == 1 ? std::to_string(count)
                     : count == 0  ? ""
                                   : std::string(1, static_cast<char>(count)));
      oracle_.Append(std::string(1, c));
      break;
    case 8: {
      ZnString const part = subject_.Copy(place, static_cast<short>(count));
      EXPECT_EQ(Latin(part), oracle_.Copy(place, count));
      EXPECT_EQ(part.codeSet, place < oracle_.text.size() ? codeSet_ : 1);
      EXPECT_EQ(Latin(subject_.Left(count)), oracle_.text.substr(0, count));
      EXPECT_EQ(Latin(subject_.Right(count)),
                oracle_.text.substr(oracle_.text.size() -
                                    std::min<std::size_t>(count, oracle_.text.size())));
      break;
    }
    }
    ASSERT_EQ(Latin(subject_), oracle_.text);
    ASSERT_EQ(subject_.codeSet, codeSet_);
    if (subject_.text) {
      ASSERT_EQ(subject_.capacity, (oracle_.text.size() + 1) * (codeSet_ > 224 ? 2 : 1));
    }
  }

  std::mt19937 random_;
  unsigned char codeSet_;
  ZnString subject_;
  Oracle oracle_;
};

TEST(StringEdit, AgreesWithAPlainString) {
  for (unsigned seed = 1; seed <= 20; ++seed) {
    SCOPED_TRACE(::testing::Message() << "seed " << seed);
    EditWalk(seed, 1).Run(200);
    EditWalk(seed, 253).Run(200);
  }
}

TEST(StringEdit, StopsAtItsLimitWithAReport) {
  struct {
    unsigned char codeSet;
    unsigned have, add, left;
    int reports;
  } const cases[] = {
      {1, 65000, 531, 65531, 0},   {1, 65000, 532, 65531, 1},   {1, 65000, 1000, 65531, 1},
      {253, 32000, 765, 32765, 0}, {253, 32000, 766, 32765, 1},
  };
  for (auto const & c : cases) {
    SCOPED_TRACE(::testing::Message() << c.have << " and " << c.add);
    std::string const head(c.have, 'h'), more(c.add, 'm');
    OverflowReports const reports(1);
    ZnString s = TextOf(head, c.codeSet);
    s += TextOf(more, c.codeSet);
    EXPECT_EQ(reports.Count(), c.reports);
    EXPECT_EQ(s.capacity, 65532);
    EXPECT_EQ(Latin(s), (head + more).substr(0, c.left));

    // An insertion pushes the end of the text out, not the new text.
    ZnString t = TextOf(head, c.codeSet);
    t.Insert(TextOf(more, c.codeSet), 10);
    EXPECT_EQ(Latin(t), (head.substr(0, 10) + more + head.substr(10)).substr(0, c.left));
  }
  ZnString filled;
  filled.Fill(65535, 'f');
  EXPECT_EQ(filled.Len(), 65531);
  filled.Insert(ZnString("x"), 65531);
  EXPECT_EQ(Latin(filled), std::string(65531, 'f'));
}

TEST(StringEdit, LeavesABufferBehindEmptyTexts) {
  ZnString s;
  s += ZnString();
  EXPECT_EQ(s.capacity, 1);
  ZnString wide(static_cast<unsigned char>(253), static_cast<unsigned char>(1));
  wide.Fill(0, 'c');
  EXPECT_EQ(wide.capacity, 2);
  ZnString unset;
  unset.Insert(ZnString(""), 0).Expand(0, 'x');
  EXPECT_EQ(unset.text, nullptr) << "nothing to insert";
  unset << '\0' << static_cast<unsigned short>(0);
  EXPECT_EQ(Latin(unset), "0");
  unset.Insert(ZnString("ab"), 0);
  EXPECT_EQ(Latin(unset), "ab0");
}

TEST(StringEdit, GivesPartsWithTheRightCodeSet) {
  ZnString const wide = TextOf("wide", 253);
  EXPECT_EQ(wide.Left(0).codeSet, 253);
  ZnString swedish("ab");
  swedish.language = 78;
  EXPECT_EQ(swedish.Copy(1, 1).language, 78);
  EXPECT_EQ((swedish + ZnString("c")).language, 78);
  EXPECT_EQ(wide.Right(0).codeSet, 1);
  EXPECT_EQ(wide.Copy(4, -1).codeSet, 1);
  EXPECT_EQ(wide.Copy(4, -1).capacity, 1);
  ZnString const unset(static_cast<unsigned char>(253), static_cast<unsigned char>(1));
  EXPECT_EQ(unset.Left(3).codeSet, 1);
}

TEST(StringEdit, TakesItsOwnTextAsSource) {
  ZnString s("abc");
  s += s;
  EXPECT_EQ(Latin(s), "abcabc");
  s.Insert(s, 1);
  EXPECT_EQ(Latin(s), "aabcabcbcabc");
  s.Replace(s, 11);
  EXPECT_EQ(Latin(s), "aabcabcbcaba");
}

TEST(StringEdit, PutsNativeTextInAsItIs) {
  ZnString s("");
  s.codeSet = CodeSetNamed("ISO-8859-15");
  ZnString raw("\xA4");
  s += raw;
  EXPECT_EQ(Latin(s), "?") << "the currency sign is not in this code set";
  raw.codeSet = 0;
  s += raw;
  EXPECT_EQ(Latin(s), "?\xA4");
}

TEST(StringEdit, PrintsNumbersAndTexts) {
  unsigned short const wide[] = {'w', 0};
  ZnString s;
  s << static_cast<short>(-1) << 2 << 3u << -4LL << 5ULL << 0.5f << 0.1 << "t" << wide
    << ZnString("s") << static_cast<unsigned short>(65) << 'c';
  EXPECT_EQ(Latin(s), "-123-450.50.10000000000000001tws65c");
  ZnString u = TextOf("", 253);
  u << static_cast<unsigned short>(65) << 66u;
  EXPECT_EQ(Latin(u), "A66");
  EXPECT_EQ(Latin(ZnString("a") + ZnString("b")), "ab");
}

} // namespace
