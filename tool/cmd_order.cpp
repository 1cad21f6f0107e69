#include "commands.h"
#include "order_picture.h"
#include "output.h"
#include "text.h"
#include "text_options.h"

#include <CLI/CLI.hpp>

#include <memory>

/// `zantm order TEXT`: the order numbers of a text.

namespace zantm {

void AddOrder(CLI::App & app) {
  struct Arguments {
    std::string text;
    LabelOptions labels;
  };
  auto arguments = std::make_shared<Arguments>();
  auto command = app.add_subcommand("order", "Show the order numbers of a text and what they say");
  command->add_option("TEXT", arguments->text, "Any text")->required();
  AddLabelOptions(*command, arguments->labels);
  command->footer("A character that expands has several units, a contraction one for several\n"
                  "characters. Only classes below 20 have fields in their numbers.\n\n"
                  "Examples:\n  zantm order 'Ærø 7'\n  zantm order --language sv åäö");
  command->callback([arguments] {
    arguments->labels.Apply();
    ZnString text = ZnStringOf(arguments->text);
    Write(UnitTable(text, ""));
  });
}

} // namespace zantm
