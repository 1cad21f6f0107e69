#pragma once

#include "zantms.h"

#include <string>
#include <vector>

/// What the tests of stored forms share.

/// Bytes as hexadecimal digits.
inline std::string Hex(void const * bytes, std::size_t length) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::string hex;
  for (std::size_t i = 0; i < length; ++i) {
    auto const byte = static_cast<unsigned char const *>(bytes)[i];
    hex.push_back(kDigits[byte >> 4]);
    hex.push_back(kDigits[byte & 15]);
  }
  return hex;
}

/// The bytes that `Store` writes, into a buffer of exactly the size that `DiskLenGet` tells.
inline std::vector<char> Stored(ZnTypeMgr const & mgr, char id, void const * values,
                                unsigned char format, unsigned int count) {
  std::vector<char> bytes(mgr.DiskLenGet(id, values, format, count, ZnFormatMemory));
  bytes.resize(mgr.Store(id, bytes.data(), values, format, count));
  return bytes;
}

inline std::string StoredHex(ZnTypeMgr const & mgr, char id, void const * values,
                             unsigned char format, unsigned int count) {
  std::vector<char> const bytes = Stored(mgr, id, values, format, count);
  return Hex(bytes.data(), bytes.size());
}
