#pragma once

#include <string>
#include <string_view>

/// A progress bar on standard error, if that is a terminal; nothing otherwise.

namespace zantm {

class Progress {
public:
  explicit Progress(std::string_view label);
  ~Progress() { Clear(); }
  Progress(Progress const &) = delete;
  Progress & operator=(Progress const &) = delete;

  /// `share` is 0 to 1.
  void Show(double share);
  /// Takes the bar away.
  void Clear();

private:
  std::string label_;
  bool terminal_;
  int percent_ = -1;
};

} // namespace zantm
