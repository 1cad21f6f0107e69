#pragma once

/// What the generated tables hold. Everything is constant data, made by
/// `sibling/zanin/generate/generate.py`.

#include "zanin.h"

namespace zntms {

// ---- Order of code set 253: the page of a high byte, and the places of the entries in it.

extern unsigned char const WidePageOf[];
extern unsigned short const WideEntries[][256];
extern ZnPlainOrder const * const WidePagePointers[256];

// ---- Case: place 0 is none.

extern ZnUnicodeProps const CaseTable[];
extern unsigned char const CasePageOf[];
extern unsigned short const CasePages[][256];
extern unsigned short const ByteSetCases[][256];

// ---- One-byte code sets, all by id - 1.

extern unsigned short const ByteSetUnicode[][256];
extern unsigned short const ByteSetEntries[][256];
extern ZnPlainOrder const * const ByteSetPagePointers[];
/// The bytes of each set in the order of their characters, without undefined bytes and those below
/// 128 that are their own character; those of set `i` begin at `ByteSetReverseStart[i]`.
extern unsigned char const ByteSetReverse[];
extern unsigned short const ByteSetReverseStart[];

// ---- Languages, by id.

struct LanguageAlias {
  char const * alias;
  char const * tag;
};

extern ZnLanguage const LanguageTable[];
extern int const LanguageCount;
extern LanguageAlias const LanguageAliasTable[];
extern int const LanguageAliasCount;
/// Ids of the languages whose `i` keeps its dot in upper case; 0 ends the list.
extern unsigned char const DottedILanguages[];

extern unsigned int const OrderVersionNumber;
extern unsigned long long const OrderFingerprintNumber;
extern char const * const OrderSourceName;

} // namespace zntms
