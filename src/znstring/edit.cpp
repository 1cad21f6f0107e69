#include "znstring/edit.h"

#include <algorithm>
#include <memory>

#include "zanbs.h"
#include "znstring/units.h"

namespace zntms {

void ZnStringCopyBytes(char * destination, char const * source, unsigned int width,
                       unsigned char byteOrder, unsigned int byteCount) {
  if (width == 2 && byteOrder == 2)
    ShortStore(destination, source, byteOrder, byteCount / 2);
  else
    std::memcpy(destination, source, byteCount);
}

void ZnStringReportOverflow() {
  ZnConfig const * config = DefaultConfig(ZnConfigQuery());
  if (!config)
    return;
  ZnConfigName const debug = {"debug", 0, 0, 0};
  ZnConfigName const * const sections[] = {&debug, nullptr};
  unsigned short wanted = 0;
  config->GetFlag("stringOverflow", &wanted, sections);
  if (wanted != 0)
    ZANT_assert("String overflow", "src\\znstring", 1113);
}

namespace {

/// The source of an edit, converted if need be.
struct EditSource {
  char const * text = nullptr;
  unsigned int bytes = 0; ///< bytes that may be read
  std::unique_ptr<char[]> converted;

  EditSource(char const * source, unsigned char from, unsigned char to)
      : text(source), bytes(2 * ZnStringMaxBytes + 2) {
    if (!source || ((from == 0 || from == to) && WidthOf(from) == WidthOf(to)))
      return;
    char * buffer;
    bytes = ZnStringConvert(from, to, source, buffer);
    converted.reset(buffer);
    text = buffer;
  }
};

/// Bytes from `offset` to the end of `size` bytes.
constexpr unsigned int Rest(unsigned int size, unsigned int offset) {
  return size > offset ? size - offset : 0;
}

} // namespace

void ZnStringEdit(ZnString & target, char const * source, unsigned char sourceCodeSet,
                  unsigned short position, unsigned short sourceOffset, unsigned short length,
                  unsigned short repeat, EditMode mode, unsigned char byteOrder) {
  if (mode != EditAssignAt && (!source || ReadChar(source, WidthOf(sourceCodeSet)) == 0))
    return;
  EditSource const from(source, sourceCodeSet, target.codeSet);
  unsigned int const width = WidthOf(target.codeSet);

  // What goes in, what stays before it, and where in the old text the part behind it begins.
  unsigned int const newBytes = length * width * repeat;
  unsigned int const head = position * width;
  unsigned int const oldSize = target.capacity;
  unsigned int tailStart = oldSize;
  if (mode == EditInsert)
    tailStart = head;
  else if (mode == EditOverwrite)
    tailStart = head + length * width;
  unsigned int const tail = Rest(oldSize, tailStart);
  unsigned int size = head + newBytes + (tail != 0 ? tail : width);

  bool const overflow = size > ZnStringMaxBytes;
  if (overflow) {
    ZnStringReportOverflow();
    size = ZnStringMaxBytes;
  }
  std::unique_ptr<char[]> buffer(new char[size]());
  unsigned int room = size;
  if (target.text) {
    unsigned int const kept = std::min(std::min(head, oldSize), room);
    std::memcpy(buffer.get(), target.text, kept);
  }
  room = Rest(room, head);
  if (tail != 0) {
    unsigned int const kept = std::min(tail, Rest(room, newBytes));
    if (kept != 0)
      std::memcpy(buffer.get() + head + newBytes, target.text + tailStart, kept);
    room -= kept;
  }
  if (from.text && repeat == 1) {
    unsigned int const start = sourceOffset * width;
    unsigned int const copied = std::min({newBytes, room, Rest(from.bytes, start)});
    ZnStringCopyBytes(buffer.get() + std::min(head, size), from.text + start, width, byteOrder,
                      copied);
  } else if (from.text) {
    unsigned int const end = std::min(head + newBytes, size - width);
    for (unsigned int place = head; place < end; place += width)
      ZnStringCopyBytes(buffer.get() + place, from.text, width, byteOrder, width);
  }
  if (mode == EditAssignAt || overflow)
    WriteChar(buffer.get() + size - width, width, 0);

  delete[] target.text;
  target.text = buffer.release();
  target.capacity = static_cast<unsigned short>(size);
}

void ZnStringAssignCounted(ZnString & target, char const * source, unsigned char sourceCodeSet,
                           unsigned short length, unsigned char byteOrder) {
  target.text = nullptr;
  target.capacity = 0;
  if (!source || length == 0)
    return;
  unsigned int chars = length;
  if (length == 65535)
    chars = TextLength(source, WidthOf(sourceCodeSet));
  chars = std::min(chars, MaxChars(WidthOf(target.codeSet)));
  ZnStringEdit(target, source, sourceCodeSet, 0, 0, static_cast<unsigned short>(chars), 1,
               EditAssignAt, byteOrder);
}

} // namespace zntms
