#include "codeset.h"

#include <cstring>
#include <string_view>

/// The process-wide defaults, and the ways to find a code set or a language.
///
/// Worked example: the tag "de-AT-u-co-phonebk" is a language of ours; "de-CH-u-co-phonebk" is
/// none, so its last subtag in front of "-u-co-phonebk" goes, and "de-u-co-phonebk" is found.

namespace zntms {

namespace {

struct Defaults {
  unsigned char native = 1;
  unsigned char codeSet = 1;
  unsigned char codeSet8 = 1;
  unsigned char codeSet16 = UnicodeId;
  unsigned char language = 1;
  unsigned short cmpOp = 0;
};

constinit Defaults defaults;

constexpr int FirstTwoByteId = 225;

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

/// Code set names are equal without regard to case, `-` and `_`.
bool SameName(std::string_view a, std::string_view b) {
  auto next = [](std::string_view & text) {
    while (!text.empty() && (text.front() == '-' || text.front() == '_'))
      text.remove_prefix(1);
    char const c = text.empty() ? '\0' : Lower(text.front());
    text.remove_prefix(text.empty() ? 0 : 1);
    return c;
  };
  for (;;) {
    char const left = next(a);
    if (left != next(b))
      return false;
    if (left == '\0')
      return true;
  }
}

/// Tags are equal without regard to case and with `_` for `-`; `a` is `base` with `extension`
/// behind it.
bool SameTag(char const * a, std::string_view base, std::string_view extension) {
  std::string_view const tag(a);
  if (tag.size() != base.size() + extension.size())
    return false;
  for (std::size_t i = 0; i < tag.size(); ++i) {
    char const c = i < base.size() ? base[i] : extension[i - base.size()];
    if (Lower(tag[i]) != (c == '_' ? '-' : Lower(c)))
      return false;
  }
  return true;
}

ZnLanguage const * LanguageOfTag(std::string_view base, std::string_view extension) {
  for (int i = 0; i < LanguageAliasCount; ++i) {
    if (SameTag(LanguageAliasTable[i].alias, base, {}))
      base = LanguageAliasTable[i].tag;
  }
  for (int id = 0; id < LanguageCount; ++id) {
    if (SameTag(LanguageTable[id].tag, base, extension))
      return &LanguageTable[id];
  }
  return nullptr;
}

/// The base of the tag, shortened subtag by subtag, with the extension.
ZnLanguage const * LongestPrefix(std::string_view base, std::string_view extension) {
  for (;;) {
    if (ZnLanguage const * language = LanguageOfTag(base, extension); language != nullptr)
      return language;
    std::size_t const end = base.find_last_of("-_");
    if (end == std::string_view::npos)
      return nullptr;
    base = base.substr(0, end);
  }
}

/// The place of "-u-co-" in a tag, or its end.
std::size_t CollationPlace(std::string_view tag) {
  constexpr std::string_view mark = "-u-co-";
  for (std::size_t i = 0; i + mark.size() < tag.size(); ++i) {
    bool same = true;
    for (std::size_t j = 0; j < mark.size() && same; ++j)
      same = (tag[i + j] == '_' ? '-' : Lower(tag[i + j])) == mark[j];
    if (same)
      return i;
  }
  return tag.size();
}

} // namespace

} // namespace zntms

using zntms::defaults;

unsigned char ZnLanguageContext::GetDefaultCodeSet() { return defaults.codeSet; }
unsigned char ZnLanguageContext::GetDefault8CodeSet() { return defaults.codeSet8; }
unsigned char ZnLanguageContext::GetDefault16CodeSet() { return defaults.codeSet16; }
unsigned char ZnLanguageContext::GetNativeCodeSet() { return defaults.native; }
unsigned char ZnLanguageContext::GetDefaultLanguage() { return defaults.language; }
unsigned short ZnLanguageContext::GetDefaultCmpOp() { return defaults.cmpOp; }

void ZnLanguageContext::SetDefaultCodeSet(unsigned char codeSet) {
  defaults.codeSet = codeSet;
  if (codeSet >= zntms::FirstTwoByteId)
    defaults.codeSet16 = codeSet;
  else if (codeSet != 0)
    defaults.codeSet8 = codeSet;
}

void ZnLanguageContext::SetDefaultLanguage(unsigned char language) { defaults.language = language; }

void ZnLanguageContext::SetDefaultCmpOp(unsigned short cmpOp) { defaults.cmpOp = cmpOp; }

ZnCodeSet const * ZnLanguageContext::QueryCodeSet(unsigned char id) {
  if (id == 0)
    id = defaults.native;
  if (ZnCodeSet const * set = zntms::CodeSetOfId(id); set != nullptr)
    return set;
  return zntms::CodeSetOfId(id >= zntms::FirstTwoByteId ? zntms::UnicodeId : 1);
}

ZnLanguage const * ZnLanguageContext::QueryLanguage(unsigned char id) {
  return id < zntms::LanguageCount ? &zntms::LanguageTable[id] : nullptr;
}

bool ZnLanguageContext::HasCodeSet(unsigned char id) { return zntms::CodeSetOfId(id) != nullptr; }

ZnCodeSet const * ZnLanguageContext::FindCodeSet(char const * name) {
  if (name == nullptr)
    return nullptr;
  for (int number = 0; number < zntms::ByteSetCount; ++number) {
    ZnCodeSet const * set = &zntms::ByteCodeSets[number];
    if (zntms::SameName(name, set->name))
      return set;
    std::string_view aliases = zntms::ByteSetAliases[number];
    while (!aliases.empty()) {
      std::size_t const end = aliases.find(' ');
      if (zntms::SameName(name, aliases.substr(0, end)))
        return set;
      aliases.remove_prefix(end == std::string_view::npos ? aliases.size() : end + 1);
    }
  }
  for (char const * unicode : {"UTF-16", "UCS-2", "Unicode"}) {
    if (zntms::SameName(name, unicode))
      return zntms::CodeSetOfId(zntms::UnicodeId);
  }
  ZnCodeSet const * orderText = zntms::CodeSetOfId(zntms::OrderTextId);
  return zntms::SameName(name, orderText->name) ? orderText : nullptr;
}

ZnLanguage const * ZnLanguageContext::FindLanguage(char const * tag) {
  if (tag == nullptr)
    return nullptr;
  std::string_view const text(tag);
  std::size_t const place = zntms::CollationPlace(text);
  std::string_view const base = text.substr(0, place);
  if (place < text.size()) {
    if (ZnLanguage const * language = zntms::LongestPrefix(base, text.substr(place));
        language != nullptr)
      return language;
  }
  return zntms::LongestPrefix(base, {});
}

unsigned int ZnLanguageContext::OrderVersion() { return zntms::OrderVersionNumber; }
unsigned long long ZnLanguageContext::OrderFingerprint() { return zntms::OrderFingerprintNumber; }
char const * ZnLanguageContext::OrderSource() { return zntms::OrderSourceName; }

void ___ZnI18NContext(int) { defaults = zntms::Defaults(); }
