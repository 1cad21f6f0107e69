#include "zntypes/seal_rows.h"

#include "query/bounds.h"
#include "query/compare_frame.h"
#include "query/hash_frame.h"
#include "znstring/text_buffer.h"
#include "zntypes/int64_rows.h"

/// Row functions of seals and truth values.

namespace zntms {

ZnString & SealPrint(ZnString & out, void * value, char const *, unsigned int) {
  return static_cast<ZnSeal const *>(value)->PrintToZnString(out);
}

void * SealScan(void * value, ZnString & in, char const *, unsigned int) {
  if (value)
    static_cast<ZnSeal *>(value)->ScanFromZnString(in);
  return value;
}

/// Neither length is read, and no error is written.
int ZnSealCompare(unsigned char format, unsigned int, void * valueA, unsigned int, void * valueB,
                  unsigned short int, unsigned int count, int & error) {
  if (format == ZnFormatMemory)
    return CompareFrame(sizeof(ZnSeal), 0, valueA, 0, valueB, count, error, [](Bytes a, Bytes b) {
      return *reinterpret_cast<ZnSeal const *>(a) != *reinterpret_cast<ZnSeal const *>(b);
    });
  return CompareFrame(SealCodec::kSize, 0, valueA, 0, valueB, count, error, [](Bytes a, Bytes b) {
    auto const [differsA, differsB] = std::mismatch(a, a + SealCodec::kSize, b);
    return differsA == a + SealCodec::kSize ? 0 : *differsA - *differsB;
  });
}

/// In memory, and in little-endian form, the words count as they lie, low byte first; a stored
/// seal has the high byte first, so that the two forms of one seal differ in their hash.
unsigned int HashSeals(unsigned char format, unsigned int length, void * value, unsigned int count,
                       int & error) {
  bool const asTheyLie = HasMemoryNibble(format) || (format & 15) == ZnFormatLittleEndian;
  return HashFrame(SealCodec::kSize, length, value, count, error, [asTheyLie](Bytes at) {
    unsigned short const word = ReadNumber<unsigned short, false>(at) ^
                                ReadNumber<unsigned short, false>(at + 2) ^
                                ReadNumber<unsigned short, false>(at + 4);
    return static_cast<unsigned int>(asTheyLie ? word : SwapBytes(word));
  });
}

float BoundSeals(ZnIdxBounds * area, unsigned short & op, void * value, unsigned char format,
                 unsigned int count, ZnIdxBounds * out) {
  auto const read = [format](void const * at) {
    ZnInt64 number;
    LoadOne<SealCodec>(at, format).ConvertTo(number);
    return number;
  };
  return BoundInt64Keys(area, op, value, count * SealCodec::kSize, out, read);
}

void BooleanText::Write(ZnString & out, ZnBoolean const & value) {
  TextBuffer text;
  text.Put(value.state == 1 ? '1' : '0');
  text.AppendTo(out);
}

void BooleanText::Read(ZnBoolean & value, ZnString const & in) { value = *in.StrGet() == '1'; }

int StepBoolean(void * value, unsigned int, unsigned char format, unsigned char what) {
  if (format != ZnFormatMemory)
    return ZnErrNotSupported;
  ZnBoolean & truth = *static_cast<ZnBoolean *>(value);
  switch (what) {
  case 2:
    truth = 0;
    return 0;
  case 'O':
    return 0;
  case 'M':
  case 'N':
    if (!(truth < 1))
      return ZnErrNoNextValue;
    truth = 1;
    return 0;
  default:
    return ZnErrNotSupported;
  }
}

} // namespace zntms
