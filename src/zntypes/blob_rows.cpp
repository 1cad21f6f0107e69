#include "zntypes/blob_rows.h"

#include "query/elements.h"
#include "query/hash_frame.h"
#include "zanbs.h"
#include "znstring/narrow_text.h"
#include "znstring/text_buffer.h"
#include "zntypes/fixed_storage.h"

/// Row functions of blobs.
///
/// An array of blobs is stored as one unit: a word with the size of all entries together, then for
/// each element a word with its length and its bytes; a null has the length 0xFFFFFFFF and no
/// bytes. Words take 4 bytes and alone follow the byte order of the format. Worked example, two
/// blobs "abc" and null in little-endian order:
///
///     0B 00 00 00  03 00 00 00 61 62 63  FF FF FF FF
///
/// The count is not stored. A unit tells its size, but nothing vouches for it: what a caller says
/// about the bytes at hand comes before what the unit says of itself.

namespace zntms {
namespace {

constexpr unsigned int kWord = 4;
constexpr unsigned int kNullLength = 0xFFFFFFFF;

unsigned int ReadWord(void const * at, unsigned char format) {
  return ReadNumber<unsigned int>(at, format);
}

void WriteWord(char * at, unsigned int word, unsigned char format) {
  IsSwapped(format) ? WriteNumber<true>(at, word) : WriteNumber<false>(at, word);
}

/// What the total word of a unit says; a null's word in its place counts for nothing.
unsigned int ReadTotal(void const * unit, unsigned char format) {
  unsigned int const total = ReadWord(unit, format);
  return total == kNullLength ? 0 : total;
}

/// Where the comparison stands in a stored unit.
class UnitReader {
public:
  /// `length` 0: the unit is as long as it says.
  UnitReader(void const * unit, unsigned int length, unsigned char format)
      : at_(static_cast<Bytes>(unit)), format_(format) {
    left_ = length == 0 ? ReadTotal(unit, format) : length > kWord ? length - kWord : 0;
    at_ += kWord;
  }

  /// Whether the length word of a further element is there in whole.
  bool HasElement() const { return left_ >= kWord; }

  /// Reads the next element; its bytes may be fewer than its length, as far as the unit goes.
  void Next() {
    length_ = ReadNumber<int>(at_, format_);
    at_ += kWord;
    left_ -= kWord;
    std::uint64_t const claimed = length_ > 0 ? static_cast<std::uint64_t>(length_) : 0;
    content_ = {reinterpret_cast<char const *>(at_), std::min(claimed, left_)};
    at_ += content_.size();
    left_ -= content_.size();
  }

