#include "znident.h"

/// Steps and assignments of the identity records.
///
/// Worked example: `low` 0xFFFFFFFF plus 2 is 1, less than before: the step went over the top, and
/// `high` takes one more.

namespace {

template <class To, class From>
void CopyObject(To & to, From const & from) {
  to.block = from.block;
  to.low = from.low;
  to.high = from.high;
}

template <class To, class From>
void CopyClass(To & to, From const & from) {
  to.classNumber = from.classNumber;
  to.classVersion = from.classVersion;
}

} // namespace

int ZnClassId::SetNullValue() {
  classNumber = classVersion = 65535;
  return 0;
}

int ZnObjId::SetNullValue() {
  CopyObject(*this, ZnObjId());
  return 0;
}

ZnObjId & ZnObjId::operator+=(short amount) {
  unsigned int const before = low;
  low += static_cast<unsigned int>(static_cast<int>(amount));
  if (amount > 0 && low < before)
    ++high;
  else if (amount < 0 && low > before)
    --high;
  return *this;
}

void ZnObjId::SetHighestValue() {
  block = 0;
  low = 0xFFFFFFFF;
  high = 0xFFFF;
}

int ZnRef::SetNullValue() {
  CopyObject(*this, ZnObjId());
  return 0;
}

ZnRef & ZnRef::operator=(ZnObjId const & object) {
  CopyObject(*this, object);
  return *this;
}

ZnRef & ZnRef::operator=(ZnClassId const & classId) {
  CopyClass(*this, classId);
  return *this;
}

ZnRef & ZnRef::operator=(ZnLocalRef const & local) {
  CopyObject(*this, local);
  CopyClass(*this, local);
  databaseId = 0;
  return *this;
}

ZnRef & ZnRef::operator=(unsigned short database) {
  databaseId = database;
  return *this;
}

unsigned short ZnRef::IsValid() const {
  return !IsNullValue() && classNumber != 0 && databaseId < 65535;
}

unsigned short ZnRef::IsValidOriginId() const {
  return !IsNullValue() && (databaseId == 65535 || classNumber != 0);
}

ZnLocalRef & ZnLocalRef::operator=(ZnRef const & ref) {
  CopyObject(*this, ref);
  CopyClass(*this, ref);
  return *this;
}

ZnLocalRef & ZnLocalRef::operator=(ZnObjId const & object) {
  CopyObject(*this, object);
  return *this;
}

ZnLocalRef & ZnLocalRef::operator=(ZnClassId const & classId) {
  CopyClass(*this, classId);
  return *this;
}
