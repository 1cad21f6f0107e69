#pragma once

#include "query/elements.h"

/// The element loop of all compare rows.
///
/// A row steps through two arrays in parallel until a pair differs or one side holds no further
/// element. A step to an element that starts at or behind the end of its side is the error 2101,
/// and it is tried behind a pair that differs too. That has a closed form: with n the number of
/// elements that both sides hold, the first pair that differs decides, and the error comes if that
/// pair, or else the last one, is pair n - 1 of more than n that were asked for.
///
///     count 3, lengthA 8, 4-byte elements 1 2 against 1 2 9: n is 2, result 0, error 2101
///     count 3, lengthA 8, elements 1 2 against 3 2 9: pair 0 decides, result -1, error 0
///
/// In every kind two elements of the same bytes are equal, so that runs of equal bytes are passed
/// at the speed of `memcmp`; elements are looked at one by one only in a run that differs.

namespace zntms {

/// `pair` compares the two elements at the addresses it is given.
template <class Pair>
int CompareFrame(unsigned int size, unsigned int lengthA, void const * valueA, unsigned int lengthB,
                 void const * valueB, unsigned int count, int & error, Pair pair) {
  constexpr unsigned int runBytes = 512;
  constexpr unsigned int shortRun = 4; // elements that are compared sooner than passed
  error = 0;
  if (count == 0)
    return 0;
  auto const * a = static_cast<Bytes>(valueA);
  auto const * b = static_cast<Bytes>(valueB);
  if (count == 1)
    return pair(a, b);
  unsigned int const held =
      std::min(ElementsHeld(lengthA, count, size), ElementsHeld(lengthB, count, size));
  unsigned int const runElements = std::max(runBytes / size, 1u);
  unsigned int left = held;
  while (left != 0) {
    unsigned int const run = std::min(left, runElements);
    std::size_t const bytes = std::size_t(run) * size;
    if (run > shortRun && std::memcmp(a, b, bytes) == 0) {
      a += bytes;
      b += bytes;
      left -= run;
      continue;
    }
    for (unsigned int i = 0; i < run; ++i, a += size, b += size, --left) {
      if (int const result = pair(a, b); result != 0) {
        error = left == 1 && held < count ? ZnErrIncomplete : 0;
        return result;
      }
    }
  }
  error = held < count ? ZnErrIncomplete : 0;
  return 0;
}

/// -1, 0 or 1 by the operators of the values.
template <class Value>
int Order(Value const & a, Value const & b) {
  return (a > b) - (a < b);
}

} // namespace zntms
