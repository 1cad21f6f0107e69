#include "column_index.h"
#include "commands.h"
#include "csv_file.h"
#include "failure.h"
#include "output.h"
#include "progress.h"
#include "reader.h"
#include "text_options.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <limits>
#include <map>
#include <memory>
#include <optional>

/// `zantm load DB CSV --columns NAME:TYPE,...`: a CSV file into a database, whole or not at all.

namespace zantm {

namespace {

constexpr size_t kDefaultMapSize = size_t{1} << 40; ///< address space only
constexpr size_t kSortMemory = size_t{768} << 20;   ///< of all indexes together

struct Arguments {
  std::string database, csv, columns;
  std::vector<std::string> formats;
  size_t mapSize = kDefaultMapSize;
  bool replace = false, noHeader = false;
  LabelOptions labels;
};

std::vector<Column> ParseColumns(std::string const & list) {
  std::vector<Column> columns;
  for (size_t begin = 0; begin <= list.size();) {
    size_t end = std::min(list.find(',', begin), list.size());
    std::string item = list.substr(begin, end - begin);
    size_t colon = item.rfind(':');
    if (colon == std::string::npos || colon == 0)
      throw Failure(ExitUsage, "--columns is NAME:TYPE,NAME:TYPE,...; '" + item + "' is neither");
    Column column{item.substr(0, colon), TypeByName(item.substr(colon + 1)), {}};
    if (column.name.find_first_of("\t\n") != std::string::npos)
      throw Failure(ExitUsage, "a column's name holds no tabs and line ends");
    if (std::any_of(columns.begin(), columns.end(),
                    [&](Column const & other) { return other.name == column.name; }))
      throw Failure(ExitUsage, "two columns are named '" + column.name + "'");
    columns.push_back(column);
    begin = end + 1;
  }
  return columns;
}

void ParseFormats(std::vector<std::string> const & list, std::vector<Column> & columns) {
  for (std::string const & item : list) {
    size_t equals = item.find('=');
    auto column = std::find_if(columns.begin(), columns.end(),
                               [&](Column const & c) { return c.name == item.substr(0, equals); });
    if (equals == std::string::npos || column == columns.end())
      throw Failure(ExitUsage, "--format is COLUMN=FORMAT; '" + item + "' names no column");
    column->format = item.substr(equals + 1);
  }
}

bool SameColumns(std::vector<Column> const & a, std::vector<Column> const & b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](Column const & x, Column const & y) {
    return x.name == y.name && x.type == y.type;
  });
}

/// The columns of one load: where each stands in the file, and how it is read.
class Loader {
public:
  Loader(Database & database, CsvFile & file) : database_(database), file_(file) {
    std::vector<Column> const & columns = database.Columns();
    for (size_t i = 0; i < columns.size(); ++i) {
      readers_.push_back(std::make_unique<Reader>(columns[i].type, columns[i].format));
      values_.push_back(std::make_unique<Value>(columns[i].type));
      builders_.push_back(
          std::make_unique<IndexBuilder>(database, i, kSortMemory / columns.size()));
      sources_.push_back(i);
    }
    next_ = database.RowCount();
    first_ = next_;
  }

  void Run(bool noHeader) {
    Progress progress("reading");
    std::vector<CsvField> fields;
    if (!noHeader && file_.Next(fields) && !TakeHeader(fields))
      LoadRow(fields);
    while (file_.Next(fields)) {
      LoadRow(fields);
      if (next_ % 4096 == 0)
        progress.Show(file_.Progress());
    }
    progress.Clear();
    Progress sorting("sorting");
    std::vector<Column> columns = database_.Columns();
    for (size_t i = 0; i < builders_.size(); ++i) {
      sorting.Show(static_cast<double>(i) / static_cast<double>(builders_.size()));
      builders_[i]->Finish();
      if (readers_[i]->Format() != nullptr)
        columns[i].format = readers_[i]->Format();
    }
    database_.SetFormats(columns);
  }

  RowNumber Loaded() const { return next_ - first_; }

private:
  /// A first record that holds the names of all columns is a header: it tells their places.
  bool TakeHeader(std::vector<CsvField> const & fields) {
    std::vector<size_t> places;
    for (Column const & column : database_.Columns()) {
      auto found = std::find_if(fields.begin(), fields.end(),
                                [&](CsvField const & field) { return field.text == column.name; });
      if (found == fields.end())
        return false;
      places.push_back(found - fields.begin());
    }
    sources_ = places;
    width_ = fields.size();
    return true;
  }

