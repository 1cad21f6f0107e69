#include "zanbs.h"

#include <cstddef>
#include <cstdint>
#include <string>

/// A configuration file of any bytes, asked for the keys of the seeds and for its own first line.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
  MemFile file(data, static_cast<unsigned int>(size));
  ZnFileConfig const config(file);
  ZnConfigName const debug = {"debug", 0, 0, 0};
  ZnConfigName const * const sections[] = {&debug, nullptr};
  std::string const text(reinterpret_cast<char const *>(data), size);
  std::string const first = text.substr(0, text.find_first_of("=\n"));
  for (char const * key : {"key", "stringOverflow", first.c_str()}) {
    for (ZnConfigName const * const * where : {sections + 1, sections + 0}) {
      long long number = 0;
      double fraction = 0;
      unsigned short flag = 0;
      config.GetNumber(key, &number, where);
      config.GetDouble(key, &fraction, where);
      config.GetFlag(key, &flag, where);
    }
    unsigned short flag = 0;
    config.GetFlag(key, &flag, nullptr);
  }
  return 0;
}
