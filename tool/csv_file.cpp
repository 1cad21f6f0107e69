#include "csv_file.h"

#include "failure.h"

#include <csv.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace zantm {

namespace {

constexpr size_t kBufferSize = 256 * 1024;

constexpr int kBetweenRecords = 0; ///< state of the parser while no record has begun

int NoSpace(unsigned char) { return 0; } // spaces belong to the field

} // namespace

CsvFile::CsvFile(std::string const & path)
    : name_(path == "-" ? "standard input" : path),
      file_(path == "-" ? STDIN_FILENO : open(path.c_str(), O_RDONLY | O_CLOEXEC)),
      parser_(new csv_parser), buffer_(kBufferSize) {
  if (file_ < 0) {
    delete parser_;
    throw Failure(ExitDatabase, path + ": " + std::strerror(errno));
  }
  struct stat status {};
  if (fstat(file_, &status) == 0 && S_ISREG(status.st_mode))
    size_ = status.st_size;
  csv_init(parser_, CSV_STRICT | CSV_STRICT_FINI | CSV_EMPTY_IS_NULL);
  csv_set_space_func(parser_, NoSpace);
}

CsvFile::~CsvFile() {
  csv_free(parser_);
  delete parser_;
  if (file_ != STDIN_FILENO)
    close(file_);
}

double CsvFile::Progress() const {
  return size_ == 0 ? 0 : static_cast<double>(read_ - (end_ - begin_)) / static_cast<double>(size_);
}

/// The next piece up to a line end, or a full buffer without one; false at the end of the file.
bool CsvFile::ReadLine(std::string_view & line) {
  for (size_t searched = begin_;;) {
    char * from = buffer_.data() + searched;
    auto found = static_cast<char *>(std::memchr(from, '\n', end_ - searched));
    size_t length = found != nullptr ? found + 1 - (buffer_.data() + begin_) : end_ - begin_;
    if (found != nullptr || atEnd_ || length == buffer_.size()) {
      line = {buffer_.data() + begin_, length};
      begin_ += length;
      return length != 0;
    }
    std::memmove(buffer_.data(), buffer_.data() + begin_, length);
    begin_ = 0;
    end_ = searched = length;
    ssize_t got = read(file_, buffer_.data() + end_, buffer_.size() - end_);
    if (got < 0 && errno == EINTR)
      continue;
    if (got < 0)
      throw Failure(ExitDatabase, name_ + ": " + std::strerror(errno));
    atEnd_ = got == 0;
    end_ += got;
    read_ += got;
  }
}

void CsvFile::TakeField(void * text, size_t length) {
  texts_.append(static_cast<char const *>(text), length);
  marks_.push_back({texts_.size(), text == nullptr});
}

bool CsvFile::Next(std::vector<CsvField> & fields) {
  auto onField = [](void * text, size_t length, void * self) {
    static_cast<CsvFile *>(self)->TakeField(text, length);
  };
  auto onRecord = [](int, void * self) { static_cast<CsvFile *>(self)->complete_ = true; };
  texts_.clear();
  marks_.clear();
  complete_ = false;
  recordLine_ = line_ + 1;
  for (std::string_view line; !complete_;) {
    if (!ReadLine(line)) {
      if (csv_fini(parser_, onField, onRecord, this) != 0)
        throw Failure(ExitInput,
                      name_ + ":" + std::to_string(recordLine_) + ": a quoted field has no end");
      if (!complete_)
        return false;
      break;
    }
    if (line_ == 0 && line.starts_with("\xEF\xBB\xBF"))
      line.remove_prefix(3); // byte order mark
    bool ended = line.ends_with('\n');
    if (csv_parse(parser_, line.data(), line.size(), onField, onRecord, this) != line.size())
      throw Failure(ExitInput,
                    name_ + ":" + std::to_string(line_ + 1) + ": a quote stands where none may be");
    if (ended)
      ++line_;
    if (parser_->pstate == kBetweenRecords && !complete_)
      recordLine_ = line_ + 1; // empty line
  }
  fields.clear();
  size_t begin = 0;
  for (Mark const & mark : marks_) {
    fields.push_back({std::string_view(texts_).substr(begin, mark.end - begin), mark.missing});
    begin = mark.end;
  }
  return true;
}

} // namespace zantm