  [[noreturn]] void Refuse(size_t place, std::string const & text) const {
    throw Failure(ExitInput, file_.Name() + ":" + std::to_string(file_.Line()) + ":" +
                                 std::to_string(place + 1) + ": " + text);
  }

  void LoadRow(std::vector<CsvField> const & fields) {
    if (width_ == 0)
      width_ = sources_.size();
    if (fields.size() != width_)
      Refuse(std::min(fields.size(), width_), "the row has " + std::to_string(fields.size()) +
                                                  " fields, not " + std::to_string(width_));
    if (next_ == std::numeric_limits<RowNumber>::max())
      throw Failure(ExitDatabase, database_.Path() + ": has all the rows that it can number");
    row_.clear();
    for (size_t i = 0; i < sources_.size(); ++i) {
      LoadField(fields[sources_[i]], i);
      values_[i]->AppendStored(row_, kStoredFormat);
      builders_[i]->Add(*values_[i], next_);
    }
    database_.AppendRow(next_++, row_);
  }

  void LoadField(CsvField const & field, size_t i) {
    Column const & column = database_.Columns()[i];
    Value & value = *values_[i];
    if (!field.missing) {
      if (readers_[i]->Read(field.text, value))
        return;
      Refuse(sources_[i], "'" + std::string(field.text) + "' is no value of type " +
                              TypeName(column.type) + " (column " + column.name + ")");
    }
    if (Manager().SupportsNullValue(column.type) == 0)
      Refuse(sources_[i], "the value is missing, and type " + TypeName(column.type) +
                              " has no null (column " + column.name + ")");
    Manager().SetNullValue(column.type, value.Data());
  }

  Database & database_;
  CsvFile & file_;
  std::vector<std::unique_ptr<Reader>> readers_;
  std::vector<std::unique_ptr<Value>> values_;
  std::vector<std::unique_ptr<IndexBuilder>> builders_;
  std::vector<size_t> sources_;
  size_t width_ = 0; ///< fields of a record, 0 while not known
  RowNumber next_ = 0, first_ = 0;
  Bytes row_;
};

void Run(Arguments const & arguments) {
  std::vector<Column> columns = ParseColumns(arguments.columns);
  ParseFormats(arguments.formats, columns);
  CsvFile file(arguments.csv);
  Database database = Database::Writing(arguments.database, arguments.mapSize);
  if (database.Columns().empty() || arguments.replace)
    database.MakeTable(columns);
  else if (!SameColumns(database.Columns(), columns))
    throw Failure(ExitInput, arguments.database +
                                 ": holds a table of other columns; --replace takes its place");
  Loader loader(database, file);
  loader.Run(arguments.noHeader);
  database.Commit();
  Write(std::to_string(loader.Loaded()) + (loader.Loaded() == 1 ? " row" : " rows") +
        " loaded into " + arguments.database + "\n");
}

} // namespace

void AddLoad(CLI::App & app) {
  auto arguments = std::make_shared<Arguments>();
  auto command =
      app.add_subcommand("load", "Load a CSV file into a database, every column indexed");
  command->add_option("DB", arguments->database, "The database file; made if absent")->required();
  command->add_option("CSV", arguments->csv, "The data; '-' for standard input")->required();
  command->add_option("--columns", arguments->columns, "NAME:TYPE,NAME:TYPE,...")->required();
  command->add_option("--format", arguments->formats,
                      "COLUMN=FORMAT: scan and print the column by this format; may be repeated");
  command->add_flag("--no-header", arguments->noHeader, "The first record is data in any case");
  command->add_flag("--replace", arguments->replace, "Replace the table that the database holds");
  command->add_option("--map-size", arguments->mapSize,
                      "Largest size of the database in bytes (default: 1 TiB)");
  AddLabelOptions(*command, arguments->labels);
  command->footer(
      "A first record that holds the names of all columns is a header: columns are then found\n"
      "by name and others are left out; else the columns stand in the given order. An empty\n"
      "field without quotes is null. Rows are added to a table of the same columns. The load is\n"
      "one transaction: a bad row is reported as FILE:LINE:FIELD, and nothing is loaded.\n\n"
      "Examples:\n  zantm load towns.db towns.csv --columns name:ZnString,people:o_u4b\n"
      "  zantm load people.db - --columns born:ZnDate --format born=%d.%m.%Y < people.csv");
  command->callback([arguments] {
    arguments->labels.Apply();
    Run(*arguments);
  });
}

} // namespace zantm
