#include "zanbs.h"

#include <bit>
#include <cstdint>
#include <cstring>

/// Scalar storage: one mover, which either copies or reverses the bytes of each value.
///
/// Stored bytes have no alignment, so each value goes through a register by `memcpy`. The loop is
/// plain enough for the compiler to turn it into whole-vector shuffles; on x86 a second form of it
/// is compiled for AVX2, because the byte shuffle that it needs is missing from the baseline, and
/// chosen when the processor has it.
///
/// Example: the three 16-bit numbers 1, 2, 258 lie in memory as 01 00 02 00 02 01; format 2 stores
/// them as 00 01 00 02 01 02, and the same call on those bytes gives the numbers back.

namespace {

static_assert(std::endian::native == std::endian::little, "format 8 and format 1 must be the same");

#if defined(__x86_64__) && defined(__GNUC__)
#define ZANBS_HAS_AVX2_FORM 1
#else
#define ZANBS_HAS_AVX2_FORM 0
#endif

constexpr unsigned char kFormBits = 15;
constexpr unsigned char kBigEndian = 2;

inline std::uint16_t Reverse(std::uint16_t word) { return __builtin_bswap16(word); }
inline std::uint32_t Reverse(std::uint32_t word) { return __builtin_bswap32(word); }
inline std::uint64_t Reverse(std::uint64_t word) { return __builtin_bswap64(word); }

template <class Word>
[[gnu::always_inline]] inline void ReverseOne(unsigned char * dst, unsigned char const * src) {
  Word word;
  std::memcpy(&word, src, sizeof word);
  word = Reverse(word);
  std::memcpy(dst, &word, sizeof word);
}

/// `count` is a constant wherever speed matters: such a loop becomes straight vector code.
template <class Word>
[[gnu::always_inline]] inline void ReverseRun(unsigned char * __restrict dst,
                                              unsigned char const * __restrict src,
                                              std::size_t count) {
  for (std::size_t i = 0; i < count; ++i)
    ReverseOne<Word>(dst + i * sizeof(Word), src + i * sizeof(Word));
}

template <class Word>
[[gnu::always_inline]] inline void ReverseLoop(unsigned char * __restrict dst,
                                               unsigned char const * __restrict src,
                                               std::size_t count) {
  constexpr std::size_t kBlock = 128;
  for (; count >= kBlock / sizeof(Word); count -= kBlock / sizeof(Word)) {
    ReverseRun<Word>(dst, src, kBlock / sizeof(Word));
    dst += kBlock;
    src += kBlock;
  }
  ReverseRun<Word>(dst, src, count);
}

#if ZANBS_HAS_AVX2_FORM
template <class Word>
[[gnu::target("avx2")]] void ReverseAvx2(unsigned char * __restrict dst,
                                         unsigned char const * __restrict src, std::size_t count) {
  ReverseLoop<Word>(dst, src, count);
}

/// Below this many bytes the choice would cost more than the wider loop saves.
constexpr std::size_t kWorthChoosing = 128;
#endif

template <class Word>
void ReverseMany(unsigned char * dst, unsigned char const * src, std::size_t count) {
#if ZANBS_HAS_AVX2_FORM
  if (count * sizeof(Word) >= kWorthChoosing && __builtin_cpu_supports("avx2"))
    return ReverseAvx2<Word>(dst, src, count);
#endif
  ReverseLoop<Word>(dst, src, count);
}

/// Moves one value and gives its width.
template <class Word>
inline unsigned int MoveOne(void * dst, void const * src, unsigned char format) {
  if ((format & kFormBits) == kBigEndian)
    ReverseOne<Word>(static_cast<unsigned char *>(dst), static_cast<unsigned char const *>(src));
  else
    std::memcpy(dst, src, sizeof(Word));
  return sizeof(Word);
}

/// Bytes of `count` values, modulo 2 to the power 32.
template <class Word>
constexpr unsigned int Size(unsigned int count) {
  return static_cast<unsigned int>(sizeof(Word)) * count;
}

/// Moves `count` values. The length is counted in 64 bits: only the result wraps.
template <class Word>
inline unsigned int Move(void * dst, void const * src, unsigned char format, unsigned int count) {
  if (count == 1)
    return MoveOne<Word>(dst, src, format);
  if (count == 0)
    return 0;
  if ((format & kFormBits) == kBigEndian)
    ReverseMany<Word>(static_cast<unsigned char *>(dst), static_cast<unsigned char const *>(src),
                      count);
  else
    std::memcpy(dst, src, sizeof(Word) * std::size_t{count});
  return Size<Word>(count);
}

} // namespace

