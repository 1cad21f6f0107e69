#include "zntypes/number_format.h"

#include "znstring/number_text.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <limits>

/// Scanning numbers by a format.

namespace zntms {

namespace {

char const * SkipBlanks(char const * at, char const * last) {
  while (at != last && IsBlank(*at))
    ++at;
  return at;
}

/// Stores the low bytes of an integer: 1, 2, 4 or 8, told one by one, for a copy of any number of
/// bytes takes longer than to read the digits.
void StoreInteger(ScanTarget const & target, std::uint64_t number, unsigned char size) {
  switch (std::min(size, target.size)) {
  case 1:
    std::memcpy(target.value, &number, 1);
    break;
  case 2:
    std::memcpy(target.value, &number, 2);
    break;
  case 4:
    std::memcpy(target.value, &number, 4);
    break;
  default:
    std::memcpy(target.value, &number, 8);
    break;
  }
}

void StoreFloat(ScanTarget const & target, double number) {
  if (target.kind == ScanTarget::doubleFloat) {
    std::memcpy(target.value, &number, sizeof number);
  } else {
    float const narrow = static_cast<float>(number);
    std::memcpy(target.value, &narrow, sizeof narrow);
  }
}

bool StartsHexNumber(char const * at, char const * last) {
  unsigned int digit;
  return last - at > 2 && at[0] == '0' && (at[1] | 0x20) == 'x' &&
         std::from_chars(at + 2, at + 3, digit, 16).ec == std::errc();
}

/// Whether all eight bytes are digits, and the number that they are, the first one in the lowest
/// byte: pairs are joined to fours and those to eight by one multiplication each (the method of
/// D. Lemire, "Quickly parsing eight digits").
bool AreDigits(std::uint64_t eight) {
  return ((eight & 0xF0F0F0F0F0F0F0F0) |
          ((eight + 0x0606060606060606) & 0xF0F0F0F0F0F0F0F0) >> 4) == 0x3333333333333333;
}
std::uint64_t JoinDigits(std::uint64_t eight) {
  eight -= 0x3030303030303030;
  eight = eight * 10 + (eight >> 8);
  return ((eight & 0x000000FF000000FF) * (100 + (1000000ull << 32)) +
          ((eight >> 16) & 0x000000FF000000FF) * (1 + (10000ull << 32))) >>
         32;
}

/// `std::from_chars` to the base 10, with eight digits at a time where there are as many.
std::from_chars_result ReadDecimal(char const * at, char const * last, std::uint64_t & number) {
  char const * p = at;
  std::uint64_t eight;
  for (; last - p >= 8 && p - at < 16; p += 8) {
    std::memcpy(&eight, p, 8);
    if (!AreDigits(eight))
      break;
    number = number * 100000000 + JoinDigits(eight);
  }
  for (; p != last && p - at < 19 && *p >= '0' && *p <= '9'; ++p) // 19 digits cannot overflow
    number = number * 10 + static_cast<unsigned int>(*p - '0');
  if (p == at || (p != last && *p >= '0' && *p <= '9'))
    return std::from_chars(at, last, number);
  return {p, std::errc()};
}

/// Reads an integer from `at`, no further than `last`. Gives the place behind it, or null if there
/// is none.
char const * ReadInteger(char const * at, char const * last, char letter, std::uint64_t & number) {
  bool const negative = at != last && *at == '-';
  if (at != last && (*at == '-' || *at == '+'))
    ++at;
  int base = letter == 'o' ? 8 : letter == 'x' || letter == 'X' ? 16 : 10;
  if ((base == 16 || letter == 'i') && StartsHexNumber(at, last)) {
    base = 16;
    at += 2;
  } else if (letter == 'i' && at != last && *at == '0') {
    base = 8;
  }
  std::uint64_t magnitude = 0;
  auto const [end, error] =
      base == 10 ? ReadDecimal(at, last, magnitude) : std::from_chars(at, last, magnitude, base);
  if (error == std::errc::invalid_argument)
    return nullptr;
  bool const isSigned = letter == 'd' || letter == 'i';
  constexpr std::uint64_t lowest = std::uint64_t(1) << 63;
  if (error == std::errc::result_out_of_range)
    number = !isSigned ? ~std::uint64_t(0) : negative ? lowest : lowest - 1;
  else if (isSigned && magnitude >= lowest)
    number = negative ? lowest : lowest - 1;
  else
    number = negative ? 0 - magnitude : magnitude;
  return end;
}

/// Reads a float, or one of the words that prints give for infinity and NaN.
char const * ReadFloat(char const * at, char const * last, double & number) {
  auto const [value, end] = ReadDouble({at, static_cast<std::size_t>(last - at)});
  number = value;
  if (end != at)
    return end;
  bool const negative = at != last && *at == '-';
  if (at != last && (*at == '-' || *at == '+'))
    ++at;
  struct Word {
    std::string_view text;
    double number;
  };
  for (auto const & [text, word] :
       {Word{"infinity", std::numeric_limits<double>::infinity()},
        Word{"inf", std::numeric_limits<double>::infinity()}, Word{"nan", LowestNaN()}}) {
    auto const sameLetter = [](char c, char letter) { return (c | 0x20) == letter; };
    if (static_cast<std::size_t>(last - at) >= text.size() &&
        std::equal(at, at + text.size(), text.begin(), sameLetter)) {
      number = negative ? -word : word;
      return at + text.size();
    }
  }
  return nullptr;
}

class Scan {
public:
  Scan(std::string_view text, ScanTarget const * targets, unsigned int count)
      : at_(text.data()), last_(text.data() + text.size()), targets_(targets), count_(count) {}

