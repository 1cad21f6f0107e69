#include <zanin.h>

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <vector>

/// The language component by itself: what its callers rely on, and what holds for every entry.

namespace {

/// One lookup as `GetNextOrder` does it: the longest contraction in the root order.
struct Reading {
  unsigned char scriptClass = 0;
  std::vector<unsigned short> orders;
  bool operator==(Reading const &) const = default;
};

ZnCharOrderProps const * VariantOf(ZnCharOrderProps const * entry, unsigned char language) {
  for (int i = 0; entry->hasVariants != 0 && i < entry->variantLanguages->count; ++i) {
    ZnLanguage const * other = nullptr;
    EXPECT_EQ(entry->variantLanguages->Read(i, other), 0);
    if (other == ZnLanguageContext::QueryLanguage(language)) {
      ZnCharOrderProps const * variant = nullptr;
      EXPECT_EQ(entry->variantEntries->Read(i, variant), 0);
      return variant;
    }
  }
  return entry;
}

/// Reads a whole text of code set `set`, one `Reading` for each entry.
std::vector<Reading> ReadText(ZnCodeSet const * set, std::u16string const & text,
                              unsigned char language = 0) {
  std::vector<Reading> result;
  for (std::size_t i = 0; i < text.size();) {
    ZnCharOrderProps const * entry = set->orderTable->Lookup(text[i++]);
    if (entry == nullptr) {
      result.push_back({20, {text[i - 1]}});
      continue;
    }
    entry = VariantOf(entry, language);
    for (bool found = true; found && i < text.size() && entry->hasContractions != 0;) {
      found = false;
      for (int k = 0; !found && k < entry->contractionChars->count; ++k) {
        if (entry->contractionChars->items[k] == text[i]) {
          EXPECT_EQ(entry->contractionEntries->Read(k, entry), 0);
          ++i;
          found = true;
        }
      }
    }
    Reading reading{entry->classRef != nullptr ? *entry->classRef : static_cast<unsigned char>(0),
                    {entry->order}};
    for (int k = 0; entry->hasExpansion != 0 && k < entry->expansion->count; ++k)
      reading.orders.push_back(entry->expansion->items[k]);
    result.push_back(reading);
  }
  return result;
}

ZnCodeSet const * Unicode() { return ZnLanguageContext::QueryCodeSet(253); }

std::vector<Reading> ReadUnicode(std::u16string const & text, unsigned char language = 0) {
  return ReadText(Unicode(), text, language);
}

TEST(Zanin, DefaultsComeBackWithTheStart) {
  ZnLanguageContext::SetDefaultCodeSet(253);
  EXPECT_EQ(ZnLanguageContext::GetDefaultCodeSet(), 253);
  EXPECT_EQ(ZnLanguageContext::GetDefault8CodeSet(), 1);
  ZnLanguageContext::SetDefaultCodeSet(5);
  EXPECT_EQ(ZnLanguageContext::GetDefault8CodeSet(), 5);
  EXPECT_EQ(ZnLanguageContext::GetDefault16CodeSet(), 253);
  ZnLanguageContext::SetDefaultCodeSet(0);
  EXPECT_EQ(ZnLanguageContext::GetDefault8CodeSet(), 5);
  ZnLanguageContext::SetDefaultCodeSet(225); // the first with two bytes a character
  EXPECT_EQ(ZnLanguageContext::GetDefault8CodeSet(), 5);
  EXPECT_EQ(ZnLanguageContext::GetDefault16CodeSet(), 225);
  ZnLanguageContext::SetDefaultLanguage(7);
  ZnLanguageContext::SetDefaultCmpOp(0x30);
  EXPECT_EQ(ZnLanguageContext::GetDefaultLanguage(), 7);
  EXPECT_EQ(ZnLanguageContext::GetDefaultCmpOp(), 0x30);
  ___ZnI18NContext(1);
  EXPECT_EQ(ZnLanguageContext::GetDefaultCodeSet(), 1);
  EXPECT_EQ(ZnLanguageContext::GetDefault8CodeSet(), 1);
  EXPECT_EQ(ZnLanguageContext::GetDefault16CodeSet(), 253);
  EXPECT_EQ(ZnLanguageContext::GetNativeCodeSet(), 1);
  EXPECT_EQ(ZnLanguageContext::GetDefaultLanguage(), 1);
  EXPECT_EQ(ZnLanguageContext::GetDefaultCmpOp(), 0);
}

TEST(Zanin, EveryCodeSetIdGivesARecord) {
  for (int id = 0; id < 256; ++id) {
    ZnCodeSet const * set = ZnLanguageContext::QueryCodeSet(static_cast<unsigned char>(id));
    ASSERT_NE(set, nullptr) << id;
    if (id != 0 && ZnLanguageContext::HasCodeSet(static_cast<unsigned char>(id))) {
      EXPECT_EQ(set->id, id);
      EXPECT_EQ(ZnLanguageContext::FindCodeSet(set->name), set) << set->name;
    } else {
      EXPECT_EQ(set->id, id >= 225 ? 253 : 1);
    }
    EXPECT_EQ(set->ScriptClass(3), set->id == 254 ? 3 : 7) << id;
  }
  struct {
    char const * name;
    int id;
  } const rows[] = {{"iso_8859-1", 1}, {"LATIN2", 2}, {"windows1252", 18}, {"KOI8-U", 26},
                    {"utf-16", 253},   {"cp437", 27}, {"macintosh", 44}};
  for (auto const & row : rows) {
    ASSERT_NE(ZnLanguageContext::FindCodeSet(row.name), nullptr) << row.name;
    EXPECT_EQ(ZnLanguageContext::FindCodeSet(row.name)->id, row.id) << row.name;
  }
  EXPECT_EQ(ZnLanguageContext::FindCodeSet("EBCDIC-nowhere"), nullptr);
}

TEST(Zanin, FixedSymbolOrders) {
  struct {
    char16_t c;
    unsigned short order;
  } const rows[] = {
      {'_', 112},    {0xAF, 114},   {0xAD, 115},   {'-', 116},   {',', 117},   {';', 118},
      {':', 119},    {'!', 120},    {0xA1, 121},   {'?', 122},   {'/', 124},   {'.', 126},
      {0xB7, 129},   {0xB8, 130},   {'\'', 132},   {'"', 135},   {0xAB, 138},  {0xBB, 139},
      {'(', 140},    {')', 142},    {'[', 144},    {']', 145},   {'{', 146},   {'}', 147},
      {0xA7, 148},   {0xB6, 149},   {0xA9, 150},   {0xAE, 151},  {'@', 153},   {0xA4, 154},
      {0xA2, 155},   {'$', 156},    {0xA3, 157},   {0xA5, 158},  {'*', 159},   {'\\', 160},
      {'&', 161},    {'#', 162},    {'%', 163},    {'+', 165},   {0xB1, 167},  {0xB4, 168},
      {'`', 169},    {'^', 171},    {0xA8, 174},   {'~', 176},   {0xF7, 178},  {0xD7, 179},
      {'<', 181},    {'=', 183},    {'>', 185},    {0xAC, 186},  {'|', 187},   {0xA6, 188},
      {0xB0, 189},   {0xB5, 190},   {0xBF, 219},   {'0', 16128}, {'9', 16218}, {'A', 0x400C},
      {'a', 0x500C}, {'Z', 0x4070}, {0xE9, 0x511C}};
  for (auto const & row : rows) {
    for (unsigned char id : {1, 253}) {
      ZnCharOrderProps const * entry =
          ZnLanguageContext::QueryCodeSet(id)->orderTable->Lookup(row.c);
      EXPECT_EQ(entry->order, row.order) << int(row.c) << " in " << int(id);
    }
  }
}

TEST(Zanin, ComposedAndDecomposedReadAlike) {
  struct {
    char const * language;
    char16_t const * composed;
    char16_t const * decomposed;
  } const rows[] = {{"und", u"\u00e4", u"a\u0308"},
                    {"und", u"\u1ead", u"a\u0323\u0302"},
                    {"und", u"\u1ead", u"a\u0302\u0323"},
                    {"und", u"\u1ead", u"\u00e2\u0323"},
                    {"und", u"\u00e2\u0331", u"a\u0331\u0302"},
                    {"und", u"\u0439", u"\u0438\u0306"},
                    {"und", u"\u1f82", u"\u03b1\u0313\u0300\u0345"},
                    {"und", u"\u0623", u"\u0627\u0654"},
                    {"und", u"\u1e69", u"s\u0323\u0307"},
                    {"sv", u"\u00e5", u"a\u030a"},
                    {"sv", u"\u01fb", u"a\u030a\u0301"},
                    {"da", u"a\u00e1", u"aa\u0301"},
                    {"vi", u"\u1ea5", u"a\u0302\u0301"},
                    {"hr", u"d\u017e", u"dz\u030c"},
                    {"yo", u"\u1eb9\u0301", u"e\u0323\u0301"}};
  for (auto const & row : rows) {
    unsigned char const language = ZnLanguageContext::FindLanguage(row.language)->id;
    EXPECT_EQ(ReadUnicode(row.composed, language), ReadUnicode(row.decomposed, language))
        << row.language << ' ' << int(row.composed[0]);
  }
}

TEST(Zanin, BaseLetterTakesAMarkWithoutComposedForm) {
  struct {
    char16_t const * text;
    unsigned short order; // diacritic in bits 11 to 7
  } const rows[] = {{u"q\u0301", 0x514C}, {u"Q\u0301", 0x414C}, {u"x\u0303", 0x52E8}};
  for (auto const & row : rows) {
    std::vector<Reading> const readings = ReadUnicode(row.text);
    ASSERT_EQ(readings.size(), 1u);
    EXPECT_EQ(readings[0].orders[0], row.order) << int(row.text[0]);
  }
  // A mark that stands alone is the symbol 80 + its diacritic value.
  EXPECT_EQ(ReadUnicode(u"\u0301")[0].orders[0], 82);
}

TEST(Zanin, OrderOfWordsByFields) {
  // Each row is in order at the primary level of its language; first differing letters decide.
  struct {
    char const * language;
    std::vector<std::u16string> letters;
  } const rows[] = {
      {"en", {u"a", u"b", u"y", u"z", u"\u00fe"}},
      {"sv", {u"z", u"\u00e5", u"\u00e4", u"\u00f6"}},
      {"da", {u"z", u"\u00e6", u"\u00f8", u"\u00e5"}},
      {"de", {u"a", u"b"}},
      {"es", {u"n", u"\u00f1", u"o"}},
      {"es-u-co-trad", {u"c", u"ch", u"d", u"l", u"ll", u"m"}},
      {"et",
       {u"s", u"\u0161", u"z", u"\u017e", u"t", u"w", u"\u00f5", u"\u00e4", u"\u00f6", u"\u00fc",
        u"x", u"y"}},
      {"hu", {u"c", u"cs", u"d", u"dz", u"dzs", u"e", u"g", u"gy"}},
      {"cy", {u"c", u"ch", u"d", u"dd", u"e", u"f", u"ff", u"g", u"ng", u"h"}},
      {"tr", {u"c", u"\u00e7", u"d", u"g", u"\u011f", u"h", u"\u0131", u"i", u"j"}},
      {"vi", {u"a", u"\u0103", u"\u00e2", u"b", u"o", u"\u00f4", u"\u01a1", u"p"}},
      {"el", {u"\u03b1", u"\u03b2", u"\u03c9"}},
      {"ru", {u"\u0435", u"\u0436", u"\u0438", u"\u0439", u"\u043a", u"\u044f"}},
      {"uk", {u"\u0433", u"\u0491", u"\u0434", u"\u0456", u"\u0457", u"\u0439", u"\u044f"}},
      {"he", {u"\u05d0", u"\u05d1", u"\u05ea"}},
      {"hi", {u"\u0902", u"\u0905", u"\u0915", u"\u0916", u"\u0939"}},
      {"th", {u"\u0e01", u"\u0e02", u"\u0e2e"}}};
  for (auto const & row : rows) {
    ZnLanguage const * language = ZnLanguageContext::FindLanguage(row.language);
    ASSERT_NE(language, nullptr) << row.language;
    unsigned last = 0;
    for (std::u16string const & letter : row.letters) {
      std::vector<Reading> const readings = ReadUnicode(letter, language->id);
      ASSERT_EQ(readings.size(), 1u) << row.language << ' ' << int(letter[0]);
      EXPECT_EQ(readings[0].scriptClass, language->scriptClass) << row.language;
      unsigned const primary = readings[0].orders[0] & 0x407Fu;
      EXPECT_GT(primary, last) << row.language << ' ' << int(letter[0]);
      last = primary;
    }
  }
}

/// The order number of a letter in a language.
unsigned OrderIn(char const * language, char16_t letter) {
  ZnLanguage const * const record = ZnLanguageContext::FindLanguage(language);
  std::vector<Reading> const readings = ReadUnicode({letter}, record->id);
  EXPECT_EQ(readings.size(), 1u) << language << ' ' << int(letter);
  return readings[0].orders[0];
}

TEST(Zanin, AccentsOfALanguageFollowItsRules) {
  // Each row is one letter; its accents are in order.
  struct {
    char const * language;
    std::u16string letters;
  } const rows[] = {
      {"vi", u"a\u00e0\u1ea3\u00e3\u00e1\u1ea1"},
      {"vi", u"\u0103\u1eb1\u1eb3\u1eb5\u1eaf\u1eb7"},
      {"vi", u"i\u00ec\u1ec9\u0129\u00ed\u1ecb"},
      {"vi", u"Y\u1ef2\u1ef6\u1ef8\u00dd\u1ef4"},
      {"to", u"a\u00e1\u0101"},
      {"to", u"E\u00c9\u0112"},
      {"de-u-co-eor", u"a\u00e1\u00e0"},
  };
  for (auto const & row : rows) {
    unsigned const first = OrderIn(row.language, row.letters[0]);
    int last = -1;
    for (char16_t const letter : row.letters) {
      unsigned const order = OrderIn(row.language, letter);
      EXPECT_EQ(order & 0x707F, first & 0x707F) << row.language << ' ' << int(letter);
      EXPECT_GT(static_cast<int>(order >> 7 & 31), last) << row.language << ' ' << int(letter);
      last = static_cast<int>(order >> 7 & 31);
    }
  }
  // Case alone, even where two letters count as one.
  for (std::u16string_view const pair : {u"\u0219\u0218", u"\u015f\u015e", u"\u021b\u021a"})
    EXPECT_EQ(OrderIn("ro", pair[0]) & ~0x3000u, OrderIn("ro", pair[1]) & ~0x3000u);
}

TEST(Zanin, DigitsOfAllScriptsHaveTheirValue) {
  char16_t const zeros[] = {0x30,  0x660,  0x6F0,  0x966,  0x9E6,  0xA66, 0xAE6,
                            0xB66, 0xBE6,  0xC66,  0xCE6,  0xD66,  0xE50, 0xED0,
                            0xF20, 0x1040, 0x17E0, 0x1810, 0xA8D0, 0xFF10};
  for (char16_t zero : zeros) {
    for (unsigned value = 0; value < 10; ++value) {
      ZnCharOrderProps const * entry =
          Unicode()->orderTable->Lookup(static_cast<unsigned short>(zero + value));
      ASSERT_NE(entry, nullptr) << int(zero);
      EXPECT_EQ(entry->order, 16128 + 10 * value) << int(zero);
      EXPECT_EQ(entry->classRef, nullptr);
    }
  }
}

/// What holds for every entry, wherever it is reached.
class EveryEntry {
public:
  void Visit(ZnCharOrderProps const * entry) {
    if (!seen.insert(entry).second)
      return;
    bool const letter = (entry->order & 0xC000) == 0x4000;
    EXPECT_LT(entry->order, 0x8000);
    if (letter) {
      ASSERT_NE(entry->classRef, nullptr);
      EXPECT_GE(*entry->classRef, 1);
      EXPECT_LT(*entry->classRef, 20);
      EXPECT_LE(entry->order >> 12 & 3, 1) << "case is 0 or 1";
    }
    if (entry->order >= 16128 && entry->order < 16384) {
      EXPECT_LT((entry->order & ~1) - 16128, 100);
      EXPECT_EQ(entry->order & 1, entry->hasExpansion) << "bit 0: digit with expansion";
    }
    EXPECT_EQ(entry->hasExpansion != 0, entry->expansion != nullptr);
    EXPECT_EQ(entry->hasVariants != 0, entry->variantLanguages != nullptr);
    EXPECT_EQ(entry->hasContractions != 0, entry->contractionChars != nullptr);
    for (int i = 0; entry->hasExpansion != 0 && i < entry->expansion->count; ++i)
      EXPECT_NE(entry->expansion->items[i], 0);
    Each(entry->contractionEntries);
    Each(entry->variantEntries);
    if (entry->hasContractions != 0) {
      EXPECT_EQ(entry->contractionChars->count, entry->contractionEntries->count);
    }
    for (int i = 0; entry->hasVariants != 0 && i < entry->variantLanguages->count; ++i) {
      ZnLanguage const * language = nullptr;
      ASSERT_EQ(entry->variantLanguages->Read(i, language), 0);
      EXPECT_NE(language->hasTailoring, 0) << language->tag;
    }
  }
  std::size_t Count() const { return seen.size(); }

private:
  void Each(ZnOrderEntryList const * list) {
    ZnCharOrderProps const * entry = nullptr;
    for (int i = 0; list != nullptr && list->Read(i, entry) == 0; ++i)
      Visit(entry);
  }
  std::set<ZnCharOrderProps const *> seen;
};

TEST(Zanin, EveryEntryHasALegalForm) {
  EveryEntry every;
  for (int id = 1; id < 254; ++id) {
    if (!ZnLanguageContext::HasCodeSet(static_cast<unsigned char>(id)))
      continue;
    ZnCodeSet const * set = ZnLanguageContext::QueryCodeSet(static_cast<unsigned char>(id));
    for (int c = 0; c < (id == 253 ? 65536 : 256); ++c) {
      ZnCharOrderProps const * entry = set->orderTable->Lookup(static_cast<unsigned short>(c));
      ZnPlainOrder const & plain = set->orderTable->Plain(static_cast<unsigned short>(c));
      if (entry == nullptr) {
        EXPECT_GE(c, 512);
        EXPECT_EQ(plain.traits, ZnPlainOrder::NoEntry);
        continue;
      }
      every.Visit(entry);
      // The shortcut tells the same.
      EXPECT_EQ(plain.order, entry->order);
      EXPECT_EQ(plain.scriptClass,
                entry->classRef != nullptr ? *entry->classRef : ZnPlainOrder::LanguageClass);
      EXPECT_EQ((plain.traits & ZnPlainOrder::HasVariants) != 0, entry->hasVariants != 0);
      EXPECT_EQ((plain.traits & ZnPlainOrder::HasExpansion) != 0, entry->hasExpansion != 0);
      bool low = false, marks = false;
      for (int i = 0; entry->hasContractions != 0 && i < entry->contractionChars->count; ++i) {
        unsigned short const next = entry->contractionChars->items[i];
        if (id == 253 || next < 256)
          (next < 768 ? low : marks) = true;
      }
      EXPECT_EQ((plain.traits & ZnPlainOrder::Contracts) != 0, low) << id << ' ' << c;
      EXPECT_EQ((plain.traits & ZnPlainOrder::ContractsWithMarks) != 0, marks && !low)
          << id << ' ' << c;
    }
  }
  EXPECT_GT(every.Count(), 10000u);
}

/// The fingerprint, computed anew by a walk over all tables: FNV-1a over 16-bit words, an entry
/// counting by the hash of its content.
class Fingerprint {
public:
  static constexpr unsigned long long Start = 0xCBF29CE484222325ULL;