unsigned int CharStore(void * dst, void const * src, unsigned char, unsigned int count) {
  if (count != 0)
    std::memcpy(dst, src, count);
  return count;
}

unsigned int ShortStore(void * dst, void const * src, unsigned char format, unsigned int count) {
  return Move<std::uint16_t>(dst, src, format, count);
}

unsigned int LongStore(void * dst, void const * src, unsigned char format, unsigned int count) {
  return Move<std::uint32_t>(dst, src, format, count);
}

unsigned int FloatStore(void * dst, void const * src, unsigned char format, unsigned int count) {
  return Move<std::uint32_t>(dst, src, format, count);
}

unsigned int DoubleStore(void * dst, void const * src, unsigned char format, unsigned int count) {
  return Move<std::uint64_t>(dst, src, format, count);
}

unsigned int O_8BStore(void * dst, void const * src, unsigned char format, unsigned int count) {
  return Move<std::uint64_t>(dst, src, format, count);
}

unsigned int IntStore(void * dst, void const * src, unsigned char format, unsigned int count) {
  return Move<std::uint32_t>(dst, src, format, count);
}

unsigned int IntLoad(void * dst, void const * src, unsigned char format, unsigned int count) {
  return Move<std::uint32_t>(dst, src, format, count);
}

unsigned int UnsignedStore(void * dst, void const * src, unsigned char format, unsigned int count) {
  return Move<std::uint32_t>(dst, src, format, count);
}

unsigned int UnsignedLoad(void * dst, void const * src, unsigned char format, unsigned int count) {
  return Move<std::uint32_t>(dst, src, format, count);
}

unsigned int ShortStoreOne(void * dst, void const * src, unsigned char format) {
  return MoveOne<std::uint16_t>(dst, src, format);
}

unsigned int LongStoreOne(void * dst, void const * src, unsigned char format) {
  return MoveOne<std::uint32_t>(dst, src, format);
}

unsigned int O_8BStoreOne(void * dst, void const * src, unsigned char format) {
  return MoveOne<std::uint64_t>(dst, src, format);
}

unsigned int CharSizeGet(void const *, unsigned char, unsigned char, unsigned int count) {
  return Size<std::uint8_t>(count);
}

unsigned int ShortSizeGet(void const *, unsigned char, unsigned char, unsigned int count) {
  return Size<std::uint16_t>(count);
}

unsigned int LongSizeGet(void const *, unsigned char, unsigned char, unsigned int count) {
  return Size<std::uint32_t>(count);
}

unsigned int IntSizeGet(void const *, unsigned char, unsigned char, unsigned int count) {
  return Size<std::uint32_t>(count);
}

unsigned int FloatSizeGet(void const *, unsigned char, unsigned char, unsigned int count) {
  return Size<std::uint32_t>(count);
}

unsigned int DoubleSizeGet(void const *, unsigned char, unsigned char, unsigned int count) {
  return Size<std::uint64_t>(count);
}

unsigned int O_8BSizeGet(void const *, unsigned char, unsigned char, unsigned int count) {
  return Size<std::uint64_t>(count);
}

unsigned int CharNullSizeGet(unsigned int count) { return Size<std::uint8_t>(count); }
unsigned int ShortNullSizeGet(unsigned int count) { return Size<std::uint16_t>(count); }
unsigned int LongNullSizeGet(unsigned int count) { return Size<std::uint32_t>(count); }
unsigned int IntNullSizeGet(unsigned int count) { return Size<std::uint32_t>(count); }
unsigned int FloatNullSizeGet(unsigned int count) { return Size<std::uint32_t>(count); }
unsigned int DoubleNullSizeGet(unsigned int count) { return Size<std::uint64_t>(count); }
unsigned int O_8BNullSizeGet(unsigned int count) { return Size<std::uint64_t>(count); }
