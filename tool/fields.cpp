#include "fields.h"

#include <algorithm>

namespace zantm {

namespace {

/// The layouts of a type. A layout is a list of NAME:SIZE; SIZE "*" takes what the fields behind
/// it leave. A "." before the size hides the bytes: an address, or the gap that alignment makes.
struct Layout {
  std::string_view type;
  std::string_view memory;
  std::string_view stored;
};

// clang-format off
constexpr Layout kLayouts[] = {
    {"o_char",         "value:1",                                       "value:1"},
    {"o_2b",           "value:2",                                       "value:2"},
    {"o_4b",           "value:4",                                       "value:4"},
    {"o_double",       "value:8",                                       "value:8"},
    {"o_float",        "value:4",                                       "value:4"},
    {"o_u2b",          "value:2",                                       "value:2"},
    {"o_u4b",          "value:4",                                       "value:4"},
    {"int",            "value:4",                                       "value:4"},
    {"unsigned",       "value:4",                                       "value:4"},
    {"enum",           "value:4",                                       "value:4"},
    {"o_u1b",          "value:1",                                       "value:1"},
    {"ZnString",       "text:.8 capacity:2 codeSet:1 language:1 gap:.4", "length:2 codeSet:1 language:1 text:* end:2"},
    {"ZnDate",         "year:2 month:1 day:1",                          "year:2 month:1 day:1"},
    {"ZnTime",         "hour:1 minute:1 second:1",                      "hour:1 minute:1 second:1"},
    {"BlockId",        "value:4",                                       "value:4"},
    {"ZnObjId",        "block:4 low:4 high:2 gap:.2",                   "block:4 low:4 high:2"},
    {"ZnClassId",      "classNumber:2 classVersion:2",                  "classNumber:2 classVersion:2"},
    {"ZnRef",          "block:4 low:4 high:2 databaseId:2 classNumber:2 classVersion:2",
                       "block:4 low:4 high:2 databaseId:2 classNumber:2"},
    {"ZnBlob",         "data:.8",                                       "total:4 length:4 bytes:*"},
    {"ZnDateTime",     "year:2 month:1 day:1 hour:1 minute:1 second:1 gap:.1",
                       "year:2 month:1 day:1 hour:1 minute:1 second:1"},
    {"ZnIString",      "text:.8 mark:1 gap:.7", "mark:1 total:2 text:*"},
    {"ZnCaseIString",  "text:.8 mark:1 gap:.7", "mark:1 total:2 text:*"},
    {"d_Date",         "year:2 month:1 day:1",                          "year:2 month:1 day:1"},
    {"d_Time",         "tz_hour:1 tz_minute:1 hour:1 minute:1 second:1 hundredths:1",
                       "tz_hour:1 tz_minute:1 hour:1 minute:1 second:1 hundredths:1"},
    {"d_Timestamp",    "year:2 month:1 day:1 tz_hour:1 tz_minute:1 hour:1 minute:1 second:1 hundredths:1",
                       "year:2 month:1 day:1 tz_hour:1 tz_minute:1 hour:1 minute:1 second:1 hundredths:1"},
    {"d_Interval",     "seconds:4",                                     "seconds:4"},
    {"ZnInt64",        "low:4 high:4",                                  "low:4 high:4"},
    {"ZnBoolean",      "value:1",                                       "value:1"},
    {"ZnNull_char",    "value:1 isNull:1",                              "isNull:1 value:1"},
    {"ZnNull_uchar",   "value:1 isNull:1",                              "isNull:1 value:1"},
    {"ZnNull_short",   "value:2 isNull:1 gap:.1",                       "isNull:1 value:2"},
    {"ZnNull_ushort",  "value:2 isNull:1 gap:.1",                       "isNull:1 value:2"},
    {"ZnNull_int",     "value:4 isNull:1 gap:.3",                       "isNull:1 value:4"},
    {"ZnNull_unsigned","value:4 isNull:1 gap:.3",                       "isNull:1 value:4"},
    {"ZnNull_long",    "value:4 isNull:1 gap:.3",                       "isNull:1 value:4"},
    {"ZnNull_ulong",   "value:4 isNull:1 gap:.3",                       "isNull:1 value:4"},
    {"ZnNull_float",   "value:4 isNull:1 gap:.3",                       "isNull:1 value:4"},
    {"ZnNull_double",  "value:8 isNull:1 gap:.7",                       "isNull:1 value:8"},
    {"ZnNull_ZnInt64", "low:4 high:4 isNull:1 gap:.3",                  "isNull:1 low:4 high:4"},
    {"ZnSeal",         "sealHigh:2 sealMiddle:2 sealLow:2",             "sealHigh:2 sealMiddle:2 sealLow:2"},
    {"ZnDateTimeN",    "year:2 month:1 day:1 hour:1 minute:1 second:1 gap:.1 nanosecond:4",
                       "year:2 month:1 day:1 hour:1 minute:1 second:1 nanosecond:4"},
    {"ZnTimeSpan",     "year:2 month:1 day:1 hour:1 minute:1 second:1 gap:.1 nanosecond:4",
                       "year:2 month:1 day:1 hour:1 minute:1 second:1 nanosecond:4"},
    {"o_8b",           "value:8",                                       "value:8"},
    {"o_u8b",          "value:8",                                       "value:8"},
    {"ZnNull_8b",      "value:8 isNull:1 gap:.7",                       "isNull:1 value:8"},
    {"ZnNull_u8b",     "value:8 isNull:1 gap:.7",                       "isNull:1 value:8"},
};
// clang-format on

constexpr size_t kBytesPerLine = 16;

/// Takes the first item off a list.
std::string_view NextItem(std::string_view & list) {
  size_t end = std::min(list.find(' '), list.size());
  std::string_view item = list.substr(0, end);
  list.remove_prefix(std::min(end + 1, list.size()));
  return item;
}

/// Reads one NAME:SIZE. A size of "*" gives 0.
Field ParseField(std::string_view item) {
  size_t colon = item.find(':');
  std::string_view size = item.substr(colon + 1);
  bool hidden = size.front() == '.';
  if (hidden)
    size.remove_prefix(1);
  return {item.substr(0, colon), 0, size == "*" ? 0 : static_cast<size_t>(size.front() - '0'),
          hidden};
}

} // namespace

std::vector<Field> FieldsOf(std::string_view type, unsigned char format, Bytes const & bytes) {
  std::string_view list;
  for (Layout const & layout : kLayouts)
    if (layout.type == type)
      list = format == ZnFormatMemory ? layout.memory : layout.stored;

  std::vector<Field> fields;
  size_t fixed = 0;
  while (!list.empty()) {
    fields.push_back(ParseField(NextItem(list)));
    fixed += fields.back().size;
  }
  size_t offset = 0;
  for (Field & field : fields) {
    if (field.size == 0 && bytes.size() > fixed)
      field.size = bytes.size() - fixed;
    field.size = std::min(field.size, bytes.size() - offset);
    field.offset = offset;
    offset += field.size;
  }
  std::erase_if(fields, [](Field const & field) { return field.size == 0; });
  if (offset < bytes.size())
    fields.push_back({"bytes", offset, bytes.size() - offset, false});
  return fields;
}

std::string HexOf(unsigned char const * bytes, size_t size) {
  constexpr char digits[] = "0123456789abcdef";
  std::string text;
  for (size_t i = 0; i < size; ++i) {
    if (i != 0)
      text += ' ';
    text += digits[bytes[i] >> 4];
    text += digits[bytes[i] & 15];
  }
  return text;
}

std::string HexOf(Bytes const & bytes, Field const & field) {
  std::string text = HexOf(bytes.data() + field.offset, field.size);
  if (field.hidden)
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c != ' '; }, '.');
  return text;
}

