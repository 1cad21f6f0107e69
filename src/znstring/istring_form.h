#pragma once

#include <algorithm>
#include <cstring>
#include <string_view>

#include "zanbs.h"
#include "znistring.h"

/// The head of the stored form of the two older string classes.

namespace zntms {

inline constexpr unsigned int kIStringHead = 3; ///< bytes of mark and length

/// A stored value as far as the bytes at hand reach: never beyond what the head tells, nor beyond
/// the area it lies in.
struct IStringForm {
  unsigned char mark = 0;
  unsigned int total = 0;   ///< bytes of text that the head tells
  std::string_view bytes{}; ///< those that are there

  /// `length` bytes at `value`, 0 for as many as the head tells.
  IStringForm(void const * value, unsigned int length, unsigned char format) {
    auto const * const start = static_cast<char const *>(value);
    bytes = std::string_view(start + kIStringHead, 0);
    if (length != 0 && length < kIStringHead)
      return;
    mark = static_cast<unsigned char>(*start);
    unsigned short stored;
    ShortStoreOne(&stored, start + 1, format);
    total = stored;
    unsigned int const room = length == 0 ? total : length - kIStringHead;
    bytes = std::string_view(start + kIStringHead, std::min(total, room));
  }

  bool InWeights() const { return (mark & ZnCollationMark::Weights) != 0; }
  bool IsCut() const { return bytes.size() < total; }
};

/// Takes the next text off `bytes`, with its zero byte if there is one.
inline std::string_view TakeText(std::string_view & bytes) {
  std::size_t const length = std::min(bytes.find('\0'), bytes.size());
  std::string_view const text = bytes.substr(0, length);
  bytes.remove_prefix(std::min(length + 1, bytes.size()));
  return text;
}

} // namespace zntms
