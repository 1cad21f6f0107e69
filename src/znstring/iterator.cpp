// The walk over a text: characters, overflow lists, order numbers.
//
// Most characters have one order number in every language and never join their neighbours. The
// shortcut pages of the order table tell these with one lookup. The rest goes through the full
// entry: language variants, then contractions (several characters, one number), then expansions
// (one character, several numbers, of which the further ones become the overflow list).
//
// Worked example: with `a` and U+0301 contracting to the entry of á, the text "a", U+0301, "b"
// gives the orders of á and b; "a" at the very end gives that of a.

#include "zanin.h"
#include "znchar.h"
#include "znstring.h"
#include "znstring/characters.h"
#include "znstring/order_entry.h"
#include "znstring/shortcut.h"
#include "znstring/wildcards.h"

using namespace zntms;

namespace {

/// One character on the way to its order number.
struct Unit {
  unsigned short value = 0;
  bool fromList = false;
};

/// The table that knows the characters of a code set, with the way into it.
struct Table {
  Table(ZnCodeSet const * record, unsigned char sourceCodeSet) : source_(sourceCodeSet) {
    if (record->orderTable != nullptr) {
      orders = record->orderTable;
      return;
    }
    unicode_ = ZnLanguageContext::QueryCodeSet(kUnicodeCodeSet);
    orders = unicode_->orderTable;
  }

  unsigned short Map(unsigned short c) const {
    return unicode_ == nullptr || c == 0 ? c : unicode_->Map(c, source_);
  }

  ZnOrderTable const * orders;

private:
  ZnCodeSet const * unicode_ = nullptr; ///< null: characters need no mapping
  unsigned char source_;
};

} // namespace

void ZnStringIterator::Open(char const * text, unsigned char codeSetId, unsigned char languageId,
                            unsigned char order) {
  codeSet = codeSetId;
  language = languageId == 255 ? ZnLanguageContext::GetDefaultLanguage() : languageId;
  codeSetRecord = ZnLanguageContext::QueryCodeSet(codeSet);
  scriptClass = codeSetRecord->ScriptClass(language);
  overflowCodeSet = codeSet;
  overflowIndex = 0;
  byteOrder = order == 255 ? 1 : order;
  ownsBuffer = 0;
  current = text;
  overflow = nullptr;
  std::memset(ownText, 0, sizeof ownText);
}

ZnStringIterator::ZnStringIterator(ZnString & s) { Open(s.StrGet(), s.codeSet, s.language, 8); }

ZnStringIterator::ZnStringIterator(ZnChar & c) {
  Open(ownText, c.codeSet, c.language, 1);
  ownsBuffer = 1;
  WriteCharacter(ownText, c.Value(), codeSet, byteOrder);
}

ZnStringIterator::ZnStringIterator(char const * text, unsigned char codeSetId,
                                   unsigned char languageId, unsigned char order) {
  Open(text, codeSetId == 255 ? ZnLanguageContext::GetDefault8CodeSet() : codeSetId, languageId,
       order);
}

ZnStringIterator::ZnStringIterator(unsigned short * text, unsigned char codeSetId,
                                   unsigned char languageId, unsigned char order) {
  Open(reinterpret_cast<char const *>(text),
       codeSetId == 255 ? ZnLanguageContext::GetDefault16CodeSet() : codeSetId, languageId, order);
}

ZnStringIterator::ZnStringIterator(ZnStringIterator const & other) { *this = other; }

ZnStringIterator & ZnStringIterator::operator=(ZnStringIterator const & other) {
  if (this == &other)
    return *this;
  codeSetRecord = other.codeSetRecord;
  codeSet = other.codeSet;
  language = other.language;
  scriptClass = other.scriptClass;
  overflowCodeSet = other.overflowCodeSet;
  overflowIndex = other.overflowIndex;
  byteOrder = other.byteOrder;
  ownsBuffer = 0;
  current = other.current;
  overflow = other.overflow;
  return *this;
}

int ZnStringIterator::operator==(ZnStringIterator const & other) const {
  return current == other.current;
}

bool ZnStringIterator::HasUnread() const {
  return overflow != nullptr && overflowIndex < overflow->count;
}

ZnChar ZnStringIterator::operator*() {
  unsigned short item = 0;
  if (HasUnread() && overflow->Read(overflowIndex++, item) == 0)
    return ZnChar(item, overflowCodeSet, language);
  return ZnChar(current, codeSet, language, byteOrder);
}

ZnStringIterator & ZnStringIterator::operator++() {
  if (HasUnread())
    return *this;
  overflow = nullptr;
  if (current != nullptr)
    current += CharacterWidth(codeSet);
  return *this;
}

ZnStringIterator ZnStringIterator::operator++(int) {
  ZnStringIterator before(*this);
  ++*this;
  return before;
}

