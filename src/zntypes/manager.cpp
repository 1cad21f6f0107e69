#include "zntypemgr.h"

#include "zntypes/table.h"

#include <cstring>

/// The dispatcher: every operation reads the row of an id and hands on its arguments.

using namespace zntms;

namespace {

char * TextOrCopy(char const * text, char * buffer) {
  return buffer == nullptr ? const_cast<char *>(text) : std::strcpy(buffer, text);
}

/// The old content; null changes nothing.
template <class Slot>
Slot Exchange(Slot & slot, Slot content) {
  Slot const old = slot;
  if (content != nullptr)
    slot = content;
  return old;
}

/// A set of type ids.
constexpr unsigned long long IdSet(std::initializer_list<char> ids) {
  unsigned long long set = 0;
  for (char const id : ids)
    set |= 1ull << id;
  return set;
}

constexpr unsigned long long kIntegerKinds =
    IdSet({Zn1B_T, Zn2B_T, Zn4B_T, ZnU2B_T, ZnU4B_T, ZnINT_T, ZnUNSIGNED_T, ZnENUM_T, ZnU1B_T,
           ZnOBJID_T, ZnINT64_T, Zn8B_T, ZnU8B_T});
constexpr unsigned long long kTimeStampKinds =
    IdSet({ZnDATE_T, ZnTIME_T, ZnDATIME_T, D_DATE_T, D_TIME_T, D_TIMESTAMP_T, ZnDATIME_N_T});

/// Whether the table has a row for the id, be it "illegal", and does not just lead it there.
bool HasRow(ZnTypeRow * const * rows, char id) {
  return rows == kOldTable.data() ? static_cast<unsigned char>(id) < kOldRowCount
                                  : ZnTypeMgr::IsValidType(id) != 0;
}

bool IsIn(unsigned long long set, char id) {
  auto const place = static_cast<unsigned char>(id);
  return place < 64 && (set >> place & 1) != 0;
}

} // namespace

// ---- Construction -------------------------------------------------------------------------------

ZnTypeMgr::ZnTypeMgr(unsigned int version) { SetFactory(version); }

void ZnTypeMgr::SetFactory(unsigned int version) {
  unsigned int const effective = version >= 12 ? 4 : version == 11 ? 3 : version;
  rows = effective < 4 ? kOldTable.data() : kFullTable.data();
  factory = static_cast<unsigned short>(effective);
}

// ---- Metadata -----------------------------------------------------------------------------------

int ZnTypeMgr::IsValidType(char id) {
  auto const place = static_cast<unsigned char>(id);
  return place < kFullRowCount || (place >= 100 && place <= 127);
}

char * ZnTypeMgr::NameGet(char id, char * buffer) const {
  return TextOrCopy(RowOf(rows, id).name, buffer);
}

char * ZnTypeMgr::TypeIdNameGet(char id, char * buffer) const {
  return TextOrCopy(RowOf(rows, id).idName, buffer);
}

int ZnTypeMgr::Name2ZnTypeId(char const * name, char & id) const {
  int const count = rows == kOldTable.data() ? kOldRowCount : kFullRowCount;
  for (id = 0; id < count; ++id)
    if (std::strcmp(RowOf(rows, id).name, name) == 0)
      return 0;
  return 1;
}

unsigned short ZnTypeMgr::MemLenGet(char id, unsigned int count) const {
  return static_cast<unsigned short>(unsigned(RowOf(rows, id).memLen) * (count & 0xFFFF));
}

unsigned short ZnTypeMgr::IsFixed(char id) const { return RowOf(rows, id).fixed; }

void * ZnTypeMgr::GetArrayElement(char id, void * base, unsigned int index,
                                  unsigned int count) const {
  if (count != 0 && index >= count)
    return nullptr;
  std::size_t const memLen = RowOf(rows, id).memLen;
  if (memLen == 0 && !HasRow(rows, id))
    return nullptr;
  return static_cast<char *>(base) + memLen * index;
}

unsigned short ZnTypeMgr::SupportsNullValue(char id) const { return SupportsCapability(id, 1); }

unsigned short ZnTypeMgr::SupportsCapability(char id, unsigned short capability) const {
  switch (capability) {
  case 1:
    return RowOf(rows, id).SetNull != nullptr;
  case 2:
    return IsIn(kIntegerKinds, id);
  case 3:
    return IsIn(kTimeStampKinds, id);
  default:
    return 0;
  }
}

// ---- Life of values -----------------------------------------------------------------------------

void * ZnTypeMgr::Create(char id, unsigned int count) const {
  return RowOf(rows, id).Create(count);
}

