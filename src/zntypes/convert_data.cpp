#include "zntypecvt.h"

#include "znstring.h"
#include "zntypemgr.h"

namespace {
constexpr char kEmptyBoxId = 100;
}

ZnTypeConvertData::ZnTypeConvertData() : ZnTypeConvertData(kEmptyBoxId, 0, nullptr, nullptr) {}

ZnTypeConvertData::ZnTypeConvertData(char id, unsigned int number, void * values,
                                     ZnTypeMgr * manager)
    : mgr(manager), data(values), count(number), typeId(id) {}

ZnTypeConvertData::~ZnTypeConvertData() {
  // An engine may look at the place once more: the stores are not to be optimised away.
  if (mgr != nullptr && data != nullptr)
    static_cast<void * volatile &>(data) = mgr->Delete(typeId, data, count);
  static_cast<char volatile &>(typeId) = kEmptyBoxId;
  static_cast<unsigned int volatile &>(count) = 0;
}

ZnTypeConvertData * ZnTypeConvertData::Make(char id, unsigned int count, void * data,
                                            ZnTypeMgr * mgr) {
  return new ZnTypeConvertData(id, count, data, mgr);
}

ZnString * ZnTypeConvertData::GetString(int index) {
  if (index < 0 || static_cast<unsigned int>(index) >= count || typeId != ZnSTRING_T ||
      data == nullptr)
    return nullptr;
  return static_cast<ZnString *>(data) + index;
}
