#include "znstring/shortcut.h"

#include "znstring/characters.h"

#include <algorithm>
#include <array>
#include <memory>
#include <new>
#include <vector>

namespace zntms {

constinit KnownOrders knownOrders;

namespace {

using Page = std::array<ZnPlainOrder, 256>;

/// The shortcut of an entry that is a variant.
ZnPlainOrder ShortcutOf(ZnCharOrderProps const & entry, bool narrow) {
  unsigned char traits = entry.hasExpansion != 0 ? ZnPlainOrder::HasExpansion : 0;
  if (entry.hasContractions != 0) {
    ZnWCharList const & next = *entry.contractionChars;
    unsigned short const lowest = *std::min_element(next.items, next.items + next.count);
    if (lowest < (narrow ? 256 : kFirstMark))
      traits |= ZnPlainOrder::Contracts;
    else if (!narrow)
      traits |= ZnPlainOrder::ContractsWithMarks;
  }
  unsigned char const * const scriptClass = entry.classRef;
  return {entry.order, scriptClass != nullptr ? *scriptClass : ZnPlainOrder::LanguageClass, traits};
}

/// The orders of a language, with the pages of its own.
class OwnedOrders : public LanguageOrders {
public:
  OwnedOrders(ZnOrderTable const & table, unsigned char codeSet, unsigned char language)
      : LanguageOrders{table.pages, 0}, narrow_(CharacterWidth(codeSet) == 1) {
    if (IsTailored(language))
      TakeVariants(table, language);
    quiet = FindQuiet();
  }

private:
  void TakeVariants(ZnOrderTable const & table, unsigned char language) {
    std::copy_n(table.pages, all_.size(), all_.begin());
    for (unsigned int c = 0; c < (narrow_ ? 256u : 65536u); ++c) {
      auto const character = static_cast<unsigned short>(c);
      if ((table.Plain(character).traits & ZnPlainOrder::HasVariants) == 0)
        continue;
      ZnCharOrderProps const * const entry = table.Lookup(character);
      ZnCharOrderProps const * const variant = VariantFor(entry, language);
      if (variant != entry)
        OwnPage(table, c >> 8)[c & 255] = ShortcutOf(*variant, narrow_);
    }
    pages = all_.data();
  }

  Page & OwnPage(ZnOrderTable const & table, unsigned int number) {
    if (all_[number] == table.pages[number]) {
      own_.push_back(std::make_unique<Page>());
      std::copy_n(table.pages[number], own_.back()->size(), own_.back()->begin());
      all_[number] = own_.back()->data();
      last_ = own_.back().get();
    }
    return *last_;
  }

  unsigned short FindQuiet() const {
    unsigned short const end = narrow_ ? 256 : kFirstMark;
    unsigned short c = 1;
    while (c < end && (Shortcut(pages, c).Traits() & ZnPlainOrder::Contracts) == 0)
      ++c;
    // Where nothing contracts marks do no harm either.
    return narrow_ && c < end ? std::min(c, kFirstThatRepeats<1>) : c;
  }

  bool const narrow_;
  std::array<ZnPlainOrder const *, 256> all_;
  std::vector<std::unique_ptr<Page>> own_;
  Page * last_ = nullptr; ///< that of the highest character so far
};

} // namespace

LanguageOrders const * KnownOrders::Find(unsigned char codeSet, unsigned char language) {
  ZnOrderTable const * const table = ZnLanguageContext::QueryCodeSet(codeSet)->orderTable;
  if (table == nullptr)
    return nullptr;
  try {
    auto orders = std::make_unique<OwnedOrders const>(*table, codeSet, language);
    LanguageOrders const * other = nullptr;
    bool const first = known_[codeSet][language].compare_exchange_strong(other, orders.get(),
                                                                         std::memory_order_acq_rel);
    return first ? orders.release() : other;
  } catch (std::bad_alloc const &) {
    return nullptr;
  }
}

} // namespace zntms
