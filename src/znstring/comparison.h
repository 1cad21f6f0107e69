#pragma once

#include "zncodes.h"
#include "znstrcmp.h"
#include "znstring/order_entry.h"
#include "znstring/wildcards.h"

#include <optional>
#include <vector>

/// The comparison of two texts by their order units, with wildcards in the second.
///
/// The engine walks both texts in steps. A step reads the next significant unit of each side: a
/// letter, a digit, an ideograph or the end. Spaces and symbols before it are compared with one
/// another, pair by pair, and leave no more than a last tie-break. The two units then differ on
/// the first level, which decides at once, or in accent or case, which is kept for the end.
///
/// Worked example: "co-op" against "Coop". Step 1 compares `c` and `C`: a difference in case. Step
/// 2 finds `o` on both sides. Step 3 walks over the hyphen, against nothing: a difference in
/// symbols. All letters being equal, case decides: lower case first, so the result is negative.
///
/// An asterisk starts a search. From then on each unit of the first text counts, and the first
/// text never goes back. Each place where the unit behind the asterisk occurs opens an
/// alternative, a second place in the pattern that moves on in parallel. When the present place
/// fails, the oldest alternative takes over, or else the place behind the asterisk. All
/// alternatives stand at different places of the pattern, so there are never more of them than it
/// has units, and the time is bounded by the product of the two lengths.

namespace zntms {

template <class Reader>
class Comparison {
public:
  /// `limit` is the number of units to read of each side; `outputLimit` the same as a signed
  /// number, up to which the first-level difference goes to `lastDifference` if that is not null.
  Comparison(Reader const & a, Reader const & b, unsigned short cmpOp, unsigned int limit,
             int outputLimit, int * lastDifference)
      : a_{a}, b_{b}, cmpOp_(cmpOp), limit_(limit), outputLimit_(outputLimit),
        lastDifference_(lastDifference) {}

  /// `fixClass`: the script class that the first step finds holds for the rest.
  template <bool Wildcards>
  int Run(bool fixClass) {
    if constexpr (Wildcards) {
      asterisk_ = asteriskOrder.Get();
      question_ = questionOrder.Get();
    }
    for (;;) {
      ReadUnits<Wildcards>();
      if (fixClass) {
        a_.reader.StopTracking();
        b_.reader.StopTracking();
      }
      if constexpr (Wildcards) {
        if ((search_.key != 0 || b_.order == asterisk_) && !PrepareSearch())
          return Finish(0);
      }
      int const primary = CompareUnits<Wildcards>();
      if (lastDifference_ != nullptr && static_cast<int>(a_.count) <= outputLimit_ &&
          static_cast<int>(b_.count) <= outputLimit_)
        *lastDifference_ = primary;
      if (primary != 0 || a_.order == 0 || (b_.order == 0 && search_.key == 0))
        return Finish(primary);
    }
  }

  /// The first difference of comparison keys.
  int RunOnKeys() {
    for (unsigned int i = 0;; ++i) {
      Take(a_);
      Take(b_);
      if (a_.key != b_.key || a_.order == 0 || b_.order == 0 || i + 1 == limit_)
        return Difference(a_.key, b_.key);
    }
  }

private:
  static constexpr unsigned int kCaseBits = 96;
  static constexpr unsigned int kAccentBits = 31;
  static constexpr unsigned int kPrimary = ~(kCaseBits | kAccentBits);

  /// One text and the unit that the present step found in it.
  struct Side {
    Reader reader;
    unsigned int count = 0;   ///< units read
    unsigned int key = 0;     ///< of the last unit
    unsigned short order = 0; ///< of the last unit; 0 at the end
    unsigned short held = 0;  ///< a space or symbol that is not skipped
    bool moving = false;
  };

  /// A place in the pattern to go on from, with the differences up to there.
  struct Place {
    Reader reader;
    unsigned int count;
    int caseDifference;
    int accentDifference;
  };

  /// The search behind the last asterisk.
  struct Search {
    unsigned int key = 0;       ///< masked key of the unit behind the asterisk; 0 for no search
    bool anyUnit = false;       ///< that unit is a question mark
    bool atStart = false;       ///< the second side stands at the place behind the asterisk
    std::optional<Place> start; ///< that place
    std::vector<Place> alternatives;
  };

  static int Difference(unsigned int a, unsigned int b) { return static_cast<int>(a - b); }

  void Take(Side & side) {
    ++side.count;
    side.order = side.count > limit_ ? 0 : side.reader.Next();
    side.key = ZnOrderKey(side.order, side.reader.ScriptClass());
  }

  bool IsSignificant(unsigned short order, Reader const & reader) const {
    return order >= 16128 || order == 0 || reader.ScriptClass() >= kIdeographClass;
  }

  bool IsSkipped(unsigned short order) const {
    return (cmpOp_ & (order < 80 ? ZnCmpIgnoreSpaces : ZnCmpIgnoreSymbols)) != 0;
  }

  /// Reads up to the next unit that counts, or that is to be compared with the other side's.
  void ReadSignificant(Side & side) {
    do {
      Take(side);
      if (IsSignificant(side.order, side.reader)) {
        side.moving = false;
        return;
      }
    } while (IsSkipped(side.order));
    side.held = side.order;
  }

  /// The same on the pattern's side; true if a wildcard stopped it.
  bool ReadPattern(Side & side) {
    do {
      Take(side);
      if (side.order == asterisk_ || side.order == question_)
        return true;
      if (IsSignificant(side.order, side.reader)) {
        side.moving = false;
        return false;
      }
    } while (IsSkipped(side.order));
    side.held = side.order;
    return false;
  }