  bool IsNull() const { return static_cast<unsigned int>(length_) == kNullLength; }
  int Length() const { return length_; }
  std::string_view Content() const { return content_; }

private:
  Bytes at_;
  std::uint64_t left_;
  unsigned char format_;
  int length_ = 0;
  std::string_view content_;
};

/// The order of `ZnBlob::operator!=`, by the bytes that are there and then by the whole lengths.
int CompareElements(UnitReader const & a, UnitReader const & b) {
  if (a.IsNull() || b.IsNull())
    return 2 * (b.IsNull() - a.IsNull());
  std::size_t const common = std::min(a.Content().size(), b.Content().size());
  if (int const order = common ? std::memcmp(a.Content().data(), b.Content().data(), common) : 0)
    return order;
  return (a.Length() > b.Length()) - (a.Length() < b.Length());
}

} // namespace

unsigned int BlobStore(void * dst, void const * src, unsigned char format, unsigned int count) {
  auto const * const blobs = static_cast<ZnBlob const *>(src);
  char * const unit = static_cast<char *>(dst);
  char * at = unit + kWord;
  for (unsigned int i = 0; i < count; ++i) {
    ZnBlobData const * const data = blobs[i].data;
    WriteWord(at, data ? static_cast<unsigned int>(data->length) : kNullLength, format);
    at += kWord;
    if (data && data->length > 0) {
      std::memcpy(at, data->bytes, static_cast<std::size_t>(data->length));
      at += data->length;
    }
  }
  auto const size = static_cast<unsigned int>(at - unit);
  WriteWord(unit, size - kWord, format);
  return size;
}

unsigned int BlobLoad(void * dst, void const * src, unsigned char format, unsigned int count) {
  auto * const blobs = static_cast<ZnBlob *>(dst);
  char const * at = static_cast<char const *>(src);
  unsigned int const total = ReadWord(at, format);
  if (static_cast<int>(total) < 0)
    return 0;
  at += kWord;
  std::uint64_t left = total;
  for (unsigned int i = 0; i < count; ++i) {
    if (left < kWord)
      return 0;
    unsigned int const length = ReadWord(at, format);
    at += kWord;
    left -= kWord;
    if (length == kNullLength) {
      blobs[i].SetNullValue();
      continue;
    }
    if (length > left) // so is every negative length: the total is not above 2147483647
      return 0;
    blobs[i].SetTo(at, static_cast<int>(length));
    at += length;
    left -= length;
  }
  return kWord + total;
}

unsigned int BlobNullSizeGet(unsigned int count) { return count * kWord; }

/// A stored value is read by its own format, or by the target's if its own names no byte order.
unsigned int BlobSizeGet(void const * value, unsigned char valueFormat, unsigned char format,
                         unsigned int count) {
  if (valueFormat != ZnFormatMemory)
    return kWord + ReadTotal(value, valueFormat & 15 ? valueFormat : format);
  auto const * const blobs = static_cast<ZnBlob const *>(value);
  unsigned int size = kWord;
  for (unsigned int i = 0; i < count; ++i)
    size += kWord + static_cast<unsigned int>(blobs[i].Length());
  return size;
}

/// 0 if the file ends before the total.
unsigned int BlobSizeGetFromMemFile(MemFile * file, unsigned char format, unsigned int) {
  unsigned int length = kWord;
  void const * const unit = file->Seek(0, MemFile::FromCurrent, &length, 0);
  return unit && length >= kWord ? kWord + ReadTotal(unit, format) : 0;
}

float BoundBlobs(ZnIdxBounds *, unsigned short &, void *, unsigned char, unsigned int,
                 ZnIdxBounds *) {
  return 1.0F;
}

/// In memory the lengths count; stored, the one size of the unit, or what a cut key holds of it.
unsigned int HashBlobs(unsigned char format, unsigned int length, void * value, unsigned int count,
                       int & error) {
  if (format == ZnFormatMemory)
    return HashFrame(sizeof(ZnBlob), 0, value, count, error, [](Bytes at) {
      return static_cast<unsigned int>(reinterpret_cast<ZnBlob const *>(at)->Length());
    });
  error = 0;
  if (count == 0 || (length != 0 && length <= kWord))
    return 0;
  unsigned int const total = ReadTotal(value, format);
  unsigned int const word = length == 0 ? total : std::min(kWord + total, length - kWord);
  return word * kHashMultiplier;
}

/// Appends to `out`, but a null replaces it.
ZnString & BlobPrint(ZnString & out, void * value, char const * format, unsigned int) {
  constexpr unsigned int kLongestStep = 16; // digits of a length
  ZnBlob const & blob = *static_cast<ZnBlob const *>(value);
  if (blob.IsNullValue())
    return out = NullPrintString();
  TextBuffer text;
  for (char const * at = format ? format : kBlobText.format; *at; ++at) {
    if (text.Room() < kLongestStep)
      text.AppendTo(out);
    if (*at != '%')
      text.Put(*at);
    else if (*++at == 'L')
      text.PutNumber(blob.Length());
    else if (*at)
      text.Put(*at);
    else
      break;
  }
  text.AppendTo(out);
  return out;
}

/// The null print string makes the blob null; no text says anything about its content.
void * BlobScan(void * value, ZnString & in, char const *, unsigned int) {
  if (value && BeginsWithNullText(NarrowText(in)))
    static_cast<ZnBlob *>(value)->SetNullValue();
  return value;
}

} // namespace zntms

using namespace zntms;

int BlobCompare(unsigned char format, unsigned int lengthA, void * valueA, unsigned int lengthB,
                void * valueB, unsigned short int, unsigned int count, int & error) {
  error = 0;
  int result = 0;
  if (format == ZnFormatMemory) {
    auto const * const a = static_cast<ZnBlob const *>(valueA);
    auto const * const b = static_cast<ZnBlob const *>(valueB);
    for (unsigned int i = 0; i < count && result == 0; ++i)
      result = a[i] != b[i];
    return result;
  }
  if (count == 0)
    return 0;
  UnitReader a(valueA, lengthA, format);
  UnitReader b(valueB, lengthB, format);
  for (; count != 0 && result == 0 && a.HasElement() && b.HasElement(); --count) {
    a.Next();
    b.Next();
    result = CompareElements(a, b);
  }
  return result;
}
