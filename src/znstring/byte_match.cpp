#include "znstring/byte_match.h"

#include "znstring/characters.h"

namespace zntms {
namespace {

unsigned char At(char const * place) { return static_cast<unsigned char>(*place); }

} // namespace

int MatchBytes(char const * pattern, char const * text, int limit) {
  if (pattern == nullptr)
    return text != nullptr && *text != 0;
  if (text == nullptr)
    return *pattern == 0 ? 0 : -1;

  // Where the last asterisk goes on: the first pattern character behind it, and the text behind
  // the place where that character was found last.
  char const * anchor = nullptr;
  char const * resume = nullptr;
  int resumeLimit = 0;
  auto const seek = [&] {
    while (*resume != 0 && *resume != *anchor && *anchor != '?')
      ++resume;
    if (*resume == 0)
      return false;
    text = ++resume;
    pattern = anchor + 1;
    limit = resumeLimit;
    return true;
  };

  while (*pattern != 0) {
    if (limit == 0)
      return 0;
    if (*pattern == '*') {
      for (; *pattern == '*'; ++pattern)
        limit -= limit > 0;
      if (*pattern == 0 || limit == 0)
        return 0;
      anchor = pattern;
      resume = text;
      resumeLimit = limit - (limit > 0);
      if (!seek())
        return -static_cast<int>(At(anchor));
    } else if (*pattern == '?') {
      if (*text == 0)
        return -1;
      ++pattern, ++text;
      limit -= limit > 0;
    } else if (*pattern == *text) {
      ++pattern, ++text;
      limit -= limit > 0;
    } else if (anchor == nullptr) {
      return At(text) - At(pattern);
    } else if (!seek()) {
      return -static_cast<int>(At(anchor));
    }
  }
  return limit == 0 ? 0 : At(text);
}

int CompareBytes(char const * a, char const * b, int limit) {
  if (a == nullptr || b == nullptr)
    return (a != nullptr && *a != 0) - (b != nullptr && *b != 0);
  for (int i = 0; limit <= 0 || i < limit; ++i)
    if (a[i] != b[i] || a[i] == 0)
      return At(a + i) - At(b + i);
  return 0;
}

} // namespace zntms
