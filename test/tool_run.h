#pragma once

#include <gtest/gtest.h>

#include <fcntl.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

/// Runs the command `zantm` as its users do, in a directory of its own.
///
/// Worked example: `Run({"show", "int", "42"}).out` begins with "type    int".

namespace tool_test {

struct Result {
  int code; ///< exit code, or minus the signal that ended it
  std::string out, err;
};

class ToolTest : public testing::Test {
protected:
  void SetUp() override {
#ifndef ZANTM_BINARY
    GTEST_SKIP() << "the command is not part of this build";
#else
    std::string pattern = testing::TempDir() + "zantm.XXXXXX";
    ASSERT_NE(mkdtemp(pattern.data()), nullptr);
    directory_ = pattern;
#endif
  }
  void TearDown() override {
    if (!directory_.empty())
      std::filesystem::remove_all(directory_);
  }

  std::string File(std::string const & name) const { return directory_ + "/" + name; }
  std::string Written(std::string const & name, std::string const & text) const {
    std::ofstream(File(name), std::ios::binary) << text;
    return File(name);
  }
  static std::string Read(std::string const & path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
  }

  /// Starts the command; `fileLimit` is the largest file that it may write, 0 for no limit.
  pid_t Start(std::vector<std::string> arguments, rlim_t fileLimit = 0) const {
#ifdef ZANTM_BINARY
    arguments.insert(arguments.begin(), ZANTM_BINARY);
#endif
    std::vector<char *> list;
    for (std::string & argument : arguments)
      list.push_back(argument.data());
    list.push_back(nullptr);
    pid_t child = fork();
    if (child != 0)
      return child;
    auto redirect = [&](char const * name, int flags, int to) {
      dup2(open(File(name).c_str(), flags, 0600), to);
    };
    redirect("in", O_RDONLY | O_CREAT, STDIN_FILENO);
    redirect("out", O_WRONLY | O_CREAT | O_TRUNC, STDOUT_FILENO);
    redirect("err", O_WRONLY | O_CREAT | O_TRUNC, STDERR_FILENO);
    if (fileLimit != 0) {
      rlimit limit{fileLimit, fileLimit};
      setrlimit(RLIMIT_FSIZE, &limit);
      signal(SIGXFSZ, SIG_IGN);
    }
    execv(list[0], list.data());
    _exit(127);
  }

  Result Finish(pid_t child) const {
    int status = 0;
    waitpid(child, &status, 0);
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status), Read(File("out")),
            Read(File("err"))};
  }

  Result Run(std::vector<std::string> const & arguments, std::string const & input = {}) const {
    Written("in", input);
    return Finish(Start(arguments));
  }

  std::string directory_;
};

inline std::vector<std::string> Lines(std::string const & text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);)
    lines.push_back(line);
  return lines;
}

/// Errors are one line that begins with the command's name.
inline void ExpectOneErrorLine(Result const & result) {
  EXPECT_EQ(Lines(result.err).size(), 1u) << result.err;
  EXPECT_TRUE(result.err.starts_with("zantm: ")) << result.err;
}

} // namespace tool_test
