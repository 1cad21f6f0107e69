#pragma once

#include "value.h"

#include <string>
#include <string_view>
#include <vector>

/// Names of the fields that a value's bytes are made of, and bytes with these names under them.
///
/// Worked example, a `ZnObjId` in its little-endian stored form:
///
///     05 00 00 00 22 00 00 00 0c 00
///     block       low         high

namespace zantm {

/// A field and its bytes.
struct Field {
  std::string_view name;
  size_t offset;
  size_t size;
  bool hidden; ///< an address or a gap: its bytes differ from one run to the next
};

/// The fields of a value of a type in memory (`format` 8) or in stored form, in order; all bytes
/// are covered, those that the table does not name by a field "bytes".
std::vector<Field> FieldsOf(std::string_view type, unsigned char format, Bytes const & bytes);

/// Bytes as hexadecimal numbers, hidden ones as "..".
std::string HexOf(Bytes const & bytes, Field const & field);
std::string HexOf(unsigned char const * bytes, size_t size);

/// Lines of bytes with the names of the fields below them, each behind `indent`.
std::string Annotated(std::string_view type, unsigned char format, Bytes const & bytes,
                      std::string_view indent);

} // namespace zantm
