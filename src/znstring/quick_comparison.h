#pragma once

#include "znstring/common_start.h"
#include "znstring/comparison.h"
#include "znstring/order_reader.h"

/// The part of a comparison that needs no engine: plain characters on both sides.
///
/// Most pairs of texts are decided between two plain letters. This loop compares them on the pages
/// of the order table alone. Where it meets anything else (an expansion, a contraction, a wildcard,
/// spaces or symbols that differ) it leaves the rest to the engine, with what it has found.
///
/// Equal units on both sides change nothing, be they letters or spaces, and a step of the engine
/// may begin behind any of them.

namespace zntms {

/// Whether two letters without further properties, or a letter and an end, stand at the first
/// difference of two texts that read alike, and decide; `result` then is the result. Looks no
/// further than some dozens of characters, and with wildcards not behind the first. Otherwise
/// `skip` is the number of characters that the rest of the comparison need not look at.
///
/// A shortcut is taken as one number here: traits, class, order from high to low.
template <int Width, bool Wildcards>
inline bool DecideAtFirstDifference(OrderPages pages, unsigned int relevantTraits, char const * a,
                                    char const * b, int & result, unsigned int & skip) {
  constexpr unsigned int primaryBits = 0xFF407F;
  auto const shortcut = [pages](unsigned short c) {
    unsigned int plain;
    static_assert(sizeof plain == sizeof(ZnPlainOrder));
    std::memcpy(&plain, &pages[c >> 8][c & 255], sizeof plain);
    return plain;
  };
  auto const isLetter = [](unsigned int plain) {
    return (plain & 0xC000) == 0x4000 && (plain >> 16 & 255) < kIdeographClass;
  };
  int i = 0;
  unsigned short c, d;
  for (;; ++i) {
    c = ReadCharacter<Width>(a + i * Width);
    d = ReadCharacter<Width>(b + i * Width);
    if (c != d)
      break;
    if (Wildcards || c == 0 || i == 31)
      return false;
  }
  unsigned int const x = c != 0 ? shortcut(c) : 0;
  unsigned int const y = d != 0 ? shortcut(d) : 0;
  unsigned int traits = x | y;
  unsigned int characters = c | d;
  for (int back = i - 1; back >= 0 && back > i - static_cast<int>(kLongestContraction); --back) {
    unsigned short const before = ReadCharacter<Width>(a + back * Width);
    if (MayRepeat<Width>(before, pages[before >> 8][before & 255]))
      return false;
    traits |= shortcut(before);
    characters |= before;
  }
  if constexpr (Width == 2) {
    characters |= c != 0 ? ReadCharacter<2>(a + 2 * i + 2) : 0;
    characters |= d != 0 ? ReadCharacter<2>(b + 2 * i + 2) : 0;
    if (characters < kFirstMark)
      relevantTraits &= ~static_cast<unsigned int>(ZnPlainOrder::ContractsWithMarks);
  }
  if ((traits >> 24 & relevantTraits) != 0)
    return false;
  skip = static_cast<unsigned int>(i);
  if ((c != 0 && !isLetter(x)) || (d != 0 && !isLetter(y)))
    return false;
  if constexpr (Wildcards) {
    unsigned short const order = static_cast<unsigned short>(y);
    if (order == asteriskOrder.Get() || order == questionOrder.Get())
      return false;
  }
  result = static_cast<int>(x & primaryBits) - static_cast<int>(y & primaryBits);
  return result != 0;
}

template <int Width>
class QuickComparison {
public:
  /// Both texts may be read by one source.
  QuickComparison(OrderSource & sourceA, char const * a, OrderSource & sourceB, char const * b)
      : a_{sourceA, a}, b_{sourceB, b} {}

  /// Compares to the end; with wildcards in the second text unless `Wildcards` is false.
  template <bool Wildcards>
  int Run(unsigned short cmpOp) {
    if (Compare<Wildcards>())
      return primary_ != 0 ? primary_ : found_.Result(cmpOp);
    return GoOn<Wildcards>(cmpOp);
  }

  /// Skips what both texts, which read alike, begin with; true if they are the same.
  bool SkipCommonStart() {
    unsigned int const common = CommonStart<Width>(a_.place, b_.place, a_.source);
    if (common == kSameText)
      return true;
    a_.place += common * Width;
    b_.place += common * Width;
    return false;
  }

  [[gnu::noinline]] int RunByKeys() { return CompareByKeys(a_.Reader(), b_.Reader(), ~0u); }

private:
  static constexpr int kNoClass = -1;

  struct Side {
    OrderSource & source;
    char const * place;
    int scriptClass = kNoClass; ///< of the last unit read here

    OrderReader<Width> Reader() const {
      return {source, place,
              scriptClass != kNoClass ? static_cast<unsigned char>(scriptClass)
                                      : source.LanguageClass()};
    }
  };

  // Kept apart, so that the quick part has a small frame.
  template <bool Wildcards>
  [[gnu::noinline]] int GoOn(unsigned short cmpOp) const {
    return Comparison<OrderReader<Width>, Wildcards>([this] { return a_.Reader(); },
                                                     [this] { return b_.Reader(); }, cmpOp,
                                                     Extent(), found_)
        .Run(false);
  }

  /// A unit that the pages tell, or none.
  struct Unit {
    unsigned short order = 0;
    unsigned char scriptClass = 0;
    bool plain = true;

    bool operator==(Unit const &) const = default;
  };

  static Unit Look(Side const & side) {
    char const * const place = side.place;
    unsigned short const c = ReadCharacter<Width>(place);
    if (c == 0)
      return {};
    ZnPlainOrder const & plain = side.source.Plain(c);
    if (side.source.Traits(plain, [place] { return OrderReader<Width>::NextOf(place); }) != 0)
      return {0, 0, false};
    return {plain.order, side.source.ClassOf(plain), true};
  }

  /// True if the comparison is decided.
  template <bool Wildcards>
  bool Compare() {
    unsigned short const asterisk = Wildcards ? asteriskOrder.Get() : 0;
    unsigned short const question = Wildcards ? questionOrder.Get() : 0;
    for (;;) {
      Unit const x = Look(a_);
      Unit const y = Look(b_);
      if (!x.plain || !y.plain)
        return false;
      if (Wildcards && (y.order == asterisk || y.order == question))
        return false;
      if (x != y) {
        if (!IsSignificant(x.order, x.scriptClass) || !IsSignificant(y.order, y.scriptClass))
          return false;
        primary_ = CompareKeys(ZnOrderKey(x.order, x.scriptClass),
                               ZnOrderKey(y.order, y.scriptClass), found_);
        if (primary_ != 0)
          return true;
      } else if (x.order == 0) {
        return true;
      }
      Pass(a_, x);
      Pass(b_, y);
    }
  }

  static void Pass(Side & side, Unit const & unit) {
    side.place += Width;
    side.scriptClass = unit.scriptClass;
  }

  Side a_;
  Side b_;
  Differences found_;
  int primary_ = 0;
};

} // namespace zntms
