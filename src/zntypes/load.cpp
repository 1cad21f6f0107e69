#include "znstring.h"
#include "znstring/nulltext.h"
#include "znstring/shared_text.h"
#include "zntypes/static_text.h"

/// What runs when the library is loaded, in its order.
///
/// Everything that can be a constant is one: the rows of the type table with the slots of the base
/// services, and the constants of dates and times. What is left are strings, each made when it is
/// first asked for, so that code which runs before this file finds them too; this file asks for
/// them in their order. They are destroyed at unload, last made first.

namespace zntms {

ZnString & ZeroText() {
  static ZnString text("0");
  return text;
}

namespace {

struct Load {
  Load() {
    ZnString::EmptyString();
    EmptySubstring();
    NullPrintString();
    ZeroText();
  }
} const load;

} // namespace

} // namespace zntms
