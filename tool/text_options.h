#pragma once

#include <string>

namespace CLI {
class App;
}

/// Options that several commands share: the labels of texts, and how texts compare.

namespace zantm {

/// `--language` and `--codeset`.
struct LabelOptions {
  std::string language, codeSet;
  /// Looks the names up and makes them the labels of all texts; a `Failure` for unknown ones.
  void Apply() const;
};

void AddLabelOptions(CLI::App & command, LabelOptions & options);

/// `-i`, `-a`, `-s`, `-p`: what a comparison of texts ignores.
struct IgnoreOptions {
  bool ignoreCase = false, accents = false, spaces = false, symbols = false;
  /// As comparison flags.
  unsigned short Flags() const;
};

void AddIgnoreOptions(CLI::App & command, IgnoreOptions & options);

} // namespace zantm