void * ZnTypeMgr::Delete(char id, void * value, unsigned int count) const {
  return RowOf(rows, id).Delete(value, count);
}

void * ZnTypeMgr::DefaultValue(char id, unsigned int count, int wantNull) const {
  return RowOf(rows, id).DefaultValue(count, wantNull);
}

// ---- Stored forms -------------------------------------------------------------------------------

unsigned int ZnTypeMgr::Store(char id, void * dst, void const * src, unsigned char format,
                              unsigned int count) const {
  return RowOf(rows, id).Store(dst, src, format, count);
}

unsigned int ZnTypeMgr::Load(char id, void * dst, void const * src, unsigned char format,
                             unsigned int count) const {
  return RowOf(rows, id).Load(dst, src, format, count);
}

unsigned int ZnTypeMgr::DiskLenGet(char id, void const * value, unsigned char format,
                                   unsigned int count, unsigned char valueFormat) const {
  return RowOf(rows, id).SizeGet(value, valueFormat, format, count);
}

unsigned int ZnTypeMgr::DiskLenGetFromMemFile(char id, MemFile * file, unsigned char format,
                                              unsigned int count) const {
  return RowOf(rows, id).SizeGetFromMemFile(file, format, count);
}

unsigned int ZnTypeMgr::Translate(char id, void * dst, unsigned char dstFormat,
                                  unsigned int dstLength, void * src, unsigned char srcFormat,
                                  unsigned int srcLength, unsigned int count) const {
  return RowOf(rows, id).Translate(dst, dstFormat, dstLength, src, srcFormat, srcLength, count);
}

// ---- Queries ------------------------------------------------------------------------------------

unsigned int ZnTypeMgr::Hash(char id, unsigned int length, void * value, unsigned int count,
                             unsigned char format, int & error) const {
  return RowOf(rows, id).Hash(format, length, value, count, error);
}

float ZnTypeMgr::EvalAndBound(char id, ZnIdxBounds * area, unsigned short & op, void * value,
                              unsigned char format, unsigned int count, ZnIdxBounds * out,
                              ZnEvalData *) const {
  return RowOf(rows, id).EvalAndBound(area, op, value, format, count, out);
}

// ---- Nulls --------------------------------------------------------------------------------------

int ZnTypeMgr::IsNullValue(char id, void * value) const { return RowOf(rows, id).IsNull(value); }

int ZnTypeMgr::DiskIsNullValue(char, void *) const { return ZnErrNotSupported; }

// ---- Slots --------------------------------------------------------------------------------------

ZnTypeRow::MoveFunc ZnTypeMgr::StorePtrGet(char id) const { return RowOf(rows, id).Store; }
ZnTypeRow::MoveFunc ZnTypeMgr::LoadPtrGet(char id) const { return RowOf(rows, id).Load; }
ZnTypeCmpFunc ZnTypeMgr::CmpFuncPtrGet(char id) const { return RowOf(rows, id).Compare; }
ZnTypeRow::ConstructFunc ZnTypeMgr::ConstructorPtrGet(char id) const {
  return RowOf(rows, id).Constructor;
}
ZnTypeRow::ConstructFunc ZnTypeMgr::DestructorPtrGet(char id) const {
  return RowOf(rows, id).Destructor;
}
ZnTypeRow::AssignFunc ZnTypeMgr::AssignmentPtrGet(char id) const {
  return RowOf(rows, id).Assignment;
}
ZnTypeRow::AssignFunc ZnTypeMgr::CopyPtrGet(char id) const { return RowOf(rows, id).Copy; }
ZnTypeRow::NullFunc ZnTypeMgr::IsNullPtrGet(char id) const { return RowOf(rows, id).IsNull; }
ZnTypeRow::NullFunc ZnTypeMgr::SetNullPtrGet(char id) const { return RowOf(rows, id).SetNull; }
void * ZnTypeMgr::ComparePtrGet(char) const { return nullptr; }

char const * ZnTypeMgr::ExchangeFormat(char id, char const * format) {
  return Exchange(RowOf(rows, id).format, format);
}

ZnTypeRow::PrintFunc ZnTypeMgr::ExchangePrintToZnStringFunc(char id, ZnTypeRow::PrintFunc print) {
  return Exchange(RowOf(rows, id).PrintToString, print);
}

ZnTypeRow::ScanFunc ZnTypeMgr::ExchangeScanFromZnStringFunc(char id, ZnTypeRow::ScanFunc scan) {
  return Exchange(RowOf(rows, id).ScanFromString, scan);
}

ZnTypeCmpFunc ZnTypeMgr::ExchangeZnTypeCmpFunc(char id, ZnTypeCmpFunc compare) {
  return Exchange(RowOf(rows, id).Compare, compare);
}
