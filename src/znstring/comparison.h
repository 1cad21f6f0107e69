#pragma once

#include "zncodes.h"
#include "znstrcmp.h"
#include "znstring/wildcard_search.h"
#include "znstring/wildcards.h"

#include <optional>
#include <type_traits>
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
/// An asterisk starts a search. Mostly wildcard_search.h does the rest. Where a limit counts units,
/// or differences in front of the asterisk stay to be weighed, the engine goes on in steps. Then
/// each unit of the first text counts, and the first text never goes back. Each place where the
/// unit behind the asterisk occurs opens an alternative, a second place in the pattern that moves
/// on in parallel. When the present place fails, the oldest alternative takes over, or else the
/// place behind the asterisk. All alternatives stand at different places of the pattern, so there
/// are never more of them than it has units, and the time is bounded by the product of the two
/// lengths.

namespace zntms {

/// How far to compare, and where to tell the difference.
struct Extent {
  unsigned int limit = ~0u;       ///< units to read of each side
  int outputLimit = 0;            ///< the same as a signed number: how far `lastDifference` goes
  int * lastDifference = nullptr; ///< takes the first-level difference, unless it is null
};

/// What a comparison has found so far.
struct Differences {
  int letterCase = 0;
  int accent = 0;
  int symbol = 0;

  /// The difference that ends a match under the flags, unless the first-level one, `primary`, does.
  int Mismatch(unsigned short cmpOp, int primary = 0) const {
    bool const ignoreCase = (cmpOp & ZnCmpIgnoreCase) != 0;
    bool const ignoreAccents = (cmpOp & ZnCmpIgnoreAccents) != 0;
    if (ignoreCase && ignoreAccents)
      return primary;
    if (ignoreAccents)
      return letterCase;
    if (ignoreCase)
      return accent;
    return accent | letterCase;
  }

  /// The result, the letters being equal.
  int Result(unsigned short cmpOp) const {
    if (accent != 0 && (cmpOp & ZnCmpIgnoreAccents) == 0)
      return accent;
    if (letterCase != 0 && (cmpOp & ZnCmpIgnoreCase) == 0)
      return letterCase;
    return symbol;
  }
};

inline constexpr unsigned int kPrimaryBits = ~(kCaseBits | kAccentBits);

/// Unsigned numbers subtracted; the sign tells their order as long as they are not too far apart,
/// as the classes of two keys never are.
constexpr int KeyDifference(unsigned int a, unsigned int b) { return static_cast<int>(a - b); }

/// Adds what two keys differ in to `found` and gives their difference on the first level. The
/// first difference in case counts, with its sign reversed, so that lower case orders first, and
/// the last one in accents.
inline int CompareKeys(unsigned int a, unsigned int b, Differences & found) {
  if (a == b)
    return 0;
  if (found.letterCase == 0)
    found.letterCase = KeyDifference(b & ~kAccentBits, a & ~kAccentBits);
  if ((a & ~kCaseBits) != (b & ~kCaseBits))
    found.accent = KeyDifference(a & ~kCaseBits, b & ~kCaseBits);
  return KeyDifference(a & kPrimaryBits, b & kPrimaryBits);
}

/// The first difference of comparison keys in the first `limit` units.
template <class Reader>
int CompareByKeys(Reader a, Reader b, unsigned int limit) {
  for (;; --limit) {
    unsigned short const orderA = a.Next();
    unsigned short const orderB = b.Next();
    unsigned int const x = ZnOrderKey(orderA, a.ScriptClass());
    unsigned int const y = ZnOrderKey(orderB, b.ScriptClass());
    if (x != y || x == 0 || limit == 1)
      return KeyDifference(x, y);
  }
}

template <class Reader, bool Wildcards>
class Comparison {
public:
  /// `readA` and `readB` make the readers in place; `found` is what was found before the places
  /// where they stand.
  template <class MakeA, class MakeB>
  Comparison(MakeA readA, MakeB readB, unsigned short cmpOp, Extent const & extent,
             Differences const & found)
      : a_{{readA()}}, b_{{readB()}}, found_(found), cmpOp_(cmpOp), extent_(extent) {}

  /// `fixClass`: the script class that the first step finds holds for the rest.
  int Run(bool fixClass) {
    for (;;) {
      ReadUnits();
      if (fixClass) {
        a_.reader.StopTracking();
        b_.reader.StopTracking();
      }
      if constexpr (Wildcards) {
        if (b_.order == asterisk_ && extent_.limit == ~0u && found_.Mismatch(cmpOp_) == 0)
          return WildcardSearch<Reader>(a_, b_.reader, cmpOp_).Run() ? found_.Result(cmpOp_) : -1;
        if ((search_.key != 0 || b_.order == asterisk_) && !PrepareSearch())
          return found_.Result(cmpOp_);
      }
      int const primary = CompareUnits();
      if (extent_.lastDifference != nullptr && static_cast<int>(a_.count) <= extent_.outputLimit &&
          static_cast<int>(b_.count) <= extent_.outputLimit)
        *extent_.lastDifference = primary;
      if (primary != 0)
        return primary;
      if (a_.order == 0 || (b_.order == 0 && search_.key == 0))
        return found_.Result(cmpOp_);
    }
  }

private:
  /// One text and the unit that the present step found in it.
  struct Side : TextPlace<Reader> {
    unsigned int count = 0;  ///< units read
    unsigned short held = 0; ///< a space or symbol that is not skipped
    bool moving = false;
  };

