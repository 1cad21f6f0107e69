#include "codeset.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

/// Code sets: order, mapping and case of their characters.
///
/// Worked example: byte 0xE9 of code set 5 (ISO 8859-5) is U+0449; in code set 25 (KOI8-R) that
/// is byte 0xDD, found by binary search in the set's sorted list of characters; in code set 1,
/// which lacks it, it is `?`.

namespace zntms {

namespace {

constexpr unsigned short NoCharacter = 0xFFFD;
constexpr unsigned short CapitalDottedI = 0x130;
constexpr unsigned short SmallDotlessI = 0x131;

/// Script class of a language; that of the root order if there is no such language.
unsigned char LanguageClass(unsigned char language) {
  return LanguageTable[language < LanguageCount ? language : 0].scriptClass;
}

/// A character of a source set in Unicode. Order numbers have no character.
unsigned short ToUnicode(unsigned short c, unsigned char source) {
  ZnCodeSet const * set = ZnLanguageContext::QueryCodeSet(source);
  if (set->toUnicode != nullptr)
    return set->toUnicode[c & 0xFF];
  return set->id == OrderTextId && c != 0 ? NoCharacter : c;
}

class UnicodeTable final : public ZnOrderTable {
public:
  constexpr UnicodeTable() : ZnOrderTable(WidePagePointers) {}

  ZnCharOrderProps const * Lookup(unsigned short c) const override {
    unsigned short const place = WideEntries[WidePageOf[c >> 8]][c & 0xFF];
    return place != 0 ? &ZnOrderEntryTable[place] : nullptr;
  }
};

constinit UnicodeTable const unicodeTable;

class UnicodeCodeSet final : public ZnCodeSet {
public:
  constexpr UnicodeCodeSet()
      : ZnCodeSet(&unicodeTable, UnicodeId, "UTF-16", "Unicode in units of 16 bits", nullptr) {}

  unsigned char ScriptClass(unsigned char language) const override {
    return LanguageClass(language);
  }
  unsigned short Map(unsigned short c, unsigned char source) const override {
    return ToUnicode(c, source);
  }
};

constinit UnicodeCodeSet const unicodeCodeSet;

// ---- Order text: each unit is its own order number.

constexpr int IdentityEntries = 512;

template <class Item, int Count, class Make>
constexpr std::array<Item, Count> Fill(Make make) {
  return [&]<std::size_t... Index>(std::index_sequence<Index...>) {
    return std::array<Item, Count>{make(Index)...};
  }
  (std::make_index_sequence<Count>());
}

constexpr auto identityEntries = Fill<ZnCharOrderProps, IdentityEntries>([](std::size_t order) {
  return ZnCharOrderProps{0, static_cast<unsigned short>(order), 0, 0, 0, 0, 0, 0, 0, 0};
});

constexpr auto identityPlain =
    Fill<ZnPlainOrder, IdentityEntries + 256>([](std::size_t order) -> ZnPlainOrder {
      if (order >= IdentityEntries)
        return {0, 20, ZnPlainOrder::NoEntry};
      return {static_cast<unsigned short>(order), ZnPlainOrder::LanguageClass, 0};
    });

constexpr auto identityPages = Fill<ZnPlainOrder const *, 256>([](std::size_t page) {
  return &identityPlain[std::min<std::size_t>(page, IdentityEntries / 256) * 256];
});

class OrderTextTable final : public ZnOrderTable {
public:
  constexpr OrderTextTable() : ZnOrderTable(identityPages.data()) {}

  ZnCharOrderProps const * Lookup(unsigned short c) const override {
    return c < IdentityEntries ? &identityEntries[c] : nullptr;
  }
};

constinit OrderTextTable const orderTextTable;

class OrderTextCodeSet final : public ZnCodeSet {
public:
  constexpr OrderTextCodeSet()
      : ZnCodeSet(&orderTextTable, OrderTextId, "x-order-text",
                  "Order numbers, as index keys hold them", nullptr) {}

  unsigned char ScriptClass(unsigned char language) const override { return language; }
  /// The first order number of a character.
  unsigned short Map(unsigned short c, unsigned char source) const override {
    if (source == id)
      return c;
    unsigned short const unicode = ToUnicode(c, source);
    ZnCharOrderProps const * entry = unicodeTable.Lookup(unicode);
    return entry != nullptr ? entry->order : unicode;
  }
};

constinit OrderTextCodeSet const orderTextCodeSet;

// ---- Case

/// Turkish and its relatives have two letters `i`: one with the dot in both cases, one without.
constexpr ZnUnicodeProps dottedSmallI{CapitalDottedI, 0, 0};
constexpr ZnUnicodeProps dotlessCapitalI{0, SmallDotlessI, 0};

/// A constant record as callers get it.
ZnUnicodeProps * Shared(ZnUnicodeProps const & record) {
  return const_cast<ZnUnicodeProps *>(&record);
}

bool HasDottedI(unsigned char language) {
  for (unsigned char const * id = DottedILanguages; *id != 0; ++id) {
    if (*id == language)
      return true;
  }
  return false;
}

} // namespace

ZnCodeSet const * CodeSetOfId(unsigned char id) {
  if (id == UnicodeId)
    return &unicodeCodeSet;
  if (id == OrderTextId)
    return &orderTextCodeSet;
  int const number = id - FirstByteSetId;
  return number >= 0 && number < ByteSetCount ? &ByteCodeSets[number] : nullptr;
}

unsigned char ByteCodeSet::ScriptClass(unsigned char language) const {
  return LanguageClass(language);
}

unsigned short ByteCodeSet::Map(unsigned short c, unsigned char source) const {
  if (source == id)
    return c & 0xFF;
  int const byte = ByteOf(ToUnicode(c, source));
  return byte >= 0 ? static_cast<unsigned short>(byte) : '?';
}

int ByteCodeSet::ByteOf(unsigned short c) const {
  if (c < 0x100 && toUnicode[c] == c)
    return c;
  int const number = id - FirstByteSetId;
  unsigned char const * const last = ByteSetReverse + ByteSetReverseStart[number + 1];
  unsigned char const * const found = std::lower_bound(
      ByteSetReverse + ByteSetReverseStart[number], last, c,
      [this](unsigned char byte, unsigned short value) { return toUnicode[byte] < value; });
  return found != last && toUnicode[*found] == c ? *found : -1;
}

} // namespace zntms

ZnUnicodeProps * ZnCodeSet::GetUnicodeProps(unsigned short c, unsigned char language) const {
  using namespace zntms;
  if (id == OrderTextId)
    return nullptr;
  bool const wide = toUnicode == nullptr;
  if (!wide)
    c &= 0xFF;
  unsigned short const unicode = wide ? c : toUnicode[c];
  if ((unicode == 'i' || unicode == 'I') && HasDottedI(language)) {
    unsigned short const other = unicode == 'i' ? CapitalDottedI : SmallDotlessI;
    if (wide || static_cast<ByteCodeSet const *>(this)->ByteOf(other) >= 0)
      return Shared(unicode == 'i' ? dottedSmallI : dotlessCapitalI);
  }
  unsigned short const place =
      wide ? CasePages[CasePageOf[c >> 8]][c & 0xFF] : ByteSetCases[id - FirstByteSetId][c];
  return place != 0 ? Shared(CaseTable[place]) : nullptr;
}
