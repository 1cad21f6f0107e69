#include "zntypes/ident_rows.h"

#include "query/bounds.h"
#include "query/compare_frame.h"
#include "query/hash_frame.h"
#include "zntypes/fixed_storage.h"

#include <memory>

/// The static row functions of the identity classes.
///
/// Stored fields follow one another without gaps. A little-endian record is the front of the
/// record in memory: for `ZnObjId` 0 `block`, 4 `low`, 8 `high`. Compare and hash read it in
/// place, as little-endian whatever the format says: comparing the bytes of a key from the last to
/// the first is comparing them as one little-endian number.

namespace zntms {
namespace {

// ---- Stored forms -------------------------------------------------------------------------------

struct ClassIdCodec {
  using Value = ZnClassId;
  static constexpr unsigned int kSize = 4;

  template <bool swapped>
  static void Write(char * at, Value const & value) {
    WriteNumber<swapped>(at, value.classNumber);
    WriteNumber<swapped>(at + 2, value.classVersion);
  }
  template <bool swapped>
  static void Read(Value & value, char const * at) {
    value.classNumber = ReadNumber<unsigned short, swapped>(at);
    value.classVersion = ReadNumber<unsigned short, swapped>(at + 2);
  }
};

struct ObjIdCodec {
  using Value = ZnObjId;
  static constexpr unsigned int kSize = 10;

  template <bool swapped>
  static void Write(char * at, Value const & value) {
    WriteNumber<swapped>(at, value.block);
    WriteNumber<swapped>(at + 4, value.low);
    WriteNumber<swapped>(at + 8, value.high);
  }
  template <bool swapped>
  static void Read(Value & value, char const * at) {
    value.block = ReadNumber<unsigned int, swapped>(at);
    value.low = ReadNumber<unsigned int, swapped>(at + 4);
    value.high = ReadNumber<unsigned short, swapped>(at + 8);
  }
};

struct RefCodec {
  using Value = ZnRef;
  static constexpr unsigned int kSize = 14;

  template <bool swapped>
  static void Write(char * at, Value const & value) {
    WriteNumber<swapped>(at, value.block);
    WriteNumber<swapped>(at + 4, value.low);
    WriteNumber<swapped>(at + 8, value.high);
    WriteNumber<swapped>(at + 10, value.databaseId);
    WriteNumber<swapped>(at + 12, value.classNumber);
  }
  template <bool swapped>
  static void Read(Value & value, char const * at) {
    value.block = ReadNumber<unsigned int, swapped>(at);
    value.low = ReadNumber<unsigned int, swapped>(at + 4);
    value.high = ReadNumber<unsigned short, swapped>(at + 8);
    value.databaseId = ReadNumber<unsigned short, swapped>(at + 10);
    value.classNumber = ReadNumber<unsigned short, swapped>(at + 12);
    value.classVersion = 0;
  }
};

// ---- Compare ------------------------------------------------------------------------------------

/// The key of a stored element as a number whose order is that of its bytes from the last one to
/// the first.
std::uint32_t ClassIdKey(void const * at) {
  return std::rotl(ReadNumber<std::uint32_t, false>(at), 16);
}

std::uint64_t ObjIdKey(void const * at) {
  return ReadNumber<std::uint64_t, false>(static_cast<Bytes>(at) + 2) >> 16;
}

std::uint64_t RefKey(void const * at) {
  return ReadNumber<std::uint64_t, false>(static_cast<Bytes>(at) + 4);
}

/// The difference of the highest bytes in which two keys differ.
int ByteDifference(std::uint64_t a, std::uint64_t b) {
  if (a == b)
    return 0;
  int const shift = (63 - std::countl_zero(a ^ b)) & ~7;
  return static_cast<int>(a >> shift & 255) - static_cast<int>(b >> shift & 255);
}

template <class Value>
int CompareInMemory(void const * valueA, void const * valueB, unsigned int count) {
  auto const * a = static_cast<Value const *>(valueA);
  auto const * b = static_cast<Value const *>(valueB);
  int result = 0;
  for (unsigned int i = 0; i < count && result == 0; ++i)
    result = a[i] != b[i];
  return result;
}

/// `stored` compares two stored elements.
template <class Codec, class Stored>
int CompareIdents(unsigned char format, unsigned int lengthA, void const * valueA,
                  unsigned int lengthB, void const * valueB, unsigned int count, int & error,
                  Stored stored) {
  error = 0;
  if (format == ZnFormatMemory)
    return CompareInMemory<typename Codec::Value>(valueA, valueB, count);
  return CompareFrame(Codec::kSize, lengthA, valueA, lengthB, valueB, count, error, stored);
}

// ---- Hash ---------------------------------------------------------------------------------------

/// Memory form by `word` of a value, stored form by `storedWord` of its bytes; all `count`
/// elements, whatever length is given.
template <class Codec, class Word, class StoredWord>
unsigned int HashIdents(unsigned char format, void const * value, unsigned int count, int & error,
                        Word word, StoredWord storedWord) {
  using Value = typename Codec::Value;
  if (format == ZnFormatMemory)
    return HashFrame(sizeof(Value), 0, value, count, error,
                     [word](Bytes at) { return word(*reinterpret_cast<Value const *>(at)); });
  return HashFrame(Codec::kSize, 0, value, count, error, storedWord);
}

unsigned int StoredHalf(Bytes at) { return ReadNumber<unsigned short, false>(at); }
unsigned int StoredWord(Bytes at) { return ReadNumber<unsigned int, false>(at); }

// ---- Bounds and steps ---------------------------------------------------------------------------

/// The share of object ids below one, as if the high word counted 65535 numbers.
double PositionOfObject(unsigned short high, unsigned int low) { return high * 65535.0 + low; }

template <class Value>
int StepObject(void * place, unsigned char format, unsigned char what) {
  if (format != ZnFormatMemory)
    return ZnErrNotSupported;
  Value & value = *static_cast<Value *>(place);
  switch (what) {
  case 2:
    return value.SetNullValue();
  case 'O':
    return 0;
  case 'M':
  case 'N': {
    ZnObjId next = {value.block, value.low, value.high};
    ++next;
    if (next.IsNullValue())
      return ZnErrNoNextValue;
    value.low = next.low;
    value.high = next.high;
    return 0;
  }
  default:
    return ZnErrNotSupported;
  }
}

} // namespace

int StepObjId(void * value, unsigned int, unsigned char format, unsigned char what) {
  return StepObject<ZnObjId>(value, format, what);
}

int StepRef(void * value, unsigned int, unsigned char format, unsigned char what) {
  return StepObject<ZnRef>(value, format, what);
}

} // namespace zntms