  unsigned int Run(char const * format) {
    while (*format != 0) {
      if (IsBlank(*format)) {
        at_ = SkipBlanks(at_, last_);
        ++format;
        continue;
      }
      Conversion conversion;
      char const * const behind =
          *format == '%' ? ReadScanConversion(format + 1, conversion) : nullptr;
      if (behind != nullptr && IsServed(conversion)) {
        if (!Convert(conversion))
          break;
        format = behind;
        continue;
      }
      if (format[0] == '%' && format[1] == '%') {
        at_ = SkipBlanks(at_, last_);
        ++format;
      }
      if (at_ == last_ || *at_ != *format)
        break;
      ++at_;
      ++format;
    }
    return stored_;
  }

private:
  /// Whether there is a value of the right kind left for it.
  bool IsServed(Conversion const & conversion) const {
    if (conversion.suppress)
      return true;
    return stored_ < count_ &&
           conversion.IsInteger() == (targets_[stored_].kind == ScanTarget::integer);
  }

  bool Convert(Conversion const & conversion) {
    if (conversion.letter == 'c')
      return ConvertCharacters(conversion);
    at_ = SkipBlanks(at_, last_);
    char const * const limit =
        conversion.width != 0 && last_ - at_ > conversion.width ? at_ + conversion.width : last_;
    std::uint64_t integer = 0;
    double number = 0;
    char const * const end = conversion.IsInteger()
                                 ? ReadInteger(at_, limit, conversion.letter, integer)
                                 : ReadFloat(at_, limit, number);
    if (end == nullptr)
      return false;
    at_ = end;
    if (conversion.suppress)
      return true;
    ScanTarget const & target = targets_[stored_++];
    if (conversion.IsInteger())
      StoreInteger(target, integer, conversion.size);
    else
      StoreFloat(target, number);
    return true;
  }

  bool ConvertCharacters(Conversion const & conversion) {
    auto const wanted = static_cast<std::size_t>(std::max(conversion.width, 1));
    auto const taken = std::min<std::size_t>(wanted, last_ - at_);
    if (taken == 0)
      return false;
    if (!conversion.suppress) {
      ScanTarget const & target = targets_[stored_++];
      std::memcpy(target.value, at_, std::min<std::size_t>(taken, target.size));
    }
    at_ += taken;
    return true;
  }

  char const * at_;
  char const * last_;
  ScanTarget const * targets_;
  unsigned int count_;
  unsigned int stored_ = 0;
};

} // namespace

unsigned int ScanByFormat(std::string_view text, char const * format, ScanTarget const * targets,
                          unsigned int count) {
  return Scan(text, targets, count).Run(format);
}

} // namespace zntms
