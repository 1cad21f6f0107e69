#pragma once

#include "zncodes.h"
#include "znexport.h"

class ZnChar;
class ZnCharOperation;

/// Limits of a text: the buffer in bytes with its terminator, and the characters that this
/// leaves in a code set of one byte and of two bytes a character.
inline constexpr unsigned int ZnStringMaxBytes = 65532;
inline constexpr unsigned int ZnStringMaxChars8 = 65531;
inline constexpr unsigned int ZnStringMaxChars16 = 32765;

/// A text with the code set it is written in and the language it is ordered in.
///
/// Worked example: `ZnString s("abc"); s += ZnString("d"); s.Len()` is 4; `s.capacity` is 5.
///
/// Lengths and positions count characters, `capacity` counts bytes. Code sets 1 to 224 take one
/// byte a character, 225 to 254 two (253 is Unicode, 254 order text); code set 0 is native text,
/// or as a source "as it is". Language 254 marks the null string. Each object owns its buffer;
/// a text that would pass `ZnStringMaxBytes` is cut there, with a report if the configuration
/// asks for one. An object may be used from one thread at a time.
class ZANTMS_EXPORT ZnString {
public:
  char * text;             ///< owned buffer, or null while the string has none
  unsigned short capacity; ///< bytes of the buffer with its terminator; 0 while `text` is null
  unsigned char codeSet;
  unsigned char language;

  // ---- Construction and assignment --------------------------------------------------------------
  //
  // Text from `char` data has the default 8-bit code set, text from 16-bit data the default
  // 16-bit code set, both the default language. Texts that are too long are cut in silence.

  ZnString();
  ZnString(ZnString const & other);
  ZnString(unsigned char codeSetId, unsigned char languageId);
  ZnString(char c);
  ZnString(unsigned char c);
  ZnString(unsigned short c);
  ZnString(short number);
  ZnString(int number);
  ZnString(unsigned int number);
  ZnString(long long number);
  ZnString(unsigned long long number);
  ZnString(double number);
  ZnString(char const * source);
  ZnString(unsigned short const * source);
  /// `len` characters; 65535 means up to the terminator.
  ZnString(char const * source, unsigned short len);
  ZnString(unsigned short const * source, unsigned short len);
  ~ZnString();

  /// The target takes the code set and language of the source.
  ZnString & operator=(ZnString const & other);
  ZnString & operator=(char const * source);
  ZnString & operator=(unsigned short const * source);

  // ---- Lifecycle --------------------------------------------------------------------------------

  /// Frees the buffer and leaves all four fields 0.
  void Destroy();
  void d_deactivate();
  /// The state of the default constructor, over raw memory: frees nothing.
  void Init();
  /// Takes over buffer, code set and language of `other`, which is left without text.
  void Destruct(ZnString & other);
  /// A shared string without text, of the default code set and language at load.
  static ZnString & EmptyString();

  // ---- State ------------------------------------------------------------------------------------

  unsigned short Len() const;
  /// The text; never null. A string without buffer gives a shared empty text, which must not be
  /// written to.
  char * StrGet() const;
  int IsEmpty() const;
  int operator!() const;
  int IsNullValue() const;
  /// Frees the buffer and makes the string null; gives 0.
  int SetNullValue();

  // ---- Code set ---------------------------------------------------------------------------------

  /// Converts the text if the widths differ, else only relabels it.
  void SetCodeSet(unsigned char cs);
  /// Relabels; `ZnErrWrongArgument` and no change if the widths differ.
  int SetCodeSetCode(unsigned char cs);
  /// Converts the text; `ZnErrWrongArgument` for 0.
  int MapToCodeSet(unsigned char cs);
  /// Converts `len` characters of `src` (-1 for all) into this string, whose buffer is kept if it
  /// is large enough. Characters written, or `ZnErrWrongArgument` if `src` is this string.
  int CopyMapped(ZnString const & src, unsigned char cs, short len);

  // ---- Process-wide defaults, kept by the language component ------------------------------------

  static unsigned char GetDefaultCodeSet();
  static unsigned char GetDefault8CodeSet();
  static unsigned char GetDefault16CodeSet();
  static unsigned char GetDefaultLanguage();
  static unsigned short GetDefaultCmpOp();
  static void SetDefaultCodeSet(unsigned char cs);
  static void SetDefaultLanguage(unsigned char languageId);
  static void SetDefaultCmpOp(unsigned short cmpOp);

  // ---- Append ----------------------------------------------------------------------------------
  //
  // What is appended goes over to the code set of this string.

  void operator+=(ZnString const & other);
  ZnString & operator<<(ZnString const & other);
  /// Nothing for the character 0.
  ZnString & operator<<(char c);
  /// On a string of two bytes a character that character (nothing for 0), else its decimal number.
  ZnString & operator<<(unsigned short c);
  ZnString & operator<<(short number);
  ZnString & operator<<(int number);
  ZnString & operator<<(unsigned int number);
  ZnString & operator<<(long long number);
  ZnString & operator<<(unsigned long long number);
  ZnString & operator<<(float number);
  ZnString & operator<<(double number);
  ZnString & operator<<(char const * source);
  ZnString & operator<<(unsigned short const * source);

  // ---- Parts of the text -----------------------------------------------------------------------

