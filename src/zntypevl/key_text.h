#pragma once

#include "znstring/characters.h"
#include "zntypes/string_form.h"

/// The text of an index key while it is being made.

namespace zntms {

inline constexpr unsigned int kLongestStringKey = 254;
/// Orders behind every order number; in one-byte text the byte FF does.
inline constexpr unsigned short kLargestUnit = 0xFFFE;

/// Orders from here on are digits, letters and ideographs; spaces and symbols are below.
inline constexpr unsigned short kFirstSignificantOrder = 16128;
inline constexpr unsigned char kFirstClassWithoutLetters = 20;

constexpr bool IsLetterOrder(unsigned short order) { return (order & 0xC000) == 0x4000; }

/// Writes the largest unit of a text of that width, in the byte order of the host.
inline void WriteLargest(char * place, unsigned int width) {
  WriteChar(place, width, width == 2 ? kLargestUnit : 0xFF);
}

/// Order numbers, or bytes of code set 0, in the byte order of the host and with a terminator.
struct KeyText {
  unsigned char codeSet = 0;
  unsigned char language = 0; ///< of order text the script class, with the mark of a mixed text
  unsigned int bytes = 0;     ///< without the terminator
  char text[kLongestStringKey + 2] = {};

  unsigned int Width() const { return WidthOf(codeSet); }
  unsigned int Units() const { return bytes / Width(); }
  unsigned char ScriptClass() const { return language & 0x7F; }
  bool IsMixed() const { return codeSet == kOrderText && (language & kMixedClass) != 0; }

  /// Patterns match a null like an empty text, so that it is the lowest key of that.
  void MakeNull() { language = codeSet == kOrderText ? 0 : kNullLanguage; }
  void CutTo(unsigned int most) {
    if (bytes <= most)
      return;
    bytes = most;
    text[bytes] = text[bytes + 1] = 0;
  }
  void AppendLargest() {
    WriteLargest(text + bytes, Width());
    bytes += Width();
    text[bytes] = text[bytes + 1] = 0;
  }

  /// Replaces each letter of order text by what `vary` makes of it.
  template <class Vary>
  void VaryLetters(Vary vary) {
    if (codeSet == 0 || ScriptClass() >= kFirstClassWithoutLetters)
      return;
    for (unsigned int i = 0; i < bytes; i += 2) {
      unsigned short const order = ReadUnit(text + i);
      if (IsLetterOrder(order))
        WriteUnit(text + i, vary(order));
    }
  }
};

} // namespace zntms
