#pragma once

#include "zanin.h"
#include "znchar.h"
#include "znstring/characters.h"
#include "znstring/order_entry.h"

/// Readers of order units for the inner loops of comparison and hashing.
///
/// A reader gives the order numbers of a text one by one, with the script class of the last one,
/// as `ZnStringIterator::GetNextOrder(1)` does. It is cheap to copy: a copy is a saved place.
///
/// `OrderReader` works on the shortcut pages of the order table, one lookup a character, and
/// hands to an iterator only what these pages cannot tell. `IteratorReader` takes any text.

namespace zntms {

/// What all readers of one text share.
class OrderSource {
public:
  OrderSource(char const * text, unsigned char codeSet, unsigned char language,
              unsigned char byteOrder)
      : pages(nullptr), iterator(text, codeSet, language, byteOrder) {
    if (ZnOrderTable const * table = iterator.codeSetRecord->orderTable)
      pages = table->pages;
    languageClass = iterator.scriptClass;
  }

  ZnPlainOrder const & Plain(unsigned short c) const { return pages[c >> 8][c & 255]; }

  /// The traits of a character that matter in this language.
  unsigned int Traits(unsigned short c) {
    unsigned int traits = Plain(c).traits & relevantTraits;
    if ((traits & relevantTraits & ZnPlainOrder::HasVariants) != 0 && !variantsDecided)
      traits &= DecideVariants();
    return traits;
  }

  ZnPlainOrder const * const * pages; ///< null for a code set without order table
  ZnStringIterator iterator;          ///< stands anywhere
  unsigned int relevantTraits = 255;
  bool variantsDecided = false;
  unsigned char languageClass;

private:
  unsigned int DecideVariants() {
    variantsDecided = true;
    if (!IsTailored(iterator.language))
      relevantTraits &= ~static_cast<unsigned int>(ZnPlainOrder::HasVariants);
    return relevantTraits;
  }
};

/// Reads texts of code sets with an order table; two-byte characters in the order of the host.
template <int Width>
class OrderReader {
public:
  explicit OrderReader(OrderSource & source)
      : place_(source.iterator.current), source_(&source), class_(source.languageClass) {}

  unsigned char ScriptClass() const { return class_; }
  void StopTracking() {}

  /// Skips characters that are known to read the same on the other side.
  void Skip(unsigned int characters) { place_ += characters * Width; }

  unsigned short Next() {
    if (expansion_ == nullptr) [[likely]] {
      unsigned short const c = ReadCharacter<Width>(place_);
      if (c == 0)
        return 0;
      ZnPlainOrder const & plain = source_->Plain(c);
      unsigned int const traits = plain.traits & source_->relevantTraits;
      if (traits == 0 || (traits == ZnPlainOrder::ContractsWithMarks &&
                          (Width == 1 || ReadCharacter<2>(place_ + 2) < kFirstMark))) [[likely]] {
        class_ = plain.scriptClass == ZnPlainOrder::LanguageClass ? source_->languageClass
                                                                  : plain.scriptClass;
        place_ += Width;
        return plain.order;
      }
    }
    return NextInFull();
  }

private:
  [[gnu::noinline]] unsigned short NextInFull() {
    if (expansion_ != nullptr) {
      unsigned short item = 0;
      expansion_->Read(index_++, item);
      if (index_ >= expansion_->count) {
        expansion_ = nullptr;
        place_ += Width;
      }
      return item;
    }
    unsigned short const c = ReadCharacter<Width>(place_);
    unsigned int const traits = source_->Plain(c).traits & source_->relevantTraits;
    if ((traits & ZnPlainOrder::HasVariants) != 0 && source_->Traits(c) != traits)
      return Next();
    if (traits == ZnPlainOrder::NoEntry && MarksClassOfIdeographs(c)) {
      class_ = kIdeographClass;
      place_ += Width;
      return c;
    }
    ZnStringIterator & iterator = source_->iterator;
    iterator.current = place_;
    iterator.overflow = nullptr;
    iterator.scriptClass = class_;
    unsigned short const order = iterator.GetNextOrder(1);
    place_ = iterator.current;
    class_ = iterator.scriptClass;
    expansion_ = iterator.overflow;
    index_ = iterator.overflowIndex;
    return order;
  }

  char const * place_;
  OrderSource * source_;
  ZnWCharList const * expansion_ = nullptr; ///< further orders of the character at `place_`
  short index_ = 0;
  unsigned char class_;
};

/// Reads any text: order text, either byte order, code sets without order table.
class IteratorReader {
public:
  explicit IteratorReader(OrderSource & source) : iterator_(source.iterator) {}

  unsigned char ScriptClass() const { return iterator_.scriptClass; }
  /// From now on the class stays what it is.
  void StopTracking() { tracking_ = 0; }
  unsigned short Next() { return iterator_.GetNextOrder(tracking_); }

private:
  ZnStringIterator iterator_;
  unsigned short tracking_ = 1;
};

} // namespace zntms
