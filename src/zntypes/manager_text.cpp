#include "zntypemgr.h"

#include "znstring.h"
#include "znstring/nulltext.h"
#include "zntypecvt.h"
#include "zntypes/class_life.h"
#include "zntypes/number_rows.h"
#include "zntypes/static_text.h"
#include "zntypes/table.h"

#include <memory>

/// The operations of the manager that do more with text than hand it on: boxes, the joined form of
/// an array, printing arrays, and nulls of types that have none.
///
/// The joined form of the numbers 1, 2, 3 is "1", "2" and "3", each followed by a separator, the
/// first character that occurs in none of them: here the one of code 1.

using namespace zntms;

namespace {

using Box = std::unique_ptr<ZnTypeConvertData>;

bool IsWide(ZnString const & s) { return s.codeSet > 224; }

/// The character at a place below the length.
unsigned short CharacterAt(ZnString const & s, unsigned int place) {
  if (!IsWide(s))
    return static_cast<unsigned char>(s.text[place]);
  unsigned short unit;
  std::memcpy(&unit, s.text + 2 * place, sizeof unit);
  return unit;
}

/// The first place of the very character in the `length` first ones, or `length`.
unsigned int FindCharacter(ZnString const & s, unsigned short character, unsigned int start,
                           unsigned int length) {
  while (start < length && CharacterAt(s, start) != character)
    ++start;
  return start;
}

/// A character that occurs in none of the strings of the box; a comma if all occur.
char FreeSeparator(ZnTypeConvertData & box) {
  bool taken[256] = {};
  for (unsigned int i = 0; i < box.count; ++i) {
    ZnString const * const element = box.GetString(static_cast<int>(i));
    unsigned int const length = element != nullptr ? element->Len() : 0;
    for (unsigned int place = 0; place < length; ++place)
      if (unsigned short const c = CharacterAt(*element, place); c < 256)
        taken[c] = true;
  }
  for (int code = 1; code <= 254; ++code)
    if (!taken[code])
      return static_cast<char>(code);
  return ',';
}

} // namespace

// ---- Nulls --------------------------------------------------------------------------------------

ZnString & ZnTypeMgr::GetNullPrintString() { return NullPrintString(); }

void ZnTypeMgr::SetNullPrintString(ZnString const & text) { NullPrintString() = text; }

int ZnTypeMgr::SetNullValue(char id, void * value) const {
  ZnTypeRow const & row = RowOf(rows, id);
  if (row.SetNull != nullptr)
    if (int const result = row.SetNull(value); result != ZnErrNotSupported)
      return result;
  if (row.Assignment == nullptr) {
    if (row.ScanFromString != nullptr)
      row.ScanFromString(value, ZeroText(), row.format, 1);
    return 0;
  }
  ZnTypeMgr own(*this); // the box hands its strings back through a manager that it may change
  Box const box(ZnTypeConvertData::Make(ZnSTRING_T, 1, RowOf(rows, ZnSTRING_T).Create(1), &own));
  void * const converted = row.ConvertFrom != nullptr ? row.ConvertFrom(box.get(), 1) : nullptr;
  if (converted != nullptr)
    row.Assignment(value, converted, 1, 1);
  row.Delete(converted, 1);
  return 0;
}

// ---- Boxes --------------------------------------------------------------------------------------

ZnTypeConvertData * ZnTypeMgr::ConvertTo(char id, void * value, unsigned int count) {
  auto const convert = RowOf(rows, id).ConvertTo;
  ZnTypeConvertData * const box = convert != nullptr ? convert(value, count) : nullptr;
  if (box != nullptr)
    box->mgr = this;
  return box;
}

void * ZnTypeMgr::ConvertFrom(char id, ZnTypeConvertData * data, unsigned int count) {
  if (data != nullptr)
    data->mgr = this;
  auto const convert = RowOf(rows, id).ConvertFrom;
  return convert != nullptr ? convert(data, count) : nullptr;
}

ZnString * ZnTypeMgr::ConvertToZnStringOld(void * value, char id, unsigned int count) {
  Box const box(ConvertTo(id, value, count));
  if (box == nullptr)
    return nullptr;
  char const separator = FreeSeparator(*box);
  auto * const joined = static_cast<ZnString *>(Create(ZnSTRING_T, 1));
  for (unsigned int i = 0; i < count; ++i) {
    if (ZnString const * const element = box->GetString(static_cast<int>(i)))
      *joined += *element;
    *joined << separator;
  }
  return joined;
}

void * ZnTypeMgr::ConvertFromZnStringOld(ZnString * str, char id, unsigned int count) {
  unsigned int const length = str->Len();
  unsigned short const separator = length != 0 ? CharacterAt(*str, length - 1) : ',';
  unsigned int pieces = 1;
  for (unsigned int at = 0; (at = FindCharacter(*str, separator, at, length)) < length; ++at)
    ++pieces;
  auto * const strings = static_cast<ZnString *>(Create(ZnSTRING_T, pieces));
  unsigned int start = 0;
  for (unsigned int i = 0; i + 1 < pieces; ++i) {
    unsigned int const end = FindCharacter(*str, separator, start, length);
    strings[i] = str->Copy(static_cast<unsigned short>(start), static_cast<short>(end - start));
    start = end + 1;
  }
  str->Cut(0, -1);
  Box const box(ZnTypeConvertData::Make(ZnSTRING_T, pieces, strings, this));
  return ConvertFrom(id, box.get(), count);
}

// ---- Print and scan -----------------------------------------------------------------------------

ZnString & ZnTypeMgr::PrintToZnString(char id, ZnString & out, void * value, char const * format,
                                      unsigned int count) const {
  ZnTypeRow const & row = RowOf(rows, id);
  auto const print = row.PrintToString;
  if (print == nullptr)
    return out;
  if (format == nullptr)
    format = row.format;
  if (count < 2 || print == &CharPrint)
    return print(out, value, format, count);
  auto * const elements = static_cast<char *>(value);
  for (std::size_t i = 0; i < count; ++i) {
    ZnString element;
    if (i != 0)
      out << ",";
    out += print(element, elements + i * row.memLen, format, 1);
  }
  return out;
}

void * ZnTypeMgr::ScanFromZnString(char id, void * value, ZnString & str, char const * format,
                                   unsigned int count) const {
  ZnTypeRow const & row = RowOf(rows, id);
  if (row.ScanFromString == nullptr)
    return value;
  return row.ScanFromString(value, str, format != nullptr ? format : row.format, count);
}
