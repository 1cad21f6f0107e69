#pragma once

class ZnString;

namespace zntms {

/// What parts behind the end of a text are: an empty text with a buffer, of the default 8-bit
/// code set and the default language at load.
ZnString const & EmptySubstring();

} // namespace zntms
