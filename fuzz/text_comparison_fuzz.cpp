#include "zantms.h"

#include <cstdint>
#include <cstdlib>
#include <string>

/// Comparison of two texts of any content: quick paths against the plain algorithm, antisymmetry,
/// and matching in bounded time. The first bytes choose flags, limit, code sets and languages.
///
/// The plain algorithm is reached by byte order: big-endian text takes no quick path.

namespace {

int Sign(int number) { return (number > 0) - (number < 0); }

void Require(bool condition) {
  if (!condition)
    std::abort();
}

std::string Swapped(std::string text) {
  for (std::size_t i = 0; i + 1 < text.size(); i += 2)
    std::swap(text[i], text[i + 1]);
  return text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
  if (size < 8)
    return 0;
  unsigned short const flags = static_cast<unsigned short>(data[0] << 4);
  short const limit = data[1] < 128 ? -1 : static_cast<short>(data[1] - 128);
  unsigned char const codeSetA = data[2], codeSetB = data[3], languageA = data[4],
                      languageB = data[5];
  std::string const rest(reinterpret_cast<char const *>(data) + 8, size - 8);
  std::size_t const split = rest.size() * data[6] / 255;
  std::string const a = rest.substr(0, split) + std::string(3, '\0');
  std::string const b = rest.substr(split) + std::string(3, '\0');

  // Any code sets: nothing is read outside, whatever the result.
  int difference = 0;
  ZnStrCmp(codeSetA, languageA, a.data(), codeSetB, languageB, b.data(), flags, limit, data[7],
           &difference);

  // Unicode in both byte orders, without order text.
  std::string const even = a.substr(0, split & ~std::size_t{1}) + std::string(2, '\0');
  std::string const pattern =
      b.substr(0, (rest.size() - split) & ~std::size_t{1}) + std::string(2, '\0');
  unsigned char const language = languageA == 254 ? 1 : languageA;
  auto const compare = [&](std::string const & x, std::string const & y, unsigned short op,
                           unsigned char byteOrder) {
    return Sign(
        ZnStrCmp(253, language, x.data(), 253, language, y.data(), op, limit, byteOrder, nullptr));
  };
  int const result = compare(even, pattern, flags, 1);
  Require(result == compare(Swapped(even), Swapped(pattern), flags, 2));
  unsigned short const literal = flags | ZnCmpNoWildcards;
  Require(compare(even, pattern, literal, 1) == -compare(pattern, even, literal, 1));
  Require(compare(even, even, literal, 1) == 0);
  Require(HashString(253, language, const_cast<char *>(even.data()), limit, 1) ==
          HashString(253, language, const_cast<char *>(Swapped(even).data()), limit, 2));
  return 0;
}
