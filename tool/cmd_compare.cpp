#include "commands.h"
#include "failure.h"
#include "order_picture.h"
#include "output.h"
#include "reader.h"
#include "text.h"
#include "text_options.h"

#include <CLI/CLI.hpp>

#include <memory>

/// `zantm compare TYPE A B`: how two values order.

namespace zantm {

namespace {

struct Arguments {
  std::string type, a, b, format;
  bool literal = false, explain = false;
  LabelOptions labels;
  IgnoreOptions ignore;
};

char Sign(int order) { return order < 0 ? '<' : order > 0 ? '>' : '='; }

/// Tells the units of both texts and what each level of the comparison says, with wildcards as
/// they stand.
void Explain(Value const & a, Value const & b, unsigned short flags) {
  ZnString textA = ZnStringOf(a.Print()), textB = ZnStringOf(b.Print());
  std::string picture =
      "first\n" + UnitTable(textA, "  ") + "second\n" + UnitTable(textB, "  ") + "levels\n";
  for (LevelResult const & level : LevelsOf(textA, textB, flags))
    picture += std::string("  ") + (level.reached ? Sign(level.order) : ' ') + "  " + level.level +
               (level.reached ? "\n" : ": not reached\n");
  Write(picture);
}

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
  if (!arguments.explain)
    return;
  if (!reader.ReadsAnyText())
    throw Failure(ExitUsage,
                  "--explain tells how texts compare; " + arguments.type + " is no type of texts");
  Explain(a, b, arguments.ignore.Flags());
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
  command->add_flag("--explain", arguments->explain,
                    "Show the units of two texts, and how they compare level by level");
  AddLabelOptions(*command, arguments->labels);
  AddIgnoreOptions(*command, arguments->ignore);
  command->footer("Examples:\n  zantm compare int 9 10\n  zantm compare o_char a b\n"
                  "  zantm compare ZnString Ulm 'U*'\n"
                  "  zantm compare ZnString --explain résumé Resume\n  zantm compare int -- -5 -7");
  command->callback([arguments] {
    arguments->labels.Apply();
    Run(*arguments);
  });
}

} // namespace zantm
