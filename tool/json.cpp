#include "json.h"

namespace zantm {

void Json::Separate() {
  if (!first_ && !out_.empty())
    out_ += ',';
  first_ = false;
}

void Json::Open(char bracket) {
  Separate();
  out_ += bracket;
  open_ += bracket == '{' ? '}' : ']';
  first_ = true;
}

void Json::End() {
  out_ += open_.back();
  open_.pop_back();
  first_ = false;
}

void Json::Key(std::string_view name) {
  String(name);
  out_ += ':';
  first_ = true;
}

void Json::String(std::string_view utf8) {
  constexpr char digits[] = "0123456789abcdef";
  Separate();
  out_ += '"';
  for (char c : utf8) {
    if (c == '"' || c == '\\') {
      out_ += '\\';
      out_ += c;
    } else if (static_cast<unsigned char>(c) < 0x20) {
      out_ += "\\u00";
      out_ += digits[c >> 4];
      out_ += digits[c & 15];
    } else {
      out_ += c;
    }
  }
  out_ += '"';
}

void Json::Raw(std::string_view text) {
  Separate();
  out_ += text;
}

std::string Json::Take() {
  std::string text = std::move(out_);
  out_.clear();
  first_ = open_.empty();
  return text;
}

bool IsJsonNumber(std::string_view text) {
  size_t at = 0;
  auto digits = [&] {
    size_t begin = at;
    while (at < text.size() && text[at] >= '0' && text[at] <= '9')
      ++at;
    return at - begin;
  };
  if (at < text.size() && text[at] == '-')
    ++at;
  bool zero = at < text.size() && text[at] == '0';
  size_t whole = digits();
  if (whole == 0 || (zero && whole > 1))
    return false;
  if (at < text.size() && text[at] == '.') {
    ++at;
    if (digits() == 0)
      return false;
  }
  if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
    ++at;
    if (at < text.size() && (text[at] == '+' || text[at] == '-'))
      ++at;
    if (digits() == 0)
      return false;
  }
  return at == text.size();
}

} // namespace zantm
