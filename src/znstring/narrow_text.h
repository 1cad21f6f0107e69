#pragma once

/// The text of a string as bytes, for scans that read digits and letters of ASCII.
///
/// Worked example: of a string "12" in a 16-bit code set, `NarrowText(in).View()` is the two bytes
/// "12" of a copy in the default code set; of a string in an 8-bit code set it is the string's own
/// text. Nothing is read behind the buffer of the string.

#include "znstring.h"
#include "znstring/nulltext.h"

#include <cstring>
#include <optional>
#include <string_view>

namespace zntms {

class NarrowText {
public:
  /// `in` must outlive the object.
  explicit NarrowText(ZnString const & in) {
    ZnString const * source = &in;
    if (in.codeSet > 224) {
      copy_.emplace();
      *copy_ += in;
      source = &*copy_;
    }
    if (source->text)
      view_ = {source->text, strnlen(source->text, source->capacity)};
  }

  std::string_view View() const { return view_; }

private:
  std::optional<ZnString> copy_;
  std::string_view view_;
};

/// Tells whether a text begins with the null print string, byte by byte over the length of that.
/// An empty null print string begins every text.
inline bool BeginsWithNullText(std::string_view text) {
  ZnString const & null = NullPrintString();
  // Most texts differ in their first character.
  if (null.codeSet <= 224 && null.text && !text.empty() && *null.text != text.front())
    return *null.text == 0;
  return text.starts_with(NarrowText(null).View());
}

} // namespace zntms
