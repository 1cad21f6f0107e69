#pragma once

#include <zantms.h>

#include <cstring>
#include <string>

#include "zanbs.h"
#include "zanin.h"

/// What the tests of text share.

/// The 16-bit unit at a place of a two-byte text.
inline unsigned short UnitAt(ZnString const & s, unsigned int place) {
  unsigned short unit;
  std::memcpy(&unit, s.StrGet() + 2 * place, sizeof unit);
  return unit;
}

/// The text as bytes; two-byte text by the low byte of each unit.
inline std::string Latin(ZnString const & s) {
  std::string bytes;
  unsigned int const length = s.Len();
  for (unsigned int i = 0; i < length; ++i)
    bytes.push_back(s.codeSet > 224 ? static_cast<char>(UnitAt(s, i)) : s.text[i]);
  return bytes;
}

inline unsigned char CodeSetNamed(char const * name) {
  return ZnLanguageContext::FindCodeSet(name)->id;
}

/// While it lives, the configuration holds `stringOverflow` in section `debug`, and reports of
/// cut texts are counted.
class OverflowReports final : private ZnConfig {
public:
  explicit OverflowReports(int value) : value_(static_cast<unsigned short>(value)) {
    count_ = 0;
    config_ = DefaultConfig(this);
    handler_ = ZantSetAssertHandler(&Count);
  }
  ~OverflowReports() {
    DefaultConfig(config_);
    ZantSetAssertHandler(handler_);
  }
  int Count() const { return count_; }

private:
  static void Count(char const * message, char const *, int line) {
    if (std::strcmp(message, "String overflow") == 0 && line == 1113)
      ++count_;
  }
  char const * GetText(char const *, ZnConfigName const * const *) const override {
    return nullptr;
  }
  void GetNumber(char const *, long long *, ZnConfigName const * const *) const override {}
  void GetDouble(char const *, double *, ZnConfigName const * const *) const override {}
  void GetFlag(char const * key, unsigned short * flag,
               ZnConfigName const * const * sections) const override {
    if (std::strcmp(key, "stringOverflow") == 0 && sections && sections[0] &&
        std::strcmp(sections[0]->text, "debug") == 0)
      *flag = value_;
  }

  unsigned short value_;
  ZnConfig * config_;
  ZantAssertHandler handler_;
  static inline int count_;
};
