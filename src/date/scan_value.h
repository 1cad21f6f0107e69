#pragma once

class ZnDate;
class ZnTime;
class ZnDateTime;
class ZnDateTimeN;
class ZnString;
class ZnTimeSpan;

/// Scanning into each class, as its member does, but telling whether the text was long enough. The
/// value takes what was read in both cases. A null format stands for the class's own.

namespace zntms {

bool ScanValue(ZnDate & value, ZnString & in, char const * format);
bool ScanValue(ZnTime & value, ZnString & in, char const * format);
bool ScanValue(ZnDateTime & value, ZnString & in, char const * format);
bool ScanValue(ZnDateTimeN & value, ZnString & in, char const * format);
bool ScanValue(ZnTimeSpan & value, ZnString & in, char const * format);

} // namespace zntms
