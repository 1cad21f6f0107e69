#include "zntypevl/istring_pattern.h"

namespace zntms {

namespace {

/// One step of a pattern.
struct Step {
  enum Kind { end, any, one, literal } kind;
  char byte;          ///< of a literal
  unsigned int bytes; ///< bytes of the pattern
};

class Pattern {
public:
  Pattern(Weights const & weights, CollatedText const & text)
      : text_(text.bytes.substr(0, text.bytes.find('\0'))) {
    // In weights the special characters stand as the weights that they alone have.
    if (text.InWeights())
      for (char * const special : {&any_, &one_, &escape_})
        *special = static_cast<char>(ZnCollateByte(weights, *special).first);
  }

  bool IsSpecial(std::size_t at) const {
    return text_[at] == any_ || text_[at] == one_ || text_[at] == escape_;
  }

  std::size_t Length() const { return text_.size(); }

  Step At(std::size_t at) const {
    if (at >= text_.size())
      return {Step::end, 0, 0};
    char const c = text_[at];
    if (c == any_)
      return {Step::any, 0, 1};
    if (c == one_)
      return {Step::one, 0, 1};
    if (c != escape_ || at + 1 == text_.size())
      return {Step::literal, c, 1};
    return {Step::literal, Escaped(text_[at + 1]), 2};
  }

private:
  static char Escaped(char c) { return c == 'n' ? '\n' : c == 'r' ? '\r' : c == 't' ? '\t' : c; }

  std::string_view text_;
  char any_ = '*';
  char one_ = '?';
  char escape_ = '\\';
};

} // namespace

unsigned int FindIStringWildcard(Weights const & weights, CollatedText const & text) {
  Pattern const pattern(weights, text);
  for (std::size_t at = 0; at < pattern.Length(); ++at)
    if (pattern.IsSpecial(at))
      return static_cast<unsigned int>(at);
  return kNoWildcard;
}

bool MatchesIString(Weights const & weights, CollatedText const & text,
                    CollatedText const & patternText) {
  Pattern const pattern(weights, patternText);
  std::string_view const bytes = text.bytes.substr(0, text.bytes.find('\0'));
  bool const weighed = text.InWeights();
  bool const patternWeighed = patternText.InWeights();
  auto const equal = [&](char c, char literal) {
    if (weighed || patternWeighed) {
      char const a = weighed ? c : static_cast<char>(ZnCollateByte(weights, c).first);
      char const b =
          patternWeighed ? literal : static_cast<char>(ZnCollateByte(weights, literal).first);
      return a == b;
    }
    return ZnCollateByte(weights, c) == ZnCollateByte(weights, literal);
  };

  std::size_t at = 0;
  std::size_t place = 0;
  std::size_t starAt = kNoWildcard; // the place behind the last star, and where its text began
  std::size_t starPlace = 0;
  for (;;) {
    Step const step = pattern.At(at);
    if (step.kind == Step::any) {
      starAt = ++at;
      starPlace = place;
      continue;
    }
    if (step.kind == Step::end && place == bytes.size())
      return true;
    bool const ambiguous =
        step.kind == Step::one || (step.kind == Step::literal && !patternWeighed &&
                                   ZnCollateByte(weights, step.byte).IsPair());
    if (weighed && ambiguous)
      return true;
    bool const matches = place < bytes.size() && step.kind != Step::end &&
                         (step.kind == Step::one || equal(bytes[place], step.byte));
    if (matches) {
      at += step.bytes;
      ++place;
      continue;
    }
    if (starAt == kNoWildcard || starPlace >= bytes.size())
      return false;
    at = starAt;
    place = ++starPlace;
  }
}

} // namespace zntms
