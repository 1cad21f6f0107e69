#include <cstring>

#include "zncodes.h"
#include "znistring.h"
#include "znstring/istring_form.h"
#include "zntypevl/istring_pattern.h"

/// The compare rows of the two older string classes, twins but for three rules: the caseless class
/// lets accents decide, matches patterns against keys as far as a key can tell, and does not break
/// ties by bytes.
///
/// A key may have been cut short by its index. Then a difference found at its very end means
/// nothing, since half of a pair of weights may be missing: the result is taken again over one
/// unit less, and the error 2101 says that it rests on a part.

namespace zntms {

namespace {

constexpr unsigned int kLongestCutKey = 254;

/// One side of the comparison of an element.
struct Side {
  CollatedText text;
  unsigned int total; ///< bytes that the value had when it was whole
  unsigned int there; ///< bytes that are left

  bool IsCut() const { return there < total; }
};

int Sign(int number) { return (number > 0) - (number < 0); }

/// Byte order of two texts, at most `limit` bytes.
int CompareBytes(Side const & a, Side const & b, unsigned int limit = kNoLimit) {
  auto const bytes = [limit](Side const & side) {
    std::string_view const text = side.text.bytes;
    return text.substr(0, std::min<std::size_t>(text.find('\0'), limit));
  };
  return Sign(bytes(a).compare(bytes(b)));
}

template <ZnCollation collation>
class Element {
public:
  Element(Side const & a, Side const & b, int & error) : a_(a), b_(b), error_(error) {}

  int Compare(bool wildcards) {
    unsigned int const place = wildcards ? FindIStringWildcard(weights_, b_.text) : kNoWildcard;
    if (place != kNoWildcard)
      return a_.text.InWeights() ? MatchKey(place) : Match(place);
    bool const keys = a_.text.InWeights();
    if (keys && wildcards && !b_.text.InWeights()) {
      error_ = ZnErrIncomplete;
      return CollateOver(AllButOne());
    }
    if (keys)
      return WithCutRule([&](unsigned int limit) { return CompareBytes(a_, b_, limit); });
    if (wildcards && caseless)
      a_.text.mark |= ZnCollationMark::Accents;
    int const result = WithCutRule([&](unsigned int limit) { return CollateOver(limit); });
    if (result != 0 || !wildcards || caseless || IsCut())
      return result;
    return WithCutRule([&](unsigned int limit) { return CompareBytes(a_, b_, limit); });
  }

private:
  static constexpr bool caseless = collation == ZnCollation::caseless;

  /// A limit of 0 is none: of a single unit nothing can be left out.
  int CollateOver(unsigned int limit) const {
    return ZnCollateCompare(weights_, a_.text, b_.text, limit != 0 ? limit : kNoLimit);
  }
  unsigned int AllButOne() const { return a_.there == 0 ? 0 : a_.there - 1; }
  bool IsCut() const { return a_.there < a_.total && a_.there < b_.total; }

  template <class Comparison>
  int WithCutRule(Comparison const & compare) {
    int const result = compare(kNoLimit);
    if (!IsCut())
      return result;
    error_ = ZnErrIncomplete;
    return result == 0 ? 0 : compare(AllButOne());
  }

  /// A text that does not match orders by what stands before the wildcard at `place`, as far as
  /// `limit` units, else behind.
  int Failed(unsigned int place, unsigned int limit) const {
    int const result = place == 0 ? 0 : CollateOver(limit);
    return result != 0 ? result : 1;
  }

  int Match(unsigned int place) {
    if (caseless)
      a_.text.mark |= ZnCollationMark::Accents;
    return MatchesIString(weights_, a_.text, b_.text) ? 0 : Failed(place, place);
  }

