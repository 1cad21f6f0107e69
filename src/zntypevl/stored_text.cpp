#include "zntypevl/stored_text.h"

#include "zanbs.h"
#include "zncodes.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace zntms {

StoredTexts::StoredTexts(void const * value, unsigned int length, unsigned char format,
                         bool oldData)
    : place_(static_cast<char const *>(value)), end_(length != 0 ? place_ + length : nullptr),
      format_(format), oldData_(oldData) {}

StoredTexts::~StoredTexts() { std::free(heap_); }

bool StoredTexts::TakeMixedMark() {
  unsigned char const plain = WithoutMixedMark(codeSet, language);
  bool const marked = plain != language;
  language = plain;
  return marked;
}

void StoredTexts::Read() {
  if (oldEnd_ != nullptr) {
    ReadOld(0, end_ == nullptr || oldEnd_ < end_);
    return;
  }
  std::size_t const left = end_ != nullptr ? static_cast<std::size_t>(end_ - place_) : 2 + 65535u;
  auto const byteAt = [&](unsigned int i) {
    return static_cast<unsigned int>(i < left ? static_cast<unsigned char>(place_[i]) : 0);
  };
  unsigned int const length =
      IsBigEndian(format_) ? byteAt(0) << 8 | byteAt(1) : byteAt(0) | byteAt(1) << 8;
  unsigned int const whole = length + 2;
  unsigned int const held = static_cast<unsigned int>(std::min<std::size_t>(left, whole));
  bool const complete = held == whole;
  bool const newForm =
      (format_ & ZnFormatIndexKey) != 0 || (complete ? place_[whole - 1] != 0 : !oldData_);
  if (!newForm) {
    oldEnd_ = place_ + held;
    place_ += std::min(held, 2u);
    ReadOld(whole, complete);
    return;
  }
  codeSet = static_cast<unsigned char>(held > 2 ? place_[2] : 0);
  language = static_cast<unsigned char>(held > 3 ? place_[3] : 0);
  unsigned int const textLength = length < 4 ? 0 : length - 4;
  bytes = held < 4 ? 0 : std::min(held - 4, textLength);
  cut = complete ? Cut::No : held + 1 == whole ? Cut::EndMark : Cut::Text;
  next_ = place_ + held;
  if (TooLong())
    return;
  bool const terminated =
      CharacterWidth(codeSet) == 1 && 4 + bytes < held && place_[4 + bytes] == 0;
  if (terminated)
    text = place_ + 4;
  else
    Copy(held < 4 ? kEmptyText : place_ + 4);
}

/// A text of the old form at `place_`, up to its terminator. `whole` is the size of the array with
/// its field, 0 for a further text of it.
void StoredTexts::ReadOld(unsigned int whole, bool complete) {
  codeSet = 0;
  language = 0;
  std::size_t const left = static_cast<std::size_t>(oldEnd_ - place_);
  bytes = static_cast<unsigned int>(strnlen(place_, left));
  bool const terminated = bytes < left;
  bool const lacksOneByte = whole != 0 && oldEnd_ == end_ && left + 3 == whole;
  cut = terminated || complete ? Cut::No : lacksOneByte ? Cut::EndMark : Cut::Text;
  next_ = place_ + bytes + (terminated ? 1 : 0);
  if (terminated)
    text = place_;
  else if (!TooLong())
    Copy(place_);
}

bool StoredTexts::Advance() {
  place_ = next_;
  return end_ == nullptr || end_ - place_ > 4;
}

/// Half a character at the end of the text is left out.
void StoredTexts::Copy(char const * source) {
  bytes -= bytes % CharacterWidth(codeSet);
  char * target = local_;
  if (bytes > kLongestCutText) {
    std::free(heap_);
    heap_ = static_cast<char *>(std::malloc(bytes + 2));
    if (heap_ == nullptr)
      ZnCallMemoryHandler(bytes + 2);
    target = heap_;
  }
  std::memcpy(target, source, bytes);
  target[bytes] = target[bytes + 1] = 0;
  if (codeSet == kOrderTextCodeSet && IsBigEndian(format_))
    for (unsigned int i = 0; i + 1 < bytes; i += 2)
      std::swap(target[i], target[i + 1]);
  text = target;
}

} // namespace zntms
