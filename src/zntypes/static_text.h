#pragma once

class ZnString;

namespace zntms {

/// The text "0", from which a type without null and without assignment scans its default.
ZnString & ZeroText();

} // namespace zntms
