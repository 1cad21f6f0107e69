#pragma once

/// Languages, code sets and the order of characters.
///
/// The component holds every table of the system. It is a library of its own, so that an engine
/// may bring another one with the same interface. All records are constant and shared: nothing
/// here is ever freed, and every pointer that a query gives lives as long as the process.
///
/// Worked example: the order number of `A` in code set 1 is
/// `ZnLanguageContext::QueryCodeSet(1)->orderTable->Lookup('A')->order`, which is 0x400C: a letter
/// (top bits 01), upper case (bits 13 and 12), no diacritic (bits 11 to 7), base letter 3 (bits 6
/// to 2), no extension (bits 1 and 0).

#if defined(__GNUC__)
#define ZANIN_EXPORT __attribute__((visibility("default")))
#else
#define ZANIN_EXPORT
#endif

struct ZnCharOrderProps;
struct ZnLanguage;

/// A list of 16-bit items: characters or order numbers.
class ZANIN_EXPORT ZnWCharList {
public:
  short count;                  ///< number of items
  unsigned short const * items; ///< the items themselves, for readers inside a hot loop

  constexpr ZnWCharList(unsigned short const * first, short number) : count(number), items(first) {}
  /// Reads item `index` and gives 0; gives -1 and leaves `item` if there is no such item.
  virtual int Read(int index, unsigned short & item) const;

protected:
  ~ZnWCharList() = default;
};

/// A list of table entries, parallel to a list of characters or languages.
class ZANIN_EXPORT ZnOrderEntryList {
public:
  short count;

  /// The places of the items in the table of all entries stand in one table for all lists,
  /// from place `firstPlace` on.
  constexpr ZnOrderEntryList(unsigned int firstPlace, short number)
      : count(number), first(firstPlace) {}
  /// Reads item `index` and gives 0; gives -1 and leaves `item` if there is no such item.
  virtual int Read(int index, ZnCharOrderProps const *& item) const;
  /// Item `index` without a check, for readers inside a hot loop.
  ZnCharOrderProps const * operator[](int index) const;

protected:
  ~ZnOrderEntryList() = default;

private:
  unsigned int first;
};

/// A list of languages.
class ZANIN_EXPORT ZnLanguageList {
public:
  short count;
  unsigned char const * ids; ///< the ids of the languages, for readers inside a hot loop

  constexpr ZnLanguageList(unsigned char const * first, short number) : count(number), ids(first) {}
  /// Reads item `index` and gives 0; gives -1 and leaves `item` if there is no such item.
  virtual int Read(int index, ZnLanguage const *& item) const;

protected:
  ~ZnLanguageList() = default;
};

/// A reference to a record of a table by its place: reads like a pointer, takes two bytes and no
/// work of the loader. Place 0 is null.
template <class Record>
class ZnTableRef {
public:
  constexpr ZnTableRef(unsigned short tablePlace = 0) : place(tablePlace) {}
  inline Record const * Get() const;
  operator Record const *() const { return Get(); }
  Record const * operator->() const { return Get(); }

private:
  unsigned short place;
};

/// A reference to a script class byte: reads like `unsigned char const *`. Class 0 is null.
class ZnClassRef {
public:
  constexpr ZnClassRef(unsigned char scriptClass) : value(scriptClass) {}
  constexpr operator unsigned char const *() const { return value != 0 ? &value : nullptr; }

private:
  unsigned char value;
};

/// What the order table knows of one character, or of one contraction. The classes of letters are
/// 1 to 19, so that the number 0 may stand for null.
struct ZnCharOrderProps {
  ZnClassRef classRef;                ///< script class, or null: the class of the text's language
  unsigned short order;               ///< order number of the first unit
  unsigned short hasContractions : 1; ///< some following characters lead to other entries
  unsigned short hasVariants : 1;     ///< some languages have an entry of their own
  unsigned short hasExpansion : 1;    ///< further order numbers follow `order`
  ZnTableRef<ZnWCharList> contractionChars;        ///< next character, in the code set of the table
  ZnTableRef<ZnOrderEntryList> contractionEntries; ///< parallel: the entry reached
  ZnTableRef<ZnLanguageList> variantLanguages;     ///< languages with an entry of their own
  ZnTableRef<ZnOrderEntryList> variantEntries;     ///< parallel: that entry
  ZnTableRef<ZnWCharList> expansion;               ///< the further order numbers
};

