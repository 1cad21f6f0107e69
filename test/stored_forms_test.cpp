#include "zantms.h"

#include "stored_support.h"
#include "zanbs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <set>
#include <string>
#include <utility>
#include <vector>

// Every stored form stays as data/stored_forms.txt, which tells the form of its lines, has it.

namespace {

struct Line {
  int number;
  std::string type;
  unsigned int factory = 5;
  unsigned char format;
  std::string scanFormat;
  std::vector<std::string> values;
  std::string bytes;
};

std::string Trimmed(std::string const & text) {
  std::size_t const first = text.find_first_not_of(' ');
  return first == std::string::npos ? ""
                                    : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::vector<std::string> Split(std::string const & text, std::string const & separator) {
  std::vector<std::string> parts;
  std::size_t from = 0;
  for (;;) {
    std::size_t const to = text.find(separator, from);
    parts.push_back(Trimmed(text.substr(from, to - from)));
    if (to == std::string::npos)
      return parts;
    from = to + separator.size();
  }
}

std::vector<Line> Lines() {
  std::ifstream file(ZANTMS_TEST_DATA "/stored_forms.txt");
  std::vector<Line> lines;
  std::string text;
  for (int number = 1; std::getline(file, text); ++number) {
    if (text.empty() || text.front() == '#')
      continue;
    std::vector<std::string> const parts = Split(text, " | ");
    if (parts.size() != 5) {
      ADD_FAILURE() << "line " << number << " has " << parts.size() << " fields";
      continue;
    }
    Line line;
    line.number = number;
    line.type = parts[0].substr(0, parts[0].find('/'));
    if (line.type != parts[0])
      line.factory = static_cast<unsigned int>(std::stoul(parts[0].substr(line.type.size() + 1)));
    line.format = static_cast<unsigned char>(std::stoul(parts[1], nullptr, 0));
    line.scanFormat = parts[2];
    line.values = Split(parts[3], " & ");
    line.bytes = parts[4];
    lines.push_back(line);
  }
  return lines;
}

/// An array of values of one type, deleted with the object.
class Values {
public:
  Values(ZnTypeMgr const & mgr, char id, unsigned int count)
      : mgr_(mgr), id_(id), count_(count), values_(mgr.Create(id, count)) {}
  ~Values() { mgr_.Delete(id_, values_, count_); }
  Values(Values const &) = delete;
  Values & operator=(Values const &) = delete;
  void * All() const { return values_; }
  void * At(unsigned int i) const { return mgr_.GetArrayElement(id_, values_, i, count_); }

private:
  ZnTypeMgr const & mgr_;
  char id_;
  unsigned int count_;
  void * values_;
};

void SetBlob(ZnBlob & blob, std::string const & value) {
  if (value == "{NULL}") {
    blob.SetNullValue();
    return;
  }
  std::string bytes;
  for (std::size_t i = 0; value != "-" && i + 1 < value.size(); i += 2)
    bytes.push_back(static_cast<char>(std::stoi(value.substr(i, 2), nullptr, 16)));
  blob.SetTo(bytes.data(), static_cast<int>(bytes.size()));
}

void Check(Line const & line) {
  SCOPED_TRACE("line " + std::to_string(line.number));
  ZnTypeMgr const mgr(line.factory);
  char id = 0;
  ASSERT_EQ(mgr.Name2ZnTypeId(line.type.c_str(), id), 0) << line.type;
  auto const count = static_cast<unsigned int>(line.values.size());
  Values const values(mgr, id, count);
  for (unsigned int i = 0; i < count; ++i) {
    if (id == ZnBLOB_T) {
      SetBlob(*static_cast<ZnBlob *>(values.At(i)), line.values[i]);
    } else {
      ZnString text(line.values[i].c_str());
      mgr.ScanFromZnString(id, values.At(i), text,
                           line.scanFormat == "-" ? nullptr : line.scanFormat.c_str(), 1);
    }
  }

  std::vector<char> stored = Stored(mgr, id, values.All(), line.format, count);
  ASSERT_EQ(Hex(stored.data(), stored.size()), line.bytes);
  auto const size = static_cast<unsigned int>(stored.size());
  EXPECT_EQ(mgr.DiskLenGet(id, stored.data(), line.format, count, line.format), size);
  MemFile file(stored.data(), size);
  EXPECT_EQ(mgr.DiskLenGetFromMemFile(id, &file, line.format, count), size);

  Values const back(mgr, id, count);
  EXPECT_EQ(mgr.Load(id, back.All(), stored.data(), line.format, count), size);
  EXPECT_EQ(mgr.Cmp(id, values.All(), back.All(), 0x10, count, ZnFormatMemory), 0);
  EXPECT_EQ(StoredHex(mgr, id, back.All(), line.format, count), line.bytes);
  int error = -1;
  EXPECT_EQ(mgr.Cmp(id, size, stored.data(), size, stored.data(), 0x10, count, line.format, error),
            0);
  EXPECT_EQ(error, 0);
}

TEST(StoredForms, StayAsTheyAre) {
  for (Line const & line : Lines())
    Check(line);
}

TEST(StoredForms, HoldEveryTypeInBothByteOrders) {
  std::set<std::pair<std::string, int>> held;
  for (Line const & line : Lines())
    held.insert({line.type, line.format & 15});
  ZnTypeMgr const mgr;
  for (char id = 0; id < ZnRES_T; ++id)
    for (int const order : {1, 2}) {
      std::string const name = mgr.NameGet(id);
      EXPECT_EQ(held.count({name, order}), 1u) << name << " in byte order " << order;
    }
}

} // namespace
