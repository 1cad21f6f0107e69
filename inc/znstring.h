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

  // ---- Construction and assignment
  // ---------------------------------------------------------------
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

  // ---- Lifecycle
  // ---------------------------------------------------------------------------------

  /// Frees the buffer and leaves all four fields 0.
  void Destroy();
  void d_deactivate();
  /// The state of the default constructor, over raw memory: frees nothing.
  void Init();
  /// Takes over buffer, code set and language of `other`, which is left without text.
  void Destruct(ZnString & other);
  /// A shared string without text, of the default code set and language at load.
  static ZnString & EmptyString();

  // ---- State
  // -------------------------------------------------------------------------------------

  unsigned short Len() const;
  /// The text; never null. A string without buffer gives a shared empty text, which must not be
  /// written to.
  char * StrGet() const;
  int IsEmpty() const;
  int operator!() const;
  int IsNullValue() const;
  /// Frees the buffer and makes the string null; gives 0.
  int SetNullValue();

  // ---- Code set
  // ----------------------------------------------------------------------------------

  /// Converts the text if the widths differ, else only relabels it.
  void SetCodeSet(unsigned char cs);
  /// Relabels; `ZnErrWrongArgument` and no change if the widths differ.
  int SetCodeSetCode(unsigned char cs);
  /// Converts the text; `ZnErrWrongArgument` for 0.
  int MapToCodeSet(unsigned char cs);
  /// Converts `len` characters of `src` (-1 for all) into this string, whose buffer is kept if it
  /// is large enough. Characters written, or `ZnErrWrongArgument` if `src` is this string.
  int CopyMapped(ZnString const & src, unsigned char cs, short len);

  // ---- Process-wide defaults, kept by the language component
  // --------------------------------------

  static unsigned char GetDefaultCodeSet();
  static unsigned char GetDefault8CodeSet();
  static unsigned char GetDefault16CodeSet();
  static unsigned char GetDefaultLanguage();
  static unsigned short GetDefaultCmpOp();
  static void SetDefaultCodeSet(unsigned char cs);
  static void SetDefaultLanguage(unsigned char languageId);
  static void SetDefaultCmpOp(unsigned short cmpOp);
};

/// Modes of `ZnStringEdit`.
inline constexpr unsigned short EditOverwrite = 1; ///< the new text replaces as many characters
inline constexpr unsigned short EditInsert = 2;    ///< the new text pushes the rest back
inline constexpr unsigned short EditAssignAt = 3;  ///< the new text replaces the rest
