#include "zncontext.h"

#include "zanbs.h"
#include "zanin.h"
#include "zntypemgr.h"

#include <charconv>
#include <cstring>

/// Start, stop and self-description.

namespace {

constexpr unsigned int kVersion[] = {1, 0, 0, 0, 0}; // major, minor, patch, build, revision
constexpr char const * kDisplayName = "Zantry Typemanager";
constexpr char const * kModuleName = "zantms";
#if defined(__clang__)
constexpr char const * kCompiler = "clang++";
constexpr unsigned int kCompilerVersion = __clang_major__ * 100 + __clang_minor__;
#else
constexpr char const * kCompiler = "g++";
constexpr unsigned int kCompilerVersion = __GNUC__ * 100 + __GNUC_MINOR__;
#endif
constexpr char const * kBuildDate = __DATE__;
constexpr char const * kBuildTime = __DATE__ " " __TIME__;

constinit ZnTypeMgr * defaultMgr = nullptr;

/// Display name, a blank, the numbers of the version joined by points, a blank.
char * ComposeName() {
  static constinit char buffer[256] = {};
  char * at = buffer + std::strlen(std::strcpy(buffer, kDisplayName));
  char separator = ' ';
  for (unsigned int const number : kVersion) {
    *at++ = separator;
    at = std::to_chars(at, at + 10, number).ptr;
    separator = '.';
  }
  std::strcpy(at, " ");
  return buffer;
}

/// Writes what the caller asks for.
template <class Item>
void Give(Item * out, Item item) {
  if (out != nullptr)
    *out = item;
}

} // namespace

void ___ZnTypemgrContext(int start) {
  ___ZnI18NContext(start);
  if (start != 0) {
    defaultMgr = new ZnTypeMgr(5);
    return;
  }
  delete defaultMgr;
  defaultMgr = nullptr;
}

ZnTypeMgr * DefaultTypeMgr(ZnTypeMgr * mgr) {
  ZnTypeMgr * const old = defaultMgr;
  if (mgr != nullptr)
    defaultMgr = mgr;
  return old;
}

void GetZnTypeMgrInfo(char const ** compiler, unsigned int * compilerVersion, char const ** name,
                      char const ** buildDate, char const ** moduleName) {
  Give(compiler, kCompiler);
  Give(compilerVersion, kCompilerVersion);
  if (name != nullptr)
    *name = ComposeName();
  Give(buildDate, kBuildDate);
  Give(moduleName, kModuleName);
}

int ZnCheckDll(int flags) {
  return CheckZnVersionNumber(kVersion[0], kVersion[1], kVersion[2], kVersion[3], kVersion[4],
                              flags | 3);
}

char const * ZnDescribeDll(unsigned int * major, unsigned int * minor, unsigned int * patch,
                           unsigned int * build, unsigned int * revision, char const ** moduleName,
                           char const ** buildTime, char const ** unknown,
                           unsigned int * compilerVersion, char const ** compiler,
                           char const ** empty) {
  unsigned int * const version[] = {major, minor, patch, build, revision};
  for (int i = 0; i < 5; ++i)
    *version[i] = kVersion[i];
  *moduleName = kModuleName;
  *buildTime = kBuildTime;
  *unknown = "unknown";
  *compilerVersion = kCompilerVersion;
  *compiler = kCompiler;
  *empty = "";
  return kDisplayName;
}
