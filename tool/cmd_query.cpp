#include "column_index.h"
#include "commands.h"
#include "failure.h"
#include "fields.h"
#include "json.h"
#include "output.h"
#include "predicate.h"
#include "reader.h"
#include "text_options.h"

#include <CLI/CLI.hpp>

#include <charconv>
#include <cstdlib>
#include <limits>
#include <memory>
#include <optional>

/// `zantm query DB 'COLUMN OP VALUE'`: the rows that a comparison selects, by the column's index.

namespace zantm {

namespace {

struct Arguments {
  std::string database, condition;
  unsigned long long limit = std::numeric_limits<unsigned long long>::max();
  bool explain = false, json = false;
  LabelOptions labels;
};

/// What the planner makes of a condition: the ends of the walk, and the share of the index that
/// it expects between them.
struct Plan {
  float share = 0;
  std::optional<Bytes> low, high;
};

/// A record of bounds whose keys come from `EvalAndBound`.
struct OwnedBounds : ZnIdxBounds {
  OwnedBounds() : ZnIdxBounds{} { keyLimit = kLongestKey; }
  ~OwnedBounds() {
    std::free(lowKey);
    std::free(highKey);
  }
  OwnedBounds(OwnedBounds const &) = delete;
  OwnedBounds & operator=(OwnedBounds const &) = delete;
};

std::optional<Bytes> KeyOf(void const * key, unsigned char length) {
  if (key == nullptr)
    return std::nullopt;
  auto first = static_cast<unsigned char const *>(key);
  return Bytes(first, first + length);
}

class Query {
public:
  Query(Database & database, Predicate const & predicate)
      : database_(database), predicate_(predicate), column_(database.Columns()[predicate.column]),
        walk_(database, predicate.column), constant_(column_.type),
        flags_(ZnString::GetDefaultCmpOp()) {
    if (predicate.kind == Predicate::Compare) {
      Reader reader(column_.type, column_.format);
      if (!reader.Read(predicate.value, constant_) && !column_.format.empty())
        Reader(column_.type).MustRead(predicate.value, constant_);
      else if (column_.format.empty())
        reader.MustRead(predicate.value, constant_);
    } else if (Manager().SupportsNullValue(column_.type) != 0) {
      Manager().SetNullValue(column_.type, constant_.Data());
    }
    stored_ = constant_.Stored(kStoredFormat);
    MakePlan();
  }

  /// The number of the next row that the condition selects.
  bool Next(RowNumber & row) {
    IndexWalk::Entry entry{};
    while (walk_.Next(entry)) {
      ++walked_;
      row = entry.row;
      if (IsHit(entry.key, row))
        return ++hits_, true;
    }
    while (walk_.NextRest(row)) {
      ++walkedRest_;
      if (IsHit(WholeValue(row), row))
        return ++hits_, true;
    }
    return false;
  }

  Plan const & PlanOf() const { return plan_; }
  unsigned long long Walked() const { return walked_; }
  unsigned long long WalkedRest() const { return walkedRest_; }
  unsigned long long Hits() const { return hits_; }

private:
  void MakePlan() {
    ZnIdxBounds area{};
    std::optional<Bytes> smallest = walk_.EndKey(false), largest = walk_.EndKey(true);
    if (smallest) {
      area.lowKey = smallest->data();
      area.lowLength = static_cast<unsigned char>(smallest->size());
      area.highKey = largest->data();
      area.highLength = static_cast<unsigned char>(largest->size());
      area.keyLimit = kLongestKey;
    }
    OwnedBounds bounds;
    auto op = static_cast<unsigned short>(predicate_.op | flags_ | ZnOpFromStart);
    Bytes value = stored_; // rows may write into it for a moment
    plan_.share = Manager().EvalAndBound(column_.type, smallest ? &area : nullptr, op, value.data(),
                                         kStoredFormat, 1, &bounds, nullptr);
    Bytes key;
    keysTell_ = MakeKey(constant_, key);
    bool const cut = !keysTell_ && (IsCut(bounds.lowKey, bounds.lowLength) ||
                                    IsCut(bounds.highKey, bounds.highLength));
    if (!cut) {
      plan_.low = KeyOf(bounds.lowKey, bounds.lowLength);
      plan_.high = KeyOf(bounds.highKey, bounds.highLength);
    }
    walk_.Between(plan_.low ? &*plan_.low : nullptr, plan_.high ? &*plan_.high : nullptr);
  }

  /// What a bound that was cut lacks may decide about shorter keys.
  bool IsCut(void * bound, unsigned int size) const {
    int error = 0;
    if (bound != nullptr)
      Manager().Cmp(column_.type, size, bound, size, bound, ZnCmpNoWildcards, 1, kKeyFormat, error);
    return error == ZnErrIncomplete || error == ZnErrNotSupported;
  }

  MDB_val WholeValue(RowNumber row) {
    return database_.Cell(database_.Row(row), predicate_.column);
  }

  int Compare(MDB_val value, int & error) {
    return Manager().Cmp(column_.type, static_cast<unsigned int>(value.mv_size), value.mv_data,
                         static_cast<unsigned int>(stored_.size()), stored_.data(), flags_, 1,
                         kKeyFormat, error);
  }

  bool IsHit(MDB_val value, RowNumber row) {
    if (predicate_.kind != Predicate::Compare) {
      Value loaded(column_.type);
      Manager().Load(column_.type, loaded.Data(), WholeValue(row).mv_data, kStoredFormat, 1);
      return loaded.IsNull() == (predicate_.kind == Predicate::IsNull);
    }
    int error = 0;
    int order = keysTell_ ? Compare(value, error) : 0;
    if (!keysTell_ || error != 0)
      order = Compare(WholeValue(row), error);
    return predicate_.Selects(order);
  }

