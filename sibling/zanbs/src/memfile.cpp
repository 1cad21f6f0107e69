#include "zanbs.h"

#include <cstdio>
#include <cstdlib>
#include <limits>

/// The memory file: bytes, a size and a place, and one way to move it.
///
/// Example: over the five bytes "hello" a `Seek` by 2 from the current place with 10 bytes wanted
/// gives a pointer to "llo", tells 3, and leaves the place at 2.

namespace {

constexpr std::size_t kFirstRead = 4096;
constexpr std::size_t kLargest = std::numeric_limits<unsigned int>::max();

/// Doubles the buffer, up to the largest file there is. A buffer that cannot grow is freed first.
unsigned char * Grow(unsigned char * buffer, std::size_t & capacity) {
  std::size_t wanted = capacity == 0 ? kFirstRead : capacity * 2;
  if (wanted > kLargest)
    wanted = kLargest + 1; // one more than may be there shows that the file is too long
  void * const grown = std::realloc(buffer, wanted);
  if (grown == nullptr) {
    std::free(buffer);
    ZnCallMemoryHandler(wanted);
  }
  capacity = wanted;
  return static_cast<unsigned char *>(grown);
}

/// The whole content of a file, in memory of `malloc`; null if it cannot be read or is too long.
unsigned char * ReadWhole(std::FILE * file, unsigned int & size) {
  std::size_t capacity = 0;
  std::size_t length = 0;
  unsigned char * buffer = nullptr;
  do {
    buffer = Grow(buffer, capacity);
    length += std::fread(buffer + length, 1, capacity - length, file);
  } while (length == capacity && length <= kLargest);
  if (std::ferror(file) != 0 || length > kLargest) {
    std::free(buffer);
    return nullptr;
  }
  size = static_cast<unsigned int>(length);
  return buffer;
}

} // namespace

MemFile::MemFile(void const * bytes, unsigned int length)
    : size(bytes != nullptr ? length : 0), bytes_(static_cast<unsigned char const *>(bytes)) {}

MemFile::MemFile(char const * path) {
  std::FILE * const file = path != nullptr ? std::fopen(path, "rb") : nullptr;
  if (file == nullptr)
    return;
  owned_ = ReadWhole(file, size);
  bytes_ = owned_;
  std::fclose(file);
}

MemFile::~MemFile() { std::free(owned_); }

bool MemFile::IsOpen() const { return bytes_ != nullptr; }

void * MemFile::Seek(long long offset, int mode, unsigned int * length, int) {
  unsigned int const wanted = *length;
  *length = 0;
  long long from = 0;
  switch (mode) {
  case FromStart:
    break;
  case FromCurrent:
    from = position < size ? position : size;
    break;
  case FromEnd:
    from = size;
    break;
  default:
    return nullptr;
  }
  if (offset < -from || offset > size - from)
    return nullptr;
  position = static_cast<unsigned int>(from + offset);
  unsigned int const left = size - position;
  if (left == 0)
    return nullptr;
  *length = wanted < left ? wanted : left;
  // Callers share one interface with files that can be written; none of them writes.
  return const_cast<unsigned char *>(bytes_ + position);
}