  /// A place in the pattern to go on from, with the differences up to there.
  struct Place {
    Reader reader;
    unsigned int count;
    int letterCase;
    int accent;
  };

  /// The search behind the last asterisk.
  struct Search {
    unsigned int key = 0;       ///< masked key of the unit behind the asterisk; 0 for no search
    bool anyUnit = false;       ///< that unit is a question mark
    bool atStart = false;       ///< the second side stands at the place behind the asterisk
    std::optional<Place> start; ///< that place
    std::vector<Place> alternatives;
  };

  struct NoSearch {
    static constexpr unsigned int key = 0;
  };

  void Take(Side & side) {
    ++side.count;
    side.order = side.count > extent_.limit ? 0 : side.reader.Next();
    side.key = ZnOrderKey(side.order, side.reader.ScriptClass());
  }

  static bool IsSignificant(Side const & side) {
    return zntms::IsSignificant(side.order, side.reader.ScriptClass());
  }

  /// Reads up to the next unit that counts, or that is to be compared with the other side's.
  void ReadSignificant(Side & side) {
    do {
      Take(side);
      if (IsSignificant(side)) {
        side.moving = false;
        return;
      }
    } while (IsSkipped(side.order, cmpOp_));
    side.held = side.order;
  }

  /// The same on the pattern's side; true if a wildcard stopped it.
  bool ReadPattern(Side & side) {
    do {
      Take(side);
      if (side.order == asterisk_ || side.order == question_)
        return true;
      if (IsSignificant(side)) {
        side.moving = false;
        return false;
      }
    } while (IsSkipped(side.order, cmpOp_));
    side.held = side.order;
    return false;
  }

  void ReadUnits() {
    if constexpr (Wildcards) {
      if (search_.key != 0) {
        ReadSignificant(a_);
        ReadPattern(b_);
        return;
      }
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
        found_.symbol = a_.held - b_.held;
    } while (a_.moving || b_.moving);
  }

  /// Opens, moves and drops alternatives, and starts a search at an asterisk. False if the pattern
  /// ends with the asterisk: all the rest matches.
  bool PrepareSearch() {
    unsigned int const mask = CountingBits(cmpOp_);
    // An alternative at the very place of the second side would fare as that does, unless
    // differences from before the asterisk make every unit a mismatch.
    bool const redundant = search_.atStart && found_.Mismatch(cmpOp_) == 0;
    search_.atStart = false;
    if (a_.key != 0 && !redundant &&
        ((search_.anyUnit && search_.key != 0) || (a_.key & mask) == search_.key)) {
      Place place = *search_.start;
      place.letterCase = found_.letterCase;
      place.accent = found_.accent;
      search_.alternatives.push_back(place);
    }
    if (b_.order == asterisk_) {
      search_.alternatives.clear();
      do {
        search_.start = Place{b_.reader, b_.count, found_.letterCase, found_.accent};
        do
          Take(b_);
        while (!IsSignificant(b_) && b_.order != asterisk_ && b_.order != question_ &&
               IsSkipped(b_.order, cmpOp_));
      } while (b_.order == asterisk_);
      if (b_.order == 0)
        return false;
      search_.key = b_.key & mask;
      search_.anyUnit = b_.order == question_;
      return true;
    }
    std::erase_if(search_.alternatives, [&](Place & place) {
      Side side{{place.reader}, place.count};
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
    found_.letterCase = place.letterCase;
    found_.accent = place.accent;
  }

  /// The first-level difference of the two units; the others are kept.
  int CompareUnits() {
    if constexpr (!Wildcards) {
      return CompareKeys(a_.key, b_.key, found_);
    } else {
      int primary = 0;
      if (b_.order != question_)
        primary = CompareKeys(a_.key, b_.key, found_);
      else if (a_.order == 0)
        primary = -1;
      if (search_.key == 0 || a_.order == 0 || found_.Mismatch(cmpOp_, primary) == 0)
        return primary;
      if (!search_.alternatives.empty()) {
        Restart(search_.alternatives.front());
        search_.alternatives.erase(search_.alternatives.begin());
      } else {
        Restart(*search_.start);
        search_.atStart = true;
      }
      return 0;
    }
  }

  Side a_;
  Side b_;
  Differences found_;
  unsigned short const cmpOp_;
  unsigned short const asterisk_ = Wildcards ? asteriskOrder.Get() : 0;
  unsigned short const question_ = Wildcards ? questionOrder.Get() : 0;
  Extent const extent_;
  std::conditional_t<Wildcards, Search, NoSearch> search_;
};

} // namespace zntms
