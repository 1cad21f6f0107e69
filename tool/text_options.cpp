#include "text_options.h"

#include "failure.h"
#include "text.h"

#include <zanin.h>

#include <CLI/CLI.hpp>

namespace zantm {

void LabelOptions::Apply() const {
  if (!language.empty()) {
    ZnLanguage const * found = ZnLanguageContext::FindLanguage(language.c_str());
    if (found == nullptr)
      throw Failure(ExitInput,
                    "no language is known as '" + language + "'; 'zantm languages' lists them");
    DefaultText().language = found->id;
  }
  if (!codeSet.empty()) {
    ZnCodeSet const * found = ZnLanguageContext::FindCodeSet(codeSet.c_str());
    if (found == nullptr)
      throw Failure(ExitInput,
                    "no code set is known as '" + codeSet + "'; 'zantm codesets' lists them");
    DefaultText().codeSet = found->id;
  }
}

void AddLabelOptions(CLI::App & command, LabelOptions & options) {
  command.add_option("--language", options.language, "Language of texts, such as sv or de-AT");
  command.add_option("--codeset", options.codeSet, "Code set of texts, such as ISO-8859-2");
}

unsigned short IgnoreOptions::Flags() const {
  return static_cast<unsigned short>(
      (ignoreCase ? ZnCmpIgnoreCase : 0) | (accents ? ZnCmpIgnoreAccents : 0) |
      (spaces ? ZnCmpIgnoreSpaces : 0) | (symbols ? ZnCmpIgnoreSymbols : 0));
}

void AddIgnoreOptions(CLI::App & command, IgnoreOptions & options) {
  command.add_flag("-i,--ignore-case", options.ignoreCase, "Take upper and lower case as equal");
  command.add_flag("-a,--ignore-accents", options.accents, "Ignore accents");
  command.add_flag("-s,--ignore-spaces", options.spaces, "Ignore spaces");
  command.add_flag("-p,--ignore-symbols", options.symbols, "Ignore punctuation and symbols");
}

} // namespace zantm
