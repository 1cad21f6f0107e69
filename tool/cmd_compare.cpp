#include "commands.h"
#include "output.h"
#include "reader.h"
#include "text_options.h"

#include <CLI/CLI.hpp>

#include <memory>

/// `zantm compare TYPE A B`: how two values order.

namespace zantm {

namespace {

struct Arguments {
  std::string type, a, b, format;
  bool literal = false;
  LabelOptions labels;
  IgnoreOptions ignore;
};

char Sign(int order) { return order < 0 ? '<' : order > 0 ? '>' : '='; }

void Run(Arguments const & arguments) {
  char id = TypeByName(arguments.type);
  Reader reader(id, arguments.format);
  Value a(id), b(id);
  reader.MustRead(arguments.a, a);
  reader.MustRead(arguments.b, b);
  unsigned short flags = arguments.ignore.Flags();
  if (arguments.literal)
    flags |= ZnCmpNoWildcards;
  Write(std::string(1, Sign(a.Compare(b, flags))) + "\n");
}

} // namespace

void AddCompare(CLI::App & app) {
  auto arguments = std::make_shared<Arguments>();
  auto command = app.add_subcommand("compare", "Compare two values: writes <, = or >");
  command->add_option("TYPE", arguments->type, "A type name, such as int or ZnString")->required();
  command->add_option("A", arguments->a, "The first value as text")->required();
  command->add_option("B", arguments->b, "The second value; may hold wildcards in text and dates")
      ->required();
  command->add_option("--format", arguments->format, "Scan by this format, not by the type's own");
  command->add_flag("-l,--literal", arguments->literal, "Take wildcards in B as they stand");
  AddLabelOptions(*command, arguments->labels);
  AddIgnoreOptions(*command, arguments->ignore);
  command->footer("Examples:\n  zantm compare int 9 10\n  zantm compare o_char a b\n"
                  "  zantm compare ZnString Ulm 'U*'\n"
                  "  zantm compare int -- -5 -7");
  command->callback([arguments] {
    arguments->labels.Apply();
    Run(*arguments);
  });
}

} // namespace zantm
