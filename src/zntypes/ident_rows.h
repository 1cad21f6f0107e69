#pragma once

#include "znident.h"
#include "zntypes/class_box.h"
#include "zntypes/empty_rows.h"

/// Groups of the rows of class ids, object ids and references.

namespace zntms {

/// Boxes hold the text of the members' default format.
template <class Record>
struct IdentText {
  using Value = Record;
  static void Write(ZnString & out, Value const & value) { value.PrintToZnString(out); }
  static void Read(Value & value, ZnString const & in) { value.ScanFromZnString(in); }
};

int StepObjId(void * value, unsigned int length, unsigned char format, unsigned char what);
int StepRef(void * value, unsigned int length, unsigned char format, unsigned char what);

template <class Record>
inline constexpr RowLife kIdentLife = {&Record::Create,          &Record::Delete,
                                       &ConstructValues<Record>, &DestructValues<Record>,
                                       &AssignValues<Record>,    &CopyValues<Record>};

template <class Record>
inline constexpr RowStorage kIdentStorage = {&Record::Store,
                                             &Record::Load,
                                             &Record::NullSizeGet,
                                             &Record::SizeGet,
                                             &Record::SizeGetFromMemFile,
                                             &Record::Translate};

template <class Record>
inline constexpr RowQuery kIdentQuery = {&Record::Compare, &Record::EvalAndBound, &Record::Hash};

template <class Record>
constexpr RowText IdentRowText(char const * format) {
  return {format, &Record::PrintToString, &Record::ScanFromString};
}

inline constexpr RowText kClassIdText = IdentRowText<ZnClassId>("(%Cv%V)");
inline constexpr RowLife kClassIdLife = kIdentLife<ZnClassId>;
inline constexpr RowStorage kClassIdStorage = kIdentStorage<ZnClassId>;
inline constexpr RowQuery kClassIdQuery = kIdentQuery<ZnClassId>;
inline constexpr RowBox kClassIdBox = kClassBox<IdentText<ZnClassId>, &ZnClassId::Create>;
inline constexpr RowNull kClassIdNull = kClassNull<ZnClassId>;
inline constexpr ZnTypeRow::StepFunc kClassIdStep = &NoStep;

inline constexpr RowText kObjIdText = IdentRowText<ZnObjId>("(%H-%L#%B)");
inline constexpr RowLife kObjIdLife = kIdentLife<ZnObjId>;
inline constexpr RowStorage kObjIdStorage = kIdentStorage<ZnObjId>;
inline constexpr RowQuery kObjIdQuery = kIdentQuery<ZnObjId>;
inline constexpr RowBox kObjIdBox = kClassBox<IdentText<ZnObjId>, &ZnObjId::Create>;
inline constexpr RowNull kObjIdNull = kClassNull<ZnObjId>;
inline constexpr ZnTypeRow::StepFunc kObjIdStep = &StepObjId;

inline constexpr RowText kRefText = IdentRowText<ZnRef>("(%D:%H-%L#%B, %C)");
inline constexpr RowLife kRefLife = kIdentLife<ZnRef>;
inline constexpr RowStorage kRefStorage = kIdentStorage<ZnRef>;
inline constexpr RowQuery kRefQuery = kIdentQuery<ZnRef>;
inline constexpr RowBox kRefBox = kClassBox<IdentText<ZnRef>, &ZnRef::Create>;
inline constexpr RowNull kRefNull = kClassNull<ZnRef>;
inline constexpr ZnTypeRow::StepFunc kRefStep = &StepRef;

} // namespace zntms