/// The shortcut for the inner loop: order and class of a character that needs nothing else.
struct ZnPlainOrder {
  /// As in `ZnCharOrderProps`; of no meaning with `NoEntry`, where the character value itself is
  /// the order (so that all pages without entries are one page).
  unsigned short order;
  unsigned char scriptClass; ///< 20 for no entry; `LanguageClass` for a null `classRef`
  unsigned char traits;      ///< the bits below; 0: `order` and `scriptClass` tell everything

  enum Trait : unsigned char {
    HasVariants = 1,        ///< ask the full entry if the language has its tailoring mark
    ContractsWithMarks = 2, ///< contracts, but only with characters of 768 and above
    Contracts = 4,          ///< contracts with characters below 768 too
    HasExpansion = 8,       ///< the full entry has an expansion
    NoEntry = 16,           ///< `Lookup` gives null
  };
  static constexpr unsigned char LanguageClass = 255;
};

/// Order numbers of the characters of one code set.
class ZANIN_EXPORT ZnOrderTable {
public:
  /// The entry of a character: never null below 512, null above for a character without entry.
  /// A one-byte code set looks at the low byte only.
  virtual ZnCharOrderProps const * Lookup(unsigned short c) const = 0;

  /// Page `c >> 8` holds the shortcut of character `c` at `c & 255`. All 256 pages are there; of
  /// a one-byte code set only page 0 is its own.
  ZnPlainOrder const * const * pages;

  ZnPlainOrder const & Plain(unsigned short c) const { return pages[c >> 8][c & 255]; }

protected:
  constexpr explicit ZnOrderTable(ZnPlainOrder const * const * allPages) : pages(allPages) {}
  ~ZnOrderTable() = default;
};

/// Case of a character. `upper` and `lower` are of code set 253; 0 means none, and none is told
/// for a case form that the code set of the character lacks.
struct ZnUnicodeProps {
  unsigned short upper;
  unsigned short lower;
  /// Further characters of the upper-case form, behind `upper`, in the code set that was asked;
  /// null or empty for none.
  ZnTableRef<ZnWCharList> upperList;
};

/// A code set: 1 to 224 take one byte a character, 225 to 254 two.
class ZANIN_EXPORT ZnCodeSet {
public:
  /// Class of digits, symbols and spaces in a text of `language`: that of the language's script.
  /// For code set 254 it gives `language` back, which holds the class of the key.
  virtual unsigned char ScriptClass(unsigned char language) const = 0;
  /// The character `c` of code set `source` in this code set. A character that this code set
  /// lacks gives `?` (U+FFFD in code set 253); the terminator gives the terminator.
  virtual unsigned short Map(unsigned short c, unsigned char source) const = 0;

  /// Order numbers; null for a code set without a table, whose characters are to be mapped to
  /// code set 253 first.
  ZnOrderTable const * orderTable;
  unsigned char id;         ///< 1 to 254; ids never change once given
  char const * name;        ///< IANA name, such as "ISO-8859-1"
  char const * description; ///< one line in English
  /// The 256 characters of a one-byte code set in code set 253 (0xFFFD for undefined bytes); null
  /// for a two-byte code set.
  unsigned short const * toUnicode;

  /// Case of a character of this code set, or null if it has none. One-byte characters may come
  /// sign-extended. The record is constant, though its type does not say so: nobody may write to
  /// it.
  ZnUnicodeProps * GetUnicodeProps(unsigned short c, unsigned char language) const;

protected:
  constexpr ZnCodeSet(ZnOrderTable const * table, unsigned char number, char const * ianaName,
                      char const * text, unsigned short const * unicode)
      : orderTable(table), id(number), name(ianaName), description(text), toUnicode(unicode) {}
  ~ZnCodeSet() = default;
};

