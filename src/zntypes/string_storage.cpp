#include "zntypes/string_storage.h"

#include "znstring.h"
#include "znstring/edit.h"
#include "zntypes/string_form.h"
#include "zntypes/translate.h"

/// Strings in their stored forms: write, read and measure. `string_form.h` draws the forms.

namespace zntms {

namespace {

/// Bytes of text and end mark of a string: the terminator is where the end mark will stand.
unsigned int StoredTextBytes(ZnString const & s) {
  if (s.capacity == 0)
    return kStringEndMark;
  return s.capacity + (WidthOf(s.codeSet) == 1 ? 1u : 0u);
}

/// Bounds of the order numbers that a byte of text may give, in bytes.
unsigned int KeyFactor(unsigned char codeSet, unsigned char format) {
  if (!BecomesKey(codeSet, format))
    return 1;
  return WidthOf(codeSet) == 1 ? 4 : 2;
}

/// Assigns the texts of an old array; those that are missing are empty.
unsigned int LoadOld(ZnString * values, char const * src, unsigned int length, unsigned int count) {
  char const * at = src + kLengthField;
  char const * const end = at + length;
  for (unsigned int i = 0; i < count; ++i) {
    auto const left = static_cast<unsigned int>(end - at);
    unsigned int const bytes = TextLengthWithin(at, 1, left);
    values[i] = left != 0 ? at : "";
    at += std::min(bytes + 1, left);
  }
  return length + kLengthField;
}

unsigned int OldTextBytes(ZnString const & s) {
  return s.text ? TextLengthWithin(s.text, 1, s.capacity) : 0;
}

/// What the file holds from its present place on.
struct FileBytes {
  char const * bytes = nullptr;
  unsigned int size = 0;

  explicit FileBytes(MemFile * file) {
    unsigned int wanted = kLengthField;
    if (!file)
      return;
    bytes = static_cast<char const *>(file->Seek(0, MemFile::FromCurrent, &wanted, 0));
    size = bytes ? file->size - file->position : 0;
  }
};

} // namespace

unsigned int StringNullSizeGet(unsigned int count) {
  return count * (kStringHead + kStringEndMark);
}

} // namespace zntms

using namespace zntms;

// ---- New generation -----------------------------------------------------------------------------

unsigned int StringStore(void * dst, void const * src, unsigned char format, unsigned int count) {
  auto const * const values = static_cast<ZnString const *>(src);
  auto * at = static_cast<char *>(dst);
  unsigned int size = 0;
  for (unsigned int i = 0; i < count; ++i) {
    ZnString const & s = values[i];
    unsigned int const n = StoredTextBytes(s);
    WriteLength(at, n + 2, format);
    at[2] = static_cast<char>(s.codeSet);
    at[3] = static_cast<char>(s.language);
    ZnStringCopyBytes(at + kStringHead, s.StrGet(), WidthOf(s.codeSet), format & 15,
                      n - kStringEndMark);
    at += n + kStringHead;
    WriteEndMark(at - kStringEndMark);
    size += n + kStringHead;
  }
  return size;
}

unsigned int StringLoad(void * dst, void const * src, unsigned char format, unsigned int count) {
  auto * const values = static_cast<ZnString *>(dst);
  auto const * at = static_cast<char const *>(src);
  unsigned int const first = ReadLength(at, format);
  if (first == 0)
    return 0;
  if (at[kLengthField + first - 1] == 0)
    return LoadOld(values, at, first, count);
  unsigned int size = 0;
  for (unsigned int i = 0; i < count; ++i) {
    StringForm const form(at, kLengthField + ReadLength(at, format), format);
    ZnString & s = values[i];
    s.Destroy();
    s.SetCodeSet(form.codeSet);
    s.language = form.language;
    unsigned int const chars = form.textBytes / WidthOf(form.codeSet);
    ZnStringAssignCounted(s, form.text, form.codeSet, static_cast<unsigned short>(chars),
                          format & 15);
    at += form.Size();
    size += form.Size();
  }
  return size;
}

unsigned int StringSizeGet(void const * value, unsigned char valueFormat, unsigned char format,
                           unsigned int count) {
  unsigned int size = 0;
  if (IsMemoryForm(valueFormat)) {
    auto const * const values = static_cast<ZnString const *>(value);
    for (unsigned int i = 0; i < count; ++i)
      size += StoredTextBytes(values[i]) * KeyFactor(values[i].codeSet, format) + kStringHead;
    return size;
  }
  auto const * at = static_cast<char const *>(value);
  for (unsigned int i = 0; i < count; ++i) {
    unsigned int const length = ReadLength(at, format);
    if (!IsKeyFormat(format) && length != 0 && at[kLengthField + length - 1] == 0)
      return length + kLengthField;
    unsigned int const factor =
        length != 0 ? KeyFactor(static_cast<unsigned char>(at[2]), format) : 1;
    size += length * factor + kLengthField;
    at += length + kLengthField;
  }
  return size;
}

unsigned int ZnStringSizeFromFile(MemFile * file, unsigned char format, unsigned int count) {
  constexpr unsigned int unknownElement = 65535;
  FileBytes const there(file);
  if (!there.bytes)
    return 0;
  unsigned int size = 0;
  unsigned long long place = 0;
  for (unsigned int i = 0; i < count; ++i) {
    unsigned int const left = count - i;
    if (place + kLengthField > there.size)
      return left * unknownElement;
    char const * const at = there.bytes + place;
    unsigned int const length = ReadLength(at, format);
    bool const passesEnd = place + kLengthField + length > there.size;
    if (!IsKeyFormat(format) && passesEnd && left > 1)
      return left * unknownElement;
    if (!IsKeyFormat(format) && !passesEnd && length != 0 && at[kLengthField + length - 1] == 0)
      return length + kLengthField;
    bool const hasCodeSet = length != 0 && place + kLengthField < there.size;
    unsigned int const factor =
        hasCodeSet ? KeyFactor(static_cast<unsigned char>(at[2]), format) : 1;
    size += length * factor + kLengthField;
    place += length + kLengthField;
  }
  return size;
}

// ---- Old generation -----------------------------------------------------------------------------

unsigned int ZnOldStringStore(void * dst, void const * src, unsigned char format,
                              unsigned int count) {
  auto const * const values = static_cast<ZnString const *>(src);
  auto * const start = static_cast<char *>(dst);
  char * at = start + kLengthField;
  for (unsigned int i = 0; i < count; ++i) {
    unsigned int const bytes = OldTextBytes(values[i]);
    std::memcpy(at, values[i].StrGet(), bytes);
    at[bytes] = 0;
    at += bytes + 1;
  }
  auto const size = static_cast<unsigned int>(at - start);
  WriteLength(start, size - kLengthField, format);
  return size;
}

unsigned int ZnOldStringSizeGet(void const * value, unsigned char valueFormat, unsigned char format,
                                unsigned int count) {
  if (!IsMemoryForm(valueFormat))
    return ReadLength(static_cast<char const *>(value), format) + kLengthField;
  auto const * const values = static_cast<ZnString const *>(value);
  unsigned int size = count + kLengthField;
  for (unsigned int i = 0; i < count; ++i)
    size += OldTextBytes(values[i]);
  return size;
}

unsigned int ZnOldStringSizeFromFile(MemFile * file, unsigned char format, unsigned int count) {
  FileBytes const there(file);
  unsigned long long place = 0;
  for (unsigned int i = 0; i < count && place + kLengthField <= there.size; ++i)
    place += ReadLength(there.bytes + place, format) + kLengthField;
  return static_cast<unsigned int>(place);
}
