#include "zanbs.h"

#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

/// Configuration from a file of lines.
///
/// Example:
///
///     # keys before the first section stand outside of every section
///     oldIndexUnicodeOrder = yes
///     [debug]
///     stringOverflow = 1
///
/// A line is a comment that begins with `#` or `;`, a section in brackets, a key and its value
/// around the first `=`, or else passed over. Blanks around names and values do not count; a value
/// runs to the end of its line, with no comment in it. The last line of a key holds.

namespace {

using std::string_view;

constexpr string_view kBlanks = " \t\r\v\f";

string_view Trim(string_view text) {
  auto const first = text.find_first_not_of(kBlanks);
  if (first == string_view::npos)
    return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// Reads the whole of `text`, and nothing if a part of it is left over or the number is too large.
template <class Number, class... Form>
std::optional<Number> Whole(string_view text, Form... form) {
  Number number{};
  auto const [end, error] =
      std::from_chars(text.data(), text.data() + text.size(), number, form...);
  if (error != std::errc{} || end != text.data() + text.size())
    return std::nullopt;
  return number;
}

/// A whole number with its sign; the digits tell the base as in C.
std::optional<long long> ReadNumber(string_view text) {
  bool const negative = text.starts_with('-');
  if (negative || text.starts_with('+'))
    text.remove_prefix(1);
  int base = 10;
  if (text.starts_with("0x") || text.starts_with("0X")) {
    text.remove_prefix(2);
    base = 16;
  } else if (text.size() > 1 && text.starts_with('0')) {
    base = 8;
  }
  auto const magnitude = Whole<unsigned long long>(text, base);
  unsigned long long const largest = negative ? 1ull << 63 : (1ull << 63) - 1;
  if (!magnitude || *magnitude > largest)
    return std::nullopt;
  return static_cast<long long>(negative ? 0 - *magnitude : *magnitude);
}

bool IsWord(string_view text, string_view lowerCaseWord) {
  if (text.size() != lowerCaseWord.size())
    return false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    char const c = text[i];
    if ((c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c) != lowerCaseWord[i])
      return false;
  }
  return true;
}

std::optional<unsigned short> ReadFlag(string_view text) {
  for (string_view const word : {"yes", "on", "true"}) {
    if (IsWord(text, word))
      return 1;
  }
  for (string_view const word : {"no", "off", "false"}) {
    if (IsWord(text, word))
      return 0;
  }
  auto const number = ReadNumber(text);
  if (!number || *number < 0 || *number > UINT16_MAX)
    return std::nullopt;
  return static_cast<unsigned short>(*number);
}

} // namespace

/// The entries by section and key; "" is the section outside of every section.
struct [[gnu::visibility("hidden")]] ZnFileConfig::Entries {
  using Section = std::map<std::string, std::string, std::less<>>;
  std::map<std::string, Section, std::less<>> sections;

  void Read(string_view text);
  char const * Find(string_view section, string_view key) const;
};

void ZnFileConfig::Entries::Read(string_view text) {
  if (text.starts_with("\xEF\xBB\xBF"))
    text.remove_prefix(3);
  std::string section;
  bool named = true; // false below a section without a name, whose keys nobody can ask for
  while (!text.empty()) {
    auto const end = text.find('\n');
    string_view const line = Trim(text.substr(0, end));
    text.remove_prefix(end == string_view::npos ? text.size() : end + 1);
    if (line.empty() || line.front() == '#' || line.front() == ';')
      continue;
    if (line.front() == '[' && line.back() == ']') {
      section = Trim(line.substr(1, line.size() - 2));
      named = !section.empty();
      continue;
    }
    auto const equals = line.find('=');
    if (equals == string_view::npos || !named)
      continue;
    sections[section][std::string(Trim(line.substr(0, equals)))] = Trim(line.substr(equals + 1));
  }
}

char const * ZnFileConfig::Entries::Find(string_view section, string_view key) const {
  auto const values = sections.find(section);
  if (values == sections.end())
    return nullptr;
  auto const value = values->second.find(key);
  return value != values->second.end() ? value->second.c_str() : nullptr;
}

ZnFileConfig::ZnFileConfig(MemFile & file) : entries_(new Entries) {
  unsigned int length = file.size;
  if (void const * const bytes = file.Seek(0, MemFile::FromStart, &length, 0))
    entries_->Read({static_cast<char const *>(bytes), length});
}

ZnFileConfig::~ZnFileConfig() { delete entries_; }

char const * ZnFileConfig::GetText(char const * key, ZnConfigName const * const * sections) const {
  if (sections == nullptr)
    return entries_->Find({}, key);
  for (; *sections != nullptr; ++sections) {
    char const * const name = (*sections)->text;
    if (name == nullptr || *name == '\0')
      continue;
    if (char const * const value = entries_->Find(name, key))
      return value;
  }
  return nullptr;
}

void ZnFileConfig::GetNumber(char const * key, long long * value,
                             ZnConfigName const * const * sections) const {
  if (char const * const text = GetText(key, sections))
    *value = ReadNumber(text).value_or(*value);
}

void ZnFileConfig::GetDouble(char const * key, double * value,
                             ZnConfigName const * const * sections) const {
  if (char const * const text = GetText(key, sections))
    *value = Whole<double>(text).value_or(*value);
}

void ZnFileConfig::GetFlag(char const * key, unsigned short * flag,
                           ZnConfigName const * const * sections) const {
  if (char const * const text = GetText(key, sections))
    *flag = ReadFlag(text).value_or(*flag);
}

namespace {

/// The file that the environment names, or null. Lives to the end of the process, because the
/// destructors of other modules may still ask.
ZnConfig * ConfigOfEnvironment() {
  char const * const path = std::getenv("ZANTMS_CONFIG");
  if (path == nullptr || *path == '\0')
    return nullptr;
  MemFile file(path);
  static ZnFileConfig * const config = file.IsOpen() ? new ZnFileConfig(file) : nullptr;
  return config;
}

} // namespace

ZnConfig * ZnConfigQuery() { return reinterpret_cast<ZnConfig *>(~std::uintptr_t{0}); }

ZnConfig * DefaultConfig(ZnConfig * config) {
  static ZnConfig * current = ConfigOfEnvironment();
  ZnConfig * const before = current;
  if (config != ZnConfigQuery())
    current = config;
  return before;
}
