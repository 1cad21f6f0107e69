#include "zanbs.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

namespace {

constexpr char kText[] = "hello";

/// The bytes that a seek tells, or "-" for none.
std::string Told(MemFile & file, long long offset, int mode, unsigned int wanted) {
  unsigned int length = wanted;
  void * const bytes = file.Seek(offset, mode, &length, 0);
  if (bytes == nullptr)
    return length == 0 ? "-" : "null with a length";
  return {static_cast<char *>(bytes), length};
}

} // namespace

TEST(MemFile, SeekTellsWhatIsThere) {
  MemFile file(kText, 5);
  struct {
    long long offset;
    int mode;
    unsigned int wanted;
    char const * told;
    unsigned int position;
  } const steps[] = {
      {0, MemFile::FromCurrent, 2, "he", 0},
      {2, MemFile::FromCurrent, 10, "llo", 2},
      {4, MemFile::FromCurrent, 1, "-", 2},
      {-3, MemFile::FromCurrent, 1, "-", 2},
      {-1, MemFile::FromCurrent, 1, "e", 1},
      {-1, MemFile::FromEnd, 9, "o", 4},
      {1, MemFile::FromEnd, 1, "-", 4},
      {0, MemFile::FromEnd, 1, "-", 5},
      {0, MemFile::FromCurrent, 1, "-", 5},
      {3, MemFile::FromStart, 0, "", 3},
      {INT64_MAX, MemFile::FromCurrent, 1, "-", 3},
      {INT64_MIN, MemFile::FromEnd, 1, "-", 3},
      {0, 7, 1, "-", 3},
      {0, MemFile::FromStart, 0xFFFFFFFF, "hello", 0},
  };
  for (auto const & step : steps) {
    EXPECT_EQ(Told(file, step.offset, step.mode, step.wanted), step.told);
    EXPECT_EQ(file.position, step.position);
  }
  file.position = 77; // callers may write the field
  EXPECT_EQ(Told(file, 0, MemFile::FromCurrent, 1), "-");
}

TEST(MemFile, ReadsAFileWhole) {
  std::string const path = testing::TempDir() + "zanbs_memfile_test";
  for (std::size_t const size : {0u, 1u, 4095u, 4096u, 4097u, 100000u}) {
    std::string content(size, '\0');
    for (std::size_t i = 0; i < size; ++i)
      content[i] = static_cast<char>(i * 7);
    std::FILE * const out = std::fopen(path.c_str(), "wb");
    ASSERT_NE(out, nullptr);
    std::fwrite(content.data(), 1, size, out);
    std::fclose(out);
    MemFile file(path.c_str());
    EXPECT_TRUE(file.IsOpen());
    ASSERT_EQ(file.size, size);
    EXPECT_EQ(Told(file, 0, MemFile::FromStart, file.size), size == 0 ? "-" : content);
  }
  std::remove(path.c_str());
}

TEST(MemFile, WithoutBytesIsEmpty) {
  MemFile files[] = {MemFile(), MemFile(nullptr, 9), MemFile("/"), MemFile("/no/such/file")};
  for (MemFile & file : files) {
    EXPECT_FALSE(file.IsOpen());
    EXPECT_EQ(file.size, 0u);
    EXPECT_EQ(Told(file, 0, MemFile::FromCurrent, 5), "-");
  }
}
