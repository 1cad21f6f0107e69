#pragma once

/// The text of a string as bytes, for scans that read digits and letters of ASCII.
///
/// Worked example: of a string "12" in a 16-bit code set, `NarrowText(in).View()` is the two bytes
/// "12" of a copy in the default 8-bit code set; of a string in an 8-bit code set it is the
/// string's own text, unless its terminator was overwritten: then the copy has one behind the last
/// byte.

#include "znstring.h"
#include "znstring/nulltext.h"

#include <optional>
#include <string_view>

namespace zntms {

class NarrowText {
public:
  /// `in` must outlive the object.
  explicit NarrowText(ZnString const & in) : text_(in.text) {
    if (in.codeSet > 224) {
      copy_.emplace(ZnString::GetDefault8CodeSet(), ZnString::GetDefaultLanguage());
      *copy_ += in;
      text_ = copy_->text;
    } else if (in.text && (in.capacity == 0 || in.text[in.capacity - 1] != 0)) {
      copy_.emplace(in);
      text_ = copy_->text;
    }
    if (!text_)
      text_ = "";
  }
  NarrowText(NarrowText const &) = delete;
  NarrowText & operator=(NarrowText const &) = delete;

  /// Ended by a zero byte.
  char const * CStr() const { return text_; }
  std::string_view View() const { return text_; }

private:
  std::optional<ZnString> copy_;
  char const * text_;
};

/// Tells whether a text begins with the null print string, byte by byte over the length of that.
/// An empty null print string begins every text.
inline bool BeginsWithNullText(NarrowText const & text) {
  NarrowText const null(NullPrintString());
  char const * at = text.CStr();
  for (char const * word = null.CStr(); *word != 0; ++word, ++at)
    if (*at != *word)
      return false;
  return true;
}

} // namespace zntms
