#pragma once

#include "znexport.h"

class ZnString;

/// Order numbers in readable form.
///
/// An order number tells what kind of character it is and where it sorts: 1 to 79 a space, 80 to
/// 16127 a symbol, 16128 to 16383 a digit, 16384 to 32767 a letter, 32768 and above an ideograph;
/// 0 is the end of the text. A number of any size in a script class of 20 or above is an
/// ideograph too. Of the class, the low 7 bits count.
///
/// A letter, from high to low: bits 13 and 12 case (0 upper), 11 to 7 diacritic, 6 to 2 base
/// letter (`A` is 3), 1 and 0 extension. Worked example: 0x610C is a lower-case `a` with acute.

/// One byte for an order number: a blank, a digit, the symbol (`.` for a symbol without a byte of
/// its own, 7 for an unknown one), the base letter, or 127 for an ideograph. If `mapAccents` is
/// not 0, a letter with a diacritic gives its byte in code set 1, if there is one, and `*name`
/// (unless `name` is null) its spelling such as `\'a`; `*name` stays as it is otherwise. Gives 0.
ZANTMS_EXPORT int ZnConvertOrderToChar(unsigned short order, unsigned char scriptClass,
                                       unsigned char & c, int mapAccents, char const ** name);

/// A description in English words, such as "lower letter a with accent acute". Gives 0.
ZANTMS_EXPORT int ZnConvertOrderToString(unsigned short order, unsigned char scriptClass,
                                         ZnString & out);

/// The value of a digit, and whether it has an expansion. 0, or `ZnErrWrongArgument` and no
/// change if `order` is no digit.
ZANTMS_EXPORT int ZnExtractDigitFromOrder(unsigned short order, unsigned short & digit,
                                          unsigned short & expand);

/// The number of a symbol. 0, or `ZnErrWrongArgument` and no change if `order` is no symbol.
ZANTMS_EXPORT int ZnExtractSymbolFromOrder(unsigned short order, unsigned short & symbol);
