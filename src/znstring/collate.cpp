#include "znstring/collate.h"

#include <utility>

namespace zntms {

namespace {

using Half = std::array<unsigned char, 64>;

/// Bytes 64 to 127.
constexpr Half kLetters = {
    0x40, 0x54, 0x5B, 0x5E, 0x61, 0x69, 0x6F, 0x71, 0x73, 0x79, 0x7F, 0x81, 0x83, 0x85, 0x87, 0x90,
    0x97, 0x99, 0x9B, 0x9D, 0x9F, 0xA5, 0xAB, 0xAD, 0xAF, 0xB3, 0xB7, 0x42, 0x43, 0x44, 0x45, 0x46,
    0x41, 0x4E, 0x5A, 0x5C, 0x60, 0x64, 0x6E, 0x70, 0x72, 0x74, 0x7E, 0x80, 0x82, 0x84, 0x86, 0x8A,
    0x96, 0x98, 0x9A, 0x9C, 0x9E, 0xA0, 0xAA, 0xAC, 0xAE, 0xB0, 0xB6, 0x47, 0x48, 0x49, 0x4A, 0x4B};

/// Bytes 192 to 255.
constexpr Half kHigh = {
    0x54, 0x54, 0x54, 0x54, 0x54, 0xBD, 0xB9, 0x5E, 0x69, 0x69, 0x69, 0x69, 0x79, 0x79, 0x79, 0x79,
    0x63, 0x89, 0x90, 0x90, 0x90, 0x90, 0x90, 0x4C, 0xBB, 0xA5, 0xA5, 0xA5, 0xA5, 0xB3, 0xBF, 0x9C,
    0x4E, 0x4E, 0x4E, 0x4E, 0x4E, 0xBC, 0xB8, 0x5C, 0x64, 0x64, 0x64, 0x64, 0x74, 0x74, 0x74, 0x74,
    0x62, 0x88, 0x8A, 0x8A, 0x8A, 0x8A, 0x8A, 0x4D, 0xBA, 0xA0, 0xA0, 0xA0, 0xA0, 0xB0, 0xBE, 0xB0};

/// Second codes of bytes 192 to 255; byte 223 has its own in each order.
constexpr Half kAccents = {3, 2, 4, 5, 1, 0, 0, 1, 3, 2, 4, 1, 3, 2, 4, 1, 0, 0, 3, 2, 4, 5,
                           1, 0, 0, 3, 2, 4, 1, 2, 0, 0, 3, 2, 4, 5, 1, 0, 0, 1, 3, 2, 4, 1,
                           3, 2, 4, 1, 0, 0, 3, 2, 4, 5, 1, 0, 0, 3, 2, 4, 1, 2, 0, 1};

constexpr unsigned int kSharpS = 223;
constexpr unsigned char kNoAccent = 0;

consteval Weights MakeCased() {
  Weights weights{};
  for (unsigned int c = 0; c < 256; ++c) {
    unsigned int first = c;
    if (c >= 192)
      first = kHigh[c - 192];
    else if (c >= 160)
      first = c + 16;
    else if (c >= 128)
      first = c + 96;
    else if (c >= 64)
      first = kLetters[c - 64];
    weights[c] = {static_cast<unsigned char>(first), c >= 192 ? kAccents[c - 192] : kNoAccent};
  }
  weights[140] = {144, 'i'};
  weights[156] = {138, 'd'};
  weights[159] = {179, 1};
  weights[kSharpS].second = 0x9C;
  return weights;
}

/// Lower-case letters weigh what upper-case ones do.
consteval Weights MakeCaseless() {
  Weights weights = MakeCased();
  for (unsigned int c = 'a'; c <= 'z'; ++c)
    weights[c].first = weights[c - 32].first;
  weights[156] = weights[140];
  weights[kSharpS] = {0x9D, 0x9D};
  for (unsigned int c = 224; c < 256; ++c)
    weights[c].first = weights[c - 32].first;
  weights[247].first = 0x4D;
  weights[255].first = 0xB3;
  return weights;
}

/// Gives the weights of a text one by one, then 0.
class WeightReader {
public:
  WeightReader(Weights const & weights, CollatedText const & text, bool accents)
      : weights_(weights), rest_(text.bytes), inWeights_(text.InWeights()), accents_(accents) {}

  int Next() {
    if (pending_ != 0)
      return std::exchange(pending_, 0);
    if (rest_.empty() || rest_.front() == 0)
      return 0;
    char const c = rest_.front();
    rest_.remove_prefix(1);
    if (inWeights_)
      return static_cast<unsigned char>(c);
    Weight const weight = ZnCollateByte(weights_, c);
    if (accents_ && weight.second != 0)
      return weight.IsPair() ? weight.first - 1 : weight.first + weight.second;
    if (weight.IsPair())
      pending_ = weight.second;
    return weight.first;
  }

private:
  Weights const & weights_;
  std::string_view rest_;
  bool inWeights_;
  bool accents_;
  int pending_ = 0;
};

/// 0 for an empty text.
int FirstByte(CollatedText const & text) {
  return text.bytes.empty() ? 0 : static_cast<unsigned char>(text.bytes.front());
}

} // namespace

constexpr Weights kCasedWeights = MakeCased();
constexpr Weights kCaselessWeights = MakeCaseless();

int ZnCollateCompare(Weights const & weights, CollatedText const & a, CollatedText const & b,
                     unsigned int limit) {
  if (!a.bytes.data() || !b.bytes.data())
    return (a.bytes.data() != nullptr) - (b.bytes.data() != nullptr);
  if (FirstByte(a) == 0 || FirstByte(b) == 0)
    return limit == 0 ? 0 : FirstByte(a) - FirstByte(b);
  bool const accents = (a.mark & ZnCollationMark::Accents) != 0;
  WeightReader readerA(weights, a, accents);
  WeightReader readerB(weights, b, accents);
  for (; limit > 0; --limit) {
    int const weightA = readerA.Next();
    int const weightB = readerB.Next();
    if (weightA != weightB)
      return weightA - weightB;
    if (weightA == 0)
      break;
  }
  return 0;
}

} // namespace zntms