using namespace zntms;

/// The members that move a class between its forms and measure it.
#define ZANTMS_STORED_IDENT(Record, Codec)                                                         \
  unsigned int Record::Store(void * dst, void const * src, unsigned char format,                   \
                             unsigned int count) {                                                 \
    return StoreFixed<Codec>(dst, src, format, count);                                             \
  }                                                                                                \
  unsigned int Record::Load(void * dst, void const * src, unsigned char format,                    \
                            unsigned int count) {                                                  \
    return LoadFixed<Codec>(dst, src, format, count);                                              \
  }                                                                                                \
  unsigned int Record::NullSizeGet(unsigned int count) { return count * Codec::kSize; }            \
  unsigned int Record::SizeGet(void const *, unsigned char, unsigned char, unsigned int count) {   \
    return count * Codec::kSize;                                                                   \
  }                                                                                                \
  unsigned int Record::SizeGetFromMemFile(MemFile *, unsigned char, unsigned int count) {          \
    return count * Codec::kSize;                                                                   \
  }                                                                                                \
  unsigned int Record::Translate(void * dst, unsigned char dstFormat, unsigned int dstLength,      \
                                 void * src, unsigned char srcFormat, unsigned int srcLength,      \
                                 unsigned int count) {                                             \
    return kFixedStorage<Codec>.translate(dst, dstFormat, dstLength, src, srcFormat, srcLength,    \
                                          count);                                                  \
  }

// ---- ZnClassId ----------------------------------------------------------------------------------

void * ZnClassId::Create(unsigned int count) {
  std::size_t const made = std::max(count, 1u);
  void * const values = ::operator new(made * sizeof(ZnClassId));
  std::uninitialized_value_construct_n(static_cast<ZnClassId *>(values), made);
  return values;
}

void * ZnClassId::Delete(void * value, unsigned int) {
  ::operator delete(value);
  return nullptr;
}

ZANTMS_STORED_IDENT(ZnClassId, ClassIdCodec)

int ZnClassId::Compare(unsigned char format, unsigned int lengthA, void * valueA,
                       unsigned int lengthB, void * valueB, unsigned short int, unsigned int count,
                       int & error) {
  return CompareIdents<ClassIdCodec>(
      format, lengthA, valueA, lengthB, valueB, count, error, [](Bytes a, Bytes b) {
        constexpr std::uint32_t kNullKey = 0xFFFFFFFF;
        std::uint32_t const keyA = ClassIdKey(a);
        std::uint32_t const keyB = ClassIdKey(b);
        if (keyA == keyB)
          return 0;
        return keyA == kNullKey ? -1 : keyB == kNullKey ? 1 : ByteDifference(keyA, keyB);
      });
}

