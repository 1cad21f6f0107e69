#pragma once

#include "value.h"

#include <string>
#include <string_view>

/// Reads texts into values of a type, and notices the texts that are none of its values.
///
/// The scan rows report nothing: "abc" leaves an integer as it was, makes a double 0 and a
/// boolean false, and what stands behind a number is ignored. So every scan is proven, by the
/// type id alone. The value is printed by the same format, and the text is taken
///
/// 1. if it is what was printed: "17", "TRUE", any text of a string type;
/// 2. in types that read numbers ("+10" prints as "10"), if both texts are decimal numbers of the
///    same worth: "007", "+5", " 5", "1e3" for a double; "0.1" for a float, since the step from 1
///    to the next value tells how far a fraction may be off; but not "1e3" or "4294967297" for an
///    int, which print as "1";
/// 3. in all others, if both are the same words and marks, but for letter case, blanks, and zeros
///    in front of numbers that the print added: "2024-2-9" for "2024-02-09";
/// 4. if not one character of it can be spoiled without changing the value: "t" and "1" for TRUE,
///    "0x1F" for a 64-bit integer; but not "yes" for FALSE or "12xyz" for 12;
/// 5. if it is "0", where "1" is taken and is the value behind: FALSE.
///
/// Worked example: "abc" for an int is scanned into 0, which prints "0"; "abc" is not "0", is no
/// number, and its letters can be spoiled at will. It is refused.

namespace zantm {

class Reader {
public:
  /// `format` empty: the row's own. For types of date and time the formats of ISO 8601 are tried
  /// too, until a text fits one; that format is kept from then on.
  explicit Reader(char id, std::string format = {});

  /// Scans a text, UTF-8. False, with `value` of no use, if it is no value of the type.
  bool Read(std::string_view text, Value & value);
  /// The same, with a `Failure` that names text and type.
  void MustRead(std::string_view text, Value & value);

  char Type() const { return type_; }
  /// Null for the row's own.
  char const * Format() const { return format_.empty() ? nullptr : format_.c_str(); }
  /// Whether the type reads numbers.
  bool ReadsNumbers() const { return numbers_; }
  /// Whether any text is a value of the type.
  bool ReadsAnyText() const { return anyText_; }

private:
  bool ReadAs(std::string_view text, Value & value, char const * format);
  bool Scan(std::string_view text, Value & value, char const * format);
  bool Spoilable(std::string_view text, Value const & value, char const * format);
  bool SameNumber(std::string_view text, std::string_view printed) const;
  void Learn();

  char type_;
  std::string format_;
  bool settled_; ///< the format stands
  bool numbers_ = false, anyText_ = false;
  double precision_ = 0; ///< relative, 0 for whole numbers
  ZnString in_, out_;
  std::string printed_;
  Value trial_;
};

} // namespace zantm