ZnStringIterator & ZnStringIterator::operator--() {
  if (current != nullptr)
    current -= CharacterWidth(codeSet);
  return *this;
}

ZnStringIterator ZnStringIterator::operator--(int) {
  ZnStringIterator before(*this);
  --*this;
  return before;
}

void ZnStringIterator::Step(unsigned short forward) {
  if (forward != 0)
    ++*this;
  else
    --*this;
}

int ZnStringIterator::IsEOS() const {
  if (current != nullptr && ReadCharacter(current, codeSet, byteOrder) != 0)
    return 0;
  return overflow == nullptr;
}

void ZnStringIterator::SetOverflow(ZnWCharList const * list, unsigned char codeSetId) {
  overflow = list;
  overflowIndex = 0;
  overflowCodeSet = codeSetId == 255 ? codeSet : codeSetId;
}

void ZnStringIterator::Transform(ZnStringIterator & target, ZnCharOperation & op) {
  while (!IsEOS()) {
    ZnChar const from(**this);
    ZnChar to(*target);
    to = op.Apply(from, this);
    ++target;
    ++*this;
  }
  ZnChar const terminator(**this);
  ZnChar to(*target);
  to = terminator;
  ++target;
  ++*this;
}

unsigned short ZnStringIterator::GetNextOrder(unsigned short trackClass) {
  if (current == nullptr)
    return 0;
  if (codeSet == kOrderTextCodeSet) {
    unsigned short const order = ReadCharacter(current, kOrderTextCodeSet, 1);
    if (order != 0)
      ++*this;
    return order;
  }
  LanguageOrders const * const orders =
      overflow == nullptr ? OrdersOf(codeSetRecord->id, language) : nullptr;
  if (orders != nullptr) {
    unsigned short const c = ReadCharacter(current, codeSet, byteOrder);
    if (c == 0)
      return 0;
    Shortcut const shortcut(orders->pages, c);
    unsigned int const width = CharacterWidth(codeSet);
    if (shortcut.TellsAll<2>(ReadCharacter(current + width, codeSet, byteOrder))) {
      if (trackClass != 0)
        scriptClass = shortcut.ScriptClass() == ZnPlainOrder::LanguageClass
                          ? codeSetRecord->ScriptClass(language)
                          : shortcut.ScriptClass();
      current += width;
      return shortcut.Order();
    }
  }
  return NextOrderInFull(trackClass);
}

unsigned short ZnStringIterator::NextOrderInFull(unsigned short trackClass) {
  unsigned int const width = CharacterWidth(codeSet);
  // The end of the text holds, whatever the overflow list of a caller says.
  auto const advance = [&] {
    if (ReadCharacter(current, codeSet, byteOrder) != 0)
      current += width;
  };
  auto const take = [&]() -> Unit {
    unsigned short item = 0;
    if (HasUnread() && overflow->Read(overflowIndex++, item) == 0)
      return {item, true};
    return {ReadCharacter(current, codeSet, byteOrder), false};
  };
  auto const moveOn = [&] {
    if (HasUnread())
      return;
    if (overflow != nullptr && overflowCodeSet != codeSet)
      codeSetRecord = ZnLanguageContext::QueryCodeSet(codeSet);
    overflow = nullptr;
    advance();
  };

  Unit unit = take();
  if (unit.fromList) {
    if (overflowCodeSet == kOrderTextCodeSet) {
      moveOn();
      return unit.value;
    }
    codeSetRecord = ZnLanguageContext::QueryCodeSet(overflowCodeSet);
  }
  if (unit.value == 0)
    return 0;

  Table const table(codeSetRecord, unit.fromList ? overflowCodeSet : codeSet);
  unit.value = table.Map(unit.value);
  ZnCharOrderProps const * entry = table.orders->Lookup(unit.value);
  if (entry == nullptr) {
    moveOn();
    if (trackClass != 0 && MarksClassOfIdeographs(unit.value))
      scriptClass = kIdeographClass;
    return unit.value;
  }
  entry = VariantFor(entry, language);
  while (entry->hasContractions != 0) {
    bool const fromList = HasUnread();
    char const * const before = current;
    if (!fromList)
      advance();
    if (!fromList && current == before)
      break;
    ZnCharOrderProps const * const joined = ContractionWith(entry, table.Map(take().value));
    if (joined == nullptr) {
      if (fromList)
        --overflowIndex;
      else
        current = before;
      break;
    }
    entry = joined;
  }
  if (trackClass != 0)
    scriptClass =
        entry->classRef != nullptr ? *entry->classRef : codeSetRecord->ScriptClass(language);
  if (entry->hasExpansion != 0 && entry->expansion != nullptr)
    SetOverflow(entry->expansion, kOrderTextCodeSet);
  moveOn();
  return entry->order;
}
