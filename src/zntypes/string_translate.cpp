#include <memory>

#include "zanbs.h"
#include "znchar.h"
#include "znstring.h"
#include "znstring/edit.h"
#include "zntypes/string_form.h"
#include "zntypes/string_storage.h"
#include "zntypes/translate.h"

/// Strings from one form to another, and the building of index keys.
///
/// Worked example: "ab" of code set 1, English, becomes the key 0A 00 FE 00 xx xx yy yy 00 FF: the
/// length, code set 254 (order text), the script class, an order number for each letter, the end
/// mark. In an area of 8 bytes it is cut to the first 8 of these bytes.

namespace zntms {

namespace {

constexpr unsigned char kUnicode = 253;
/// Areas above this size take whole keys only.
constexpr unsigned int kLongestCutKey = 256;

// ---- Into memory --------------------------------------------------------------------------------

/// Reads keys that may be cut.
unsigned int LoadKeys(ZnString * values, char const * src, unsigned char format,
                      unsigned int srcLength, unsigned int count) {
  constexpr unsigned int noElement = 5;
  unsigned int place = 0;
  unsigned int i = 0;
  unsigned char codeSet = 0;
  unsigned char language = 0;
  for (; i < count && srcLength - place > noElement; ++i) {
    unsigned int const left = srcLength - place;
    StringForm form(src + place, left, format);
    codeSet = static_cast<unsigned char>(src[place + 2]);
    language = static_cast<unsigned char>(src[place + 3]);
    unsigned int const length = std::min(form.length, left);
    unsigned int const bytes = length < kStringHead ? 0 : length - kStringHead;
    values[i].Destroy();
    values[i].codeSet = codeSet;
    values[i].language = language;
    ZnStringAssignCounted(values[i], src + place + kStringHead, codeSet,
                          static_cast<unsigned short>(bytes / WidthOf(codeSet)), format & 15);
    place += std::min(form.Size(), left);
  }
  for (; i < count; ++i) {
    values[i].Destroy();
    values[i].codeSet = codeSet;
    values[i].language = language;
    place += kStringHead + kStringEndMark;
  }
  return place;
}

unsigned int TranslateToMemory(void * dst, void * src, unsigned char srcFormat,
                               unsigned int srcLength, unsigned int count) {
  auto * const values = static_cast<ZnString *>(dst);
  if (IsMemoryForm(srcFormat)) {
    for (unsigned int i = 0; i < count; ++i)
      values[i] = static_cast<ZnString const *>(src)[i];
    return count * static_cast<unsigned int>(sizeof(ZnString));
  }
  auto const * const bytes = static_cast<char const *>(src);
  bool const whole = srcLength == 0 || (srcLength >= kLengthField &&
                                        ReadLength(bytes, srcFormat) + kLengthField <= srcLength);
  if (!IsKeyFormat(srcFormat) || (whole && count <= 1))
    return StringLoad(dst, src, srcFormat, count);
  return LoadKeys(values, bytes, srcFormat, srcLength, count);
}

// ---- Copies between stored forms ----------------------------------------------------------------

/// Whether Unicode text goes into an index as it is. Read once, on the first such text.
bool KeepsUnicode() {
  static bool const keeps = [] {
    unsigned short flag = 0;
    if (ZnConfig const * const config = DefaultConfig(ZnConfigQuery()))
      config->GetFlag("oldIndexUnicodeOrder", &flag, nullptr);
    return flag != 0;
  }();
  return keeps;
}

/// As `StringStore`, within an area that is cleared before.
unsigned int StoreWithin(void * dst, unsigned int dstLength, void const * src, unsigned char format,
                         unsigned int count) {
  ClearArea(dst, dstLength);
  unsigned int const size = StringSizeGet(src, ZnFormatMemory, format & 15, count);
  if (size <= dstLength)
    return StringStore(dst, src, format & 15, count);
  std::unique_ptr<char[]> const whole(new char[size]);
  StringStore(whole.get(), src, format & 15, count);
  if (dstLength != 0)
    std::memcpy(dst, whole.get(), dstLength);
  return dstLength;
}

/// An element of the new form from one of the old.
unsigned int RenewOld(char * dst, unsigned char dstFormat, unsigned int dstLength,
                      StringForm const & old, unsigned int srcLength) {
  ClearArea(dst, dstLength);
  if (dstLength < kStringHead)
    return dstLength;
  WriteLength(dst, old.length + 3, dstFormat);
  dst[2] = static_cast<char>(TargetCodeSet(0, dstFormat));
  unsigned int const bytes = std::min(old.length, dstLength - kStringHead);
  std::memcpy(dst + kStringHead, old.text, bytes);
  if (srcLength + 3 <= dstLength && old.length + kStringHead < dstLength)
    dst[kStringHead + old.length] = static_cast<char>(0xFF);
  return std::min(srcLength + 2, dstLength);
}

/// Unicode text by the first byte of each unit.
unsigned int NarrowUnicode(char * dst, unsigned char dstFormat, unsigned int dstLength,
                           StringForm const & form, unsigned char codeSet) {
  unsigned int const whole = form.length < kStringHead ? 0 : (form.length - kStringHead) / 2;
  unsigned int const size = whole + kStringHead + kStringEndMark;
  if (dstLength < kStringHead)
    return 0;
  WriteLength(dst, size - kLengthField, dstFormat);
  dst[2] = static_cast<char>(codeSet);
  dst[3] = static_cast<char>(codeSet);
  unsigned int const bytes = std::min({whole, form.textBytes / 2, dstLength - kStringHead});
  for (unsigned int i = 0; i < bytes; ++i)
    dst[kStringHead + i] = form.text[2 * i];
  if (size > dstLength)
    return kStringHead + bytes;
  WriteEndMark(dst + kStringHead + bytes);
  return bytes + kStringHead + kStringEndMark;
}

unsigned int CopyStored(void * dst, unsigned char dstFormat, unsigned int dstLength,
                        void const * src, unsigned char srcFormat, unsigned int srcLength) {
  auto * const out = static_cast<char *>(dst);
  StringForm const form(static_cast<char const *>(src), srcLength, srcFormat);
  if (form.isOld)
    return RenewOld(out, dstFormat, dstLength, form, srcLength);
  unsigned char const codeSet = TargetCodeSet(form.codeSet, dstFormat);
  if (form.codeSet == kUnicode && !KeepsUnicode())
    return NarrowUnicode(out, dstFormat, dstLength, form, codeSet);
  unsigned int const size = TranslateStored(dst, dstLength, src, srcLength);
  if (size > 2)
    out[2] = static_cast<char>(codeSet);
  return size;
}

// ---- Index keys ---------------------------------------------------------------------------------

/// The text of an element with a terminator, in the byte order it is stored in. A copy, so that
/// the source area stays as it is.
class KeySource {
public:
  explicit KeySource(ZnString const & s)
      : text(s.StrGet()), codeSet(s.codeSet), language(s.language), byteOrder(ZnFormatMemory) {}

