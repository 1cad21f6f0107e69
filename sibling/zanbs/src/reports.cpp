#include "zanbs.h"

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <iterator>

/// Reports: a condition that does not hold, and memory that cannot be had.
///
/// Example: `ZANT_assert("length < 65533", "string.cpp", 12)` writes the line
/// "assertion failed: length < 65533 (string.cpp:12)" to standard error and returns.

namespace {

constinit ZantAssertHandler assertHandler = nullptr;
constinit ZnMemoryHandler memoryHandler = nullptr;

/// Writes without allocating: memory may be what is missing.
void Write(char const * text) { std::fputs(text != nullptr ? text : "?", stderr); }

template <class Number>
void WriteNumber(Number number) {
  char digits[24] = {};
  std::to_chars(std::begin(digits), std::end(digits) - 1, number);
  Write(digits);
}

} // namespace

void ZANT_assert(char const * message, char const * file, int line) {
  if (assertHandler != nullptr)
    return assertHandler(message, file, line);
  Write("assertion failed: ");
  Write(message);
  Write(" (");
  Write(file);
  Write(":");
  WriteNumber(line);
  Write(")\n");
}

ZantAssertHandler ZantSetAssertHandler(ZantAssertHandler handler) {
  ZantAssertHandler const before = assertHandler;
  assertHandler = handler;
  return before;
}

void ZnCallMemoryHandler(unsigned long long size) {
  if (memoryHandler != nullptr)
    memoryHandler(size);
  Write("out of memory: ");
  WriteNumber(size);
  Write(" bytes could not be allocated\n");
  std::abort();
}

ZnMemoryHandler ZnSetMemoryHandler(ZnMemoryHandler handler) {
  ZnMemoryHandler const before = memoryHandler;
  memoryHandler = handler;
  return before;
}
