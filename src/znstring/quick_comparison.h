#pragma once

#include "znstring/common_start.h"
#include "znstring/comparison.h"
#include "znstring/order_reader.h"

/// The part of a comparison that needs no engine: plain characters on both sides.
///
/// Most pairs of texts of one code set and language are decided where they differ, between two
/// plain letters: `CompareDifferences` looks at nothing else. `QuickComparison` walks over two
/// texts of any code sets as long as it meets plain characters. Where there is anything else (an
/// expansion, a contraction, a wildcard, spaces or symbols that differ) the rest is left to the
/// engine, with what was found.
///
/// Equal units on both sides change nothing, be they letters or spaces, and a step of the engine
/// may begin behind any of them.

namespace zntms {

/// Whether a contraction may begin in the characters from `start` up to `place`, which both texts
/// have, and go on behind them. `traits` are those that matter.
template <int Width>
inline bool MayHangOver(OrderPages pages, unsigned int traits, char const * start,
                        char const * place) {
  auto const count = static_cast<unsigned int>(place - start) / Width;
  for (unsigned int back = 1; back < kLongestContraction && back <= count; ++back) {
    unsigned short const c = ReadCharacter<Width>(place - back * Width);
    Shortcut const shortcut(pages, c);
    if (MayRepeat<Width>(c, shortcut) || (shortcut.Traits() & traits) != 0)
      return true;
  }
  return false;
}

/// Two characters that differ, one of them perhaps the end, and what shortcuts tell of them.
template <int Width>
class DifferingCharacters {
public:
  /// `common` is what the texts have in common before, one character or another.
  DifferingCharacters(OrderPages pages, char const * p, char const * q, unsigned int common)
      : x_(ShortcutAt(pages, p)), y_(ShortcutAt(pages, q)) {
    if constexpr (Width == 2)
      marks_ = (common | Near(p) | Near(q)) >= kFirstMark;
  }

  /// Whether combining marks may be among the characters up to the two behind these.
  bool MarksNear() const { return marks_; }

  /// The traits that matter here.
  unsigned int Traits() const { return Shortcut::TraitsBefore<Width>(marks_ ? kFirstMark : 0); }

  bool ArePlainLetters() const { return Shortcut::ArePlainLetters(x_, y_, Traits()); }

  /// Their difference on the first level, if they are letters.
  int FirstLevel() const { return Shortcut::FirstLevelDifference(x_, y_); }

  /// Keeps their other differences, if they are letters.
  void Keep(Differences & found) const { CompareKeys(x_.LetterKey(), y_.LetterKey(), found); }

  bool SecondIs(unsigned short order) const { return y_.Order() == order; }

private:
  static Shortcut ShortcutAt(OrderPages pages, char const * place) {
    unsigned short const c = ReadCharacter<Width>(place);
    Shortcut const shortcut(pages, c);
    return c != 0 ? shortcut : Shortcut::LowestLetter();
  }

  /// The character at `place` or the next one; not behind the end.
  static unsigned int Near(char const * place) {
    unsigned int const c = ReadCharacter<2>(place);
    return c | ReadCharacter<2>(place + 2 * static_cast<std::size_t>(c != 0));
  }

  Shortcut x_; ///< of the first character; the lowest letter for the end
  Shortcut y_;
  bool marks_ = false;
};

/// Compares two texts by the characters in which they differ, as long as these are letters without
/// further properties, or ends: they decide, or leave a difference in accent or case. Otherwise it
/// gives what `closely` does with the number of bytes that a closer look may pass over on both
/// sides.
///
/// Without `Careful` it gives up at what may hang over or is not known yet, to keep the frame
/// small.
template <int Width, bool Careful, class Closely>
inline int CompareDifferences(unsigned char codeSet, unsigned char language, char const * a,
                              char const * b, unsigned short cmpOp, Closely closely) {
  // Asked for in front of the loop, whose end is hard to predict.
  LanguageOrders const * const orders =
      Careful ? OrdersOf(codeSet, language) : knownOrders.Get(codeSet, language);
  if (orders == nullptr)
    return closely(0);
  OrderPages const pages = orders->pages;
  Differences found;
  std::size_t start = 0;
  for (std::size_t i = 0;; start = i) {
    unsigned int common; // all characters that both texts have from here on, one or another
    if (PassEqual<Width>(a, b, i, common))
      return found.Result(cmpOp);
    DifferingCharacters<Width> const pair(pages, a + i, b + i, common);
    if ((common >= orders->quiet || pair.MarksNear()) &&
        (!Careful || MayHangOver<Width>(pages, pair.Traits(), a + start, a + i)))
      return closely(0);
    if (!pair.ArePlainLetters())
      return closely(start == 0 ? i : 0);
    int const primary = pair.FirstLevel();
    if (primary != 0)
      return primary;
    pair.Keep(found);
    i += Width;
  }
}

/// Compares the first characters alone, the second being that of a pattern: gives 0 if they do not
/// decide, or if there is more to them.
template <int Width>
inline int CompareFirst(unsigned char codeSet, unsigned char language, char const * text,
                        char const * pattern) {
  LanguageOrders const * const orders = OrdersOf(codeSet, language);
  if (orders == nullptr)
    return 0;
  DifferingCharacters<Width> const pair(orders->pages, text, pattern, 0);
  return pair.ArePlainLetters() && !pair.SecondIs(asteriskOrder.Get()) &&
                 !pair.SecondIs(questionOrder.Get())
             ? pair.FirstLevel()
             : 0;
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
    switch (Compare<Wildcards>()) {
    case End::Decided:
      return primary_ != 0 ? primary_ : found_.Result(cmpOp);
    case End::Asterisk:
      if (found_.Mismatch(cmpOp) == 0)
        return Search(cmpOp) ? found_.Result(cmpOp) : -1;
      break;
    case End::NotPlain:
      break;
    }
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

  /// Whether the rest matches, the pattern being at an asterisk.
  bool Search(unsigned short cmpOp) const {
    using Search = WildcardSearch<OrderReader<Width>>;
    typename Search::Place text{a_.Reader()};
    Search::ReadText(text, cmpOp);
    OrderReader<Width> pattern = b_.Reader();
    pattern.Next();
    return Search(text, pattern, cmpOp).Run();
  }

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
    Shortcut const shortcut = side.source.ShortcutOf(c);
    if (!shortcut.TellsAll<Width>(ReadCharacter<Width>(place + Width)))
      return {0, 0, false};
    return {shortcut.Order(), side.source.ClassOf(shortcut), true};
  }

  enum class End { Decided, Asterisk, NotPlain };

  /// Compares as far as it can, and tells why it ended.
  template <bool Wildcards>
  End Compare() {
    unsigned short const asterisk = Wildcards ? asteriskOrder.Get() : 0;
    unsigned short const question = Wildcards ? questionOrder.Get() : 0;
    for (;;) {
      Unit const x = Look(a_);
      Unit const y = Look(b_);
      if (!x.plain || !y.plain || (Wildcards && y.order == question))
        return End::NotPlain;
      if (Wildcards && y.order == asterisk)
        return End::Asterisk;
      if (x != y) {
        if (!IsSignificant(x.order, x.scriptClass) || !IsSignificant(y.order, y.scriptClass))
          return End::NotPlain;
        primary_ = CompareKeys(ZnOrderKey(x.order, x.scriptClass),
                               ZnOrderKey(y.order, y.scriptClass), found_);
        if (primary_ != 0)
          return End::Decided;
      } else if (x.order == 0) {
        return End::Decided;
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