std::string Annotated(std::string_view type, unsigned char format, Bytes const & bytes,
                      std::string_view indent) {
  // A field takes as many columns as its bytes or its name need, and goes to the next line in
  // pieces of `kBytesPerLine` if it is longer.
  std::string out, upper, lower;
  size_t onLine = 0;
  auto flush = [&] {
    if (upper.empty())
      return;
    while (!upper.empty() && upper.back() == ' ')
      upper.pop_back();
    while (!lower.empty() && lower.back() == ' ')
      lower.pop_back();
    out.append(indent).append(upper).append("\n").append(indent).append(lower).append("\n");
    upper.clear();
    lower.clear();
    onLine = 0;
  };
  for (Field field : FieldsOf(type, format, bytes)) {
    std::string_view name = field.name;
    for (size_t left = field.size; left != 0;) {
      if (onLine != 0 && onLine + std::min(left, kBytesPerLine) > kBytesPerLine)
        flush();
      field.size = std::min(left, kBytesPerLine);
      std::string hex = HexOf(bytes, field);
      size_t width = std::max(hex.size(), name.size()) + 1;
      upper.append(hex).append(width - hex.size(), ' ');
      lower.append(name).append(width - name.size(), ' ');
      onLine += field.size;
      field.offset += field.size;
      left -= field.size;
      name = "\"";
    }
  }
  flush();
  return out;
}

} // namespace zantm
