#include "zantms.h"

#include "zanbs.h"

#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

/// Format and text of any bytes, parted by the first line feed, for the prints and scans of
/// identities, integers, seals, blobs and truth values. The first byte tells the type and whether
/// the text is one of 16 bits a character.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size) {
  constexpr char kIds[] = {ZnCLID_T, ZnOBJID_T, ZnREF_T,     ZnINT64_T,
                           ZnSEAL_T, ZnBLOB_T,  ZnBOOLEAN_T, ZnNULL_ZNINT64_T};
  if (size == 0)
    return 0;
  char const id = kIds[data[0] % 8];
  std::string_view const input(reinterpret_cast<char const *>(data) + 1, size - 1);
  std::size_t const end = input.find('\n');
  std::string const format(input.substr(0, end));
  std::string const bytes(end == std::string_view::npos ? "" : input.substr(end + 1));
  ZnString text(bytes.c_str());
  if (data[0] & 8)
    text.MapToCodeSet(253);

  ZnTypeMgr const mgr;
  void * const value = mgr.Create(id, 1);
  mgr.ScanFromZnString(id, value, text, format.c_str(), 1);
  ZnString out;
  mgr.PrintToZnString(id, out, value, format.c_str(), 1);
  ZnString whole;
  mgr.PrintToZnString(id, whole, value, nullptr, 1);
  if (id != ZnBLOB_T) { // what prints by the row's format scans back to the same text
    void * const again = mgr.Create(id, 1);
    mgr.ScanFromZnString(id, again, whole, nullptr, 1);
    ZnString wholeAgain;
    mgr.PrintToZnString(id, wholeAgain, again, nullptr, 1);
    if (std::strcmp(whole.StrGet(), wholeAgain.StrGet()) != 0)
      std::abort();
    mgr.Delete(id, again, 1);
  }
  ZnLocalRef local;
  local.ScanFromZnString(text, format.c_str());
  local.PrintToZnString(out, format.c_str());
  mgr.Delete(id, value, 1);
  return 0;
}
