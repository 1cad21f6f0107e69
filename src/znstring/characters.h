#pragma once

#include <cstring>

/// Characters as they lie in a text: one byte, or two bytes in either order.

namespace zntms {

inline constexpr unsigned char kUnicodeCodeSet = 253;
inline constexpr unsigned char kOrderTextCodeSet = 254; ///< the characters are order numbers
inline constexpr unsigned char kNullLanguage = 254;

constexpr unsigned int CharacterWidth(unsigned char codeSet) { return codeSet > 224 ? 2 : 1; }

/// Whether a text of these ids is the null text.
constexpr bool IsNullText(unsigned char codeSet, unsigned char language) {
  return language == kNullLanguage || (codeSet == kOrderTextCodeSet && language == 0);
}

constexpr bool IsBigEndian(unsigned char byteOrder) { return (byteOrder & 15) == 2; }

constexpr unsigned short SwapBytes(unsigned short c) {
  return static_cast<unsigned short>(c << 8 | c >> 8);
}

template <int Width>
inline unsigned short ReadCharacter(char const * place) {
  if constexpr (Width == 1) {
    return static_cast<unsigned char>(*place);
  } else {
    unsigned short c;
    std::memcpy(&c, place, 2);
    return c;
  }
}

inline unsigned short ReadCharacter(char const * place, unsigned char codeSet,
                                    unsigned char byteOrder) {
  if (CharacterWidth(codeSet) == 1)
    return ReadCharacter<1>(place);
  unsigned short const c = ReadCharacter<2>(place);
  return IsBigEndian(byteOrder) ? SwapBytes(c) : c;
}

inline void WriteCharacter(char * place, unsigned short c, unsigned char codeSet,
                           unsigned char byteOrder) {
  if (CharacterWidth(codeSet) == 1) {
    *place = static_cast<char>(c);
    return;
  }
  if (IsBigEndian(byteOrder))
    c = SwapBytes(c);
  std::memcpy(place, &c, 2);
}

/// A text without characters, of either width.
inline constexpr char kEmptyText[4] = {};

} // namespace zntms
