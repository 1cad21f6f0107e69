#pragma once

#include "znexport.h"

/// The two string classes of an older generation: text of one byte a character, ISO 8859-1 in
/// effect, ordered by tables that are fixed in the library.
///
/// Worked example: `ZnIString("a") < ZnIString("A")`, and both are below `ZnIString("b")`, while
/// `ZnCaseIString("a") == ZnCaseIString("A")`. Accents do not count in the operators of either.
///
/// Texts have no limit of their own, but lengths and positions of the interface have 16 bits. An
/// empty text is kept as a null pointer. Each object owns its text.

/// Which of the two orders.
enum class ZnCollation : unsigned char {
  cased,    ///< lower case directly before upper case
  caseless, ///< both cases at the same place
};

template <ZnCollation collation>
class ZnCollatedString {
public:
  char * text;        ///< owned, ends with a zero byte; null for an empty text
  unsigned char mark; ///< form of the text: bits of `ZnCollationMark`; 0 in what the class makes

  ZnCollatedString() : text(nullptr), mark(0) {}
  ZnCollatedString(ZnCollatedString const & other);
  ZnCollatedString(char c);
  ZnCollatedString(short number);
  ZnCollatedString(int number);
  ZnCollatedString(unsigned int number);
  ZnCollatedString(long long number);
  ZnCollatedString(unsigned long long number);
  /// With six digits behind the point.
  ZnCollatedString(double number);
  ZnCollatedString(char const * source);
  /// At most `len` characters, less if the text ends before.
  ZnCollatedString(char const * source, unsigned short len);
  ~ZnCollatedString() { delete[] text; }

  ZnCollatedString & operator=(ZnCollatedString const & other);
  /// `source` may lie in the string's own text.
  ZnCollatedString & operator=(char const * source);

  unsigned short Len() const;
  /// The text; never null.
  char const * StrGet() const { return text ? text : ""; }
  bool operator!() const { return !text; }
  /// Unchecked; the string must have a text.
  char & operator[](int i) { return text[i]; }

  /// The number that the text begins with, in decimal; 0 for none.
  operator short() const;
  operator int() const;
  operator long long() const;
  operator double() const;

  ZnCollatedString operator+(ZnCollatedString const & other) const;
  ZnCollatedString & operator+=(ZnCollatedString const & other);

  bool operator==(ZnCollatedString const & other) const { return Compare(other) == 0; }
  bool operator!=(ZnCollatedString const & other) const { return Compare(other) != 0; }
  bool operator<(ZnCollatedString const & other) const { return Compare(other) < 0; }
  bool operator<=(ZnCollatedString const & other) const { return Compare(other) <= 0; }
  bool operator>(ZnCollatedString const & other) const { return Compare(other) > 0; }
  bool operator>=(ZnCollatedString const & other) const { return Compare(other) >= 0; }

  /// At most `length` characters from `position` on; empty behind the end.
  ZnCollatedString Copy(unsigned short position, unsigned short length) const;

  // Each gives the string itself.

  /// Takes out at most `count` characters.
  ZnCollatedString & Cut(unsigned short position, unsigned short count);
  /// Puts a text before `position`, or at the end if that lies behind it.
  ZnCollatedString & Insert(ZnCollatedString const & other, unsigned short position);
  /// Overwrites from `position` on, never lengthening the text.
  ZnCollatedString & Replace(ZnCollatedString const & other, unsigned short position);
  /// Appends `c` until the text has `n` characters.
  ZnCollatedString & Expand(unsigned short n, char c);
  /// Overwrites the first `n` characters; a shorter text is replaced by `n` of them.
  ZnCollatedString & Fill(unsigned short n, char c);
  ZnCollatedString & ToLower();
  ZnCollatedString & ToUpper();
  /// Replaces each blank by `0`, each `0` by a blank.
  ZnCollatedString & SpaceToZero();
  ZnCollatedString & ZeroToSpace();

  /// The first place where the bytes of `other` stand, or -1.
  int SubStringPos(ZnCollatedString const & other) const;

private:
  int Compare(ZnCollatedString const & other) const;
};

/// Bits of `mark` and of the first byte of the stored form.
namespace ZnCollationMark {
inline constexpr unsigned char Weights = 0x80; ///< the text is in weights already
inline constexpr unsigned char Stored = 0x40;  ///< the text is plain stored text
inline constexpr unsigned char Accents = 0x20; ///< in a comparison: accents count
} // namespace ZnCollationMark

extern template class ZANTMS_EXPORT ZnCollatedString<ZnCollation::cased>;
extern template class ZANTMS_EXPORT ZnCollatedString<ZnCollation::caseless>;

using ZnIString = ZnCollatedString<ZnCollation::cased>;
using ZnCaseIString = ZnCollatedString<ZnCollation::caseless>;

/// The compare rows of the two classes, in the shape of `ZnTypeCmpFunc`. The second value is the
/// pattern, with the wildcards `*` and `?` and the escape `\`, unless `cmpOp` has
/// `ZnCmpNoWildcards` or `ZnCmpKeysOnly`; no other flag is read. `error` takes 0, 2101 for a
/// result that rests on a part of the text, or `ZnErrNotSupported` for a second key that was cut
/// and still has 254 bytes or more.
ZANTMS_EXPORT int ZnIStringCompare(unsigned char format, unsigned int lengthA, void * valueA,
                                   unsigned int lengthB, void * valueB, unsigned short int cmpOp,
                                   unsigned int count, int & error);
ZANTMS_EXPORT int ZnCaseIStringCompare(unsigned char format, unsigned int lengthA, void * valueA,
                                       unsigned int lengthB, void * valueB,
                                       unsigned short int cmpOp, unsigned int count, int & error);
