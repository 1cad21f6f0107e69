#include "zntypes/istring_rows.h"

#include "zanin.h"
#include "zncodes.h"
#include "znstring.h"
#include "znstring/collate.h"
#include "znstring/edit.h"
#include "znstring/istring_form.h"
#include "znstring/narrow_text.h"
#include "znstring/units.h"
#include "zntypes/text_format.h"
#include "zntypes/translate.h"

namespace zntms {

namespace {

constexpr unsigned char kKeyMark = ZnCollationMark::Weights | ZnCollationMark::Stored;

constexpr bool IsKeyFormat(unsigned char format) { return (format & ZnFormatIndexKey) != 0; }

/// Writes into an area of known size; what does not fit is counted, but not written.
class Writer {
public:
  Writer(void * area, unsigned int size) : area_(static_cast<char *>(area)), size_(size) {}

  void Put(char c) {
    if (place_ < size_)
      area_[place_] = c;
    ++place_;
  }
  void Put(std::string_view bytes) {
    for (char const c : bytes)
      Put(c);
  }
  void PutHead(unsigned char mark, unsigned int total, unsigned char format) {
    auto const number = static_cast<unsigned short>(total);
    char bytes[2];
    ShortStoreOne(bytes, &number, format);
    Put(static_cast<char>(mark));
    Put({bytes, sizeof bytes});
  }
  unsigned int Counted() const { return place_; }

private:
  char * area_;
  unsigned int size_;
  unsigned int place_ = 0;
};

constexpr unsigned int kUnbounded = ~0u;

/// Head and texts in plain form; the bytes that they take.
template <class Value>
unsigned int StoreTexts(void * dst, unsigned int size, unsigned char mark, Value const * values,
                        unsigned char format, unsigned int count) {
  unsigned int total = 0;
  for (unsigned int i = 0; i < count; ++i)
    total += static_cast<unsigned int>(std::strlen(values[i].StrGet())) + 1;
  Writer out(dst, size);
  out.PutHead(mark, total, format);
  for (unsigned int i = 0; i < count; ++i) {
    out.Put(values[i].StrGet());
    out.Put('\0');
  }
  return out.Counted();
}

/// Bytes of `count` texts in stored form; in a key of plain text a second weight takes one more.
unsigned int SizeOfForm(IStringForm const & form, Weights const & weights, unsigned char format,
                        unsigned int count) {
  std::string_view bytes = form.bytes;
  bool const widens = IsKeyFormat(format) && !form.InWeights();
  unsigned int size = kIStringHead;
  for (unsigned int i = 0; i < count; ++i) {
    std::string_view const text = TakeText(bytes);
    size += static_cast<unsigned int>(text.size()) + 1;
    for (char const c : text)
      size += widens && ZnCollateByte(weights, c).IsPair();
  }
  return size;
}

/// Head, weights and terminator of one text in an area of `size` bytes. Gives the weights, also
/// those without room; `lengthBeyond` is what the length field tells above their number.
unsigned int PutKey(void * dst, unsigned int size, unsigned char mark, unsigned char format,
                    Weights const & weights, std::string_view text, unsigned int lengthBeyond) {
  unsigned int count = 0;
  for (char const c : text)
    count += 1u + ZnCollateByte(weights, c).IsPair();
  if (size == 0)
    return count;
  Writer out(dst, size - 1);
  out.PutHead(mark, count + lengthBeyond, format);
  for (char const c : text) {
    Weight const weight = ZnCollateByte(weights, c);
    out.Put(static_cast<char>(weight.first));
    if (weight.IsPair())
      out.Put(static_cast<char>(weight.second));
  }
  static_cast<char *>(dst)[std::min(out.Counted(), size - 1)] = 0;
  return count;
}

unsigned int TranslateToKey(void * dst, unsigned char dstFormat, unsigned int dstLength,
                            void const * src, unsigned char srcFormat, unsigned int srcLength,
                            Weights const & weights) {
  if ((dstFormat & 15) > 7)
    return 0;
  if (srcLength < kIStringHead)
    return TranslateStored(dst, dstLength, src, srcLength);
  IStringForm const form(src, srcLength, srcFormat);
  if (form.InWeights())
    return TranslateStored(dst, dstLength, src, srcLength);
  std::string_view bytes = form.bytes;
  unsigned int const count =
      PutKey(dst, dstLength, form.mark | kKeyMark, dstFormat, weights, TakeText(bytes), 0);
  return std::min(count + kIStringHead, dstLength);
}

} // namespace

unsigned int IStringNullSize(unsigned int count) { return kIStringHead + count; }

template <ZnCollation collation>
unsigned int IStringRow<collation>::Store(void * dst, void const * src, unsigned char format,
                                          unsigned int count) {
  bool const marked = collation == ZnCollation::cased ? IsKeyFormat(format) : format >= 16;
  return StoreTexts(dst, kUnbounded, marked ? 1 : ZnCollationMark::Stored,
                    static_cast<Value const *>(src), format, count);
}

template <ZnCollation collation>
unsigned int IStringRow<collation>::Load(void * dst, void const * src, unsigned char format,
                                         unsigned int count) {
  auto * const values = static_cast<Value *>(dst);
  std::string_view bytes = IStringForm(src, 0, format).bytes;
  std::size_t const all = bytes.size();
  for (unsigned int i = 0; i < count; ++i) {
    std::string_view const text = TakeText(bytes);
    values[i] = Value(text.data(), static_cast<unsigned short>(text.size()));
  }
  return kIStringHead + static_cast<unsigned int>(all - bytes.size());
}

template <ZnCollation collation>
unsigned int IStringRow<collation>::SizeGet(void const * value, unsigned char valueFormat,
                                            unsigned char format, unsigned int count) {
  if (IsKeyFormat(format) && IsMemoryForm(format))
    return 0;
  if (!IsMemoryForm(valueFormat))
    return SizeOfForm(IStringForm(value, 0, valueFormat), WeightsOf(collation), format, count);
  auto const * const values = static_cast<Value const *>(value);
  unsigned int size = kIStringHead;
  for (unsigned int i = 0; i < count; ++i)
    for (char const * c = values[i].StrGet();; ++c) {
      size += 1u + (IsKeyFormat(format) && ZnCollateByte(WeightsOf(collation), *c).IsPair());
      if (*c == 0)
        break;
    }
  return size;
}

template <ZnCollation collation>
unsigned int IStringRow<collation>::SizeGetFromMemFile(MemFile * file, unsigned char format,
                                                       unsigned int count) {
  constexpr unsigned int most = kIStringHead + 65535;
  unsigned int there = most;
  void const * const bytes = file ? file->Seek(0, MemFile::FromCurrent, &there, 0) : nullptr;
  if (!bytes || there == 0)
    return 0;
  return SizeOfForm(IStringForm(bytes, there, format), WeightsOf(collation), format, count);
}

template <ZnCollation collation>
unsigned int IStringRow<collation>::Translate(void * dst, unsigned char dstFormat,
                                              unsigned int dstLength, void * src,
                                              unsigned char srcFormat, unsigned int srcLength,
                                              unsigned int count) {
  auto const * const values = static_cast<Value const *>(src);
  if (IsKeyFormat(dstFormat) && !IsMemoryForm(srcFormat))
    return TranslateToKey(dst, dstFormat, dstLength, src, srcFormat, srcLength,
                          WeightsOf(collation));
  if (IsKeyFormat(dstFormat)) {
    ClearArea(dst, dstLength);
    unsigned int const weights =
        PutKey(dst, dstLength, kKeyMark, dstFormat, WeightsOf(collation), values[0].StrGet(), 1);
    return std::min(weights + 1 + kIStringHead, dstLength);
  }
  if (!IsMemoryForm(dstFormat) && !IsMemoryForm(srcFormat))
    return TranslateStored(dst, dstLength, src, srcLength);
  if (!IsMemoryForm(dstFormat)) {
    ClearArea(dst, dstLength);
    return StoreTexts(dst, dstLength, ZnCollationMark::Stored, values, dstFormat, count);
  }
  if (!IsMemoryForm(srcFormat))
    return Load(dst, src, srcFormat, count);
  for (unsigned int i = 0; i < count; ++i)
    static_cast<Value *>(dst)[i] = values[i];
  return count * static_cast<unsigned int>(sizeof(Value));
}

// ---- Text ---------------------------------------------------------------------------------------

template <ZnCollation collation>
void IStringRow<collation>::Write(ZnString & out, Value const & value) {
  out.SetCodeSet(ZnLanguageContext::GetNativeCodeSet());
  constexpr unsigned char asItIs = 0;
  constexpr std::size_t most = 65535; // more than a string holds, which cuts the text itself
  auto const length = static_cast<unsigned short>(std::min(std::strlen(value.StrGet()), most));
  ZnStringEdit(out, value.StrGet(), asItIs, out.Len(), 0, length, 1, EditAssignAt);
}

template <ZnCollation collation>
void IStringRow<collation>::Read(Value & value, ZnString const & in) {
  NarrowText const narrow(in);
  std::string_view const text = narrow.View();
  value = Value(text.data(), static_cast<unsigned short>(text.size()));
}

template <ZnCollation collation>
ZnString & IStringRow<collation>::Print(ZnString & out, void * value, char const * format,
                                        unsigned int) {
  Value const & text = *static_cast<Value const *>(value);
  return out = !text ? "" : FormatText(format, text.StrGet()).c_str();
}

template <ZnCollation collation>
void * IStringRow<collation>::Scan(void * value, ZnString & in, char const *, unsigned int) {
  if (value)
    Read(*static_cast<Value *>(value), in);
  return value;
}

template struct IStringRow<ZnCollation::cased>;
template struct IStringRow<ZnCollation::caseless>;

} // namespace zntms
