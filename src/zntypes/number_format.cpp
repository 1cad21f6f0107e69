#include "zntypes/number_format.h"

#include <algorithm>

namespace zntms {

namespace {

char const * ReadCount(char const * at, int & number) {
  number = 0;
  for (; *at >= '0' && *at <= '9'; ++at)
    number = std::min(number * 10 + (*at - '0'), kLargestFormatNumber);
  return at;
}

char const * ReadSize(char const * at, unsigned char & size) {
  switch (*at) {
  case 'h':
    size = at[1] == 'h' ? 1 : 2;
    return at + (size == 1 ? 2 : 1);
  case 'l':
    size = at[1] == 'l' ? 8 : 4;
    return at + (size == 8 ? 2 : 1);
  case 'I':
    if (at[1] == '6' && at[2] == '4')
      size = 8;
    else if (at[1] != '3' || at[2] != '2')
      return at;
    return at + 3;
  case 'L': // of floats, which are doubles in every case
    return at + 1;
  default:
    return at;
  }
}

char const * ReadLetter(char const * at, Conversion & conversion) {
  conversion.letter = *at;
  return conversion.IsInteger() || conversion.IsFloat() ? at + 1 : nullptr;
}

} // namespace

char const * ReadPrintConversion(char const * at, Conversion & conversion) {
  for (;; ++at) {
    switch (*at) {
    case '-':
      conversion.left = true;
      continue;
    case '+':
      conversion.plus = true;
      continue;
    case ' ':
      conversion.blank = true;
      continue;
    case '#':
      conversion.alternate = true;
      continue;
    case '0':
      conversion.zeros = true;
      continue;
    default:
      break;
    }
    break;
  }
  at = ReadCount(at, conversion.width);
  if (*at == '.')
    at = ReadCount(at + 1, conversion.precision);
  return ReadLetter(ReadSize(at, conversion.size), conversion);
}

char const * ReadScanConversion(char const * at, Conversion & conversion) {
  if (*at == '*') {
    conversion.suppress = true;
    ++at;
  }
  at = ReadCount(at, conversion.width);
  return ReadLetter(ReadSize(at, conversion.size), conversion);
}

} // namespace zntms
