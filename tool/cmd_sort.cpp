#include "commands.h"
#include "failure.h"
#include "lines.h"
#include "output.h"
#include "reader.h"
#include "text_options.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <memory>

/// `zantm sort TYPE [FILE]`: lines in the order of a type's values.

namespace zantm {

namespace {

struct Arguments {
  std::string type, file, format;
  bool reverse = false;
  LabelOptions labels;
  IgnoreOptions ignore;
};

struct Line {
  std::string text;
  std::unique_ptr<Value> value;
};

void Run(Arguments const & arguments) {
  char id = TypeByName(arguments.type);
  Reader reader(id, arguments.format);
  LineReader input(arguments.file);
  std::vector<Line> lines;
  unsigned long long aside = 0;
  for (std::string text; input.Next(text);) {
    auto value = std::make_unique<Value>(id);
    if (reader.Read(text, *value)) {
      lines.push_back({text, std::move(value)});
    } else {
      ++aside;
      Report(Place(input) + ": '" + text + "' is no value of type " + arguments.type);
    }
  }
  auto flags = static_cast<unsigned short>(ZnCmpNoWildcards | arguments.ignore.Flags());
  std::stable_sort(lines.begin(), lines.end(), [&](Line const & a, Line const & b) {
    int order = a.value->Compare(*b.value, flags);
    return arguments.reverse ? order > 0 : order < 0;
  });
  for (Line const & line : lines)
    Write(line.text + "\n");
  if (aside != 0) {
    Report(std::to_string(aside) + (aside == 1 ? " line was" : " lines were") + " kept aside");
    EndWith(ExitNo);
  }
}

} // namespace

void AddSort(CLI::App & app) {
  auto arguments = std::make_shared<Arguments>();
  auto command = app.add_subcommand("sort", "Sort lines as values of a type");
  command->add_option("TYPE", arguments->type, "A type name, such as int or ZnString")->required();
  command->add_option("FILE", arguments->file, "The lines; standard input if absent or '-'");
  command->add_option("--format", arguments->format, "Scan by this format, not by the type's own");
  command->add_flag("-r,--reverse", arguments->reverse, "Last value first");
  AddLabelOptions(*command, arguments->labels);
  AddIgnoreOptions(*command, arguments->ignore);
  command->footer(
      "A line that is no value of the type is reported with its number on standard\n"
      "error, is not written, and makes the exit code 1. Equal values keep the order\n"
      "of their lines.\n\n"
      "Examples:\n  zantm sort int numbers.txt\n  zantm sort ZnString --language sv < words.txt");
  command->callback([arguments] {
    arguments->labels.Apply();
    Run(*arguments);
  });
}

} // namespace zantm
