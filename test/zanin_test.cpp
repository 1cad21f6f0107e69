#include <zanin.h>

#include <gtest/gtest.h>

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
    char16_t const * composed;
    char16_t const * decomposed;
  } const rows[] = {{u"\u00e4", u"a\u0308"},       {u"\u1ead", u"a\u0323\u0302"},
                    {u"\u1ead", u"a\u0302\u0323"}, {u"\u1ead", u"\u00e2\u0323"},
                    {u"\u0439", u"\u0438\u0306"},  {u"\u1f82", u"\u03b1\u0313\u0300\u0345"},
                    {u"\u0623", u"\u0627\u0654"},  {u"\u1e69", u"s\u0323\u0307"}};
  for (auto const & row : rows)
    EXPECT_EQ(ReadUnicode(row.composed), ReadUnicode(row.decomposed));
}

} // namespace