  KeySource(StringForm const & form, unsigned char format)
      : text(local_), codeSet(form.codeSet), language(form.language), isComplete(form.isComplete),
        byteOrder(format & 15) {
    char * copy = local_;
    if (form.textBytes + 2 > sizeof local_) {
      heap_.reset(new char[form.textBytes + 2]);
      text = copy = heap_.get();
    }
    if (form.textBytes != 0)
      std::memcpy(copy, form.text, form.textBytes);
    unsigned int const odd = form.textBytes % WidthOf(form.codeSet);
    copy[form.textBytes - odd] = copy[form.textBytes - odd + 1] = 0;
  }

  bool IsNull() const { return language == 254 || (codeSet == kOrderText && language == 0); }

  char const * text;
  unsigned char codeSet;
  unsigned char language;
  bool isComplete = true; ///< whether the end of the text is its real end
  unsigned char byteOrder;

private:
  char local_[512];
  std::unique_ptr<char[]> heap_;
};

/// Builds the key of one text in `room` bytes, at least 5; gives its bytes. A key without room for
/// its end is cut if `mayCut`.
unsigned int BuildKey(char * dst, unsigned int room, unsigned char format, bool mayCut,
                      KeySource const & source) {
  ZnStringIterator it(source.text, source.codeSet, source.language, source.byteOrder);
  unsigned char scriptClass = source.IsNull() ? 0 : it.scriptClass;
  unsigned int place = kStringHead;
  bool isCut = false;
  for (;;) {
    if (room - place < 2 || (!source.isComplete && it.IsEOS())) {
      isCut = true;
      break;
    }
    unsigned short order = source.IsNull() ? 0 : it.GetNextOrder(1);
    if (order != 0 && it.scriptClass != scriptClass) {
      if (place == kStringHead) {
        scriptClass = it.scriptClass;
      } else {
        scriptClass |= kMixedClass;
        order = 0;
      }
    }
    if (order == 0)
      break;
    ShortStoreOne(dst + place, &order, format & 15);
    place += 2;
  }
  if (!isCut) {
    WriteEndMark(dst + place);
    place += kStringEndMark;
  } else if (!mayCut && place > kStringHead) {
    WriteEndMark(dst + place - kStringEndMark);
    isCut = false;
  }
  unsigned int const length = place - kLengthField + (isCut ? kStringEndMark : 0);
  if (length > 65535)
    ZANT_assert("(o_u4b)_nLen == nLen", "src\\zntypes", 1584);
  WriteLength(dst, length, format);
  dst[2] = static_cast<char>(kOrderText);
  dst[3] = static_cast<char>(scriptClass);
  return place;
}

unsigned int BuildKeys(void * dst, unsigned char dstFormat, unsigned int dstLength,
                       void const * src, unsigned char srcFormat, unsigned int srcLength,
                       unsigned int count) {
  constexpr unsigned int leastRoom = kStringHead + 1;
  auto * const out = static_cast<char *>(dst);
  auto const * at = static_cast<char const *>(src);
  char const * const end = at + srcLength;
  bool const mayCut = dstLength <= kLongestCutKey;
  unsigned int size = 0;
  for (unsigned int i = 0; i < count && dstLength - size >= leastRoom; ++i) {
    if (IsMemoryForm(srcFormat)) {
      KeySource const source(static_cast<ZnString const *>(src)[i]);
      size += BuildKey(out + size, dstLength - size, dstFormat, mayCut, source);
      continue;
    }
    StringForm const form(at, static_cast<unsigned int>(end - at), srcFormat);
    size += BuildKey(out + size, dstLength - size, dstFormat, mayCut, KeySource(form, srcFormat));
    if (form.Size() >= static_cast<unsigned int>(end - at))
      break;
    at += form.Size();
  }
  return size;
}

unsigned char SourceCodeSet(void const * src, unsigned char srcFormat, unsigned int srcLength) {
  if (IsMemoryForm(srcFormat))
    return static_cast<ZnString const *>(src)->codeSet;
  return StringForm(static_cast<char const *>(src), srcLength, srcFormat).codeSet;
}

} // namespace
} // namespace zntms

