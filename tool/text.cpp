#include "text.h"

#include "failure.h"

#include <zanin.h>

#include <algorithm>
#include <cstring>
#include <vector>

namespace zantm {

namespace {

bool IsAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(), [](char c) { return (c & 0x80) == 0; });
}

/// Whether code set 253 can hold the text, if it is UTF-8 at all: no terminator, nothing beyond
/// U+FFFF, and no halves of surrogate pairs.
bool FitsUnicode16(std::string_view text) {
  for (size_t i = 0; i < text.size(); ++i) {
    auto c = static_cast<unsigned char>(text[i]);
    if (c == 0 || c >= 0xF0)
      return false;
    if (c == 0xED && i + 1 < text.size() && static_cast<unsigned char>(text[i + 1]) >= 0xA0)
      return false;
  }
  return true;
}

bool DecodeUtf8(std::string_view text, ZnString & out) {
  static std::vector<unsigned short> units(ZnStringMaxChars16 + 1);
  int count =
      ZnMultiByteStr2WCharStr(units.data(), ZnStringMaxChars16, const_cast<char *>(text.data()),
                              static_cast<int>(text.size()));
  if (count < 0 || count > static_cast<int>(ZnStringMaxChars16))
    return false;
  units[count] = 0;
  out = ZnString(units.data(), static_cast<unsigned short>(count));
  return true;
}

} // namespace

TextOptions & DefaultText() {
  static TextOptions options;
  return options;
}

bool FromUtf8(std::string_view text, ZnString & out) {
  TextOptions const & options = DefaultText();
  if (text.size() > 3 * ZnStringMaxChars16 || !FitsUnicode16(text))
    return false;
  if (IsAscii(text)) {
    if (text.size() > ZnStringMaxChars8)
      return false;
    out = ZnString(text.data(), static_cast<unsigned short>(text.size()));
  } else if (!DecodeUtf8(text, out)) {
    return false;
  }
  if (options.codeSet != 255 && options.codeSet != out.codeSet) {
    if (out.MapToCodeSet(options.codeSet) != 0)
      return false;
    if (!IsAscii(text) && ToUtf8(out) != text)
      return false; // some character is not in it
  }
  if (options.language != 255)
    out.language = options.language;
  return true;
}

ZnString ZnStringOf(std::string_view text) {
  ZnString out;
  if (!FromUtf8(text, out))
    throw Failure(ExitInput, "no text that can be held: '" + std::string(text) + "'");
  return out;
}

ZnString Output() {
  return ZnString(ZnString::GetDefault16CodeSet(), ZnString::GetDefaultLanguage());
}

void AppendUtf8(std::string & out, ZnString const & text) {
  unsigned short length = text.Len();
  if (length == 0)
    return;
  if (text.codeSet <= 224 && IsAscii({text.StrGet(), length})) {
    out.append(text.StrGet(), length);
    return;
  }
  size_t begin = out.size();
  out.resize(begin + 3 * size_t{length} + 1);
  int size = ZnString2ZnMBS(text, out.data() + begin, static_cast<int>(out.size() - begin));
  out.resize(begin + std::max(size, 0));
}

std::string ToUtf8(ZnString const & text) {
  std::string out;
  AppendUtf8(out, text);
  return out;
}

} // namespace zantm
