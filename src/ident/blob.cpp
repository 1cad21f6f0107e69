#include "znblob.h"

#include "ident/byte_search.h"
#include "zanbs.h"
#include "znstring/number_text.h"

#include <algorithm>
#include <cassert>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <memory>
#include <string_view>

/// Blobs: ownership, edits, order.
///
/// There is no capacity beside `length`. A buffer is used again if the new content is up to 128
/// bytes shorter than the old one, and `length` then forgets the larger size. Worked example: a
/// blob of 200 bytes that takes 100 bytes keeps its buffer; it takes 50 bytes next, within 128 of
/// 100, and keeps it again; for 60 bytes it gets a new one.
///
/// Where new memory is needed it is allocated and filled before the old one is freed, so that a
/// source may lie inside the blob, and a blob stays whole if memory is short.

namespace zntms {
namespace {

/// Bytes that a reused buffer may be larger than its content.
constexpr long long kReusableSlack = 128;

/// Every legal state of a blob that is not null.
[[maybe_unused]] bool IsSound(ZnBlobData const & data) {
  return data.length >= 0 && (data.bytes || data.length == 0);
}

constexpr std::size_t SizeOf(int size) { return size > 0 ? static_cast<std::size_t>(size) : 0; }

char * AllocateBytes(std::size_t size) {
  if (size == 0)
    return nullptr;
  void * const bytes = std::malloc(size);
  if (!bytes)
    ZnCallMemoryHandler(size);
  return static_cast<char *>(bytes);
}

void CopyBytes(char * target, void const * source, std::size_t size) {
  if (size != 0)
    std::memmove(target, source, size);
}

/// New data of `size` uninitialised bytes; `size` is not negative.
ZnBlobData * NewData(int size) {
  auto data = std::make_unique<ZnBlobData>();
  data->bytes = AllocateBytes(SizeOf(size));
  data->length = size;
  return data.release();
}

void FreeData(ZnBlobData * data) {
  if (data) {
    std::free(data->bytes);
    delete data;
  }
}

/// Replaces the buffer; the old one is freed.
void TakeBytes(ZnBlobData & data, char * bytes, int length) {
  std::free(data.bytes);
  data.bytes = bytes;
  data.length = length;
}

/// Puts given bytes into data that is there: the one place that decides on a buffer's reuse.
void ZnBlobDataAssign(ZnBlobData & data, void const * source, int size) {
  long long const slack = static_cast<long long>(data.length) - size;
  if (data.bytes && slack >= 0 && slack <= kReusableSlack) {
    CopyBytes(data.bytes, source, SizeOf(size));
    data.length = size;
  } else {
    char * const bytes = AllocateBytes(SizeOf(size));
    CopyBytes(bytes, source, SizeOf(size));
    TakeBytes(data, bytes, size);
  }
  assert(IsSound(data));
}

std::string_view ViewOf(ZnBlobData const * data) {
  return data && data->length ? std::string_view(data->bytes, SizeOf(data->length))
                              : std::string_view();
}

/// The content as text: up to its terminator, or to its end if it has none.
std::string_view TextOf(ZnBlobData const * data) {
  std::string_view const content = ViewOf(data);
  return content.substr(0, content.find('\0'));
}

/// Blanks, a sign and decimal digits; what is too large gives the largest number of its sign.
long long ReadInteger(std::string_view text) {
  while (!text.empty() && IsBlank(text.front()))
    text.remove_prefix(1);
  bool const plus = text.starts_with('+');
  if (plus)
    text.remove_prefix(1);
  if (plus && text.starts_with('-'))
    return 0;
  long long number = 0;
  if (std::from_chars(text.data(), text.data() + text.size(), number).ec ==
      std::errc::result_out_of_range)
    number = text.front() == '-' ? std::numeric_limits<long long>::min()
                                 : std::numeric_limits<long long>::max();
  return number;
}

} // namespace
} // namespace zntms

using namespace zntms;

ZnBlob::ZnBlob() : data(NewData(0)) {}

ZnBlob::ZnBlob(ZnBlob const & other) : data(nullptr) { *this = other; }

ZnBlob::ZnBlob(int size) : data(NewData(std::max(size, 0))) {}

ZnBlob::ZnBlob(void const * source, int size) : ZnBlob(size) {
  CopyBytes(data->bytes, source, SizeOf(size));
}

ZnBlob::ZnBlob(char const * text) : ZnBlob(text, static_cast<int>(std::strlen(text) + 1)) {}

ZnBlob::~ZnBlob() { FreeData(data); }

ZnBlob & ZnBlob::operator=(ZnBlob const & other) {
  if (!other.data)
    SetNullValue();
  else if (this != &other)
    SetTo(other.data->bytes, other.data->length);
  return *this;
}

ZnBlob & ZnBlob::operator=(char const * image) {
  SetNullValue();
  int length;
  std::memcpy(&length, image, sizeof length);
  if (length >= 0)
    SetTo(image + sizeof length, length);
  return *this;
}

