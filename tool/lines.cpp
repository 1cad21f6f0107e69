#include "lines.h"

#include "failure.h"

#include <cerrno>
#include <cstring>
#include <iostream>

namespace zantm {

LineReader::LineReader(std::string const & path)
    : name_(path.empty() || path == "-" ? "standard input" : path), stream_(&std::cin) {
  if (name_ != path)
    return;
  file_.open(path, std::ios::binary);
  if (!file_)
    throw Failure(ExitDatabase, path + ": " + std::strerror(errno));
  stream_ = &file_;
}

bool LineReader::Next(std::string & line) {
  if (!std::getline(*stream_, line)) {
    if (stream_->bad())
      throw Failure(ExitDatabase, name_ + ": cannot be read");
    return false;
  }
  ++number_;
  if (!line.empty() && line.back() == '\r')
    line.pop_back();
  return true;
}

std::string Place(LineReader const & reader) {
  return reader.Name() + ":" + std::to_string(reader.Number());
}

} // namespace zantm
