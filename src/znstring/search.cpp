#include <memory>
#include <vector>

#include "zanin.h"
#include "znchar.h"
#include "znstrcmp.h"
#include "znstring.h"
#include "znstring/edit.h"
#include "znstring/units.h"

/// Finding and replacing text in language order.
///
/// A place matches if the comparison of texts says so: accents, case, contractions and wildcards
/// are its business alone. What this file adds is a proof that most places cannot match: where
/// both the text there and the pattern begin with a plain letter or digit, and the two differ in
/// their letter, no flags and no continuation make them equal. In a search for "heit" only the
/// places with an `h` of any kind, or with something that is not plain, are compared in full.

using namespace zntms;

namespace {

constexpr unsigned int kPrimaryLevel = ~127u;

/// Reads the letter or digit that a text of one code set and language begins with, as far as the
/// shortcut of the order table tells it.
class PlainStart {
public:
  PlainStart(unsigned char codeSet, unsigned char language)
      : record_(*ZnLanguageContext::QueryCodeSet(codeSet)), width_(WidthOf(codeSet)),
        languageClass_(record_.ScriptClass(language)) {
    ZnLanguage const * const known = ZnLanguageContext::QueryLanguage(language);
    opaque_ = ZnPlainOrder::Contracts | ZnPlainOrder::HasExpansion | ZnPlainOrder::NoEntry;
    if (known && known->hasTailoring)
      opaque_ |= ZnPlainOrder::HasVariants;
    usable_ = codeSet != 0 && codeSet != 254 && record_.orderTable;
  }

  /// The primary level of the first unit at `text`; 0 if that is no plain letter or digit.
  unsigned int Key(char const * text) const {
    if (!usable_)
      return 0;
    ZnPlainOrder const & plain = record_.orderTable->Plain(ReadChar(text, width_));
    if ((plain.traits & opaque_) != 0 || plain.order < kFirstDigit)
      return 0;
    if ((plain.traits & ZnPlainOrder::ContractsWithMarks) != 0 &&
        ReadChar(text + width_, width_) >= kFirstMark)
      return 0;
    bool const own = plain.scriptClass != ZnPlainOrder::LanguageClass;
    return ZnOrderKey(plain.order, own ? plain.scriptClass : languageClass_) & kPrimaryLevel;
  }

private:
  static constexpr unsigned short kFirstDigit = 16128; // spaces and symbols are below
  static constexpr unsigned short kFirstMark = 768;    // combining marks of code set 253

  ZnCodeSet const & record_;
  unsigned int width_;
  unsigned char languageClass_;
  unsigned char opaque_;
  bool usable_;
};

bool HasWildcards(unsigned short cmpOp) {
  return (cmpOp & (ZnCmpNoWildcards | ZnCmpKeysOnly)) == 0;
}

/// A search through one text for one pattern.
class Search {
public:
  Search(ZnString const & text, ZnString const & pattern, unsigned short cmpOp)
      : text_(text), pattern_(pattern), flags_(cmpOp), patternLength_(pattern.Len()),
        compared_(static_cast<short>(patternLength_)), textStart_(text.codeSet, text.language) {
    if (HasWildcards(cmpOp)) {
      pattern_ << '*';
      compared_ = -1;
    }
    if (cmpOp == ZnCmpDefault)
      flags_ = ZnString::GetDefaultCmpOp();
    bool const wildStart =
        HasWildcards(flags_) && ZnFindWildcard(pattern_.codeSet, pattern_.language,
                                               pattern_.StrGet(), 0, 1, nullptr, 1) == 0;
    if (patternLength_ != 0 && !wildStart && !text.IsNullValue() && !pattern.IsNullValue())
      patternKey_ = PlainStart(pattern_.codeSet, pattern_.language).Key(pattern_.text);
  }

  unsigned int PatternLength() const { return patternLength_; }

  /// The first place from `start` on; -1 if there is none.
  int From(unsigned int start) const {
    unsigned int const length = text_.Len();
    if (length == 0)
      return -1;
    unsigned int const width = WidthOf(text_.codeSet);
    for (unsigned int place = start; place + patternLength_ <= length; ++place)
      if (Matches(text_.text + place * width))
        return static_cast<int>(place);
    return -1;
  }

private:
  bool Matches(char const * place) const {
    if (patternKey_ != 0) {
      unsigned int const key = textStart_.Key(place);
      if (key != 0 && key != patternKey_)
        return false;
    }
    return ZnStrCmp(text_.codeSet, text_.language, place, pattern_.codeSet, pattern_.language,
                    pattern_.text, flags_, compared_, 1, nullptr) == 0;
  }

