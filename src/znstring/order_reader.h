#pragma once

#include "zanin.h"
#include "znchar.h"
#include "znstring/characters.h"
#include "znstring/order_entry.h"

#include <atomic>
#include <optional>

/// Readers of order units for the inner loops of comparison and hashing.
///
/// A reader gives the order numbers of a text one by one, with the script class of the last one,
/// as `ZnStringIterator::GetNextOrder(1)` does. It is cheap to copy: a copy is a saved place.
///
/// `OrderReader` works on the shortcut pages of the order table, one lookup a character, and
/// hands to an iterator only what these pages cannot tell. `IteratorReader` takes any text.

namespace zntms {

using OrderPages = ZnPlainOrder const * const *;

/// The shortcut pages of a code set, other than 0 and 255; null if it has no order table. Asked of
/// the language component once: its tables stay where they are.
inline OrderPages PagesOf(unsigned char codeSet) {
  static constinit std::atomic<OrderPages> known[256];
  OrderPages pages = known[codeSet].load(std::memory_order_relaxed);
  if (pages == nullptr) [[unlikely]] {
    ZnOrderTable const * const table = ZnLanguageContext::QueryCodeSet(codeSet)->orderTable;
    pages = table != nullptr ? table->pages : nullptr;
    known[codeSet].store(pages, std::memory_order_relaxed);
  }
  return pages;
}

/// The traits of shortcuts that matter in a language: all, or all but variants.
inline unsigned char RelevantTraits(unsigned char language) {
  static constinit std::atomic<unsigned char> known[256];
  unsigned char traits = known[language].load(std::memory_order_relaxed);
  if (traits == 0) [[unlikely]] {
    traits =
        static_cast<unsigned char>(IsTailored(language) ? 255 : 255 & ~ZnPlainOrder::HasVariants);
    known[language].store(traits, std::memory_order_relaxed);
  }
  return traits;
}

/// How texts of one code set and language are read. What few texts need is found when they do.
class OrderSource {
public:
  /// Code set 255 and language 255 stand for the defaults, code set 0 for the native one.
  OrderSource(unsigned char codeSetId, unsigned char languageId, unsigned char order)
      : codeSet(codeSetId == 255 ? ZnLanguageContext::GetDefault8CodeSet()
                : codeSetId == 0 ? ZnLanguageContext::GetNativeCodeSet()
                                 : codeSetId),
        language(languageId == 255 ? ZnLanguageContext::GetDefaultLanguage() : languageId),
        byteOrder(order), relevant_(RelevantTraits(language)), pages_(PagesOf(codeSet)) {}

  bool ReadsLike(OrderSource const & other) const {
    return codeSet == other.codeSet && language == other.language;
  }

  /// Whether texts can be read by pages: they are no order text, their code set has an order
  /// table, and two-byte characters are in the order of the host.
  bool HasPages() const {
    return pages_ != nullptr && codeSet != kOrderTextCodeSet &&
           (CharacterWidth(codeSet) == 1 || !IsBigEndian(byteOrder));
  }

  OrderPages Pages() const { return pages_; }
  ZnPlainOrder const & Plain(unsigned short c) const { return pages_[c >> 8][c & 255]; }

  /// The traits of a character that matter: 0 if its shortcut tells everything. `next` is asked
  /// for the character behind.
  template <class Next>
  unsigned int Traits(ZnPlainOrder const & plain, Next && next) const {
    unsigned int const traits = plain.traits & relevant_;
    if (traits == ZnPlainOrder::ContractsWithMarks && next() < kFirstMark)
      return 0;
    return traits;
  }

  unsigned char ClassOf(ZnPlainOrder const & plain) {
    return plain.scriptClass != ZnPlainOrder::LanguageClass ? plain.scriptClass : LanguageClass();
  }

  /// The class that a reading starts with, and that characters without a class of their own have.
  unsigned char LanguageClass() {
    if (!languageClass_)
      languageClass_ = ZnLanguageContext::QueryCodeSet(codeSet)->ScriptClass(language);
    return *languageClass_;
  }

  /// Whether character `c` starts a contraction with `next`.
  bool Joins(unsigned short c, unsigned short next) const {
    constexpr unsigned int joining =
        ZnPlainOrder::HasVariants | ZnPlainOrder::Contracts | ZnPlainOrder::ContractsWithMarks;
    unsigned int const traits = Plain(c).traits & relevant_ & joining;
    if (traits == 0 || (traits == ZnPlainOrder::ContractsWithMarks && next < kFirstMark)) [[likely]]
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
  unsigned char const relevant_;
  OrderPages const pages_; ///< null for a code set without order table
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
      char const * const place = state_.place;
      unsigned short const c = ReadCharacter<Width>(place);
      if (c == 0)
        return 0;
      ZnPlainOrder const & plain = source_->Plain(c);
      unsigned int const traits = source_->Traits(plain, [place] { return NextOf(place); });
      if (traits == 0) [[likely]] {
        state_.scriptClass = source_->ClassOf(plain);
        state_.place += Width;
        return plain.order;
      }
    }
    Unit const unit = ReadInFull(*source_, state_);
    state_ = unit.state;
    return unit.order;
  }

  /// Moves over plain characters, at most `most`, to the next that is the letter of the comparison
  /// key `key` in the bits of `mask`, or that the pages do not tell. Gives the number passed.
  unsigned int PassOthers(unsigned int key, unsigned int mask, unsigned int most) {
    if (state_.expansion != nullptr || (key & 0x400000) == 0)
      return 0;
    // Letters are compared as they stand in the shortcuts: class and order.
    auto const orderBits = [](unsigned int k) { return (k >> 8 & 0x407F) | (k & 0x7F) << 7; };
    unsigned int const wanted = key >> 24 << 16 | orderBits(key);
    unsigned int const counts = 0xFF8000 | orderBits(mask);
    unsigned int passed = 0;
    for (; passed < most; ++passed) {
      unsigned short const c = ReadCharacter<Width>(state_.place);
      if (c == 0)
        break;
      ZnPlainOrder const & plain = source_->Plain(c);
      unsigned int const letter = static_cast<unsigned int>(plain.scriptClass) << 16 | plain.order;
      if (((letter ^ wanted) & counts) == 0 ||
          source_->Traits(plain, [this] { return NextOf(state_.place); }) != 0)
        break;
      state_.scriptClass = source_->ClassOf(plain);
      state_.place += Width;
    }
    return passed;
  }

  /// The character behind the one at `place`, as far as contractions with marks go.
  static unsigned short NextOf(char const * place) {
    if constexpr (Width == 1)
      return 0;
    else
      return ReadCharacter<2>(place + 2);
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
    if ((source.Plain(c).traits & ZnPlainOrder::NoEntry) != 0 && MarksClassOfIdeographs(c)) {
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
  unsigned int PassOthers(unsigned int, unsigned int, unsigned int) { return 0; }

private:
  ZnStringIterator iterator_;
  unsigned short tracking_ = 1;
};

} // namespace zntms
