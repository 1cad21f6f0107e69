#pragma once

#include "zntyperow.h"

/// The groups of slots that a row of the type table is put together from.
///
/// A group holds the slots that belong together and that several rows share: the life of values,
/// their stored forms, what queries ask. A kind of value declares its groups as constants; the
/// table then reads as one line a row, with a group a column:
///
///     MakeRow("ZnDate", "ZnDATE_T", kDateText, {4, 1}, kDateLife, kDateStorage, kDateQuery,
///             kDateBox, kDateNull, &DateGetValue)

namespace zntms {

struct RowText {
  char const * format;
  ZnTypeRow::PrintFunc print;
  ZnTypeRow::ScanFunc scan;
};

struct RowSize {
  unsigned short memLen;
  unsigned short fixed;
};

struct RowLife {
  ZnTypeRow::CreateFunc create;
  ZnTypeRow::DeleteFunc remove;
  ZnTypeRow::ConstructFunc construct;
  ZnTypeRow::ConstructFunc destruct;
  ZnTypeRow::AssignFunc assign;
  ZnTypeRow::AssignFunc copy;
};

struct RowStorage {
  ZnTypeRow::MoveFunc store;
  ZnTypeRow::MoveFunc load;
  ZnTypeRow::NullSizeFunc nullSize;
  ZnTypeRow::SizeFunc size;
  ZnTypeRow::FileSizeFunc fileSize;
  ZnTypeRow::TranslateFunc translate;
};

struct RowQuery {
  ZnTypeCmpFunc compare;
  ZnTypeRow::BoundFunc bound;
  ZnTypeRow::HashFunc hash;
};

struct RowBox {
  ZnTypeRow::ConvertToFunc to;
  ZnTypeRow::ConvertFromFunc from;
  ZnTypeRow::DefaultFunc makeDefault;
};

struct RowNull {
  ZnTypeRow::NullFunc isNull;
  ZnTypeRow::NullFunc setNull; ///< null for types without null
};

constexpr ZnTypeRow MakeRow(char const * name, char const * idName, RowText text, RowSize size,
                            RowLife life, RowStorage storage, RowQuery query, RowBox box,
                            RowNull null, ZnTypeRow::StepFunc getValue) {
  return {name,
          idName,
          life.create,
          life.remove,
          storage.store,
          storage.load,
          storage.nullSize,
          storage.size,
          storage.fileSize,
          query.compare,
          query.bound,
          query.hash,
          box.to,
          box.from,
          life.construct,
          life.destruct,
          life.assign,
          life.copy,
          storage.translate,
          null.isNull,
          null.setNull,
          text.format,
          text.print,
          text.scan,
          size.memLen,
          size.fixed,
          box.makeDefault,
          getValue,
          nullptr};
}

} // namespace zntms