/// A language, or one of several orders of a language.
struct ZnLanguage {
  unsigned short hasTailoring; ///< non-zero if entries have variants for it
  unsigned char id;            ///< 0 the root order, 1 English; ids never change once given
  unsigned char scriptClass;   ///< class of its script: digits, symbols and spaces take it
  char const * tag;            ///< BCP 47, such as "de" or "de-u-co-phonebk"; "und" for the root
  char const * name;           ///< in English, such as "German (phone book)"
};

/// Access to all of it, and the process-wide defaults. Queries may run on any thread; the `Set`
/// operations belong to program start.
class ZANIN_EXPORT ZnLanguageContext {
public:
  static unsigned char GetDefaultCodeSet();
  static unsigned char GetDefault8CodeSet();
  static unsigned char GetDefault16CodeSet();
  /// The code set that id 0 stands for.
  static unsigned char GetNativeCodeSet();
  static unsigned char GetDefaultLanguage();
  /// Comparison flags that stand for 65535.
  static unsigned short GetDefaultCmpOp();

  /// Setting the default code set also makes it the default of its width.
  static void SetDefaultCodeSet(unsigned char codeSet);
  static void SetDefaultLanguage(unsigned char language);
  static void SetDefaultCmpOp(unsigned short cmpOp);

  /// Never null: id 0 gives the native code set, an id without a code set gives code set 1 or
  /// 253 by its width.
  static ZnCodeSet const * QueryCodeSet(unsigned char id);
  /// Null if there is no such language.
  static ZnLanguage const * QueryLanguage(unsigned char id);

  /// Whether `QueryCodeSet` has a code set of this very id.
  static bool HasCodeSet(unsigned char id);
  /// By IANA name or alias, without regard to case, `-` and `_`; null if there is none.
  static ZnCodeSet const * FindCodeSet(char const * name);
  /// By BCP 47 tag: the longest known prefix, so that "de-AT" finds "de"; null if there is none.
  static ZnLanguage const * FindLanguage(char const * tag);

  /// Name of the order: changes whenever any order number changes, for an index key once written
  /// must never silently change its meaning.
  static unsigned int OrderVersion();
  /// 64-bit fingerprint over all order numbers, classes, contractions, expansions and variants.
  static unsigned long long OrderFingerprint();
  /// The data that the tables were made of, such as "Unicode 15.0.0, CLDR 42".
  static char const * OrderSource();
};

namespace zntms {

/// A list as a table holds it.
template <class List>
class ZnStoredList final : public List {
public:
  using List::List;
};

// The tables that references point into.
extern ZANIN_EXPORT ZnStoredList<ZnWCharList> const ZnCharListTable[];
extern ZANIN_EXPORT ZnStoredList<ZnOrderEntryList> const ZnEntryListTable[];
extern ZANIN_EXPORT ZnStoredList<ZnLanguageList> const ZnLanguageListTable[];
extern ZANIN_EXPORT ZnCharOrderProps const ZnOrderEntryTable[];
extern ZANIN_EXPORT unsigned short const ZnEntryPlaceTable[];

inline ZnWCharList const * TableRecord(unsigned short place, ZnWCharList const *) {
  return &ZnCharListTable[place];
}
inline ZnOrderEntryList const * TableRecord(unsigned short place, ZnOrderEntryList const *) {
  return &ZnEntryListTable[place];
}
inline ZnLanguageList const * TableRecord(unsigned short place, ZnLanguageList const *) {
  return &ZnLanguageListTable[place];
}

} // namespace zntms

template <class Record>
inline Record const * ZnTableRef<Record>::Get() const {
  return place != 0 ? zntms::TableRecord(place, static_cast<Record const *>(nullptr)) : nullptr;
}

inline ZnCharOrderProps const * ZnOrderEntryList::operator[](int index) const {
  return &zntms::ZnOrderEntryTable[zntms::ZnEntryPlaceTable[first + static_cast<unsigned>(index)]];
}

/// Starts the component (non-zero) or stops it (0). Queries work before the start and after the
/// stop; the call puts the process-wide defaults back to what they were at load.
extern "C" ZANIN_EXPORT void ___ZnI18NContext(int start);
