#include "stored_support.h"
#include "string_support.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <random>

/// The bound rows of strings: recorded keys byte by byte, estimates, and the promise that no key
/// which a comparison accepts lies outside of the recorded ones. The step of a key to the next.

namespace {

constexpr unsigned short kEqual = ZnOpEqual, kBelow = ZnOpBelow, kAbove = ZnOpAbove;
constexpr unsigned short kLiteral = ZnCmpNoWildcards;
constexpr unsigned short kNoTrace = ZnCmpIgnoreSpaces | ZnCmpIgnoreSymbols;

ZnTypeMgr & Mgr() {
  static ZnTypeMgr mgr;
  return mgr;
}

ZnTypeMgr & OldMgr() {
  static ZnTypeMgr mgr(3);
  return mgr;
}

/// A stored text of the new form.
std::string Stored(std::string const & text, unsigned char codeSet = 1, unsigned char language = 1,
                   bool big = false) {
  std::size_t const length = text.size() + 4;
  char const low = static_cast<char>(length), high = static_cast<char>(length >> 8);
  std::string bytes{big ? high : low, big ? low : high, static_cast<char>(codeSet),
                    static_cast<char>(language)};
  return bytes + text + std::string("\0\xFF", 2);
}

/// A stored text of the old form.
std::string Old(std::string const & text) {
  std::size_t const length = text.size() + 1;
  return std::string{static_cast<char>(length), static_cast<char>(length >> 8)} + text + '\0';
}

/// The characters of a Latin text in 16 bits, high byte first if `big`.
std::string Wide(std::string const & latin, bool big = false) {
  std::string wide;
  for (char const c : latin)
    wide += big ? std::string{'\0', c} : std::string{c, '\0'};
  return wide;
}

/// Bounds whose keys are freed.
struct Bounds : ZnIdxBounds {
  Bounds() : ZnIdxBounds{} {}
  ~Bounds() {
    std::free(lowKey);
    std::free(highKey);
  }
  Bounds(Bounds const &) = delete;
  Bounds & operator=(Bounds const &) = delete;
  std::string Low() const { return lowKey ? Hex(lowKey, lowLength) : "none"; }
  std::string High() const { return highKey ? Hex(highKey, highLength) : "none"; }
};

/// Bytes in a block of their own size, so that a read outside is noticed.
struct Block {
  explicit Block(std::string const & bytes) : size(bytes.size()), data(new char[bytes.size()]) {
    std::memcpy(data.get(), bytes.data(), size);
  }
  std::string Bytes() const { return {data.get(), size}; }
  std::size_t size;
  std::unique_ptr<char[]> data;
};

/// The row over a constant that it may not change.
float Bound(ZnTypeMgr & mgr, std::string const & constant, unsigned short & op,
            unsigned char format, ZnIdxBounds * area, ZnIdxBounds * out) {
  Block const block(constant);
  float const share =
      mgr.EvalAndBound(ZnSTRING_T, area, op, block.data.get(), format, 1, out, nullptr);
  EXPECT_EQ(block.Bytes(), constant) << "the constant changed";
  return share;
}

struct KeyCase {
  char const * what;
  std::string constant;
  unsigned short op;
  unsigned char format;
  unsigned short kept; ///< of `op`
  std::string low, high;
};

void ExpectKeys(ZnTypeMgr & mgr, std::vector<KeyCase> const & cases) {
  for (KeyCase const & c : cases) {
    Bounds out;
    unsigned short op = c.op;
    Bound(mgr, c.constant, op, c.format, nullptr, &out);
    EXPECT_EQ(op, c.kept) << c.what;
    EXPECT_EQ(out.Low(), c.low) << c.what;
    EXPECT_EQ(out.High(), c.high) << c.what;
    op = c.op;
    EXPECT_EQ(Bound(mgr, c.constant, op, c.format, nullptr, nullptr), 0.0F) << c.what;
    EXPECT_EQ(op, c.kept) << c.what << " without keys";
  }
}

TEST(StringBounds, KeysByteByByte) {
  std::string const a300(300, 'a');
  auto const repeated = [](char const * hex, int count) {
    std::string all;
    while (count-- != 0)
      all += hex;
    return all;
  };
  std::string const abc = "0A00FE010C501050145000FF", abcOpen = "0C00FE010C5010501450FEFF00FF";
  ExpectKeys(
      Mgr(),
      {
          {"a prefix", Stored("abc*"), kEqual, 1, 9, abc, abcOpen},
          {"what follows the wildcard does not count", Stored("abc?d*"), kEqual, 1, 9, abc,
           abcOpen},
          {"two-byte text", Stored(Wide("abc*"), 253), kEqual, 1, 9, abc, abcOpen},
          {"high byte first", Stored(Wide("abc*", true), 253, 1, true), kEqual, 2, 9,
           "000AFE01500C5010501400FF", "000CFE01500C50105014FFFE00FF"},
          {"a key as constant", Stored(std::string("\x0C\x50\x9F\0", 4), 254), kEqual, 0x81, 9,
           "0600FE010C5000FF", "0800FE010C50FEFF00FF"},
          {"no wildcard", Stored("abc"), kEqual, 1, 1, abc, abc},
          {"a wildcard taken literally", Stored("a*"), kEqual | kLiteral, 1, 1,
           "0800FE010C509F0000FF", "0800FE010C509F0000FF"},
          {"in front of all", Stored("*c"), kEqual, 1, 9, "none", "none"},
          {"below", Stored("abc"), kBelow | kEqual | 0x8000, 1, 0x8003, "none", abc},
          {"above", Stored("abc*"), kAbove, 1, 12, abc, "none"},
          {"all but one", Stored("abc"), kBelow | kAbove, 1, 6, "none", "none"},
          {"case", Stored("aB-"), kEqual | ZnCmpIgnoreCase, 1, 1, "0A00FE010C701070740000FF",
           "0A00FE010C401040740000FF"},
          {"accents",
           Stored("\xE1"
                  "B"),
           kEqual | ZnCmpIgnoreAccents, 1, 1, "0800FE010C50104000FF", "0800FE018C5F904F00FF"},
          {"case and accents of a prefix", Stored("a*"),
           kEqual | ZnCmpIgnoreAccents | ZnCmpIgnoreCase, 1, 9, "0600FE010C7000FF",
           "0800FE018C4FFEFF00FF"},
          {"letters of code set 0 stay", Stored("aB", 0, 0), kEqual | ZnCmpIgnoreCase, 1, 1,
           "06000000614200FF", "06000000614200FF"},
          {"spaces", Stored("ab"), kEqual | ZnCmpIgnoreSpaces, 1, 1, "0800FE010C50105000FF",
           "0800FE010C50FEFF00FF"},
          {"symbols of a prefix", Stored("ab*"), kEqual | ZnCmpIgnoreSymbols, 1, 9,
           "0800FE010C50105000FF", "0A00FE010C501050FEFF00FF"},
          {"spaces from the start", Stored("ab"), kEqual | ZnCmpIgnoreSpaces | ZnOpFromStart, 1, 1,
           "none", "0800FE010C50FEFF00FF"},
          {"the start matters with such a flag alone", Stored("ab"), kEqual | ZnOpFromStart, 1, 1,
           "0800FE010C50105000FF", "0800FE010C50105000FF"},
          {"empty", Stored(""), kEqual | kLiteral, 1, 1, "0400FE0100FF", "0400FE0100FF"},
          {"an empty pattern, which nulls match", Stored(""), kEqual, 1, 1, "0400FE0000FF",
           "0400FE0100FF"},
          {"empty, without trace", Stored(""), kEqual | ZnCmpIgnoreSpaces, 1, 1, "0400FE0000FF",
           "0600FE01FEFF00FF"},
          {"empty in code set 0", Stored("", 0, 0), kEqual | ZnCmpIgnoreSpaces, 1, 1,
           "040000FE00FF", "05000000FF00FF00"},
          {"null", Stored("", 0, 254), kEqual, 1, 1, "040000FE00FF", "040000FE00FF"},
          {"code set 0", Stored("ab*", 0, 0), kEqual, 1, 9, "06000000616200FF",
           "070000006162FF00FF"},
          {"zero bytes behind the text", Stored(std::string("ab\0\0", 4), 0, 0), kEqual, 1, 1,
           "06000000616200FF", "06000000616200FF"},
          {"a constant of the old form", Old("ab?"), kEqual, 1, 9, "06000000616200FF",
           "070000006162FF00FF"},
          {"an expansion has room", Stored("\xDF"), kEqual, 1, 1, "0800FE01D45B545000FF",
           "0800FE01D45B545000FF"},
          {"a further class makes a prefix", Stored(std::string("a\0\xB1\3", 4), 253),
           kEqual | kLiteral, 1, 9, "0600FE810C5000FF", "0800FE810C50FEFF00FF"},
          {"a key of several classes", Stored("\x0C\x50", 254, 0x82), kEqual, 1, 9,
           "0600FE820C5000FF", "0800FE820C50FEFF00FF"},
          {"but of the first class", Stored("\x0C\x50", 254, 0x81), kEqual, 1, 1,
           "0600FE810C5000FF", "0600FE810C5000FF"},
          {"any class may follow a symbol", Stored("-*"), kEqual, 1, 9, "0600FE01740000FF",
           "0800FE7F7400FEFF00FF"},
          {"the longest whole key", Stored(a300.substr(0, 124)), kEqual, 1, 1,
           "FC00FE01" + repeated("0C50", 124) + "00FF",
           "FC00FE01" + repeated("0C50", 124) + "00FF"},
          {"a longer one is cut", Stored(a300.substr(0, 125)), kEqual, 1, 1,
           "FE00FE01" + repeated("0C50", 125), "FE00FE01" + repeated("0C50", 125)},
          {"also by its wildcard", Stored(a300.substr(0, 124) + "*"), kEqual, 1, 9,
           "FC00FE01" + repeated("0C50", 124) + "00FF",
           "FE00FE01" + repeated("0C50", 124) + "FEFF"},
          {"and far behind it", Stored(a300), kEqual | ZnCmpIgnoreSpaces, 1, 1,
           "FE00FE01" + repeated("0C50", 125), "FE00FE01" + repeated("0C50", 124) + "FEFF"},
          {"cut in code set 0", Stored(a300 + "*", 0, 0), kEqual, 1, 9,
           "FE000000" + repeated("61", 250), "FE000000" + repeated("61", 249) + "FF"},
      });
}

TEST(StringBounds, KeysOfOldTexts) {
  std::string const long260(260, 'a');
  std::string const cutKey = "0501" + Hex(long260.data(), 252);
  ExpectKeys(
      OldMgr(),
      {
          {"no wildcard", Old("abc"), kEqual, 1, 1, "040061626300", "040061626300"},
          // Keys that end before their length does count as cut.
          {"a prefix", Old("abc*"), kEqual, 1, 9, "0500616263", "0500616263FF"},
          {"in front of all", Old("?a"), kEqual, 1, 9, "none", "none"},
          {"above", Old("b"), kAbove, 1, 4, "02006200", "none"},
          {"empty, without trace", Old(""), kEqual | kNoTrace, 1, 1, "010000", "0200FF0000000000"},
          {"without trace", Old("ab"), kEqual | kNoTrace, 1, 1, "0300616200", "030061FF00"},
          {"cut", Old(long260), kEqual, 1, 1, cutKey, cutKey},
          {"of the new form", Stored("ab", 0, 0), kEqual, 1, 1, "0300616200", "0300616200"},
      });
  Bounds out;
  unsigned short op = kEqual;
  Bound(OldMgr(), std::string("\0\4abc\0", 6), op, 2, nullptr, &out);
  EXPECT_EQ(out.Low(), "000461626300");
}

TEST(StringBounds, KeysThatAreThereStay) {
  Bounds out;
  out.keyLimit = 200;
  unsigned short op = kEqual;
  Bound(Mgr(), Stored("b"), op, 1, nullptr, &out);
  std::string const low = out.Low(), high = out.High();
  Bound(Mgr(), Stored("x*"), op, 1, nullptr, &out);
  EXPECT_EQ(out.Low(), low);
  EXPECT_EQ(out.High(), high);
  // The block has room for the longest key of the index.
  EXPECT_EQ(Hex(out.lowKey, out.keyLimit), low + std::string(2 * (200 - low.size() / 2), '0'));
}

// ---- Estimates ----------------------------------------------------------------------------------

/// An area from one key to another.
struct Area : ZnIdxBounds {
  Area(std::string const & low, std::string const & high) : ZnIdxBounds{}, low_(low), high_(high) {
    lowKey = low_.data.get();
    highKey = high_.data.get();
    lowLength = static_cast<unsigned char>(low.size());
    highLength = static_cast<unsigned char>(high.size());
  }

private:
  Block low_, high_;
};

std::string Key(std::string const & text, unsigned char format = 1, unsigned char codeSet = 1,
                unsigned char language = 1) {
  std::string const value = Stored(text, codeSet, language, format == 2);
  char key[256];
  Block const source(value);
  unsigned int const size =
      ZnStringTranslate(key, format | ZnFormatIndexKey, 254, source.data.get(), format,
                        static_cast<unsigned int>(value.size()), 1);
  return {key, size};
}

TEST(StringBounds, PositionsOnTheScale) {
  auto const position = [](char const * text, unsigned char codeSet, unsigned short most) {
    return ZnStringKeyPosition(ZnStringIterator(text, codeSet, 1, 1), most);
  };
  constexpr double kTwo32 = 4294967296.0;
  // Class and first order above, two further orders below; no case, no diacritics, no symbols.
  EXPECT_EQ(position("ab", 1, 65535), 0x1400C * kTwo32 + 0x40100000);
  EXPECT_EQ(position("\xC1-B 1zz", 1, 65535), 0x1400C * kTwo32 + 0x40103F0A);
  EXPECT_EQ(position("abc", 1, 1), 0x1400C * kTwo32);
  EXPECT_EQ(position("--ab", 1, 3), 0x1400C * kTwo32);
  EXPECT_EQ(position("", 1, 65535), 0x10000 * kTwo32);
  EXPECT_EQ(position("ab", 0, 65535), (97 << 21) + (98 << 14));
  EXPECT_EQ(position("abcde", 0, 65535), (97 << 21) + (98 << 14) + (99 << 7) + 100);
  EXPECT_EQ(position("\xE1z", 0, 1), 127 << 21);
  ZnStringIterator walker("abc", 1, 1, 1);
  ZnStringKeyPosition(walker, 65535);
  EXPECT_EQ(walker.GetNextOrder(1), 0x500C) << "the caller's iterator moved";
}

TEST(StringBounds, SharesOfAnIndex) {
  auto const bytes = [](std::string const & text) { return Stored(text, 0, 0); };
  // Positions of letters behind the common start, in letters of 4: their slots.
  constexpr double kLetter = 4294967296.0, kSecond = 65536.0;
  double const unit = 0x100000;
  double const aToZ = 25 * 4 * kLetter + unit; // from "a" to "z"
  std::string mixedAbc = Key("abc"), greekAbc = Key("abc");
  mixedAbc[3] = '\x81';
  greekAbc[3] = 2;
  struct ShareCase {
    std::string low, high, constant;
    unsigned short op;
    double share;
  };
  std::vector<ShareCase> const cases = {
      {bytes("a"), bytes("z"), bytes("m"), kEqual, 128.0 / ((25 << 21) + 128)},
      {bytes("a"), bytes("z"), bytes("m"), kBelow, double(12 << 21) / ((25 << 21) + 128)},
      {bytes("a"), bytes("z"), bytes("m"), kAbove, double(13 << 21) / ((25 << 21) + 128)},
      {bytes("a"), bytes("z"), bytes("m*"), kEqual, ((127 << 14) + 128.0) / ((25 << 21) + 128)},
      {bytes("a"), bytes("z"), bytes("*m"), kEqual, 1.0},
      {bytes("a"), bytes("z"), bytes("*m"), kBelow, 1.0},
      // Bytes are clipped: what lies above ASCII is found by its first byte.
      {bytes("\xC0"), bytes("\xE0"), bytes("\xD0"), kEqual, 1.0},
      {bytes("\xC0\x20"), bytes("\xE0\x30"), bytes("\xD0z"), kEqual, 128.0 / ((16 << 14) + 128)},
      {Key("a"), Key("z"), Stored("k"), kBelow, 10 * 4 * kLetter / aToZ},
      {Key("a"), Key("z"), Stored("k"), kAbove, 15 * 4 * kLetter / aToZ},
      {Key("a"), Key("z"), Stored("k"), kEqual, unit / aToZ},
      {Key("a"), Key("z"), Stored("K\xC1"), kBelow | kEqual,
       (10 * 4 * kLetter + 0x400C * kSecond + unit) / aToZ},
      {Key("a"), Key("z"), Stored("0"), kAbove, 1.0},
      {Key("b"), Key("c"), Stored("k"), kBelow, 1.0},
      {Key("b"), Key("c"), Stored("k"), kAbove, 0.0},
      {Key("b"), Key("c"), Stored("k"), kEqual, 0.0},
      // The common start does not count, whatever its case if that is ignored.
      {Key("xa"), Key("xz"), Stored("xk"), kBelow, 10 * 4 * kLetter / aToZ},
      {Key("Xa"), Key("xz"), Stored("xk"), kBelow | ZnCmpIgnoreCase, 10 * 4 * kLetter / aToZ},
      {Key("abcda"), Key("abcdz"), Stored("abcdk*"), kAbove, 15 * 4 * kLetter / aToZ},
      {Key("abcdaa"), Key("abcdaz"), Stored("abcda*"), kEqual, 1.0},
      // A tie at an end of the index.
      {Key("abc"), Key("abcz"), Stored("abc-"), kAbove, 1.0},
      {Key("abc"), Key("abc"), Stored("abc-"), kBelow, 1.0},
      {Key("abc-"), Key("abc-"), Stored("abc"), kBelow, 0.0},
      {Key("abc-"), Key("abc-"), Stored("abc"), kAbove, 1.0},
      {mixedAbc, mixedAbc, Stored("abc-"), kBelow, 1.0},
      {bytes("a*"), bytes("a*"), bytes("abcdef*"), kEqual, 1.0},
      // What is alike in another class is no common start.
      {Key("ab"), greekAbc, Stored("abc"), kBelow, 0.0},
  };
  for (ShareCase const & c : cases) {
    Area area(c.low, c.high);
    Bounds out;
    unsigned short op = c.op;
    float const share = Bound(Mgr(), c.constant, op, 1, &area, &out);
    EXPECT_NEAR(share, c.share, 1e-6) << Hex(c.constant.data(), c.constant.size()) << " under "
                                      << c.op << " from " << Hex(c.low.data(), c.low.size());
  }
}

TEST(StringBounds, SharesAreTheSameInBothByteOrders) {
  for (char const * constant : {"abc", "abk*", "m?", "", "z"})
    for (unsigned short op : {kEqual, kBelow, kAbove}) {
      Area little(Key("aba"), Key("abz")), big(Key("aba", 2), Key("abz", 2));
      Bounds a, b;
      unsigned short opA = op, opB = op;
      EXPECT_EQ(Bound(Mgr(), Stored(constant), opA, 1, &little, &a),
                Bound(Mgr(), Stored(Wide(constant, true), 253, 1, true), opB, 2, &big, &b))
          << constant << " under " << op;
    }
}

TEST(StringBounds, SelectingNothingByAWildcardIsReported) {
  static std::string report;
  ZantAssertHandler const handler =
      ZantSetAssertHandler([](char const * message, char const * file, int line) {
        report = std::string(message) + "|" + file + "|" + std::to_string(line);
      });
  Bounds out;
  unsigned short op = 0;
  EXPECT_EQ(Bound(Mgr(), Stored("*a"), op, 1, nullptr, &out), 0.0F);
  ZantSetAssertHandler(handler);
  EXPECT_EQ(report, "charWildPos != 0 || valueRange >= valueTotalArea|src\\zntypevl|1126");
}

// ---- Nothing that matches lies outside ----------------------------------------------------------

int Order(ZnTypeMgr & mgr, std::string const & a, std::string const & b, unsigned short flags,
          unsigned char format, int & error) {
  Block const x(a), y(b);
  return mgr.Cmp(ZnSTRING_T, static_cast<unsigned int>(a.size()), x.data.get(),
                 static_cast<unsigned int>(b.size()), y.data.get(), flags, 1, format, error);
}

bool Selects(unsigned short op, int order) {
  return (op & (order < 0 ? kBelow : order > 0 ? kAbove : kEqual)) != 0;
}

/// Holds keys against the bounds of a constant; the number of those that the comparison accepts.
int ExpectInside(ZnTypeMgr & mgr, std::vector<std::string> const & keys,
                 std::string const & constant, unsigned short opWord, unsigned char format) {
  Bounds out;
  unsigned short op = opWord;
  Bound(mgr, constant, op, format & 15, nullptr, &out);
  // In the order of comparison keys the values below or above are no range of the index; without
  // the mark of its input the low key does not reach texts that lack spaces or symbols.
  bool const isRange = (opWord & ZnCmpKeysOnly) == 0 || (opWord & (kBelow | kAbove)) == 0;
  bool const holdsLow = isRange && ((opWord & kNoTrace) == 0 || (opWord & ZnOpFromStart) != 0);
  auto const outside = [&](std::string const & key, void * end, unsigned int length, int side) {
    if (end == nullptr)
      return false;
    int ignored = 0;
    return side * Order(mgr, key, {static_cast<char *>(end), length}, kLiteral, format, ignored) >
           0;
  };
  int accepted = 0;
  for (std::string const & key : keys) {
    int error = 0;
    int const order = Order(mgr, key, constant, opWord & 0x3F0, format, error);
    if (error != 0 || !Selects(opWord, order))
      continue;
    ++accepted;
    EXPECT_FALSE(holdsLow && outside(key, out.lowKey, out.lowLength, -1))
        << Hex(key.data(), key.size()) << " is below " << out.Low() << " of "
        << Hex(constant.data(), constant.size()) << " under " << std::hex << opWord;
    EXPECT_FALSE(isRange && outside(key, out.highKey, out.highLength, 1))
        << Hex(key.data(), key.size()) << " is above " << out.High() << " of "
        << Hex(constant.data(), constant.size()) << " under " << std::hex << opWord;
  }
  return accepted;
}

/// A text of few characters, so that texts often agree in part.
std::string RandomText(std::mt19937 & random, std::string const & alphabet, unsigned int most) {
  std::string text;
  for (unsigned int length = random() % (most + 1); text.size() < length;)
    text += alphabet[random() % alphabet.size()];
  return text;
}

constexpr unsigned short kOperators[] = {kEqual, kBelow, kAbove, kBelow | kEqual, kAbove | kEqual};

unsigned short RandomFlags(std::mt19937 & random) {
  auto flags = static_cast<unsigned short>((random() & 0x3F) << 4);
  if (random() % 3 != 0)
    flags &= ~(ZnCmpKeysOnly | kLiteral);
  return flags | (random() % 2 != 0 ? ZnOpFromStart : 0);
}

TEST(StringBounds, NothingThatMatchesLiesOutside) {
  std::mt19937 random(29);
  unsigned char const english = 1, czech = ZnLanguageContext::FindLanguage("cs")->id,
                      greek = ZnLanguageContext::FindLanguage("el")->id;
  // Letters with case and accents, a contraction (ch), an expansion, spaces, symbols, digits.
  std::string const latin = "aAb\xE1\xC1"
                            "chC -\xDF"
                            "1";
  int accepted = 0;
  for (unsigned char const language : {english, czech, greek})
    for (unsigned char const format : {0x81, 0x82}) {
      bool const big = format == 0x82;
      std::vector<std::string> keys = {Key("", format & 15, 0, 254)};
      while (keys.size() < 200) {
        std::string const text = RandomText(random, latin, 4);
        bool const wide = random() % 2 != 0;
        keys.push_back(Key(wide ? Wide(text, big) : text, format & 15, wide ? 253 : 1,
                           random() % 8 != 0 ? language : english));
      }
      for (int trial = 0; trial < 1500; ++trial) {
        std::string const text = RandomText(random, latin + "**??", 5);
        unsigned short const op = kOperators[random() % 5] | RandomFlags(random);
        std::string const constant = trial % 3 == 0   ? Stored(Wide(text, big), 253, language, big)
                                     : trial % 3 == 1 ? Stored(text, 1, language, big)
                                                      : Key(text, format & 15, 1, language);
        accepted += ExpectInside(Mgr(), keys, constant, op, format);
        if (HasFailure())
          return;
      }
    }
  EXPECT_GT(accepted, 200000);
}

TEST(StringBounds, NoMatchOfAnyScriptLiesOutside) {
  std::mt19937 random(33);
  unsigned char const languages[] = {1, ZnLanguageContext::FindLanguage("el")->id};
  // Latin, Greek, an ideograph, a mark that composes, a symbol, a digit, a private character.
  std::u16string const units = u"aA\u03B1\u0391\u03AC\u4E2D\u0301-1\uE000";
  auto const draw = [&](std::u16string const & from) {
    std::string text;
    for (unsigned int i = random() % 5; i != 0; --i) {
      char16_t const unit = from[random() % from.size()];
      text += {static_cast<char>(unit), static_cast<char>(unit >> 8)};
    }
    return text;
  };
  std::vector<std::string> keys;
  while (keys.size() < 400)
    keys.push_back(Key(draw(units), 1, 253, languages[random() % 2]));
  int accepted = 0;
  for (int trial = 0; trial < 3000; ++trial) {
    std::string const text = draw(units + u"***??");
    unsigned char const language = languages[random() % 2];
    unsigned short const op = kOperators[random() % 5] | RandomFlags(random);
    accepted += ExpectInside(
        Mgr(), keys, trial % 2 == 0 ? Stored(text, 253, language) : Key(text, 1, 253, language), op,
        0x81);
    if (HasFailure())
      return;
  }
  EXPECT_GT(accepted, 50000);
}

TEST(StringBounds, NoMatchingBytesLieOutside) {
  std::mt19937 random(30);
  std::string const bytes = "aAb \xE1*";
  std::vector<std::string> keys, oldKeys;
  while (keys.size() < 200) {
    std::string const text = RandomText(random, bytes, 4);
    keys.push_back(Stored(text, 0, 0));
    oldKeys.push_back(Old(text));
  }
  int accepted = 0;
  for (int trial = 0; trial < 1500; ++trial) {
    std::string const text = RandomText(random, bytes + "*?", 4);
    unsigned short const op = kOperators[random() % 5] | RandomFlags(random);
    accepted += ExpectInside(Mgr(), keys, Stored(text, 0, 0), op, 0x81);
    accepted += ExpectInside(OldMgr(), oldKeys, Old(text), op, 1);
    if (HasFailure())
      return;
  }
  EXPECT_GT(accepted, 50000);
}

TEST(StringBounds, AnyBytesGiveAnAnswer) {
  std::mt19937 random(31);
  for (int trial = 0; trial < 3000; ++trial) {
    // A length field, then anything; the row trusts the field of the constant alone.
    bool const big = random() % 2 != 0;
    unsigned int const length = random() % 24;
    std::string constant{static_cast<char>(big ? 0 : length), static_cast<char>(big ? length : 0)};
    constexpr unsigned char kCodeSets[] = {0, 1, 30, 224, 225, 253, 254, 255};
    while (constant.size() < length + 2)
      constant += static_cast<char>(constant.size() == 2 ? kCodeSets[random() % 8]
                                    : random() % 3 != 0  ? random() % 256
                                                         : "*a?\0"[random() % 4]);
    auto const part = [&](std::string const & whole) {
      return whole.substr(0, random() % (whole.size() + 1));
    };
    Area area(part(constant), part(Key("abc")));
    if (random() % 8 == 0)
      area.highKey = nullptr; // whatever its length says
    Bounds out;
    if (random() % 4 == 0) {
      std::string const known = part(constant);
      out.lowLength = static_cast<unsigned char>(known.size());
      out.lowKey = std::malloc(known.size() + 1);
      std::memcpy(out.lowKey, known.data(), known.size());
    }
    out.keyLimit = static_cast<unsigned char>(random() % 256);
    auto op = static_cast<unsigned short>(random() % 8 | RandomFlags(random));
    bool const isOld = random() % 4 == 0;
    if ((op & 7) == 0)
      continue; // reported
    float const share =
        Bound(isOld ? OldMgr() : Mgr(), constant, op,
              static_cast<unsigned char>(big ? 2 : random() % 128 * 2 | 1), &area, &out);
    EXPECT_FALSE(share != share || share < 0) << Hex(constant.data(), constant.size());
    EXPECT_LE(out.highLength, 254);
  }
}

// ---- Steps --------------------------------------------------------------------------------------

TEST(StringStep, KeysByteByByte) {
  std::string const abc = "0A00FE010C501050145000FF";
  struct StepCase {
    char const * what;
    std::string key;
    unsigned char format, code;
    int result;
    std::string expected;
  };
  std::string const key = Key("abc");
  std::string const cut = key.substr(0, 10), spare = key + std::string(4, '\xEE');
  std::string const bytes = Stored("abc", 0, 0);
  for (StepCase const & c : std::vector<StepCase>{
           {"the end mark gives way", key, 0x81, 'M', 0, "0C00FE010C50105014500C50"},
           {"and N steps alike", key, 0x81, 'N', 0, "0C00FE010C50105014500C50"},
           {"the end mark moves", spare, 0x81, 'M', 0, "0C00FE010C50105014500C5000FFEEEE"},
           {"no room", cut, 0x81, 'M', 0, "0A00FE010C501050FEFF"},
           {"half a unit is no room", key.substr(0, 11), 0x81, 'M', 0, "0A00FE010C501050FEFF00"},
           {"half a unit in front of the end mark", "\x0B" + key.substr(1), 0x81, 'M', 0,
            "0C00FE010C50105014500C50"},
           {"a wildcard", Key("ab*c"), 0x81, 'M', 0, "0C00FE010C501050FEFF145000FF"},
           {"stays under N", Key("a*"), 0x81, 'N', 0, "0A00FE010C509F000C50"},
           {"bytes", bytes, 0x81, 'M', 0,
            "0800000061626361"
            "00"},
           {"a wildcard byte", Stored("a?", 0, 0), 0x81, 'M', 0, "0600000061FF00FF"},
           {"the last byte", bytes.substr(0, 7), 0x81, 'M', 0, "07000000616264"},
           {"of which there is none above", Stored("a\xFF", 0, 0).substr(0, 6), 0x81, 'M',
            ZnErrNoNextValue, "0600000061FF"},
           {"an empty key", Key(""), 0x81, 'M', 0, "0600FE010C50"},
           {"a head alone", Key("a").substr(0, 4), 0x81, 'M', ZnErrNoNextValue, "0600FE01"},
           {"less than a head", Key("a").substr(0, 3), 0x81, 'M', ZnErrNotSupported, "0600FE"},
           {"now", key, 0x81, 'O', ZnErrNotSupported, abc},
           {"the lowest", key, 0x81, 2, ZnErrNotSupported, abc},
           {"not a key", key, 1, 'M', ZnErrNotSupported, abc},
           {"high byte first", key, 0x82, 'M', ZnErrNotSupported, abc},
           {"memory", key, 8, 'M', ZnErrNotSupported, abc},
       }) {
    Block const block(c.key);
    EXPECT_EQ(Mgr().GetValue(ZnSTRING_T, block.data.get(), static_cast<unsigned int>(block.size),
                             c.format, c.code),
              c.result)
        << c.what;
    EXPECT_EQ(Hex(block.data.get(), block.size), c.expected) << c.what;
    EXPECT_EQ(OldMgr().GetValue(ZnSTRING_T, block.data.get(), 0, 0x81, 'M'), ZnErrNotSupported);
  }
}

TEST(StringStep, KeysDoNotOutgrowTheirLengthField) {
  std::string text = std::string("\xFF\xFF\0\0", 4) + std::string(65540, 'a');
  Block const block(text);
  EXPECT_EQ(Mgr().GetValue(ZnSTRING_T, block.data.get(), 65544, 0x81, 'N'), 0);
  text[4 + 65535 - 4 - 1] = 'b';
  EXPECT_EQ(block.Bytes(), text);
}

TEST(StringStep, NextKeysOrderBehind) {
  std::mt19937 random(32);
  for (int trial = 0; trial < 2000; ++trial) {
    std::string const key = Key(RandomText(random, "abzA-1", 5));
    Block const block(key + std::string(random() % 6, '\0'));
    ASSERT_EQ(Mgr().GetValue(ZnSTRING_T, block.data.get(), static_cast<unsigned int>(block.size),
                             0x81, 'M'),
              0);
    int error = 0;
    EXPECT_GT(Order(Mgr(), block.Bytes(), key, kLiteral, 0x81, error), 0)
        << Hex(key.data(), key.size());
  }
}

} // namespace
