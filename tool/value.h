#pragma once

#include <zantms.h>

#include <cstring>
#include <string>
#include <string_view>
#include <vector>

/// One value of any type, held by its type id.
///
/// Worked example:
///
///     Value v(TypeByName("int"));
///     ...                          // scan a text into it
///     v.Stored(ZnFormatBigEndian)  // its bytes

namespace zantm {

using Bytes = std::vector<unsigned char>;

inline ZnTypeMgr & Manager() { return *DefaultTypeMgr(); }

/// The id of a type name; a `Failure` that says how to list them if there is none.
char TypeByName(std::string_view name);
/// Its name.
inline std::string TypeName(char id) { return Manager().NameGet(id); }
/// Ids 0 to the number of rows less one.
int TypeCount();

/// Owns one value, made by `Create`. The bytes between its fields are 0 where that is possible,
/// so that equal values show equal bytes.
class Value {
public:
  explicit Value(char id);
  ~Value() { Manager().Delete(type_, data_, 1); }
  Value(Value const &) = delete;
  Value & operator=(Value const &) = delete;

  char Type() const { return type_; }
  void * Data() const { return data_; }
  bool IsNull() const { return Manager().IsNullValue(type_, data_) != 0; }
  /// Takes the value of another one of the same type.
  void Assign(Value const & other);
  /// Back to what a new value holds.
  void Reset();
  /// By the compare row, wildcards off unless the flags say otherwise.
  int Compare(Value const & other, unsigned short cmpOp = ZnCmpNoWildcards) const {
    return Manager().Cmp(type_, data_, other.data_, cmpOp, 1, ZnFormatMemory);
  }

  Bytes Memory() const;
  Bytes Stored(unsigned char format) const;
  /// Appends the stored form.
  void AppendStored(Bytes & out, unsigned char format) const;
  /// Prints by `format`, null for the row's own, as UTF-8.
  std::string Print(char const * format = nullptr) const;

private:
  char type_;
  void * data_;
};

} // namespace zantm
