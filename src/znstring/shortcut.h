#pragma once

#include "zanin.h"
#include "znstring/order_entry.h"

#include <atomic>
#include <cstring>

/// The shortcuts of the order tables: what comparison reads of a plain character.
///
/// Worked example: `A` of code set 1 with the order 0x4A0C of class 5 (Latin) has the shortcut
/// 0x00054A0C: no traits, the class, the order. The bits 0xFF407F of it are its first level.

namespace zntms {

using OrderPages = ZnPlainOrder const * const *;

/// Below this character there are neither marks nor format characters that change nothing.
template <int Width>
inline constexpr unsigned short kFirstThatRepeats = Width == 1 ? 128 : kFirstMark;

/// What the shortcuts say in one language.
struct LanguageOrders {
  OrderPages pages; ///< of the code set; with a tailoring some have their own letters

  /// Below this character none joins with the next in a contraction, unless that is a combining
  /// mark, and none is a mark.
  unsigned short quiet;
};

/// The orders of code sets and languages that were asked for before, by id.
///
/// The tables of the language component stay where they are, and so does what is found here. A
/// tailored language has copies of the pages in which it has letters of its own, some kilobytes.
/// Two threads may find the same at once; one of them keeps it.
class KnownOrders {
public:
  /// Null for what was not asked for yet.
  LanguageOrders const * Get(unsigned char codeSet, unsigned char language) const {
    return known_[codeSet][language].load(std::memory_order_acquire);
  }

  /// Null if the code set has no order table, or if there is no memory: then texts can still be
  /// read by iterators.
  [[gnu::cold]] LanguageOrders const * Find(unsigned char codeSet, unsigned char language);

private:
  std::atomic<LanguageOrders const *> known_[256][256];
};

extern constinit KnownOrders knownOrders;

/// The same, asked for once; neither id is a stand-in for a default.
inline LanguageOrders const * OrdersOf(unsigned char codeSet, unsigned char language) {
  LanguageOrders const * const orders = knownOrders.Get(codeSet, language);
  return orders != nullptr ? orders : knownOrders.Find(codeSet, language);
}

/// The shortcut of one character as one number, from high to low: traits, class, order.
class Shortcut {
public:
  constexpr Shortcut() = default;

  /// A letter before all that there are, to stand for the end of a text.
  static constexpr Shortcut LowestLetter() {
    Shortcut lowest;
    lowest.bits_ = 0x4000;
    return lowest;
  }
  Shortcut(OrderPages pages, unsigned short c) {
    static_assert(sizeof bits_ == sizeof(ZnPlainOrder));
    std::memcpy(&bits_, &pages[c >> 8][c & 255], sizeof bits_);
  }

  constexpr unsigned short Order() const { return static_cast<unsigned short>(bits_); }
  constexpr unsigned char ScriptClass() const { return static_cast<unsigned char>(bits_ >> 16); }
  /// The traits that matter. Variants never do: the pages have those of the language.
  constexpr unsigned int Traits() const {
    return bits_ >> 24 & ~static_cast<unsigned int>(ZnPlainOrder::HasVariants);
  }

  /// Whether the shortcut tells everything of the character, the one behind being `next`.
  template <int Width>
  constexpr bool TellsAll(unsigned short next) const {
    return (Traits() & TraitsBefore<Width>(next)) == 0;
  }

  /// The traits that matter of a character in front of `next`: it may be a combining mark or not.
  template <int Width>
  static constexpr unsigned int TraitsBefore(unsigned int next) {
    bool const mark = Width == 2 && next >= kFirstMark;
    return 255 & ~(ZnPlainOrder::HasVariants | (mark ? 0u : +ZnPlainOrder::ContractsWithMarks));
  }

  /// A letter of a script, if the shortcut tells everything: then the class is one of a script, for
  /// characters of other classes are no letters or have a trait. A test holds it.
  constexpr bool IsLetter() const { return (bits_ & 0xC000) == 0x4000; }

  /// Whether two shortcuts are those of letters, with none of the given traits.
  static constexpr bool ArePlainLetters(Shortcut a, Shortcut b, unsigned int traits) {
    unsigned int const barred = traits << 24 | 0x8000;
    return (((a.bits_ | b.bits_) & barred) | (~(a.bits_ & b.bits_) & 0x4000)) == 0;
  }

  /// The difference of two letters on the first level.
  static constexpr int FirstLevelDifference(Shortcut a, Shortcut b) {
    return static_cast<int>(a.bits_ & kFirstLevel) - static_cast<int>(b.bits_ & kFirstLevel);
  }

  /// The comparison key of a letter, as `ZnOrderKey` gives it.
  constexpr unsigned int LetterKey() const {
    return (bits_ & kFirstLevel) << 8 | (bits_ >> 7 & 0x7F);
  }

  /// Whether this is the letter of the comparison key `key`, in the bits of `mask`, which has all
  /// but some of the low seven.
  class IsLetterOf {
  public:
    constexpr IsLetterOf(unsigned int key, unsigned int mask)
        : letter_(OfLetterKey(key)), counts_(0xFF8000 | OfLetterKey(mask)) {}
    constexpr bool operator()(Shortcut s) const { return ((s.bits_ ^ letter_) & counts_) == 0; }

  private:
    unsigned int letter_, counts_;
  };

private:
  static constexpr unsigned int kFirstLevel = 0xFF407F;

  static constexpr unsigned int OfLetterKey(unsigned int key) {
    return (key >> 8 & kFirstLevel) | (key & 0x7F) << 7;
  }

  unsigned int bits_ = 0;
};

/// Whether a comparison key is that of a letter of a script.
constexpr bool IsLetterKey(unsigned int key) {
  return (key & 0xC00000) == 0x400000 && key >> 24 < kIdeographClass;
}

} // namespace zntms
