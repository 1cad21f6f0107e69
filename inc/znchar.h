#pragma once

#include "znexport.h"

class ZnCodeSet;
class ZnString;
class ZnStringIterator;
class ZnWCharList;

/// One character of a text: a value, or a reference to a place in a buffer.
///
/// Worked example: with `ZnString s("abc")`, `ZnChar c(s, 1)` refers to the `b`; the assignment
/// `c = 'x'` makes the string "axc". A copy of `c` is a value and no longer touches the string.
///
/// A reference borrows its place, which must outlive it. Arguments: code set 255 stands for the
/// default code set of the argument's width, language 255 for the default language.
class ZANTMS_EXPORT ZnChar {
public:
  char * place;            ///< the character's place in a buffer; null for a value
  unsigned short value;    ///< the character if `place` is null, in the byte order `byteOrder`
  unsigned char codeSet;   ///< id of its code set
  unsigned char language;  ///< id of its language
  unsigned char byteOrder; ///< of a two-byte character: 1 little-endian, 2 big-endian

  /// Refers to the character at `byteOffset` of `s`: a count of bytes, not of characters.
  ZnChar(ZnString & s, int byteOffset);
  /// Always a value, even if `other` refers to a place.
  ZnChar(ZnChar const & other);
  explicit ZnChar(char c, unsigned char codeSetId = 255, unsigned char languageId = 255);
  explicit ZnChar(unsigned short c, unsigned char codeSetId = 255, unsigned char languageId = 255);
  /// Refers to `where`. The place is only written to by assignment. Byte order 255 stands for 1.
  ZnChar(char const * where, unsigned char codeSetId, unsigned char languageId,
         unsigned char order);
  ~ZnChar();

  /// A value takes over character and ids. A reference keeps its ids: the character is mapped to
  /// the code set of the place and written there.
  ZnChar & operator=(ZnChar const & other);
  /// Writes one byte, to the place or the value, whatever the width of the code set.
  ZnChar & operator=(char c);
  /// Writes a 16-bit character in the byte order of the target, to the place or the value.
  ZnChar & operator=(unsigned short c);

  /// The character as a number: the byte, or the 16-bit unit in the order of the host.
  unsigned short Value() const;

  /// Compares by `ZnStrCmp` over one unit; 65535 stands for the default flags. `other` is the
  /// pattern: unless the flags forbid wildcards, `*` and `?` equal every character.
  int Compare(ZnChar const & other, unsigned short cmpOp) const;
  /// All with the default flags; `operator!=` gives the three-way result, the others 0 or 1.
  int operator==(ZnChar const & other) const;
  int operator!=(ZnChar const & other) const;
  int operator<(ZnChar const & other) const;
  int operator<=(ZnChar const & other) const;
  int operator>(ZnChar const & other) const;
  int operator>=(ZnChar const & other) const;
  int operator==(char other) const;
  int operator!=(char other) const;
  int operator<(char other) const;
  int operator<=(char other) const;
  int operator>(char other) const;
  int operator>=(char other) const;
  int operator==(unsigned short other) const;
  int operator!=(unsigned short other) const;
  int operator<(unsigned short other) const;
  int operator<=(unsigned short other) const;
  int operator>(unsigned short other) const;
  int operator>=(unsigned short other) const;

  // Kind of the character, by its order number: 0 or 1.
  int IsSpace() const;
  int IsSymbol() const;
  int IsDigit() const;
  int IsAlpha() const;
  int IsHan() const;

  /// The character in another code set, as a value; in code set 0 or its own, a value copy.
  ZnChar MapTo(unsigned char codeSetId) const;

  /// The character in the other case as a value of the same code set, or a value copy if it has
  /// none. Code set 0 knows the case of ASCII letters.
  ZnChar ToLower(ZnStringIterator * source) const;
  /// Where the upper-case form has several characters, the further ones go to the overflow list of
  /// `source`, unless that is null.
  ZnChar ToUpper(ZnStringIterator * source) const;
};

/// The order number of a character, without regard to the language and to its neighbours. A
/// character of which the tables know nothing gives its own value.
ZANTMS_EXPORT unsigned short ZnCharOrder(ZnChar const & c);

