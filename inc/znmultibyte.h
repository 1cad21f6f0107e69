#pragma once

#include "znexport.h"

class ZnString;

/// Text to and from UTF-8, in the form with up to six bytes a character.
///
/// Worked example: the bytes E2 82 AC become the one character 0x20AC of code set 253, and back.
///
/// A character is one 16-bit unit: a unit of a surrogate pair is encoded by itself in three
/// bytes, and of a sequence of four to six bytes the low 16 bits are kept. Decoding refuses
/// overlong forms, stray bytes and sequences that the input's end cuts. Nothing allocates but
/// where a result is told to.

/// One row of the encoding: the sequences of as many bytes as the row's number, from 1.
struct ZnUtf8Row {
  unsigned int mask;  ///< bits of the first byte that mark the length
  unsigned int lead;  ///< their value
  unsigned int shift; ///< bits of the character behind those in the first byte
  unsigned int max;   ///< largest character
  unsigned int min;   ///< smallest one; anything below has a shorter form
};

/// The six rows, and a row of zeros.
ZANTMS_EXPORT extern ZnUtf8Row const ZnUtf8Table[7];

/// Decodes one character from at most `length` bytes: the bytes taken; 0 for a null `in`; -1 for a
/// malformed sequence or a `length` of 0.
ZANTMS_EXPORT int ZnMultiByte2WChar(unsigned short * out, char * in, unsigned long long length);

/// Encodes one character in up to 6 bytes: their number; 0 for a null `out`; -1 above 0x7FFFFFFF.
ZANTMS_EXPORT int ZnWChar2MultiByte(char * out, wchar_t c);

/// Decodes `inLength` bytes: the number of characters, or -1 for malformed text. Characters beyond
/// `outLength` are counted, but not written. There is no terminator on either side.
ZANTMS_EXPORT int ZnMultiByteStr2WCharStr(unsigned short * out, int outLength, char * in,
                                          int inLength);

/// Decodes at most `inLength` bytes, up to a character 0, into `out`, which keeps its language and
/// takes code set 253. The bytes taken; -1 for malformed text or a null `in`; -2 when 32768 bytes
/// were taken. What was decoded until then is in `out`.
ZANTMS_EXPORT int ZnMBS2ZnString(char const * in, ZnString & out, int inLength);
ZANTMS_EXPORT int ZnMultiByteString2ZnString(char const * in, ZnString & out, int inLength);
/// The same from the bytes of `in`, `in.Len()` of them.
ZANTMS_EXPORT int ZnMultiByteString2ZnString(ZnString const & in, ZnString & out);

/// Bytes that the first `maxChars` characters take in UTF-8. ASCII text of a code set below 6 is
/// measured whole.
ZANTMS_EXPORT int ZnMBSLength(ZnString const & s, unsigned short maxChars);

/// Encodes into `outSize` bytes at `out`: the number of bytes, behind which a zero byte follows if
/// there is room (zeros to the end of the area, for ASCII text of a code set below 27). If the
/// area is too small: minus the bytes written, or minus the bytes needed for such ASCII text.
ZANTMS_EXPORT int ZnString2ZnMBS(ZnString const & s, char * out, int outSize);

/// Encodes with a zero byte behind the text and gives the bytes of the text. With `out` null or
/// `size` not above 0, the text is in a new buffer (`new char[]`), the caller's to free, and `size`
/// its bytes. A caller's buffer that is too small gives -1, with the bytes of the text in `size`;
/// one that the text fills exactly has no zero byte if the text came out in one step.
ZANTMS_EXPORT int ZnString2MultiByteString(ZnString const & s, char *& out, int & size);
