#pragma once

class ZnString;

namespace zntms {

/// The text by which nulls print and scan, "{NULL}" at load. Process-wide, not locked.
ZnString & NullPrintString();

} // namespace zntms