using namespace zntms;

unsigned int ZnStringTranslate(void * dst, unsigned char dstFormat, unsigned int dstLength,
                               void * src, unsigned char srcFormat, unsigned int srcLength,
                               unsigned int count) {
  if (IsMemoryForm(dstFormat))
    return TranslateToMemory(dst, src, srcFormat, srcLength, count);
  if (IsKeyFormat(dstFormat)) {
    if (count == 0)
      return 0;
    if (BecomesKey(SourceCodeSet(src, srcFormat, srcLength), dstFormat))
      return BuildKeys(dst, dstFormat, dstLength, src, srcFormat, srcLength, count);
    if (!IsMemoryForm(srcFormat))
      return CopyStored(dst, dstFormat, dstLength, src, srcFormat, srcLength);
    unsigned char const order = dstFormat & 15;
    unsigned int const size = StringSizeGet(src, ZnFormatMemory, order, count);
    std::unique_ptr<char[]> const stored(new char[size]);
    StringStore(stored.get(), src, order, count);
    return CopyStored(dst, dstFormat, dstLength, stored.get(), order, size);
  }
  if (IsMemoryForm(srcFormat))
    return StoreWithin(dst, dstLength, src, dstFormat, count);
  if (dstFormat != srcFormat) {
    ZANT_assert("format combination not supported", "src\\zntypes", 1760);
    return 0;
  }
  return CopyStored(dst, dstFormat, dstLength, src, srcFormat, srcLength);
}

unsigned int ZnOldStringTranslate(void * dst, unsigned char dstFormat, unsigned int dstLength,
                                  void * src, unsigned char srcFormat, unsigned int srcLength,
                                  unsigned int count) {
  if (IsMemoryForm(dstFormat)) {
    if (!IsMemoryForm(srcFormat))
      return StringLoad(dst, src, srcFormat, count);
    return TranslateToMemory(dst, src, srcFormat, srcLength, count);
  }
  auto * const out = static_cast<char *>(dst);
  if (IsMemoryForm(srcFormat)) {
    ClearArea(dst, dstLength);
    unsigned int const size = ZnOldStringSizeGet(src, ZnFormatMemory, dstFormat, count);
    if (size <= dstLength)
      return ZnOldStringStore(dst, src, dstFormat, count);
    std::unique_ptr<char[]> const whole(new char[size]);
    ZnOldStringStore(whole.get(), src, dstFormat, count);
    if (dstLength != 0)
      std::memcpy(dst, whole.get(), dstLength);
    return dstLength;
  }
  // Of a new element what the old form has no place for is left out: code set, language and the
  // last byte of the end mark.
  if (srcLength < kLengthField)
    return TranslateStored(dst, dstLength, src, srcLength);
  auto const * text = static_cast<char const *>(src) + kLengthField;
  unsigned int length = ReadLength(text - kLengthField, srcFormat);
  unsigned int room = srcLength - kLengthField;
  if (length >= 3 && length <= room && static_cast<unsigned char>(text[length - 1]) > 254) {
    length -= 3;
    room -= 3;
    text += 2;
  }
  unsigned int const size = std::min(room + kLengthField, dstLength);
  if (size < dstLength)
    ClearArea(dst, dstLength);
  if (size < kLengthField)
    return size;
  std::memmove(out + kLengthField, text, size - kLengthField);
  WriteLength(out, length, dstFormat);
  return size;
}
