#include <cstdint>
#include <cstdlib>
#include <string>

#include "zanbs.h"
#include "zncodes.h"
#include "znquery.h"
#include "znstring/istring_form.h"
#include "zntypevl/istring_pattern.h"
#include "zntypevl/istring_query.h"

/// Index bounds of the two older string classes.
///
/// Worked example: the pattern "ab*" stands for the keys that begin with the weights of `a` and
/// `b`. Its low key holds these two weights, its high key the same and FF. The estimate takes
/// texts for numbers: four weights as the four bytes of a 32-bit number.

namespace zntms {

namespace {

constexpr unsigned int kLongestKey = 254;
constexpr unsigned int kFrame = kIStringHead + 1; ///< head and terminator
constexpr unsigned short kKeptBits = 0x800F;
constexpr unsigned char kKeyMark = ZnCollationMark::Weights | ZnCollationMark::Stored;

/// The weights of a key, without head and terminator.
std::string_view WeightsOfKey(void const * key, unsigned int length) {
  if (!key || length < kFrame)
    return {};
  return {static_cast<char const *>(key) + kIStringHead, length - kFrame};
}

/// Up to four bytes from `at` on as a number, the first one highest.
std::int64_t Position(std::string_view weights, std::size_t at) {
  std::uint32_t number = 0;
  for (std::size_t i = at; i < at + 4; ++i)
    number = number << 8 | (i < weights.size() ? static_cast<unsigned char>(weights[i]) : 0u);
  return number;
}

/// A new key of `size` bytes in a block of `room`.
void * MakeKey(std::string_view weights, unsigned int size, unsigned int room, bool open,
               unsigned char format) {
  auto * const key = static_cast<char *>(std::malloc(room));
  if (!key)
    ZnCallMemoryHandler(room);
  std::memset(key, 0, room);
  auto const length = static_cast<unsigned short>(weights.size() + open + 1);
  key[0] = static_cast<char>(kKeyMark);
  ShortStoreOne(key + 1, &length, format);
  std::memcpy(key + kIStringHead, weights.data(),
              std::min<std::size_t>(weights.size(), size - kFrame));
  if (open)
    key[size - 2] = static_cast<char>(0xFF);
  key[size - 1] = 0;
  return key;
}

/// Makes one end key unless it is there or the comparison does not ask for it. The caseless class
/// keeps to the limits of an index; the other one takes what the text takes.
template <ZnCollation collation>
void SaveKey(void *& key, unsigned char & keyLength, unsigned char keyLimit,
             std::string_view weights, bool open, unsigned char format) {
  if (key)
    return;
  auto size = static_cast<unsigned int>(weights.size()) + open + kFrame;
  unsigned int room = size;
  if (collation == ZnCollation::caseless) {
    size = std::min(size, kLongestKey);
    room = std::max<unsigned int>(size, keyLimit);
  }
  key = MakeKey(weights, size, room, open, format);
  keyLength = static_cast<unsigned char>(size);
}

/// The text up to the wildcard in weights.
std::string WeightsBefore(Weights const & weights, CollatedText const & text, unsigned int place) {
  std::string_view const part =
      text.bytes.substr(0, std::min<std::size_t>(text.bytes.find('\0'), place));
  if (text.InWeights())
    return std::string(part);
  std::string out;
  for (char const c : part) {
    Weight const weight = ZnCollateByte(weights, c);
    out.push_back(static_cast<char>(weight.first));
    if (weight.IsPair())
      out.push_back(static_cast<char>(weight.second));
  }
  return out;
}

} // namespace

template <ZnCollation collation>
float IStringBound(ZnIdxBounds * area, unsigned short & op, void * value, unsigned char format,
                   unsigned int, ZnIdxBounds * out) {
  bool const literal = (op & ZnCmpNoWildcards) != 0;
  op &= kKeptBits;
  IStringForm const form(value, 0, format);
  CollatedText const text = {form.bytes, form.mark};
  Weights const & weights = WeightsOf(collation);
  unsigned int const place = literal ? kNoWildcard : FindIStringWildcard(weights, text);
  bool const open = place != kNoWildcard;
  if (open)
    op |= ZnOpWildcard;
  if (place == 0)
    return 1.0F;
  std::string const known = WeightsBefore(weights, text, place);
  auto const used = std::min<std::size_t>(known.size(), 4);
  std::int64_t const fill = used < 4 ? std::int64_t(0xFF) << (8 * (3 - used)) : 0;

  std::string_view high, low;
  if (area) {
    high = WeightsOfKey(area->highKey, area->highLength);
    low = WeightsOfKey(area->lowKey, area->lowLength);
  }
  std::size_t prefix = 0;
  if (collation == ZnCollation::caseless && area && fill == 0)
    while (prefix < std::min({used, high.size(), low.size()}) && high[prefix] == low[prefix] &&
           low[prefix] == known[prefix])
      ++prefix;

  std::int64_t const hi = area ? Position(high, prefix) : 0;
  std::int64_t const lo = area ? Position(low, prefix) : 0;
  std::int64_t const v = Position(known, prefix);
  std::int64_t const total = hi - lo + 1;
  auto const inArea = [&](std::int64_t number) {
    return std::max(lo - 1, std::min(number, hi + 1));
  };
  std::int64_t const a = inArea(v + fill) - lo + 1;
  std::int64_t const b = inArea(v) - lo + 1;
  std::int64_t range = 0;
  if ((op & ZnOpBelow) != 0)
    range += b;
  if ((op & ZnOpAbove) != 0)
    range += total - a;
  if ((op & ZnOpEqual) != 0)
    range += 1 + a - b;
  auto const selected = std::max(0, static_cast<std::int32_t>(static_cast<std::uint32_t>(range)));

  if (out && (op & ZnOpBelow) == 0)
    SaveKey<collation>(out->lowKey, out->lowLength, out->keyLimit, known, false, format);
  if (out && (op & ZnOpAbove) == 0)
    SaveKey<collation>(out->highKey, out->highLength, out->keyLimit, known, open, format);
  auto const whole = static_cast<std::uint32_t>(total);
  return whole == 0 ? 0.0F : static_cast<float>(double(selected) / double(whole));
}

template float IStringBound<ZnCollation::cased>(ZnIdxBounds *, unsigned short &, void *,
                                                unsigned char, unsigned int, ZnIdxBounds *);
template float IStringBound<ZnCollation::caseless>(ZnIdxBounds *, unsigned short &, void *,
                                                   unsigned char, unsigned int, ZnIdxBounds *);

} // namespace zntms
