#pragma once

#include "query/elements.h"

/// The element loop of all hash rows.
///
/// Each element gives a 32-bit word; the words are combined by exclusive or and the total is
/// multiplied by a constant. Elements that a cut key does not hold are left out, and the error
/// 2101 tells so.
///
/// Numbers fold their elements first and make a word of the outcome once: widening, reversing the
/// bytes and splitting in halves all commute with exclusive or.

namespace zntms {

inline constexpr unsigned int kHashMultiplier = 1103515245;
/// The word of a null.
inline constexpr unsigned int kNullHash = 0xFEFE7575;

/// `fold` gives the exclusive or of the words of the first elements at an address, by their
/// number. The result is not multiplied.
template <class Fold>
unsigned int HashFold(unsigned int size, unsigned int length, void const * value,
                      unsigned int count, int & error, Fold fold) {
  error = 0;
  if (count == 0)
    return 0;
  unsigned int const held = ElementsHeld(length, count, size);
  if (held < count)
    error = ZnErrIncomplete;
  return fold(static_cast<Bytes>(value), held);
}

/// `word` gives the word of the element at an address. The result is not multiplied.
template <class Word>
unsigned int HashWords(unsigned int size, unsigned int length, void const * value,
                       unsigned int count, int & error, Word word) {
  return HashFold(size, length, value, count, error, [size, word](Bytes at, unsigned int held) {
    unsigned int total = 0;
    for (; held != 0; --held, at += size)
      total ^= word(at);
    return total;
  });
}

/// The whole frame.
template <class Word>
unsigned int HashFrame(unsigned int size, unsigned int length, void const * value,
                       unsigned int count, int & error, Word word) {
  return HashWords(size, length, value, count, error, word) * kHashMultiplier;
}

/// The exclusive or of `held` numbers, as they stand in the bytes.
template <class Word>
Word FoldNumbers(Bytes at, unsigned int held) {
  Word total = 0;
  for (std::size_t i = 0; i < held; ++i)
    total ^= ReadNumber<Word, false>(at + i * sizeof(Word));
  return total;
}

} // namespace zntms