void ZnBlob::SetTo(void const * source, int size) {
  if (data) {
    ZnBlobDataAssign(*data, source, std::max(size, 0));
  } else {
    data = NewData(std::max(size, 0));
    CopyBytes(data->bytes, source, SizeOf(size));
  }
}

void ZnBlob::Destroy(ZnBlob & other) {
  if (this == &other)
    return;
  ZnBlobData * const left = other.data ? NewData(0) : nullptr;
  FreeData(data);
  data = other.data;
  other.data = left;
}

int ZnBlob::SetNullValue() {
  FreeData(data);
  data = nullptr;
  return 0;
}

int ZnBlob::operator==(ZnBlob const & other) const {
  return IsNullValue() == other.IsNullValue() && ViewOf(data) == ViewOf(other.data);
}

int ZnBlob::operator!=(ZnBlob const & other) const {
  if (!data || !other.data)
    return 2 * (other.IsNullValue() - IsNullValue());
  std::size_t const common = SizeOf(std::min(data->length, other.data->length));
  if (int const order = common ? std::memcmp(data->bytes, other.data->bytes, common) : 0)
    return order;
  return (data->length > other.data->length) - (data->length < other.data->length);
}

ZnBlob & ZnBlob::operator+=(ZnBlob const & other) {
  Append(other);
  return *this;
}

void ZnBlob::Append(ZnBlob const & other) {
  if (other.data)
    Append(other.data->bytes, other.data->length);
}

void ZnBlob::Append(void const * source, int size) {
  if (size < 1)
    return;
  if (!data)
    return SetTo(source, size);
  std::size_t const before = SizeOf(data->length);
  std::size_t const joined = before + SizeOf(size);
  if (joined > std::numeric_limits<int>::max())
    ZnCallMemoryHandler(joined);
  char * const bytes = AllocateBytes(joined);
  CopyBytes(bytes, data->bytes, before);
  CopyBytes(bytes + before, source, SizeOf(size));
  TakeBytes(*data, bytes, static_cast<int>(joined));
}

void ZnBlob::Resize(unsigned int size) {
  int const length = static_cast<int>(size);
  if (!data) {
    data = NewData(std::max(length, 0));
  } else if (length == 0) {
    if (data->length != 0)
      TakeBytes(*data, nullptr, 0);
  } else if (length > data->length) {
    char * const bytes = AllocateBytes(size);
    CopyBytes(bytes, data->bytes, SizeOf(data->length));
    TakeBytes(*data, bytes, length);
  } else if (length > 0) {
    data->length = length;
  }
}

void ZnBlob::Expand(int size) {
  int const length = std::max(size, 0);
  if (!data) {
    data = NewData(length);
    return;
  }
  char * const bytes = AllocateBytes(SizeOf(length));
  CopyBytes(bytes, data->bytes, SizeOf(std::min(length, data->length)));
  TakeBytes(*data, bytes, length);
}

void ZnBlob::Cut(int offset, int count) {
  if (!data || offset < 0 || offset > data->length || count < 1)
    return;
  int const cut = std::min(count, data->length - offset);
  int const rest = data->length - cut;
  char * const bytes = AllocateBytes(SizeOf(rest));
  CopyBytes(bytes, data->bytes, SizeOf(offset));
  CopyBytes(bytes + offset, data->bytes + offset + cut, SizeOf(rest - offset));
  TakeBytes(*data, bytes, rest);
}

ZnBlob ZnBlob::CopyFrom(int offset, int count) const {
  if (!data || offset < 0 || offset > data->length || count < 1)
    return ZnBlob("", 1);
  return ZnBlob(data->bytes + offset, std::min(count, data->length - offset));
}

void ZnBlob::CopyTo(ZnBlob const & source, int offset, int count) {
  if (!data || offset < 0 || offset > data->length)
    return;
  int const copied = std::min({count, data->length - offset, source.Length()});
  if (copied > 0)
    CopyBytes(data->bytes + offset, source.data->bytes, SizeOf(copied));
}

char * ZnBlob::Seek(int offset, int count) const {
  if (!data || offset < 0 || count < 1 || offset > data->length || count > data->length - offset)
    return nullptr;
  return data->bytes + offset;
}

int ZnBlob::Search(ZnBlob const & pattern) const {
  constexpr int kNotFound = 65535;
  if (!data)
    return kNotFound;
  std::size_t const found = FindBytes(ViewOf(data), ViewOf(pattern.data));
  return found == std::string_view::npos ? kNotFound : static_cast<int>(found);
}

ZnBlob::operator short() const { return static_cast<short>(ReadInteger(TextOf(data))); }

ZnBlob::operator int() const { return static_cast<int>(ReadInteger(TextOf(data))); }

ZnBlob::operator double() const { return ReadDouble(TextOf(data)).value; }

ZnBlobData * ZnBlob::AllocData(int n) const {
  return NewData(n < 0 ? 0 : n < std::numeric_limits<int>::max() ? n + 1 : n);
}
