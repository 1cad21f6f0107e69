#pragma once

#include "znstrcmp.h"
#include "znstringbounds.h"
#include "zntypes/class_box.h"
#include "zntypes/empty_rows.h"
#include "zntypes/istring_rows.h"
#include "zntypes/string_storage.h"
#include "zntypes/string_text.h"
#include "zntypevl/istring_query.h"
#include "zntypevl/string_query.h"

/// Groups of the text rows: the three string kinds, and the string row of old data.

namespace zntms {

// ZnString
inline constexpr RowText kStringText = {"%s", &StringPrint, &StringScan};
inline constexpr RowLife kStringLife = kClassLife<ZnString>;
inline constexpr RowStorage kStringStorage = kNewStringStorage;
inline constexpr RowQuery kStringQuery = {&StringCompare, &ZnStringEvalAndBound, &StringHash};
inline constexpr RowBox kStringBox = kClassBox<StringInBox>;
inline constexpr RowNull kStringNull = kClassNull<ZnString>;
inline constexpr ZnTypeRow::StepFunc kStringStep = &ZnStringGetValue;

// ZnString in the one-length form of old data; shares text, life and box with the row above
inline constexpr RowText kOldStringText = {"%s", &StringPrint, &StringScan};
inline constexpr RowLife kOldStringLife = kClassLife<ZnString>;
inline constexpr RowStorage kOldStringStorage = kOneLengthStorage;
inline constexpr RowQuery kOldStringQuery = {&OldStringCompare, &OldStringEvalAndBound,
                                             &OldStringHash};
inline constexpr RowBox kOldStringBox = kClassBox<StringInBox>;
inline constexpr ZnTypeRow::StepFunc kOldStringStep = &NoStep;

// ZnIString
inline constexpr RowText kIStringText = kIStringPrinted<ZnCollation::cased>;
inline constexpr RowLife kIStringLife = kClassLife<ZnIString>;
inline constexpr RowStorage kIStringStorage = kIStringStored<ZnCollation::cased>;
inline constexpr RowQuery kIStringQuery = kIStringQueries<ZnCollation::cased>;
inline constexpr RowBox kIStringBox = kClassBox<IStringRow<ZnCollation::cased>>;
inline constexpr ZnTypeRow::StepFunc kIStringStep = &NoStep;

// ZnCaseIString
inline constexpr RowText kCaseIStringText = kIStringPrinted<ZnCollation::caseless>;
inline constexpr RowLife kCaseIStringLife = kClassLife<ZnCaseIString>;
inline constexpr RowStorage kCaseIStringStorage = kIStringStored<ZnCollation::caseless>;
inline constexpr RowQuery kCaseIStringQuery = kIStringQueries<ZnCollation::caseless>;
inline constexpr RowBox kCaseIStringBox = kClassBox<IStringRow<ZnCollation::caseless>>;
inline constexpr ZnTypeRow::StepFunc kCaseIStringStep = &NoStep;

} // namespace zntms
