#pragma once

#include "zanin.h"
#include "znchar.h"
#include "znstring/characters.h"
#include "znstring/order_entry.h"
#include "znstring/shortcut.h"

#include <optional>

/// Readers of order units for the inner loops of comparison and hashing.
///
/// A reader gives the order numbers of a text one by one, with the script class of the last one,
/// as `ZnStringIterator::GetNextOrder(1)` does. It is cheap to copy: a copy is a saved place.
///
/// `OrderReader` works on the shortcuts of the order table, one lookup a character, and hands to an
/// iterator only what these cannot tell. `IteratorReader` takes any text.

namespace zntms {

/// How texts of one code set and language are read. What few texts need is found when they do.
class OrderSource {
public:
  /// Code set 255 and language 255 stand for the defaults, code set 0 for the native one.
  OrderSource(unsigned char codeSetId, unsigned char languageId, unsigned char order)
      : codeSet(codeSetId == 255 ? ZnLanguageContext::GetDefault8CodeSet()
                : codeSetId == 0 ? ZnLanguageContext::GetNativeCodeSet()
                                 : codeSetId),
        language(languageId == 255 ? ZnLanguageContext::GetDefaultLanguage() : languageId),
        byteOrder(order), orders_(OrdersOf(codeSet, language)) {}

  bool ReadsLike(OrderSource const & other) const {
    return codeSet == other.codeSet && language == other.language;
  }

  /// Whether texts can be read by pages: they are no order text, their code set has an order
  /// table, and two-byte characters are in the order of the host.
  bool HasPages() const {
    return orders_ != nullptr && codeSet != kOrderTextCodeSet &&
           (CharacterWidth(codeSet) == 1 || !IsBigEndian(byteOrder));
  }

  Shortcut ShortcutOf(unsigned short c) const { return {orders_->pages, c}; }

  unsigned char ClassOf(Shortcut shortcut) {
    unsigned char const scriptClass = shortcut.ScriptClass();
    return scriptClass != ZnPlainOrder::LanguageClass ? scriptClass : LanguageClass();
  }

  /// The class that a reading starts with, and that characters without a class of their own have.
  unsigned char LanguageClass() {
    if (!languageClass_)
      languageClass_ = ZnLanguageContext::QueryCodeSet(codeSet)->ScriptClass(language);
    return *languageClass_;
  }

  /// Whether character `c` starts a contraction with `next`.
  bool Joins(unsigned short c, unsigned short next) const {
    unsigned int const traits = ShortcutOf(c).Traits();
    bool const joins = (traits & ZnPlainOrder::Contracts) != 0 ||
                       ((traits & ZnPlainOrder::ContractsWithMarks) != 0 && next >= kFirstMark);
    if (!joins) [[likely]]
      return false;
    ZnCharOrderProps const * const entry =
        ZnLanguageContext::QueryCodeSet(codeSet)->orderTable->Lookup(c);
    return entry != nullptr && ContractionWith(VariantFor(entry, language), next) != nullptr;
  }

  /// An iterator that stands at `place`, to read one unit in full.
  ZnStringIterator & At(char const * place, unsigned char scriptClass) {
    if (!iterator_)
      iterator_.emplace(place, codeSet, language, byteOrder);
    iterator_->current = place;
    iterator_->overflow = nullptr;
    iterator_->scriptClass = scriptClass;
    return *iterator_;
  }

  unsigned char const codeSet;
  unsigned char const language;
  unsigned char const byteOrder;

private:
  LanguageOrders const * const orders_; ///< null for a code set without order table
  std::optional<unsigned char> languageClass_;
  std::optional<ZnStringIterator> iterator_;
};

/// Reads texts of code sets with an order table; two-byte characters in the order of the host.
template <int Width>
class OrderReader {
public:
  OrderReader(OrderSource & source, char const * text)
      : OrderReader(source, text, source.LanguageClass()) {}
  /// Starts in the middle, behind a unit of the given class.
  OrderReader(OrderSource & source, char const * place, unsigned char scriptClass)
      : source_(&source), state_{place, nullptr, 0, scriptClass} {}

