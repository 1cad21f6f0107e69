#include "zntypes/number_rows.h"

#include "znboolean.h"
#include "znstring.h"
#include "znstring/edit.h"
#include "znstring/narrow_text.h"
#include "znstring/number_text.h"
#include "zntypes/number_format.h"

#include <cmath>
#include <string>

/// Print and scan rows of plain numbers and truth values.
///
/// Worked example: the `o_u2b` 65535 prints as "65535" by its own format "%hu" and as "-1" by
/// "%d", since a 16-bit value is passed widened with its sign. A scan takes what the text begins
/// with and leaves the value alone if that is no number.

namespace zntms {

namespace {

constexpr std::string_view kExactFormat = "%.17g";

bool IsExact(char const * format) { return format == kExactFormat; }
bool IsSplit(char const * format) { return std::string_view(format).starts_with("ldexp("); }

template <class Number>
Number ReadValue(void const * value) {
  Number number;
  std::memcpy(&number, value, sizeof number);
  return number;
}

ZnString & PrintOne(ZnString & out, char const * format, PrintArgument argument) {
  PrintBuffer text;
  PrintByFormat(text, format, argument);
  return out = text.CStr();
}

/// Most formats are a single decimal conversion, whose text a string makes by itself.
ZnString & PrintInteger(ZnString & out, char const * format, PrintArgument argument) {
  auto const number = ReadDecimalFormat(format, argument);
  if (!number)
    return PrintOne(out, format, argument);
  ZnStringAssignNumber(out, *number);
  return out;
}

void * ScanInteger(void * value, ZnString const & in, char const * format, unsigned char size) {
  if (value != nullptr)
    ScanByFormat(NarrowText(in).View(), format, {value, ScanTarget::integer, size});
  return value;
}

// ---- Floats -------------------------------------------------------------------------------------

/// A format that begins with "ldexp(" takes the number as fraction and exponent to the base 2.
ZnString & PrintSplit(ZnString & out, char const * format, double number) {
  int exponent;
  double const fraction = std::frexp(number, &exponent);
  PrintArgument const arguments[] = {PrintArgument::Of(fraction), PrintArgument::Of(exponent)};
  PrintBuffer text;
  PrintByFormat(text, format, arguments, 2);
  return out = text.CStr();
}

double ScanSplit(std::string_view text, char const * format) {
  double fraction = 0;
  int exponent = 0;
  ScanTarget const targets[] = {{&fraction, ScanTarget::doubleFloat, sizeof fraction},
                                {&exponent, ScanTarget::integer, sizeof exponent}};
  ScanByFormat(text, format, targets, 2);
  return std::ldexp(fraction, exponent);
}

ZnString & PrintDoubleOrFloat(ZnString & out, char const * format, double number) {
  if (IsExact(format)) {
    ZnStringAssignNumber(out, NumberText(number));
    return out;
  }
  if (IsSplit(format))
    return PrintSplit(out, format, number);
  return PrintOne(out, format, PrintArgument::Of(number));
}

template <class Float>
void * ScanDoubleOrFloat(void * value, ZnString const & in, char const * format,
                         ScanTarget::Kind kind) {
  if (value == nullptr)
    return value;
  NarrowText const narrow(in);
  bool const split = IsSplit(format);
  if (!split && !IsExact(format)) {
    ScanByFormat(narrow.View(), format, {value, kind, sizeof(Float)});
    return value;
  }
  auto const number =
      static_cast<Float>(split ? ScanSplit(narrow.View(), format) : ScanDouble(narrow.View()));
  std::memcpy(value, &number, sizeof number);
  return value;
}

// ---- Characters ---------------------------------------------------------------------------------

constexpr bool IsPrintable(unsigned char c) { return c >= ' ' && c <= '~'; }

} // namespace

ZnString & CharPrint(ZnString & out, void * value, char const * format, unsigned int count) {
  auto const * const bytes = static_cast<unsigned char const *>(value);
  std::string text;
  for (std::size_t i = 0; i < count; ++i) {
    PrintBuffer piece;
    PrintByFormat(piece, IsPrintable(bytes[i]) ? format : "0x%02x", PrintArgument::Of(bytes[i]));
    text += piece.View();
  }
  return out = text.c_str();
}

void * CharScan(void * value, ZnString & in, char const * format, unsigned int count) {
  if (value == nullptr)
    return value;
  NarrowText const narrow(in);
  std::string_view text = narrow.View();
  auto * const bytes = static_cast<unsigned char *>(value);
  for (std::size_t i = 0; i < count && !text.empty(); ++i, text.remove_prefix(1)) {
    ScanTarget const target = {bytes + i, ScanTarget::integer, 1};
    if (ScanByFormat(text, "0x%x", target) == 0)
      ScanByFormat(text, format, target);
  }
  return value;
}

// ---- Integers -----------------------------------------------------------------------------------

ZnString & ShortPrint(ZnString & out, void * value, char const * format, unsigned int) {
  return PrintInteger(out, format, PrintArgument::Of(int(ReadValue<short>(value))));
}

ZnString & LongPrint(ZnString & out, void * value, char const * format, unsigned int) {
  return PrintInteger(out, format, PrintArgument::Of(ReadValue<int>(value)));
}

ZnString & O_8BPrint(ZnString & out, void * value, char const * format, unsigned int) {
  return PrintInteger(out, format, PrintArgument::Of(ReadValue<long long>(value)));
}

void * ShortScan(void * value, ZnString & in, char const * format, unsigned int) {
  return ScanInteger(value, in, format, 2);
}

void * LongScan(void * value, ZnString & in, char const * format, unsigned int) {
  return ScanInteger(value, in, format, 4);
}

void * O_8BScan(void * value, ZnString & in, char const * format, unsigned int) {
  return ScanInteger(value, in, format, 8);
}

// ---- Floats and truth values --------------------------------------------------------------------

ZnString & DoublePrint(ZnString & out, void * value, char const * format, unsigned int) {
  return PrintDoubleOrFloat(out, format, ReadValue<double>(value));
}

ZnString & FloatPrint(ZnString & out, void * value, char const * format, unsigned int) {
  return PrintDoubleOrFloat(out, format, ReadValue<float>(value));
}

void * DoubleScan(void * value, ZnString & in, char const * format, unsigned int) {
  return ScanDoubleOrFloat<double>(value, in, format, ScanTarget::doubleFloat);
}

void * FloatScan(void * value, ZnString & in, char const * format, unsigned int) {
  return ScanDoubleOrFloat<float>(value, in, format, ScanTarget::singleFloat);
}

ZnString & BooleanPrint(ZnString & out, void * value, char const *, unsigned int) {
  auto const boolean = ReadValue<ZnBoolean>(value);
  if (boolean.IsNullValue())
    return out = NullPrintString();
  return out = boolean.state == 1 ? "TRUE" : "FALSE";
}

void * BooleanScan(void * value, ZnString & in, char const *, unsigned int) {
  if (value == nullptr)
    return value;
  NarrowText const narrow(in);
  std::string_view const text = narrow.View();
  auto & boolean = *static_cast<ZnBoolean *>(value);
  if (BeginsWithNullText(narrow))
    boolean.SetNullValue();
  else
    boolean = text == "T" || text == "t" || text == "TRUE" || text == "true" || text == "1";
  return value;
}

} // namespace zntms
