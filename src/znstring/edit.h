#pragma once

/// The routines through which every change of a string's text passes.
///
/// Worked example: on "abcd", `ZnStringEdit(s, "XY", 0, 1, 0, 2, 1, EditInsert)` gives "aXYbcd",
/// the same with `EditOverwrite` "aXYd", with `EditAssignAt` "aXY".
///
/// Every edit leaves a buffer of exactly the bytes that the new text takes, so that `capacity`
/// tells the length of text and terminator to those who store it.

#include "znstring.h"

namespace zntms {

class NumberText;
struct DecimalNumber;

enum EditMode : unsigned short {
  EditOverwrite = 1, ///< the new text replaces as many characters
  EditInsert = 2,    ///< the new text pushes the rest back
  EditAssignAt = 3,  ///< the new text replaces the rest
};

/// Puts `length` characters of `source`, from the character `sourceOffset` on, at `position`.
///
/// `source` is text of `sourceCodeSet` and is converted to the target's code set first, with its
/// terminator as its end, unless the two are the same or `sourceCodeSet` is 0 and the widths
/// agree; it may be the target's own text. An empty source changes nothing, except in mode
/// `EditAssignAt`, where it may also be null and cuts the text at `position`. A `repeat` other
/// than 1 puts that many copies of the source's first character (`EditAssignAt` only).
/// `byteOrder` is that of the source: 2 big-endian, else as in memory.
/// A text that would pass `ZnStringMaxBytes` is cut there and reported.
void ZnStringEdit(ZnString & target, char const * source, unsigned char sourceCodeSet,
                  unsigned short position, unsigned short sourceOffset, unsigned short length,
                  unsigned short repeat, EditMode mode, unsigned char byteOrder = 255);

/// Fills a string that has no buffer with `length` characters (65535: up to the terminator), but
/// no more than a string can hold. Without source or length the string stays without text.
void ZnStringAssignCounted(ZnString & target, char const * source, unsigned char sourceCodeSet,
                           unsigned short length, unsigned char byteOrder);

/// Makes a number the whole text, in the default 8-bit code set and language. A buffer of the very
/// size is used again.
void ZnStringAssignNumber(ZnString & target, NumberText const & number);
void ZnStringAssignNumber(ZnString & target, DecimalNumber number);

/// A new buffer (`new char[]`, the caller's) with the converted text and its terminator; gives
/// its size in bytes. A code set of 0 is the native one. A text that is too long is cut and
/// reported.
unsigned int ZnStringConvert(unsigned char fromCodeSet, unsigned char toCodeSet,
                             char const * source, char *& buffer);

/// The same for `length` characters, among which there is no terminator.
unsigned int ZnStringConvert(unsigned char fromCodeSet, unsigned char toCodeSet,
                             char const * source, unsigned int length, char *& buffer);

/// The same for at most `length` characters into the buffer of `target`, which is kept if it is
/// large enough, with zeros behind the text. Gives the characters written. Code set and language
/// of `target` stay as they are.
unsigned int ZnStringConvertInto(unsigned char fromCodeSet, unsigned char toCodeSet,
                                 char const * source, unsigned short length, ZnString & target);

/// Copies bytes of text; units of two bytes with `byteOrder` 2 are swapped.
void ZnStringCopyBytes(char * destination, char const * source, unsigned int width,
                       unsigned char byteOrder, unsigned int byteCount);

/// Reports a text that was cut, if the configuration asks for it.
void ZnStringReportOverflow();

} // namespace zntms
