#include "query/hash_frame.h"
#include "query/number_query.h"

/// The hash rows of plain numbers. Floats hash by their bits, so that the two zeros differ; of a
/// 64-bit integer only the low half counts.

namespace zntms {

namespace {

template <class Number>
unsigned int WordOf(UnsignedOfSize<sizeof(Number)> bits) {
  if constexpr (std::is_same_v<Number, double>)
    return static_cast<unsigned int>(bits) ^ static_cast<unsigned int>(bits >> 32);
  else
    return static_cast<unsigned int>(static_cast<Number>(bits));
}

template <>
unsigned int WordOf<float>(std::uint32_t bits) {
  return bits;
}

} // namespace

template <class Number>
unsigned int HashNumbers(unsigned char format, unsigned int length, void * value,
                         unsigned int count, int & error) {
  using Bits = UnsignedOfSize<sizeof(Number)>;
  return HashFold(
      sizeof(Number), length, value, count, error, [format](Bytes at, unsigned int held) {
        Bits const bits = FoldNumbers<Bits>(at, held);
        return WordOf<Number>(IsSwapped(format) ? SwapBytes(bits) : bits) * kHashMultiplier;
      });
}

unsigned int HashBooleans(unsigned char format, unsigned int length, void * value,
                          unsigned int count, int & error) {
  return HashNumbers<signed char>(format, length, value, count, error);
}

template unsigned int HashNumbers<signed char>(unsigned char, unsigned int, void *, unsigned int,
                                               int &);
template unsigned int HashNumbers<unsigned char>(unsigned char, unsigned int, void *, unsigned int,
                                                 int &);
template unsigned int HashNumbers<short>(unsigned char, unsigned int, void *, unsigned int, int &);
template unsigned int HashNumbers<unsigned short>(unsigned char, unsigned int, void *, unsigned int,
                                                  int &);
template unsigned int HashNumbers<int>(unsigned char, unsigned int, void *, unsigned int, int &);
template unsigned int HashNumbers<unsigned int>(unsigned char, unsigned int, void *, unsigned int,
                                                int &);
template unsigned int HashNumbers<long long>(unsigned char, unsigned int, void *, unsigned int,
                                             int &);
template unsigned int HashNumbers<unsigned long long>(unsigned char, unsigned int, void *,
                                                      unsigned int, int &);
template unsigned int HashNumbers<float>(unsigned char, unsigned int, void *, unsigned int, int &);
template unsigned int HashNumbers<double>(unsigned char, unsigned int, void *, unsigned int, int &);

} // namespace zntms
