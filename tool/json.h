#pragma once

#include <string>
#include <string_view>

/// Writes JSON text, value after value.
///
/// Worked example: `Json j; j.Object(); j.Key("id"); j.Number("7"); j.End();` gives `{"id":7}`.

namespace zantm {

class Json {
public:
  void Object() { Open('{'); }
  void Array() { Open('['); }
  /// Ends the innermost object or array.
  void End();
  void Key(std::string_view name);
  void String(std::string_view utf8);
  /// `text` must be a JSON number.
  void Number(std::string_view text) { Raw(text); }
  void Number(long long value) { Raw(std::to_string(value)); }
  void Bool(bool value) { Raw(value ? "true" : "false"); }
  void Null() { Raw("null"); }

  std::string const & Text() const { return out_; }
  std::string Take();

private:
  void Open(char bracket);
  void Raw(std::string_view text);
  void Separate();

  std::string out_;
  std::string open_; ///< closing brackets that are due
  bool first_ = true;
};

/// Whether a text can stand as a JSON number.
bool IsJsonNumber(std::string_view text);

} // namespace zantm
