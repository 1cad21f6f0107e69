#include "commands.h"
#include "failure.h"
#include "lines.h"
#include "output.h"
#include "text.h"
#include "text_options.h"
#include "value.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <vector>

/// `zantm match PATTERN [FILE...]`: the lines that match a pattern with wildcards, in the order of
/// a language.

namespace zantm {

namespace {

struct Arguments {
  std::string pattern;
  std::vector<std::string> files;
  bool numbers = false;
  LabelOptions labels;
  IgnoreOptions ignore;
};

void Run(Arguments const & arguments) {
  ZnString pattern = ZnStringOf(arguments.pattern), text;
  unsigned short flags = arguments.ignore.Flags();
  bool found = false, named = arguments.files.size() > 1;
  std::vector<std::string> files = arguments.files;
  if (files.empty())
    files.push_back("-");
  for (std::string const & file : files) {
    LineReader input(file);
    for (std::string line; input.Next(line);) {
      if (!FromUtf8(line, text)) {
        Report(Place(input) + ": the line cannot be held as text and was passed over");
        continue;
      }
      if (Manager().Cmp(ZnSTRING_T, &text, &pattern, flags, 1, ZnFormatMemory) != 0)
        continue;
      found = true;
      if (named)
        Write(input.Name() + ":");
      if (arguments.numbers)
        Write(std::to_string(input.Number()) + ":");
      Write(line + "\n");
    }
  }
  if (!found)
    EndWith(ExitNo);
}

} // namespace

void AddMatch(CLI::App & app) {
  auto arguments = std::make_shared<Arguments>();
  auto command = app.add_subcommand("match", "Find lines by a pattern with wildcards");
  command
      ->add_option("PATTERN", arguments->pattern,
                   "What a whole line must match: * stands for any text, ? for one character")
      ->required();
  command->add_option("FILE", arguments->files, "The lines; standard input if absent or '-'");
  command->add_flag("-n,--number", arguments->numbers, "Write the number of each line");
  AddLabelOptions(*command, arguments->labels);
  AddIgnoreOptions(*command, arguments->ignore);
  command->footer(
      "Exit code 1 if no line matches.\n\n"
      "Examples:\n  zantm match '*ung' /usr/share/dict/ngerman\n"
      "  zantm match -i -a 'creme*' recipes.txt\n  zantm match -s 'ice cream' menu.txt");
  command->callback([arguments] {
    arguments->labels.Apply();
    Run(*arguments);
  });
}

} // namespace zantm