  ZnString const & text_;
  ZnString pattern_;
  unsigned short flags_;
  unsigned int patternLength_;
  short compared_; ///< units to compare, -1 for all
  PlainStart textStart_;
  unsigned int patternKey_ = 0; ///< 0: every place is compared in full
};

/// A pattern of one byte, of the native code set.
ZnString NativeChar(char c) {
  ZnString pattern(static_cast<unsigned char>(0), static_cast<unsigned char>(0));
  char const text[2] = {c, 0};
  ZnStringAssignCounted(pattern, text, 0, c != 0 ? 1 : 0, 1);
  return pattern;
}

/// Puts `replacement` in place of the pattern at each of `places`, in one new buffer.
void ReplaceAt(ZnString & s, std::vector<unsigned short> const & places, unsigned int length,
               ZnString const & replacement) {
  unsigned int const width = WidthOf(s.codeSet);
  unsigned int const newBytes = replacement.Len() * width;
  unsigned int const size =
      (s.Len() + 1 + static_cast<unsigned int>(places.size()) * replacement.Len()) * width -
      static_cast<unsigned int>(places.size()) * length * width;
  char * const buffer = new char[size];
  char * out = buffer;
  char const * in = s.text;
  for (unsigned short const place : places) {
    std::size_t const kept = static_cast<std::size_t>(s.text + place * width - in);
    std::memcpy(out, in, kept);
    std::memcpy(out + kept, replacement.StrGet(), newBytes);
    out += kept + newBytes;
    in += kept + length * width;
  }
  std::memcpy(out, in, static_cast<std::size_t>(buffer + size - out));
  delete[] s.text;
  s.text = buffer;
  s.capacity = static_cast<unsigned short>(size);
}

/// An empty pattern matches wherever the search stands, so the replacement repeats from `start`
/// on until the string is full.
void RepeatToLimit(ZnString & s, ZnString const & replacement, unsigned int start) {
  s.Cut(static_cast<unsigned short>(start), -1);
  ZnString run(replacement);
  unsigned int const most = MaxChars(WidthOf(s.codeSet));
  while (run.Len() < most)
    run += ZnString(run);
  s += run;
}

} // namespace

short ZnString::Find(ZnString const & pattern, unsigned short start, unsigned short cmpOp) const {
  return static_cast<short>(Search(*this, pattern, cmpOp).From(start));
}

short ZnString::Find(char c, unsigned short start, unsigned short cmpOp) const {
  return Find(NativeChar(c), start, cmpOp);
}

short ZnString::Find(unsigned short c, unsigned short start, unsigned short cmpOp) const {
  return Find(ZnString(c), start, cmpOp);
}

short ZnString::SubStringPos(ZnString const & pattern, unsigned short cmpOp) const {
  return Find(pattern, 0, cmpOp);
}

ZnString & ZnString::ReplaceAll(ZnString const & pattern, ZnString const & replacement,
                                unsigned short start) {
  Search const search(*this, pattern, ZnCmpDefault);
  ZnString put(codeSet, language);
  put += replacement;
  unsigned int const taken = search.PatternLength();
  unsigned int const given = put.Len();
  if (taken == 0) {
    if (given != 0 && search.From(start) != -1)
      RepeatToLimit(*this, put, start);
    return *this;
  }

  // The search never looks back, so all places can be found before anything is replaced, unless
  // the text outgrows its limit on the way and loses its end.
  std::vector<unsigned short> places;
  for (int place = search.From(start); place != -1;
       place = search.From(static_cast<unsigned int>(place) + taken))
    places.push_back(static_cast<unsigned short>(place));
  if (places.empty())
    return *this;
  std::size_t const length = Len() + places.size() * given - places.size() * taken;
  if (length <= MaxChars(WidthOf(codeSet))) {
    ReplaceAt(*this, places, taken, put);
    return *this;
  }
  for (int place = places.front(); place != -1;
       place = search.From(static_cast<unsigned int>(place) + given)) {
    Cut(static_cast<unsigned short>(place), static_cast<short>(taken));
    Insert(put, static_cast<unsigned short>(place));
  }
  return *this;
}

ZnString & ZnString::ReplaceAll(char pattern, char replacement, unsigned short start) {
  return ReplaceAll(NativeChar(pattern), ZnString(replacement), start);
}

ZnString & ZnString::ReplaceAll(unsigned short pattern, unsigned short replacement,
                                unsigned short start) {
  return ReplaceAll(ZnString(pattern), ZnString(replacement), start);
}
