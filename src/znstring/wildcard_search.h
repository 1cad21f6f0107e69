#pragma once

#include "zncodes.h"
#include "znstrcmp.h"
#include "znstring/order_entry.h"
#include "znstring/wildcards.h"

/// The search behind an asterisk in whole texts, as long as nothing in front of it differs in a way
/// that counts.
///
/// There a unit fits or does not, whatever was found before, so that the pattern falls into runs
/// between asterisks, each of which is to be found behind the one before; the first place that fits
/// is as good as any. The last run has to end with the text. This gives the result of the search
/// with alternatives, see comparison.h, without keeping any.
///
/// Worked example: "*a?b*c" finds in "xacaabcc" the run "a?b" at the second `a`, since the first
/// lacks a `b`; then the run "c" at the last letter, since the `c` before it does not end the text.

namespace zntms {

// The fields of a comparison key below the first level.
inline constexpr unsigned int kCaseBits = 96;
inline constexpr unsigned int kAccentBits = 31;

/// The bits of a comparison key that count under the flags.
constexpr unsigned int CountingBits(unsigned short cmpOp) {
  return ~(((cmpOp & ZnCmpIgnoreCase) != 0 ? kCaseBits : 0) |
           ((cmpOp & ZnCmpIgnoreAccents) != 0 ? kAccentBits : 0));
}

/// Whether a unit is compared on the first level: no space and no symbol.
constexpr bool IsSignificant(unsigned short order, unsigned char scriptClass) {
  return order >= 16128 || order == 0 || scriptClass >= kIdeographClass;
}

/// Whether the flags let a unit that is not significant be passed over.
constexpr bool IsSkipped(unsigned short order, unsigned short cmpOp) {
  return (cmpOp & (order < 80 ? ZnCmpIgnoreSpaces : ZnCmpIgnoreSymbols)) != 0;
}

/// A place in a text, and the unit read before it.
template <class Reader>
struct TextPlace {
  Reader reader;
  unsigned short order = 0; ///< 0 at the end
  unsigned int key = 0;

  void Take() {
    order = reader.Next();
    key = ZnOrderKey(order, reader.ScriptClass());
  }
};

template <class Reader>
class WildcardSearch {
public:
  using Place = TextPlace<Reader>;

  /// `text` has read the first unit to look at; `pattern` stands behind an asterisk.
  WildcardSearch(Place const & text, Reader const & pattern, unsigned short cmpOp)
      : text_(text), pattern_{pattern}, cmpOp_(cmpOp), mask_(CountingBits(cmpOp)) {}

  /// Whether the rest of the text matches the rest of the pattern.
  bool Run() {
    for (;;) {
      do
        ReadPattern(pattern_);
      while (pattern_.order == asterisk_);
      if (pattern_.order == 0)
        return true;
      if (!FindRun())
        return false;
      if (pattern_.order == 0)
        return true;
    }
  }

  /// Reads the next unit of a text that the flags do not skip.
  static void ReadText(Place & place, unsigned short cmpOp) {
    do
      place.Take();
    while (!IsSignificant(place.order, place.reader.ScriptClass()) &&
           IsSkipped(place.order, cmpOp));
  }

private:
  void ReadPattern(Place & place) const {
    do
      place.Take();
    while (!IsSignificant(place.order, place.reader.ScriptClass()) && place.order != asterisk_ &&
           place.order != question_ && IsSkipped(place.order, cmpOp_));
  }

  bool Fits(Place const & text, Place const & pattern) const {
    return ((text.key ^ pattern.key) & mask_) == 0 || pattern.order == question_;
  }

  /// Moves both places behind the next occurrence of the run that the pattern stands at: to an
  /// asterisk, or both to the end. False if there is none.
  bool FindRun() {
    Place const start = pattern_;
    for (;; ReadText(text_, cmpOp_)) {
      while (text_.order != 0 && !Fits(text_, start)) {
        text_.reader.PassOthers(start.key, mask_);
        ReadText(text_, cmpOp_);
      }
      if (text_.order == 0)
        return false;
      Place text = text_;
      do {
        ReadText(text, cmpOp_);
        ReadPattern(pattern_);
      } while (text.order != 0 && pattern_.order != 0 && pattern_.order != asterisk_ &&
               Fits(text, pattern_));
      if (pattern_.order == asterisk_ || (pattern_.order == 0 && text.order == 0)) {
        text_ = text;
        return true;
      }
      // What is left of a text that ended here is too short for the run.
      if (text.order == 0)
        return false;
      pattern_ = start;
    }
  }

  Place text_;
  Place pattern_;
  unsigned short const cmpOp_;
  unsigned int const mask_;
  unsigned short const asterisk_ = asteriskOrder.Get();
  unsigned short const question_ = questionOrder.Get();
};

} // namespace zntms
