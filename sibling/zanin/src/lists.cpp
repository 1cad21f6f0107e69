#include "tables.h"

namespace {

/// One bounds check for the three kinds of list.
template <class List>
bool Holds(List const & list, int index) {
  return index >= 0 && index < list.count;
}

} // namespace

int ZnWCharList::Read(int index, unsigned short & item) const {
  if (!Holds(*this, index))
    return -1;
  item = items[index];
  return 0;
}

int ZnOrderEntryList::Read(int index, ZnCharOrderProps const *& item) const {
  if (!Holds(*this, index))
    return -1;
  item = (*this)[index];
  return 0;
}

int ZnLanguageList::Read(int index, ZnLanguage const *& item) const {
  if (!Holds(*this, index))
    return -1;
  item = &zntms::LanguageTable[ids[index]];
  return 0;
}
