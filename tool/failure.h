#pragma once

#include <stdexcept>
#include <string>

/// How a command ends.
///
/// A command that cannot go on throws a `Failure`; `main` prints its text on standard error as
/// one line, `zantm: TEXT`, and ends with its exit code.

namespace zantm {

/// Exit codes, part of the interface of the command.
enum ExitCode : int {
  ExitDone = 0,
  ExitNo = 1,       ///< `match` found nothing, or `sort` kept lines aside
  ExitUsage = 2,    ///< wrong arguments
  ExitInput = 3,    ///< a text, row, type or column that cannot be what it should be
  ExitDatabase = 4, ///< a file or database cannot be read or written
};

class Failure : public std::runtime_error {
public:
  Failure(ExitCode exitCode, std::string const & text) : std::runtime_error(text), code(exitCode) {}
  ExitCode code;
};

} // namespace zantm
