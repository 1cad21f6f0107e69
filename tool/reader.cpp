#include "reader.h"

#include "failure.h"
#include "text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <vector>

namespace zantm {

namespace {

constexpr std::array kIsoFormats = {"%Y-%m-%d", "%H:%M:%S", "%Y-%m-%dT%H:%M:%S",
                                    "%Y-%m-%d %H:%M:%S"};

/// Texts longer than this are not spoiled one character after the other.
constexpr size_t kLongestSpoiled = 128;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }

std::string_view Trim(std::string_view text) {
  while (!text.empty() && IsBlank(text.front()))
    text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back()))
    text.remove_suffix(1);
  return text;
}

/// A decimal number, taken apart.
struct Decimal {
  std::string_view digits; ///< as written, without sign
  bool negative;
  bool whole;   ///< digits only
  double worth; ///< rounded

  /// Equal whole numbers, of any length.
  bool SameWhole(Decimal const & other) const {
    std::string_view a = Stripped(), b = other.Stripped();
    return a == b && (negative == other.negative || a.empty());
  }

  std::string_view Stripped() const {
    return digits.substr(std::min(digits.find_first_not_of('0'), digits.size()));
  }
};

std::optional<Decimal> ParseDecimal(std::string_view text) {
  Decimal number{};
  if (!text.empty() && (text[0] == '+' || text[0] == '-')) {
    number.negative = text[0] == '-';
    text.remove_prefix(1);
  }
  if (text.empty() || !(IsDigit(text[0]) || text[0] == '.'))
    return std::nullopt;
  auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number.worth);
  if (end != text.data() + text.size() || error == std::errc::invalid_argument)
    return std::nullopt;
  if (error == std::errc::result_out_of_range)
    number.worth = HUGE_VAL;
  if (number.negative)
    number.worth = -number.worth;
  number.digits = text;
  number.whole = std::all_of(text.begin(), text.end(), IsDigit);
  return number;
}

/// Whether two texts are the same but for letter case, blanks, and zeros in front of numbers.
bool SameWords(std::string_view text, std::string_view printed) {
  if (text.size() > printed.size() + std::count_if(text.begin(), text.end(), IsBlank))
    return false; // the print is padded, never the text
  size_t i = 0, k = 0;
  auto skip = [](std::string_view t, size_t & at) {
    while (at < t.size() && IsBlank(t[at]))
      ++at;
  };
  auto number = [](std::string_view t, size_t & at) {
    size_t begin = at;
    while (at < t.size() && IsDigit(t[at]))
      ++at;
    while (begin + 1 < at && t[begin] == '0')
      ++begin;
    return t.substr(begin, at - begin);
  };
  for (;;) {
    skip(text, i);
    skip(printed, k);
    if (i == text.size() || k == printed.size())
      return i == text.size() && k == printed.size();
    if (IsDigit(text[i]) && IsDigit(printed[k])) {
      if (number(text, i) != number(printed, k))
        return false;
    } else if (Lower(text[i++]) != Lower(printed[k++])) {
      return false;
    }
  }
}

} // namespace

Reader::Reader(char id, std::string format)
    : type_(id), format_(std::move(format)), settled_(!format_.empty()), trial_(id) {
  if (Manager().SupportsCapability(id, 3) == 0)
    settled_ = true;
  Learn();
}

/// Learns by trial what the type reads.
void Reader::Learn() {
  constexpr char const * noValueButText = "?any, text: 7";
  anyText_ = Scan(noValueButText, trial_, Format()) && trial_.Print(Format()) == noValueButText;
  Value one(type_);
  if (!Scan("+10", trial_, Format()) || trial_.Print(Format()) != "10")
    return;
  numbers_ = true;
  if (!Scan("1", one, Format()))
    return;
  if (Manager().GetValue(type_, one.Data(), 0, ZnFormatMemory, 'N') != 0)
    return;
  if (auto next = ParseDecimal(one.Print(Format())); next && next->worth < 2)
    precision_ = next->worth - 1;
}

bool Reader::Scan(std::string_view text, Value & value, char const * format) {
  value.Reset();
  if (!FromUtf8(text, in_))
    return false;
  Manager().ScanFromZnString(type_, value.Data(), in_, format, 1);
  return true;
}

bool Reader::SameNumber(std::string_view text, std::string_view printed) const {
  auto a = ParseDecimal(Trim(text));
  if (!a)
    return false;
  auto b = ParseDecimal(printed);
  if (!b || !std::isfinite(a->worth))
    return false;
  if (a->whole && b->whole && precision_ == 0)
    return a->SameWhole(*b);
  return std::abs(a->worth - b->worth) <= precision_ * std::abs(a->worth);
}

bool Reader::Spoilable(std::string_view text, Value const & value, char const * format) {
  if (text.empty() || text.size() > kLongestSpoiled)
    return true;
  for (size_t i = 0; i <= text.size(); ++i) {
    std::string spoilt(text);
    if (i < text.size())
      spoilt[i] = '\x01';
    else
      spoilt.pop_back();
    if (!Scan(spoilt, trial_, format) || trial_.Compare(value) == 0)
      return true;
  }
  return false;
}

bool Reader::ReadAs(std::string_view text, Value & value, char const * format) {
  if (!Scan(text, value, format))
    return false;
  out_ = Output();
  Manager().PrintToZnString(type_, out_, value.Data(), format, 1);
  printed_.clear();
  AppendUtf8(printed_, out_);
  if (text == printed_)
    return true;
  if (text.empty())
    return value.IsNull();
  if (numbers_) {
    if (SameNumber(text, printed_))
      return true;
    if (ParseDecimal(Trim(text)))
      return false;
  } else if (SameWords(text, printed_)) {
    return true;
  }
  if (!Spoilable(text, value, format))
    return true;
  if (text != "0" || numbers_)
    return false;
  Value one(type_);
  if (!Scan("1", one, format) || Spoilable("1", one, format))
    return false;
  trial_.Assign(value);
  return Manager().GetValue(type_, trial_.Data(), 0, ZnFormatMemory, 'N') == 0 &&
         trial_.Compare(one) == 0;
}

bool Reader::Read(std::string_view text, Value & value) {
  if (ReadAs(text, value, Format())) {
    settled_ = settled_ || !value.IsNull();
    return true;
  }
  if (settled_)
    return false;
  for (char const * format : kIsoFormats) {
    if (!ReadAs(text, value, format))
      continue;
    format_ = format;
    settled_ = true;
    return true;
  }
  return false;
}

void Reader::MustRead(std::string_view text, Value & value) {
  if (!Read(text, value))
    throw Failure(ExitInput, "'" + std::string(text) + "' is no value of type " + TypeName(type_));
}

} // namespace zantm
