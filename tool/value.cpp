#include "value.h"

#include "failure.h"
#include "text.h"

namespace zantm {

char TypeByName(std::string_view name) {
  char id = 0;
  if (Manager().Name2ZnTypeId(std::string(name).c_str(), id) != 0)
    throw Failure(ExitInput,
                  "no type is named '" + std::string(name) + "'; 'zantm types' lists them");
  return id;
}

int TypeCount() {
  char id = 0;
  Manager().Name2ZnTypeId("", id); // no row has this name: the id ends at the number of rows
  return id;
}

Value::Value(char id) : type_(id), data_(Manager().Create(id, 1)) {
  if (data_ == nullptr)
    throw Failure(ExitInput, "the type '" + TypeName(id) + "' has no values");
  Reset();
}

void Value::Reset() {
  // Plain kinds come uninitialised from `Create`, and a constructor leaves gaps as they are.
  if (auto destroy = Manager().DestructorPtrGet(type_))
    destroy(data_, 1, 0);
  std::memset(data_, 0, Manager().MemLenGet(type_, 1));
  if (auto construct = Manager().ConstructorPtrGet(type_))
    construct(data_, 1, 0);
}

void Value::Assign(Value const & other) {
  Manager().AssignmentPtrGet(type_)(data_, other.data_, 1, 0);
}

Bytes Value::Memory() const {
  auto first = static_cast<unsigned char const *>(data_);
  return {first, first + Manager().MemLenGet(type_, 1)};
}

Bytes Value::Stored(unsigned char format) const {
  Bytes out;
  AppendStored(out, format);
  return out;
}

void Value::AppendStored(Bytes & out, unsigned char format) const {
  size_t begin = out.size();
  out.resize(begin + Manager().DiskLenGet(type_, data_, format, 1, ZnFormatMemory));
  out.resize(begin + Manager().Store(type_, out.data() + begin, data_, format, 1));
}

std::string Value::Print(char const * format) const {
  ZnString text = Output();
  Manager().PrintToZnString(type_, text, data_, format, 1);
  return ToUtf8(text);
}

} // namespace zantm