  int MatchKey(unsigned int place) {
    std::string_view const pattern = b_.text.bytes.substr(0, b_.text.bytes.find('\0'));
    if (pattern == "*")
      return 0;
    error_ = ZnErrIncomplete;
    if (!caseless)
      return 0;
    if (place > a_.total)
      return CollateOver(AllButOne());
    if (MatchesIString(weights_, a_.text, b_.text))
      return 0;
    bool const goesOn = place + 1 < pattern.size();
    return Failed(place, a_.IsCut() && goesOn ? std::min(place, AllButOne()) : place);
  }

  static constexpr Weights const & weights_ = WeightsOf(collation);
  Side a_;
  Side b_;
  int & error_;
};

/// Steps through the values of one side.
template <ZnCollation collation>
class Values {
public:
  Values(unsigned char format, unsigned int length, void const * value, unsigned int count)
      : inMemory_(format == ZnFormatMemory), value_(static_cast<char const *>(value)) {
    if (inMemory_) {
      held_ = length == 0 ? count : std::max(1u, (length + kSize - 1) / kSize);
      return;
    }
    IStringForm const form(value, length, format);
    mark_ = form.mark;
    total_ = form.total;
    rest_ = form.bytes;
  }

  bool IsCut() const { return !inMemory_ && rest_.size() < total_; }
  std::size_t Left() const { return rest_.size(); }

  Side Present() const {
    if (!inMemory_)
      return {{rest_, mark_}, total_, static_cast<unsigned int>(rest_.size())};
    auto const & s = *reinterpret_cast<ZnCollatedString<collation> const *>(value_);
    std::string_view const text = s.text ? std::string_view(s.text) : std::string_view();
    auto const length = static_cast<unsigned int>(text.size());
    return {{text, s.mark}, length, length};
  }

  /// To the next value, if this side holds one.
  bool Step() {
    if (inMemory_) {
      if (--held_ == 0)
        return false;
      value_ += kSize;
      return true;
    }
    std::string_view next = rest_;
    TakeText(next);
    if (next.empty())
      return false;
    total_ -= static_cast<unsigned int>(rest_.size() - next.size());
    rest_ = next;
    return true;
  }

private:
  static constexpr unsigned int kSize = sizeof(ZnCollatedString<collation>);

  bool inMemory_;
  char const * value_;
  unsigned int held_ = 0;
  unsigned char mark_ = 0;
  unsigned int total_ = 0;
  std::string_view rest_{};
};

template <ZnCollation collation>
int CompareRow(unsigned char format, unsigned int lengthA, void * valueA, unsigned int lengthB,
               void * valueB, unsigned short cmpOp, unsigned int count, int & error) {
  error = 0;
  if (count == 0)
    return 0;
  bool const wildcards = (cmpOp & (ZnCmpNoWildcards | ZnCmpKeysOnly)) == 0;
  Values<collation> a(format, lengthA, valueA, count);
  Values<collation> b(format, lengthB, valueB, count);
  for (;;) {
    if (b.IsCut() && b.Left() >= kLongestCutKey) {
      error = ZnErrNotSupported;
      return -1;
    }
    int const result = Element<collation>(a.Present(), b.Present(), error).Compare(wildcards);
    if (--count == 0 || result != 0 || error != 0)
      return result;
    if (!a.Step() || !b.Step()) {
      error = ZnErrIncomplete;
      return 0;
    }
  }
}

} // namespace

} // namespace zntms

int ZnIStringCompare(unsigned char format, unsigned int lengthA, void * valueA,
                     unsigned int lengthB, void * valueB, unsigned short int cmpOp,
                     unsigned int count, int & error) {
  return zntms::CompareRow<ZnCollation::cased>(format, lengthA, valueA, lengthB, valueB, cmpOp,
                                               count, error);
}

int ZnCaseIStringCompare(unsigned char format, unsigned int lengthA, void * valueA,
                         unsigned int lengthB, void * valueB, unsigned short int cmpOp,
                         unsigned int count, int & error) {
  return zntms::CompareRow<ZnCollation::caseless>(format, lengthA, valueA, lengthB, valueB, cmpOp,
                                                  count, error);
}