  template <bool Wildcards>
  void ReadUnits() {
    if (Wildcards && search_.key != 0) {
      ReadSearched();
      ReadPattern(b_);
      return;
    }
    a_.moving = b_.moving = true;
    do {
      a_.held = b_.held = 0;
      if (a_.moving)
        ReadSignificant(a_);
      if constexpr (Wildcards) {
        if (b_.moving && ReadPattern(b_))
          return;
      } else {
        if (b_.moving)
          ReadSignificant(b_);
      }
      if (a_.held != b_.held)
        symbolDifference_ = a_.held - b_.held;
    } while (a_.moving || b_.moving);
  }

  /// Reads the first side in a search. Units that cannot be the one behind the asterisk change
  /// nothing as long as the pattern stands there and no alternative is open.
  void ReadSearched() {
    ReadSignificant(a_);
    if (!search_.atStart || search_.anyUnit || lastDifference_ != nullptr || Mismatch(0) != 0)
      return;
    unsigned int const mask = Mask();
    while (a_.order != 0 && (a_.key & mask) != search_.key)
      ReadSignificant(a_);
  }

  /// The bits of a key that count under the flags.
  unsigned int Mask() const {
    return ~(((cmpOp_ & ZnCmpIgnoreCase) != 0 ? kCaseBits : 0) |
             ((cmpOp_ & ZnCmpIgnoreAccents) != 0 ? kAccentBits : 0));
  }

  /// Whether a search has to go on: the first side does not fit the pattern's place.
  int Mismatch(int primary) const {
    bool const ignoreCase = (cmpOp_ & ZnCmpIgnoreCase) != 0;
    bool const ignoreAccents = (cmpOp_ & ZnCmpIgnoreAccents) != 0;
    if (ignoreCase && ignoreAccents)
      return primary;
    if (ignoreAccents)
      return caseDifference_;
    if (ignoreCase)
      return accentDifference_;
    return accentDifference_ | caseDifference_;
  }

  /// Opens, moves and drops alternatives, and starts a search at an asterisk. False if the pattern
  /// ends with the asterisk: all the rest matches.
  bool PrepareSearch() {
    unsigned int const mask = Mask();
    // An alternative at the very place of the second side would fare as that does, unless
    // differences from before the asterisk make every unit a mismatch.
    bool const redundant = search_.atStart && Mismatch(0) == 0;
    search_.atStart = false;
    if (a_.key != 0 && !redundant &&
        ((search_.anyUnit && search_.key != 0) || (a_.key & mask) == search_.key)) {
      Place place = *search_.start;
      place.caseDifference = caseDifference_;
      place.accentDifference = accentDifference_;
      search_.alternatives.push_back(place);
    }
    if (b_.order == asterisk_) {
      search_.alternatives.clear();
      do {
        search_.start = Place{b_.reader, b_.count, caseDifference_, accentDifference_};
        do
          Take(b_);
        while (!IsSignificant(b_.order, b_.reader) && b_.order != asterisk_ &&
               b_.order != question_ && IsSkipped(b_.order));
      } while (b_.order == asterisk_);
      if (b_.order == 0)
        return false;
      search_.key = b_.key & mask;
      search_.anyUnit = b_.order == question_;
      return true;
    }
    std::erase_if(search_.alternatives, [&](Place & place) {
      Side side{place.reader, place.count};
      ReadPattern(side);
      place.reader = side.reader;
      place.count = side.count;
      bool const fits =
          (side.key & mask) == (a_.key & mask) || (a_.order != 0 && side.order == question_);
      return !fits;
    });
    return true;
  }

  /// Goes on from another place in the pattern.
  void Restart(Place const & place) {
    b_.reader = place.reader;
    b_.count = place.count;
    caseDifference_ = place.caseDifference;
    accentDifference_ = place.accentDifference;
  }

  /// The first-level difference of the two units; the others are kept.
  template <bool Wildcards>
  int CompareUnits() {
    int primary = 0;
    if (Wildcards && b_.order == question_) {
      primary = a_.order != 0 ? 0 : -1;
    } else if (a_.key != b_.key) {
      primary = Difference(a_.key & kPrimary, b_.key & kPrimary);
      if (caseDifference_ == 0)
        caseDifference_ = Difference(b_.key & ~kAccentBits, a_.key & ~kAccentBits);
      if ((a_.key & ~kCaseBits) != (b_.key & ~kCaseBits))
        accentDifference_ = Difference(a_.key & ~kCaseBits, b_.key & ~kCaseBits);
    }
    if (Wildcards && search_.key != 0 && a_.order != 0 && Mismatch(primary) != 0) {
      if (!search_.alternatives.empty()) {
        Restart(search_.alternatives.front());
        search_.alternatives.erase(search_.alternatives.begin());
      } else {
        Restart(*search_.start);
        search_.atStart = true;
      }
      primary = 0;
    }
    return primary;
  }

  int Finish(int primary) const {
    if (primary != 0)
      return primary;
    if (accentDifference_ != 0 && (cmpOp_ & ZnCmpIgnoreAccents) == 0)
      return accentDifference_;
    if (caseDifference_ != 0 && (cmpOp_ & ZnCmpIgnoreCase) == 0)
      return caseDifference_;
    return symbolDifference_;
  }

  Side a_;
  Side b_;
  unsigned short cmpOp_;
  unsigned short asterisk_ = 0;
  unsigned short question_ = 0;
  unsigned int limit_;
  int outputLimit_;
  int * lastDifference_;
  int caseDifference_ = 0;
  int accentDifference_ = 0;
  int symbolDifference_ = 0;
  Search search_;
};

} // namespace zntms
