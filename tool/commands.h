#pragma once

namespace CLI {
class App;
}

/// The commands, each in a file of its own. `Add...` declares the command with its options and
/// help; the command runs, once the whole line is parsed, as the callback of its `CLI::App`.
/// A command ends normally, throws a `Failure`, or leaves an exit code by `EndWith`.

namespace zantm {

void AddTypes(CLI::App & app);
void AddShow(CLI::App & app);
void AddSort(CLI::App & app);
void AddCompare(CLI::App & app);
void AddLoad(CLI::App & app);
void AddQuery(CLI::App & app);
void AddMatch(CLI::App & app);
void AddOrder(CLI::App & app);
void AddLanguages(CLI::App & app);
void AddCodeSets(CLI::App & app);

/// The exit code of a command that did its work and has something to tell by it.
void EndWith(int exitCode);

} // namespace zantm