  Database & database_;
  Predicate predicate_;
  Column const & column_;
  IndexWalk walk_;
  Value constant_;
  unsigned short flags_;
  bool keysTell_ =
      true; ///< the constant has a key that tells all of it, as comparison by keys asks
  Bytes stored_;
  Plan plan_;
  unsigned long long walked_ = 0, walkedRest_ = 0, hits_ = 0;
};

/// Writes rows, as CSV under a line of names or as JSON objects.
class RowWriter {
public:
  RowWriter(Database & database, bool asJson) : database_(database), asJson_(asJson) {
    for (Column const & column : database.Columns()) {
      values_.push_back(std::make_unique<Value>(column.type));
      numbers_.push_back(asJson && Reader(column.type, column.format).ReadsNumbers());
    }
    if (asJson) {
      json_.Object();
      json_.Key("rows");
      json_.Array();
      return;
    }
    std::string line;
    for (Column const & column : database.Columns())
      line.append(line.empty() ? "" : ",").append(CsvQuoted(column.name));
    zantm::Write(line + "\n");
  }

  void Write(RowNumber number) {
    MDB_val row = database_.Row(number);
    auto at = static_cast<unsigned char *>(row.mv_data);
    std::string line;
    if (asJson_)
      json_.Object();
    for (size_t i = 0; i < values_.size(); ++i) {
      Column const & column = database_.Columns()[i];
      Value & value = *values_[i];
      at += Manager().Load(column.type, value.Data(), at, kStoredFormat, 1);
      bool isNull = value.IsNull();
      std::string text =
          isNull ? "" : value.Print(column.format.empty() ? nullptr : column.format.c_str());
      if (asJson_) {
        json_.Key(column.name);
        if (isNull)
          json_.Null();
        else if (numbers_[i] && IsJsonNumber(text))
          json_.Number(text);
        else
          json_.String(text);
      } else {
        if (i != 0)
          line += ',';
        if (!isNull)
          line += CsvQuoted(text);
      }
    }
    if (!asJson_)
      return zantm::Write(line + "\n");
    json_.End();
    zantm::Write(json_.Take());
  }

  Json & Rest() {
    json_.End();
    return json_;
  }

private:
  Database & database_;
  bool asJson_;
  std::vector<std::unique_ptr<Value>> values_;
  std::vector<bool> numbers_; ///< columns that may be JSON numbers
  Json json_;
};

std::string KeyText(std::optional<Bytes> const & key) {
  return key ? HexOf(key->data(), key->size()) : "open";
}

/// The shortest decimal that stands for the share.
std::string ShareText(float share) {
  char text[32];
  return {text, std::to_chars(text, text + sizeof text, share).ptr};
}

void Explain(Query const & query, unsigned long long rows) {
  Plan const & plan = query.PlanOf();
  Write("# estimated share  " + ShareText(plan.share) + "\n# low key          " +
        KeyText(plan.low) + "\n# high key         " + KeyText(plan.high) + "\n# entries walked   " +
        std::to_string(query.Walked() + query.WalkedRest()) + " of " + std::to_string(rows) +
        "\n# hits             " + std::to_string(query.Hits()) + "\n");
}

void Explain(Query const & query, unsigned long long rows, Json & json) {
  Plan const & plan = query.PlanOf();
  json.Key("explain");
  json.Object();
  json.Key("share");
  json.Number(ShareText(plan.share));
  for (auto [name, key] : {std::pair("lowKey", &plan.low), std::pair("highKey", &plan.high)}) {
    json.Key(name);
    if (*key)
      json.String(KeyText(*key));
    else
      json.Null();
  }
  json.Key("walked");
  json.Number(static_cast<long long>(query.Walked() + query.WalkedRest()));
  json.Key("rows");
  json.Number(static_cast<long long>(rows));
  json.Key("hits");
  json.Number(static_cast<long long>(query.Hits()));
  json.End();
}

void Run(Arguments const & arguments) {
  Database database = Database::Reading(arguments.database);
  Query query(database, ParsePredicate(arguments.condition, database));
  RowWriter writer(database, arguments.json);
  for (RowNumber row; query.Hits() < arguments.limit && query.Next(row);)
    writer.Write(row);
  if (arguments.json) {
    Json & json = writer.Rest();
    if (arguments.explain)
      Explain(query, database.RowCount(), json);
    json.End();
    Write(json.Take() + "\n");
  } else if (arguments.explain) {
    Explain(query, database.RowCount());
  }
}

} // namespace

void AddQuery(CLI::App & app) {
  auto arguments = std::make_shared<Arguments>();
  auto command = app.add_subcommand("query", "Find rows of a database by the index of a column");
  command->add_option("DB", arguments->database, "The database file")->required();
  command
      ->add_option("CONDITION", arguments->condition,
                   "'COLUMN OP VALUE', 'COLUMN is null' or 'COLUMN is not null'")
      ->required();
  command->add_flag("--explain", arguments->explain, "Tell how the index was used");
  command->add_option("--limit", arguments->limit, "Stop after this many rows");
  command->add_flag("--json", arguments->json, "Write JSON");
  AddLabelOptions(*command, arguments->labels);
  command->footer(
      "OP is one of = != < <= > >=. VALUE may stand in quotes. With = and != it may hold the\n"
      "wildcards * and ? in text, and * for a field in dates. Nulls order before all values.\n"
      "Rows are written as CSV under a line of names, in the order of the column.\n\n"
      "Examples:\n  zantm query towns.db 'people >= 100000' --explain\n"
      "  zantm query towns.db 'name = Bad*' --limit 10\n"
      "  zantm query towns.db 'people is null' --json");
  command->callback([arguments] {
    arguments->labels.Apply();
    Run(*arguments);
  });
}

} // namespace zantm