  /// The character at `i`, through which it can be written; the terminator for `i` = `Len()`. On
  /// a string without text index 0 must not be written to. Above `Len()` a value character 0.
  /// `i` must not be negative.
  ZnChar operator[](int i);
  /// `length` characters from `position`, -1 for all. Nothing behind the end gives an empty text
  /// of the default 8-bit code set.
  ZnString Copy(unsigned short position, short length) const;
  ZnString Left(unsigned short n) const;
  ZnString Right(unsigned short n) const;

  // ---- Edits; each gives the string itself -----------------------------------------------------

  /// Takes `count` characters out, -1 for all from `position`.
  ZnString & Cut(unsigned short position, short count);
  /// Puts a text before `position`; nothing if that lies behind the end.
  ZnString & Insert(ZnString const & other, unsigned short position);
  /// Overwrites from `position`, never lengthening the text.
  ZnString & Replace(ZnString const & other, unsigned short position);
  /// Appends `c` until the text has `n` characters.
  ZnString & Expand(unsigned short n, char c);
  ZnString & Expand(unsigned short n, unsigned short c);
  /// The text becomes `n` times `c`.
  ZnString & Fill(unsigned short n, char c);
  ZnString & Fill(unsigned short n, unsigned short c);

  // ---- Search ----------------------------------------------------------------------------------
  //
  // A place matches if the text there compares equal to the pattern by the comparison flags
  // `cmpOp`, in language order. Flags that have neither `ZnCmpNoWildcards` nor `ZnCmpKeysOnly`
  // make the pattern one with wildcards; with any others, and with `ZnCmpDefault`, as many
  // characters are compared as the pattern has.

  /// The first place from `start` on, or -1.
  short Find(ZnString const & pattern, unsigned short start = 0,
             unsigned short cmpOp = ZnCmpDefault) const;
  short Find(char c, unsigned short start = 0, unsigned short cmpOp = ZnCmpDefault) const;
  short Find(unsigned short c, unsigned short start = 0, unsigned short cmpOp = ZnCmpDefault) const;
  /// The first place in the text, or -1.
  short SubStringPos(ZnString const & pattern, unsigned short cmpOp = ZnCmpDefault) const;
  /// Replaces every match from `start` on; the search goes on behind what was put in.
  ZnString & ReplaceAll(ZnString const & pattern, ZnString const & replacement,
                        unsigned short start = 0);
  ZnString & ReplaceAll(char pattern, char replacement, unsigned short start = 0);
  ZnString & ReplaceAll(unsigned short pattern, unsigned short replacement,
                        unsigned short start = 0);

  // ---- Trim and transform ----------------------------------------------------------------------

  /// Takes away spaces at both ends.
  ZnString & Trim();
  ZnString & LeftTrim();
  /// Keeps the first character, even if it is a space.
  ZnString & RightTrim();
  /// Replaces every character by what `op` makes of it.
  ZnString & Transform(ZnCharOperation & op);
  ZnString & ToLower();
  ZnString & ToUpper();

  // ---- Numbers in text -------------------------------------------------------------------------
  //
  // The casts read the number that the text begins with, behind white space, and give 0 for none.
  // Integers are read with the base that the prefix tells (0x10 is 16, 010 is 8); option bit 0 of
  // `___ZnTypeMgrOptions` makes that decimal for text of one byte a character. What does not fit
  // gives the largest or smallest number of 32 or 64 bits; a short takes its low 16 bits.

  operator short() const;
  operator int() const;
  operator long long() const;
  operator double() const;
  /// -1 and an `out` of 0 if the first character is neither a digit nor `-`; else 0 and the
  /// number, for text of one byte a character in decimal.
  int Atol(int & out) const;
  int Atoll(long long & out) const;
  /// The same with the base that the prefix tells.
  int Strtol(int & out) const;
  int Strtoll(long long & out) const;

  // ---- Comparison ------------------------------------------------------------------------------
  //
  // The right-hand side is the pattern if the flags allow wildcards.

  /// Negative, 0 or positive; looks at no more than `length` characters, -1 for all.
  int Compare(ZnString const & other, short length = -1, unsigned short cmpOp = ZnCmpDefault) const;
  /// Equal by comparison keys, both in the common language or else in the root order.
  int EqualsIgnoreLanguage(ZnString const & other) const;
  bool operator==(ZnString const & other) const;
  /// The result of the comparison as it is, not a truth value.
  int operator!=(ZnString const & other) const;
  bool operator<(ZnString const & other) const;
  bool operator<=(ZnString const & other) const;
  bool operator>(ZnString const & other) const;
  bool operator>=(ZnString const & other) const;

  // ---- Wildcard characters, process-wide, for program start ------------------------------------

  /// The order of `c` is that of the wildcard from now on; gives 0.
  static int SetAsterisk(ZnChar const & c);
  static int SetQuestion(ZnChar const & c);
  static int SetEscape(ZnChar const & c);
};

/// A new string of the code set and language of `a`.
ZANTMS_EXPORT ZnString operator+(ZnString const & a, ZnString const & b);

/// Takes the next item off a list: the text from `position` to the next `delimiter`, trimmed, and
/// moves `position` behind that. A delimiter at the very start of the list is passed over.
/// 0, or `ZnErrEndOfList`.
ZANTMS_EXPORT int ZnSplitList(ZnString & source, ZnString & item, ZnString const & delimiter,
                              unsigned short & position);

/// Hash of the bytes of the text (units in code set 253), and of their low 7 bits.
ZANTMS_EXPORT unsigned int HashZnString(ZnString const & s);
ZANTMS_EXPORT unsigned int HashZnString7(ZnString const & s);
