#pragma once

/// A small buffer in which a print puts its text together before a string takes it in one edit.
///
/// Worked example: `TextBuffer text; text.Put('#'); text.PutNumber(34u); text.AppendTo(out);`
/// appends "#34". What does not fit is dropped: whoever prints a text of any length looks at `Room`
/// and empties the buffer in time.

#include "znstring/edit.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <string_view>

namespace zntms {

class TextBuffer {
public:
  void Put(char c) {
    if (length_ < kRoom)
      text_[length_++] = c;
  }
  void Put(std::string_view text) {
    std::size_t const length = std::min<std::size_t>(text.size(), Room());
    std::memcpy(text_ + length_, text.data(), length);
    length_ += static_cast<unsigned int>(length);
  }
  /// The digits of a number, a minus sign first if it is negative. A number that does not fit
  /// leaves no digit.
  template <class Number>
  void PutNumber(Number number, int base = 10) {
    auto const result = std::to_chars(text_ + length_, text_ + kRoom, number, base);
    if (result.ec == std::errc())
      length_ = static_cast<unsigned int>(result.ptr - text_);
  }

  unsigned int Length() const { return length_; }
  unsigned int Room() const { return kRoom - length_; }
  /// Appends the text to `out` in one edit, in the code set of that, and starts anew.
  void AppendTo(ZnString & out) {
    if (length_)
      ZnStringEdit(out, CStr(), ZnString::GetDefault8CodeSet(), out.Len(), 0,
                   static_cast<unsigned short>(length_), 1, EditAssignAt);
    length_ = 0;
  }
  char const * CStr() {
    text_[length_] = '\0';
    return text_;
  }

private:
  static constexpr unsigned int kRoom = 511;
  char text_[kRoom + 1];
  unsigned int length_ = 0;
};

} // namespace zntms
