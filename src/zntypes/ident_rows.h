#pragma once

#include "query/number_query.h"
#include "zntypes/empty_rows.h"
#include "zntypes/number_rows.h"

/// Groups of the rows of identity, large values, seals and truth values.

namespace zntms {

// ZnClassId
inline constexpr RowText kClassIdText = EmptyText("(%Cv%V)");
inline constexpr RowLife kClassIdLife = kEmptyLife;
inline constexpr RowStorage kClassIdStorage = kEmptyStorage;
inline constexpr RowQuery kClassIdQuery = kEmptyQuery;
inline constexpr RowBox kClassIdBox = kEmptyBox;
inline constexpr RowNull kClassIdNull = kEmptyNull;
inline constexpr ZnTypeRow::StepFunc kClassIdStep = &NoStep;

// ZnObjId
inline constexpr RowText kObjIdText = EmptyText("(%H-%L#%B)");
inline constexpr RowLife kObjIdLife = kEmptyLife;
inline constexpr RowStorage kObjIdStorage = kEmptyStorage;
inline constexpr RowQuery kObjIdQuery = kEmptyQuery;
inline constexpr RowBox kObjIdBox = kEmptyBox;
inline constexpr RowNull kObjIdNull = kEmptyNull;
inline constexpr ZnTypeRow::StepFunc kObjIdStep = &NoStep;

// ZnRef
inline constexpr RowText kRefText = EmptyText("(%D:%H-%L#%B, %C)");
inline constexpr RowLife kRefLife = kEmptyLife;
inline constexpr RowStorage kRefStorage = kEmptyStorage;
inline constexpr RowQuery kRefQuery = kEmptyQuery;
inline constexpr RowBox kRefBox = kEmptyBox;
inline constexpr RowNull kRefNull = kEmptyNull;
inline constexpr ZnTypeRow::StepFunc kRefStep = &NoStep;

// ZnBlob
inline constexpr RowText kBlobText = EmptyText("[BLOB,len=%L]");
inline constexpr RowLife kBlobLife = kEmptyLife;
inline constexpr RowStorage kBlobStorage = kEmptyStorage;
inline constexpr RowQuery kBlobQuery = kEmptyQuery;
inline constexpr RowBox kBlobBox = kEmptyBox;
inline constexpr RowNull kBlobNull = kEmptyNull;
inline constexpr ZnTypeRow::StepFunc kBlobStep = &NoStep;

// ZnSeal
inline constexpr RowText kSealText = EmptyText("noop");
inline constexpr RowLife kSealLife = kEmptyLife;
inline constexpr RowStorage kSealStorage = kEmptyStorage;
inline constexpr RowQuery kSealQuery = kEmptyQuery;
inline constexpr RowBox kSealBox = kEmptyBox;
inline constexpr ZnTypeRow::StepFunc kSealStep = &NoStep;

// ZnBoolean
inline constexpr RowText kBooleanText = {"noop", &BooleanPrint, &BooleanScan};
inline constexpr RowLife kBooleanLife = kEmptyLife;
inline constexpr RowStorage kBooleanStorage = kEmptyStorage;
inline constexpr RowQuery kBooleanQuery = {&BooleanCompare, &BoundBooleans, &HashBooleans};
inline constexpr RowBox kBooleanBox = kEmptyBox;
inline constexpr RowNull kBooleanNull = kEmptyNull;
inline constexpr ZnTypeRow::StepFunc kBooleanStep = &NoStep;

} // namespace zntms
