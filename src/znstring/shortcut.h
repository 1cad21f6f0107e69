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

/// What was asked for before, by id. What is not known yet is null or 0.
///
/// The tables of the language component stay where they are, so that what was found holds for ever.
/// Two threads may find the same at once.
class KnownOrders {
public:
  OrderPages Pages(unsigned char codeSet) const { return Get(pages_[codeSet]); }
  unsigned char Traits(unsigned char language) const { return Get(traits_[language]); }
  unsigned short Quiet(unsigned char codeSet, unsigned int traits) const {
    return Get(quiet_[traits & ZnPlainOrder::HasVariants][codeSet]);
  }

  [[gnu::cold]] OrderPages FindPages(unsigned char codeSet);
  [[gnu::cold]] unsigned char FindTraits(unsigned char language);
  [[gnu::cold]] unsigned short FindQuiet(unsigned char codeSet, unsigned int traits);

private:
  template <class T>
  static T Get(std::atomic<T> const & place) {
    return place.load(std::memory_order_relaxed);
  }

  std::atomic<OrderPages> pages_[256];
  std::atomic<unsigned char> traits_[256];
  std::atomic<unsigned short> quiet_[2][256]; ///< without and with variants
};

extern constinit KnownOrders known;

/// The shortcut pages of a code set, other than 0 and 255; null if it has no order table.
inline OrderPages PagesOf(unsigned char codeSet) {
  OrderPages const pages = known.Pages(codeSet);
  return pages != nullptr ? pages : known.FindPages(codeSet);
}

/// The traits of shortcuts that matter in a language: all, or all but variants.
inline unsigned char RelevantTraits(unsigned char language) {
  unsigned char const traits = known.Traits(language);
  return traits != 0 ? traits : known.FindTraits(language);
}

/// Below this character there are neither marks nor format characters that change nothing.
template <int Width>
inline constexpr unsigned short kFirstThatRepeats = Width == 1 ? 128 : kFirstMark;

/// Below the result no character of a code set that has pages joins with the next in a contraction,
/// unless that is a combining mark, and none is a mark. `traits` are those of a language.
inline unsigned int QuietBelow(unsigned char codeSet, unsigned int traits) {
  unsigned short const quiet = known.Quiet(codeSet, traits);
  return quiet != 0 ? quiet : known.FindQuiet(codeSet, traits);
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
  constexpr unsigned int Traits() const { return bits_ >> 24; }

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
