#include "commands.h"

#include "failure.h"
#include "output.h"

#include <zantms.h>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <csignal>

/// The command `zantm`: what the type manager knows and can do, for people and scripts.
///
///     zantm show int 42
///     zantm load towns.db towns.csv --columns name:ZnString,people:o_u4b
///     zantm query towns.db 'people >= 100000' --explain

namespace {

int exitCode = zantm::ExitDone;

} // namespace

void zantm::EndWith(int code) { exitCode = code; }

int main(int argc, char ** argv) {
  std::signal(SIGPIPE, SIG_DFL); // a reader that has seen enough ends us without a word
  ___ZnTypemgrContext(1);

  CLI::App app("The type manager's values on the command line: show, compare, sort, load and query "
               "them.",
               "zantm");
  app.set_version_flag("--version", "zantm " ZANTMS_VERSION);
  app.set_help_all_flag("--help-all", "Help of all commands");
  app.require_subcommand(1);
  app.footer("Exit codes: 0 done; 1 'match' found nothing, or 'sort' kept lines aside; 2 wrong\n"
             "arguments; 3 an input that cannot be what it should be; 4 a file or database that\n"
             "cannot be read or written. Errors are one line on standard error.\n"
             "\n"
             "Examples:\n"
             "  zantm types\n"
             "  zantm show int 42\n"
             "  zantm load towns.db towns.csv --columns name:ZnString,people:o_u4b\n"
             "  zantm query towns.db 'people >= 100000' --explain\n"
             "  zantm COMMAND --help");
  zantm::AddTypes(app);
  zantm::AddShow(app);
  zantm::AddSort(app);
  zantm::AddCompare(app);
  zantm::AddLoad(app);
  zantm::AddQuery(app);
  zantm::AddMatch(app);
  zantm::AddOrder(app);
  zantm::AddLanguages(app);
  zantm::AddCodeSets(app);

  try {
    auto commands = app.get_subcommands([](CLI::App *) { return true; });
    auto isNamed = [&](CLI::App * command) { return command->get_name() == argv[1]; };
    if (argc > 1 && argv[1][0] != '-' && std::none_of(commands.begin(), commands.end(), isNamed))
      throw zantm::Failure(zantm::ExitUsage, "no command is named '" + std::string(argv[1]) + "'");
    app.parse(argc, argv);
    zantm::Flush();
  } catch (CLI::Success const & success) {
    exitCode = app.exit(success);
  } catch (CLI::Error const & error) {
    zantm::Report(std::string(error.what()) + "; 'zantm --help' tells more");
    exitCode = zantm::ExitUsage;
  } catch (zantm::Failure const & failure) {
    zantm::Report(failure.what());
    exitCode = failure.code;
  } catch (std::exception const & error) {
    zantm::Report(error.what());
    exitCode = zantm::ExitDatabase;
  }
  ___ZnTypemgrContext(0);
  return exitCode;
}
