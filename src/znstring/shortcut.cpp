#include "znstring/shortcut.h"

#include "znstring/characters.h"

#include <algorithm>

namespace zntms {

constinit KnownOrders known;

OrderPages KnownOrders::FindPages(unsigned char codeSet) {
  ZnOrderTable const * const table = ZnLanguageContext::QueryCodeSet(codeSet)->orderTable;
  OrderPages const pages = table != nullptr ? table->pages : nullptr;
  pages_[codeSet].store(pages, std::memory_order_relaxed);
  return pages;
}

unsigned char KnownOrders::FindTraits(unsigned char language) {
  unsigned char const traits =
      static_cast<unsigned char>(IsTailored(language) ? 255 : 255 & ~ZnPlainOrder::HasVariants);
  traits_[language].store(traits, std::memory_order_relaxed);
  return traits;
}

unsigned short KnownOrders::FindQuiet(unsigned char codeSet, unsigned int traits) {
  OrderPages const pages = PagesOf(codeSet);
  unsigned int const joining = traits & (ZnPlainOrder::HasVariants | ZnPlainOrder::Contracts);
  bool const narrow = CharacterWidth(codeSet) == 1;
  unsigned short const end = narrow ? 256 : kFirstMark;
  unsigned short quiet = 1;
  while (quiet < end && (Shortcut(pages, quiet).Traits() & joining) == 0)
    ++quiet;
  // Where nothing contracts marks do no harm either.
  if (narrow && quiet < end)
    quiet = std::min(quiet, kFirstThatRepeats<1>);
  quiet_[traits & ZnPlainOrder::HasVariants][codeSet].store(quiet, std::memory_order_relaxed);
  return quiet;
}

} // namespace zntms
