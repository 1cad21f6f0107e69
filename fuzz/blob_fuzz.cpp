#include "zantms.h"

#include "zanbs.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

/// A stored unit of any bytes: loaded, compared, hashed, translated and measured, with a total
/// that stays within the bytes at hand, as their holder sees to. The first byte tells the format,
/// the second the number of blobs, the third where a second unit begins.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
  constexpr std::size_t kHead = 3;
  if (size < kHead + 8)
    return 0;
  unsigned char const format = data[0] % 2 ? ZnFormatBigEndian : ZnFormatLittleEndian;
  unsigned int const count = data[1] % 8;
  std::size_t const bytes = size - kHead;
  std::size_t const first = 4 + data[2] % (bytes - 7);

  // Each unit in an allocation of its own, so that a byte read behind it is found.
  auto const unitOf = [&](std::size_t from, std::size_t length) {
    std::unique_ptr<char[]> unit(new char[length]);
    std::memcpy(unit.get(), data + kHead + from, length);
    return unit;
  };
  std::unique_ptr<char[]> const a = unitOf(0, first);
  std::unique_ptr<char[]> const b = unitOf(first, bytes - first);
  auto const lengthA = static_cast<unsigned int>(first);
  auto const lengthB = static_cast<unsigned int>(bytes - first);

  ZnTypeMgr const mgr;
  int error = 0;
  int const order = mgr.Cmp(ZnBLOB_T, lengthA, a.get(), lengthB, b.get(), 0, count, format, error);
  int const back = mgr.Cmp(ZnBLOB_T, lengthB, b.get(), lengthA, a.get(), 0, count, format, error);
  if ((order > 0) != (back < 0) || (order < 0) != (back > 0) || error != 0)
    std::abort();
  mgr.Hash(ZnBLOB_T, lengthA, a.get(), count, format, error);
  MemFile file(a.get(), lengthA);
  mgr.DiskLenGetFromMemFile(ZnBLOB_T, &file, format, count);

  unsigned int total;
  LongStore(&total, a.get(), format, 1);
  if (total > lengthA - 4 && static_cast<int>(total) >= 0) {
    total = lengthA - 4;
    LongStore(a.get(), &total, format, 1);
  }
  std::unique_ptr<ZnBlob[]> const blobs(new ZnBlob[8]);
  unsigned int const loaded = mgr.Load(ZnBLOB_T, blobs.get(), a.get(), format, count);
  if (loaded != 0 && loaded != total + 4)
    std::abort();
  if (loaded != 0) { // what was loaded stores, loads and compares as equal
    std::string unit(mgr.DiskLenGet(ZnBLOB_T, blobs.get(), format, count, ZnFormatMemory), '\0');
    if (mgr.Translate(ZnBLOB_T, unit.data(), format, 0, blobs.get(), ZnFormatMemory, 0, count) !=
        unit.size())
      std::abort();
    std::unique_ptr<ZnBlob[]> const again(new ZnBlob[8]);
    mgr.Translate(ZnBLOB_T, again.get(), ZnFormatMemory, 0, unit.data(), format, 0, count);
    if (mgr.Cmp(ZnBLOB_T, blobs.get(), again.get(), 0, count, ZnFormatMemory) != 0)
      std::abort();
  }
  std::string target(data[2], 'x');
  mgr.Translate(ZnBLOB_T, target.data(), format, data[2], a.get(), format, lengthA, count);

  // Search and edits by numbers from the input.
  ZnBlob & blob = blobs[0];
  std::size_t const patternLength = std::min<std::size_t>(data[1], lengthB);
  ZnBlob const pattern(b.get(), static_cast<int>(patternLength));
  blob.SetTo(a.get(), static_cast<int>(lengthA));
  std::size_t const found =
      std::string_view(a.get(), lengthA).find(std::string_view(b.get(), patternLength));
  if (blob.Search(pattern) != (found == std::string_view::npos ? 65535 : static_cast<int>(found)))
    std::abort();
  int offset;
  int length;
  std::memcpy(&offset, b.get(), 4);
  std::memcpy(&length, data + size - 4, 4);
  ZnBlob const selected = blob.CopyFrom(offset % 64, length);
  blob.CopyTo(pattern, offset, length);
  blob.Seek(offset, length);
  blob.Cut(offset % 64, length);
  blob.Append(selected);
  blob.Resize(static_cast<unsigned int>(length) % 512);
  blob.Expand(offset % 512);
  return 0;
}
