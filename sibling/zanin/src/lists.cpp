#include "zanin.h"

namespace {

/// One bounds check for the three kinds of list.
template <class Item>
int ReadItem(Item const * items, short count, int index, Item & item) {
  if (index < 0 || index >= count)
    return -1;
  item = items[index];
  return 0;
}

} // namespace

int ZnWCharList::Read(int index, unsigned short & item) const {
  return ReadItem(items, count, index, item);
}

int ZnOrderEntryList::Read(int index, ZnCharOrderProps const *& item) const {
  return ReadItem(items, count, index, item);
}

int ZnLanguageList::Read(int index, ZnLanguage const *& item) const {
  return ReadItem(items, count, index, item);
}