/// What `ZnString::Transform` applies to each character.
class ZANTMS_EXPORT ZnCharOperation {
public:
  /// The character that is to stand in place of `c`. Further ones may go to the overflow list of
  /// `source`.
  virtual ZnChar Apply(ZnChar const & c, ZnStringIterator * source) = 0;

protected:
  ~ZnCharOperation() = default;
};

class ZANTMS_EXPORT ZnCharToLower final : public ZnCharOperation {
public:
  ZnChar Apply(ZnChar const & c, ZnStringIterator * source) override;
};

class ZANTMS_EXPORT ZnCharToUpper final : public ZnCharOperation {
public:
  ZnChar Apply(ZnChar const & c, ZnStringIterator * source) override;
};

/// Walks a text and turns its characters into order numbers.
///
/// Worked example: over "aß" in German, `GetNextOrder(1)` gives the orders of `a`, `s` and `s`,
/// then 0 as often as it is called.
///
/// One place of the text may deliver several units: the items of the overflow list come before
/// `current` moves on. The text is borrowed: it ends with a zero character, outlives the iterator
/// and is not edited meanwhile. Arguments: code set 255 stands for the default code set of the
/// argument's width, language 255 for the default language, byte order 255 for 1.
class ZANTMS_EXPORT ZnStringIterator {
public:
  ZnCodeSet const * codeSetRecord; ///< record of the present code set
  unsigned char codeSet;           ///< code set of the text
  unsigned char language;
  unsigned char scriptClass;     ///< class of the last character read by `GetNextOrder`
  unsigned char overflowCodeSet; ///< of the overflow items; 254: they are order numbers
  short overflowIndex;           ///< next unread item of the overflow list
  unsigned char byteOrder;       ///< as in `ZnChar`; 8 over the text of a `ZnString`
  unsigned short ownsBuffer;     ///< non-zero: walks over `ownText`

private:
  char ownText[4]; ///< the character of the constructor over a `ZnChar`, and a terminator

public:
  char const * current;         ///< place of the present character
  ZnWCharList const * overflow; ///< units to deliver before `current` moves on; null for none

  explicit ZnStringIterator(ZnString & s);
  /// Over a copy of `c`, which lives in the iterator: a copy of the iterator refers to it there.
  explicit ZnStringIterator(ZnChar & c);
  ZnStringIterator(ZnStringIterator const & other);
  explicit ZnStringIterator(char const * text, unsigned char codeSetId = 255,
                            unsigned char languageId = 255, unsigned char order = 255);
  explicit ZnStringIterator(unsigned short * text, unsigned char codeSetId = 255,
                            unsigned char languageId = 255, unsigned char order = 255);
  ~ZnStringIterator() = default;

  ZnStringIterator & operator=(ZnStringIterator const & other);

  /// Whether both stand at the same place; overflow lists do not count.
  int operator==(ZnStringIterator const & other) const;
  /// Takes the next overflow item as a value, or else refers to the character at `current`.
  ZnChar operator*();
  /// Moves on one character, unless the overflow list has unread items.
  ZnStringIterator & operator++();
  ZnStringIterator operator++(int);
  /// Moves back one character; the overflow list does not count.
  ZnStringIterator & operator--();
  ZnStringIterator operator--(int);
  /// `++` for a non-zero argument, else `--`.
  void Step(unsigned short forward);
  /// Whether text and overflow list are at their end.
  int IsEOS() const;
  /// Installs a list that outlives its use; code set 255 stands for that of the text.
  void SetOverflow(ZnWCharList const * list, unsigned char codeSetId);
  /// Writes `op` of each character, and the terminator, through `target`; both iterators end
  /// behind the terminator. The caller provides for the room.
  void Transform(ZnStringIterator & target, ZnCharOperation & op);
  /// The next order number; 0 at the end of the text, where it stays. A non-zero `trackClass`
  /// keeps `scriptClass` up to date. Allocates nothing.
  unsigned short GetNextOrder(unsigned short trackClass);

private:
  void Open(char const * text, unsigned char codeSetId, unsigned char languageId,
            unsigned char order);
  bool HasUnread() const;
  unsigned short NextOrderInFull(unsigned short trackClass);
};