  static void Fold(unsigned long long & value, unsigned word) {
    for (int shift : {0, 8})
      value = (value ^ (word >> shift & 255)) * 0x100000001B3ULL;
  }
  static void FoldHash(unsigned long long & value, unsigned long long hash) {
    for (int shift : {0, 16, 32, 48})
      Fold(value, static_cast<unsigned>(hash >> shift & 0xFFFF));
  }
  unsigned long long Of(ZnCharOrderProps const * entry) {
    if (auto const found = known.find(entry); found != known.end())
      return found->second;
    unsigned long long value = Start;
    Fold(value, entry->classRef != nullptr ? *entry->classRef : 0u);
    Fold(value, entry->order);
    FoldItems(value, entry->expansion);
    FoldEntries(value, entry, entry->contractionEntries,
                [&](int i) { return unsigned(entry->contractionChars->items[i]); });
    FoldEntries(value, entry, entry->variantEntries,
                [&](int i) { return unsigned(entry->variantLanguages->ids[i]); });
    return known[entry] = value;
  }

private:
  static void FoldItems(unsigned long long & value, ZnWCharList const * list) {
    Fold(value, list != nullptr ? static_cast<unsigned>(list->count) : 0u);
    for (int i = 0; list != nullptr && i < list->count; ++i)
      Fold(value, list->items[i]);
  }
  template <class Name>
  void FoldEntries(unsigned long long & value, ZnCharOrderProps const * from,
                   ZnOrderEntryList const * list, Name name) {
    Fold(value, list != nullptr ? static_cast<unsigned>(list->count) : 0u);
    for (int i = 0; list != nullptr && i < list->count; ++i) {
      Fold(value, name(i));
      FoldHash(value, (*list)[i] == from ? 0 : Of((*list)[i]));
    }
  }
  std::map<ZnCharOrderProps const *, unsigned long long> known;
};

TEST(Zanin, FingerprintIsHeld) {
  Fingerprint prints;
  unsigned long long total = Fingerprint::Start;
  for (int c = 0; c < 65536; ++c) {
    if (auto const * entry = Unicode()->orderTable->Lookup(static_cast<unsigned short>(c))) {
      Fingerprint::Fold(total, static_cast<unsigned>(c));
      Fingerprint::FoldHash(total, prints.Of(entry));
    }
  }
  for (unsigned id = 1; id < 225; ++id) {
    if (!ZnLanguageContext::HasCodeSet(static_cast<unsigned char>(id)))
      continue;
    for (unsigned c = 0; c < 256; ++c) {
      Fingerprint::Fold(total, id);
      Fingerprint::Fold(total, c);
      Fingerprint::FoldHash(
          total, prints.Of(ZnLanguageContext::QueryCodeSet(static_cast<unsigned char>(id))
                               ->orderTable->Lookup(static_cast<unsigned short>(c))));
    }
  }
  for (unsigned id = 0; id < 256; ++id) {
    if (ZnLanguage const * language =
            ZnLanguageContext::QueryLanguage(static_cast<unsigned char>(id))) {
      Fingerprint::Fold(total, id);
      Fingerprint::Fold(total, language->scriptClass);
    }
  }
  EXPECT_EQ(ZnLanguageContext::OrderFingerprint(), total);
  // A change of order is a decision: raise the version, write down what moved, change this number.
  EXPECT_EQ(ZnLanguageContext::OrderVersion(), 2u);
  EXPECT_EQ(total, 0x42bc0e848a4365d1ULL);
}

TEST(Zanin, MappingGoesThroughUnicode) {
  for (int id = 1; id < 225; ++id) {
    if (!ZnLanguageContext::HasCodeSet(static_cast<unsigned char>(id)))
      continue;
    ZnCodeSet const * set = ZnLanguageContext::QueryCodeSet(static_cast<unsigned char>(id));
    EXPECT_EQ(set->Map(0, 253), 0);
    EXPECT_EQ(Unicode()->Map(0, set->id), 0);
    EXPECT_EQ(set->Map(0x4E00, 253), '?') << set->name;
    for (unsigned short byte = 1; byte < 256; ++byte) {
      unsigned short const unicode = Unicode()->Map(byte, set->id);
      if (unicode != 0xFFFD) {
        EXPECT_EQ(Unicode()->Map(set->Map(unicode, 253), set->id), unicode)
            << set->name << ' ' << byte;
      }
    }
  }
  EXPECT_EQ(ZnLanguageContext::QueryCodeSet(25)->Map(0xE9, 5), 0xDD); // ISO 8859-5 to KOI8-R
  EXPECT_EQ(ZnLanguageContext::QueryCodeSet(1)->Map(0xE9, 5), '?');
  EXPECT_EQ(Unicode()->Map(0x500C, 254), 0xFFFD);
  for (auto const & [c, source] : {std::pair(0x500C, 254), std::pair(int('a'), 1)})
    EXPECT_EQ(ZnLanguageContext::QueryCodeSet(254)->Map(static_cast<unsigned short>(c),
                                                        static_cast<unsigned char>(source)),
              0x500C);
}

TEST(Zanin, CasePairs) {
  struct {
    int codeSet;
    unsigned short c;
    char const * language;
    unsigned short upper, lower; // 0 for none
    std::vector<unsigned short> more;
  } const rows[] = {{253, 'a', "en", 'A', 0, {}},
                    {253, 'A', "en", 0, 'a', {}},
                    {253, 0xDF, "de", 'S', 0, {'S'}},
                    {1, 0xFFE4, "de", 0xC4, 0, {}}, // sign-extended
                    {1, 0xDF, "de", 'S', 0, {'S'}},
                    {253, 0xFF, "fr", 0x178, 0, {}},
                    {253, 0xFB03, "en", 'F', 0, {'F', 'I'}},
                    {253, 'i', "tr", 0x130, 0, {}},
                    {253, 'I', "tr", 0, 0x131, {}},
                    {9, 'i', "tr", 0x130, 0, {}},
                    {1, 'i', "tr", 'I', 0, {}}, // the set lacks the letter with the dot
                    {17, 0xE0, "ru", 0x410, 0, {}},
                    {253, 0x3B1, "el", 0x391, 0, {}}};
  for (auto const & row : rows) {
    ZnUnicodeProps const * props =
        ZnLanguageContext::QueryCodeSet(static_cast<unsigned char>(row.codeSet))
            ->GetUnicodeProps(row.c, ZnLanguageContext::FindLanguage(row.language)->id);
    ASSERT_NE(props, nullptr) << row.c;
    EXPECT_EQ(props->upper, row.upper) << row.c;
    EXPECT_EQ(props->lower, row.lower) << row.c;
    std::vector<unsigned short> more;
    if (props->upperList != nullptr)
      more.assign(props->upperList->items, props->upperList->items + props->upperList->count);
    EXPECT_EQ(more, row.more) << row.c;
  }
  // No case, or none that the code set has: no mapping into a question mark.
  EXPECT_EQ(Unicode()->GetUnicodeProps('1', 1), nullptr);
  EXPECT_EQ(ZnLanguageContext::QueryCodeSet(1)->GetUnicodeProps(0xFF, 1), nullptr);
  EXPECT_EQ(ZnLanguageContext::QueryCodeSet(254)->GetUnicodeProps('a', 1), nullptr);
}

TEST(Zanin, LanguagesAreFoundByTag) {
  struct {
    char const * tag;
    char const * found; // null for none
  } const rows[] = {{"und", "und"},
                    {"en", "en"},
                    {"en-US", "en"},
                    {"de-AT", "de"},
                    {"DE_de", "de"},
                    {"de-AT-u-co-phonebk", "de-AT-u-co-phonebk"},
                    {"de-CH-u-co-phonebk", "de-u-co-phonebk"},
                    {"fr-u-co-phonebk", "fr"},
                    {"es-MX-u-co-trad", "es-u-co-trad"},
                    {"sr-Latn-RS", "sr-Latn"},
                    {"sr", "sr"},
                    {"iw", "he"},
                    {"zh-Hant-TW", "zh"},
                    {"xx", nullptr},
                    {"", nullptr}};
  for (auto const & row : rows) {
    ZnLanguage const * language = ZnLanguageContext::FindLanguage(row.tag);
    if (row.found == nullptr)
      EXPECT_EQ(language, nullptr) << row.tag;
    else
      EXPECT_STREQ(language != nullptr ? language->tag : "none", row.found) << row.tag;
  }
  int tailored = 0;
  for (int id = 0; id < 256; ++id) {
    ZnLanguage const * language = ZnLanguageContext::QueryLanguage(static_cast<unsigned char>(id));
    if (language == nullptr)
      continue;
    EXPECT_EQ(language->id, id);
    EXPECT_EQ(ZnLanguageContext::FindLanguage(language->tag), language);
    EXPECT_GE(language->scriptClass, 1);
    EXPECT_LT(language->scriptClass, 20);
    tailored += language->hasTailoring != 0;
  }
  EXPECT_GE(tailored, 60);
  EXPECT_EQ(ZnLanguageContext::QueryLanguage(254), nullptr);
  EXPECT_EQ(ZnLanguageContext::QueryLanguage(255), nullptr);
}

} // namespace