float ZnClassId::EvalAndBound(ZnIdxBounds *, unsigned short &, void *, unsigned char, unsigned int,
                              ZnIdxBounds *) {
  return 1.0F;
}

unsigned int ZnClassId::Hash(unsigned char format, unsigned int, void * value, unsigned int count,
                             int & error) {
  return HashIdents<ClassIdCodec>(
      format, value, count, error,
      [](ZnClassId const & id) -> unsigned int { return id.classNumber ^ id.classVersion; },
      [](Bytes at) { return StoredHalf(at) ^ StoredHalf(at + 2); });
}

// ---- ZnObjId ------------------------------------------------------------------------------------

void * ZnObjId::Create(unsigned int count) { return CreateValues<ZnObjId>(count); }

void * ZnObjId::Delete(void * value, unsigned int count) {
  return DeleteValues<ZnObjId>(value, count);
}

ZANTMS_STORED_IDENT(ZnObjId, ObjIdCodec)

int ZnObjId::Compare(unsigned char format, unsigned int lengthA, void * valueA,
                     unsigned int lengthB, void * valueB, unsigned short int, unsigned int count,
                     int & error) {
  return CompareIdents<ObjIdCodec>(
      format, lengthA, valueA, lengthB, valueB, count, error,
      [](Bytes a, Bytes b) { return ByteDifference(ObjIdKey(a), ObjIdKey(b)); });
}

float ZnObjId::EvalAndBound(ZnIdxBounds * area, unsigned short & op, void * value,
                            unsigned char format, unsigned int count, ZnIdxBounds * out) {
  auto const position = [format](void const * key) {
    ZnObjId const object = LoadOne<ObjIdCodec>(key, format);
    return PositionOfObject(object.high, object.low);
  };
  auto const range = ReadRange<double>(area, position);
  double const v = position(value);
  double const selected = ZnEvalRange(op, v, v, range.lo, range.hi, 1.0);
  ZnBoundsSave(out, value, op, count * ObjIdCodec::kSize);
  return static_cast<float>(selected / (range.hi - range.lo + 1.0));
}

unsigned int ZnObjId::Hash(unsigned char format, unsigned int, void * value, unsigned int count,
                           int & error) {
  return HashIdents<ObjIdCodec>(
      format, value, count, error, [](ZnObjId const & id) { return id.low ^ id.high; },
      [](Bytes at) { return StoredWord(at + 4) ^ StoredHalf(at + 8); });
}

// ---- ZnRef --------------------------------------------------------------------------------------

void * ZnRef::Create(unsigned int count) { return CreateValues<ZnRef>(count); }

void * ZnRef::Delete(void * value, unsigned int count) { return DeleteValues<ZnRef>(value, count); }

ZANTMS_STORED_IDENT(ZnRef, RefCodec)

int ZnRef::Compare(unsigned char format, unsigned int lengthA, void * valueA, unsigned int lengthB,
                   void * valueB, unsigned short int, unsigned int count, int & error) {
  return CompareIdents<RefCodec>(
      format, lengthA, valueA, lengthB, valueB, count, error,
      [](Bytes a, Bytes b) { return ByteDifference(RefKey(a), RefKey(b)); });
}

float ZnRef::EvalAndBound(ZnIdxBounds *, unsigned short & op, void * value, unsigned char format,
                          unsigned int count, ZnIdxBounds * out) {
  constexpr unsigned short kOperatorBits = 0x800F;
  constexpr double kWords = 4294967295.0; // as if the low word counted one number less
  constexpr double kTotal = kWords * kWords;
  op &= kOperatorBits;
  ZnRef const ref = LoadOne<RefCodec>(value, format);
  double const position = PositionOfObject(ref.databaseId, ref.high) * kWords + ref.low;
  double selected = 0;
  if (op & ZnOpBelow)
    selected += position;
  if (op & ZnOpAbove)
    selected += kTotal - (position + 1.0);
  if (op & ZnOpEqual)
    selected += 1.0;
  ZnBoundsSave(out, value, op, count * RefCodec::kSize);
  return static_cast<float>(selected / kTotal);
}

unsigned int ZnRef::Hash(unsigned char format, unsigned int, void * value, unsigned int count,
                         int & error) {
  return HashIdents<RefCodec>(
      format, value, count, error,
      [](ZnRef const & ref) { return ref.low ^ ref.high ^ ref.databaseId; },
      [](Bytes at) { return StoredWord(at + 4) ^ StoredHalf(at + 8) ^ StoredHalf(at + 10); });
}

#undef ZANTMS_STORED_IDENT
