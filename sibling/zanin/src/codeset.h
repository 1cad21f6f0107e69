#pragma once

/// The code sets as objects: one for each one-byte set, Unicode, and order text.

#include "tables.h"

namespace zntms {

inline constexpr unsigned char FirstByteSetId = 1;
inline constexpr unsigned char UnicodeId = 253;
inline constexpr unsigned char OrderTextId = 254;

/// The code set of this very id, or null.
ZnCodeSet const * CodeSetOfId(unsigned char id);

/// The order of the bytes of a one-byte set.
class ByteTable final : public ZnOrderTable {
public:
  constexpr ByteTable(ZnPlainOrder const * const * allPages, unsigned short const * allEntries)
      : ZnOrderTable(allPages), entries(allEntries) {}

  ZnCharOrderProps const * Lookup(unsigned short c) const override {
    return &ZnOrderEntryTable[entries[c & 0xFF]];
  }

private:
  unsigned short const * entries;
};

/// A one-byte set. Its number in the tables is its id less `FirstByteSetId`.
class ByteCodeSet final : public ZnCodeSet {
public:
  constexpr ByteCodeSet(ByteTable const * table, unsigned char number, char const * ianaName,
                        char const * text, unsigned short const * unicode)
      : ZnCodeSet(table, number, ianaName, text, unicode) {}

  unsigned char ScriptClass(unsigned char language) const override;
  unsigned short Map(unsigned short c, unsigned char source) const override;

  /// The byte of a character of code set 253, or -1 if the set lacks it.
  int ByteOf(unsigned short c) const;
};

/// The one-byte code sets by number; their aliases, with blanks between them.
extern ByteCodeSet const ByteCodeSets[];
extern char const * const ByteSetAliases[];
extern int const ByteSetCount;

} // namespace zntms
