#pragma once

#include "znistring.h"
#include "zntypes/row_parts.h"

/// Row functions of the two older string classes: stored forms, boxes, print and scan.
///
/// Stored form of any number of texts: the mark in one byte, the bytes that follow in two, then
/// the texts, each with a zero byte. "ab" and "" in little-endian order: 40 04 00 61 62 00 00. In
/// an index key the mark has its two top bits set and each text is its sequence of weights.

namespace zntms {

template <ZnCollation collation>
struct IStringRow {
  using Value = ZnCollatedString<collation>;

  static unsigned int Store(void * dst, void const * src, unsigned char format, unsigned int count);
  static unsigned int Load(void * dst, void const * src, unsigned char format, unsigned int count);
  static unsigned int SizeGet(void const * value, unsigned char valueFormat, unsigned char format,
                              unsigned int count);
  static unsigned int SizeGetFromMemFile(MemFile * file, unsigned char format, unsigned int count);
  static unsigned int Translate(void * dst, unsigned char dstFormat, unsigned int dstLength,
                                void * src, unsigned char srcFormat, unsigned int srcLength,
                                unsigned int count);

  /// How a value goes into a box of strings and comes out of it.
  static void Write(ZnString & out, Value const & value);
  static void Read(Value & value, ZnString const & in);

  static ZnString & Print(ZnString & out, void * value, char const * format, unsigned int count);
  static void * Scan(void * value, ZnString & in, char const * format, unsigned int count);
};

/// Head and one zero byte for each text.
unsigned int IStringNullSize(unsigned int count);

template <ZnCollation collation>
inline constexpr RowStorage kIStringStored = {&IStringRow<collation>::Store,
                                              &IStringRow<collation>::Load,
                                              &IStringNullSize,
                                              &IStringRow<collation>::SizeGet,
                                              &IStringRow<collation>::SizeGetFromMemFile,
                                              &IStringRow<collation>::Translate};

template <ZnCollation collation>
inline constexpr RowText kIStringPrinted = {"%s", &IStringRow<collation>::Print,
                                            &IStringRow<collation>::Scan};

extern template struct IStringRow<ZnCollation::cased>;
extern template struct IStringRow<ZnCollation::caseless>;

} // namespace zntms
