#pragma once

/// Text as bare characters of one or two bytes, below any string class.
///
/// Worked example: `TextLength(p, 2)` counts the 16-bit units at `p` up to a zero unit, whatever
/// the alignment of `p`.

#include <cstring>

namespace zntms {

/// Ids above 224 name code sets of two bytes a character.
constexpr unsigned int WidthOf(unsigned char codeSet) { return codeSet > 224 ? 2 : 1; }

/// Characters that a string of that width can hold.
constexpr unsigned int MaxChars(unsigned int width) { return 65532 / width - 1; }

inline unsigned short ReadUnit(char const * place) {
  unsigned short unit;
  std::memcpy(&unit, place, sizeof unit);
  return unit;
}

inline void WriteUnit(char * place, unsigned short unit) { std::memcpy(place, &unit, sizeof unit); }

/// The character at `place`; one-byte characters without a sign.
inline unsigned short ReadChar(char const * place, unsigned int width) {
  return width == 2 ? ReadUnit(place) : static_cast<unsigned char>(*place);
}

inline void WriteChar(char * place, unsigned int width, unsigned short c) {
  if (width == 2)
    WriteUnit(place, c);
  else
    *place = static_cast<char>(c);
}

/// Zeros in an area, which may be null if it is empty.
inline void ClearArea(void * area, std::size_t bytes) {
  if (bytes != 0)
    std::memset(area, 0, bytes);
}

/// Characters up to the terminator.
inline unsigned int TextLength(char const * text, unsigned int width) {
  if (width == 1)
    return static_cast<unsigned int>(std::strlen(text));
  unsigned int length = 0;
  while (ReadUnit(text + 2 * length) != 0)
    ++length;
  return length;
}

/// Characters up to the terminator, or as many as `bytes` bytes hold.
inline unsigned int TextLengthWithin(char const * text, unsigned int width, unsigned int bytes) {
  if (width == 1) {
    void const * end = std::memchr(text, 0, bytes);
    return end ? static_cast<unsigned int>(static_cast<char const *>(end) - text) : bytes;
  }
  unsigned int const units = bytes / 2;
  unsigned int length = 0;
  // Four units at a time, as long as none of them is 0: a borrow reaches the top bit of a unit
  // only from a zero unit, of this place or of a lower one.
  for (; length + 4 <= units; length += 4) {
    unsigned long long four;
    std::memcpy(&four, text + 2 * length, sizeof four);
    if (((four - 0x0001000100010001) & ~four & 0x8000800080008000) != 0)
      break;
  }
  while (length < units && ReadUnit(text + 2 * length) != 0)
    ++length;
  return length;
}

} // namespace zntms