  unsigned char ScriptClass() const { return state_.scriptClass; }
  void StopTracking() {}

  unsigned short Next() {
    if (state_.expansion == nullptr) [[likely]] {
      unsigned short const c = ReadCharacter<Width>(state_.place);
      if (c == 0)
        return 0;
      Shortcut const shortcut = source_->ShortcutOf(c);
      if (shortcut.TellsAll<Width>(ReadCharacter<Width>(state_.place + Width))) [[likely]] {
        state_.scriptClass = source_->ClassOf(shortcut);
        state_.place += Width;
        return shortcut.Order();
      }
    }
    Unit const unit = ReadInFull(*source_, state_);
    state_ = unit.state;
    return unit.order;
  }

  /// Moves over plain characters to the next that is the letter of the comparison key `key` in the
  /// bits of `mask`, or that its shortcut does not tell.
  void PassOthers(unsigned int key, unsigned int mask) {
    if (!IsLetterKey(key))
      return;
    Shortcut::IsLetterOf const isWanted(key, mask);
    PassPlain([isWanted](Shortcut shortcut) { return !isWanted(shortcut); });
  }

  /// Moves over plain letters, at most `most`, and gives the comparison key of each to `take`.
  template <class Take>
  void TakeLetters(unsigned int most, Take && take) {
    PassPlain([&](Shortcut shortcut) {
      if (most == 0 || !shortcut.IsLetter())
        return false;
      take(shortcut.LetterKey());
      --most;
      return true;
    });
  }

private:
  struct State {
    char const * place;
    ZnWCharList const * expansion; ///< further orders of the character at `place`
    short index;
    unsigned char scriptClass;
  };

  struct Unit {
    State state;
    unsigned short order;
  };

  /// Moves over plain characters as long as `pass` says so of their shortcuts.
  template <class Pass>
  void PassPlain(Pass pass) {
    if (state_.expansion != nullptr)
      return;
    char const * place = state_.place;
    Shortcut last;
    for (unsigned short c = ReadCharacter<Width>(place); c != 0;) {
      Shortcut const shortcut = source_->ShortcutOf(c);
      unsigned short const next = ReadCharacter<Width>(place + Width);
      if (!shortcut.TellsAll<Width>(next) || !pass(shortcut))
        break;
      last = shortcut;
      place += Width;
      c = next;
    }
    if (place == state_.place)
      return;
    state_.place = place;
    state_.scriptClass = source_->ClassOf(last);
  }

  // Takes and gives values, so that a reader can live in registers.
  [[gnu::noinline]] static Unit ReadInFull(OrderSource & source, State state) {
    unsigned short order = 0;
    if (state.expansion != nullptr) {
      state.expansion->Read(state.index++, order);
      if (state.index >= state.expansion->count) {
        state.expansion = nullptr;
        state.place += Width;
      }
      return {state, order};
    }
    unsigned short const c = ReadCharacter<Width>(state.place);
    if ((source.ShortcutOf(c).Traits() & ZnPlainOrder::NoEntry) != 0 && MarksClassOfIdeographs(c)) {
      state.scriptClass = kIdeographClass;
      state.place += Width;
      return {state, c};
    }
    ZnStringIterator & iterator = source.At(state.place, state.scriptClass);
    order = iterator.GetNextOrder(1);
    return {{iterator.current, iterator.overflow, iterator.overflowIndex, iterator.scriptClass},
            order};
  }

  OrderSource * source_;
  State state_;
};

/// Reads any text: order text, either byte order, code sets without order table.
class IteratorReader {
public:
  IteratorReader(OrderSource const & source, char const * text)
      : iterator_(text, source.codeSet, source.language, source.byteOrder) {}

  unsigned char ScriptClass() const { return iterator_.scriptClass; }
  /// From now on the class stays what it is.
  void StopTracking() { tracking_ = 0; }
  unsigned short Next() { return iterator_.GetNextOrder(tracking_); }
  void PassOthers(unsigned int, unsigned int) {}
  template <class Take>
  void TakeLetters(unsigned int, Take &&) {}

private:
  ZnStringIterator iterator_;
  unsigned short tracking_ = 1;
};

} // namespace zntms
