#pragma once

#include "znstring/characters.h"

/// Walks the texts of a stored string array for the compare and hash rows.
///
/// An element of the new form is a length field, code set, language, text and the end mark 00 FF;
/// an array of the old form is one length field and zero-terminated texts. Example of the new
/// form, little-endian: 07 00 01 02 61 62 63 00 FF is "abc" of code set 1, language 2.
///
/// The area may end inside an element, which then is cut. Nothing behind the area is read, nor
/// behind what the length field tells if the area is not bounded. The text is given with a
/// terminator: in place where one stands there, else as a copy.

namespace zntms {

/// The language of a text without the mark that an order text of several script classes has there.
constexpr unsigned char WithoutMixedMark(unsigned char codeSet, unsigned char language) {
  return codeSet == kOrderTextCodeSet ? language & 0x7F : language;
}

class StoredTexts {
public:
  /// `length` 0: the area is as long as its length fields say. `oldData`: an incomplete element
  /// is taken for the old form, unless the format marks an index key.
  StoredTexts(void const * value, unsigned int length, unsigned char format, bool oldData);
  ~StoredTexts();
  StoredTexts(StoredTexts const &) = delete;
  StoredTexts & operator=(StoredTexts const &) = delete;

  /// The longest text that a cut key may hold, less one.
  static constexpr unsigned int kLongestCutText = 254;

  enum class Cut { No, EndMark, Text };

  /// Reads the element at the present place into the fields below.
  void Read();
  /// Moves behind the element that was read; false if the area holds no further one.
  bool Advance();

  unsigned int Characters() const { return bytes / CharacterWidth(codeSet); }
  bool TooLong() const { return cut == Cut::Text && bytes >= kLongestCutText; }
  /// Takes the mark of a mixed text off the script class; true if there was one.
  bool TakeMixedMark();

  char const * text = kEmptyText; ///< with a terminator; order text in the byte order of the host
  unsigned int bytes = 0;         ///< of the text, as far as the area holds it
  unsigned char codeSet = 0;
  unsigned char language = 0;
  Cut cut = Cut::No;

private:
  void ReadOld(unsigned int held, bool complete);
  void Copy(char const * source);

  char const * place_;
  char const * end_; ///< of the area, null if it is not bounded
  char const * next_ = nullptr;
  char const * oldEnd_ = nullptr; ///< of an old array, inside of it
  unsigned char format_;
  bool oldData_;
  char * heap_ = nullptr;
  char local_[kLongestCutText + 2];
};

} // namespace zntms
