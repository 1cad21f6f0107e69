#pragma once

#include "zanin.h"
#include "znstring/wildcards.h"

/// What the full entry of a character leads to: variants and contractions.

namespace zntms {

/// Class of ideographs and of characters that the order tables do not know. It, and every class
/// above it, has units that all count at the first level.
inline constexpr unsigned char kIdeographClass = 20;

/// Characters from here on are combining marks, or at least may contract with the one before.
inline constexpr unsigned short kFirstMark = 768;

/// Whether a character without entry is an ideograph to comparison. Wildcards and the numbers at
/// the top, which stand for the largest unit of a key, leave the class as it is.
inline bool MarksClassOfIdeographs(unsigned short c) {
  return c < 65520 && c != asteriskOrder.Get() && c != questionOrder.Get();
}

/// Whether entries may have a variant for the language.
inline bool IsTailored(unsigned char language) {
  ZnLanguage const * const record = ZnLanguageContext::QueryLanguage(language);
  return record != nullptr && record->hasTailoring != 0;
}

/// The entry in the given language: a variant, or the entry itself.
inline ZnCharOrderProps const * VariantFor(ZnCharOrderProps const * entry, unsigned char language) {
  if (entry->hasVariants == 0 || entry->variantLanguages == nullptr)
    return entry;
  ZnLanguage const * const record = ZnLanguageContext::QueryLanguage(language);
  if (record == nullptr || record->hasTailoring == 0)
    return entry;
  ZnLanguageList const & languages = *entry->variantLanguages;
  for (int i = 0; i < languages.count; ++i) {
    ZnLanguage const * other = nullptr;
    ZnCharOrderProps const * variant = nullptr;
    if (languages.Read(i, other) == 0 && other == record &&
        entry->variantEntries->Read(i, variant) == 0 && variant != nullptr)
      return variant;
  }
  return entry;
}

/// The entry that `entry` and the next character join to, or null.
inline ZnCharOrderProps const * ContractionWith(ZnCharOrderProps const * entry, unsigned short c) {
  if (c == 0 || entry->contractionChars == nullptr)
    return nullptr;
  ZnWCharList const & characters = *entry->contractionChars;
  for (int i = 0; i < characters.count; ++i) {
    ZnCharOrderProps const * joined = nullptr;
    if (characters.items[i] == c && entry->contractionEntries->Read(i, joined) == 0 &&
        joined != nullptr)
      return joined;
  }
  return nullptr;
}

} // namespace zntms
