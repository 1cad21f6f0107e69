#pragma once

#include "znstring.h"
#include "zntypes/row_parts.h"

/// Print and scan rows of strings, and how a string goes through a box.
///
/// The format takes the text at `%s`. For an order text, one of the directives `%1M` (base
/// letters),
/// `%2M` (letters), `%3M` (a description of each order number) or `%4M` (a spelling of each) may
/// stand in its place.

namespace zntms {

ZnString & StringPrint(ZnString & out, void * value, char const * format, unsigned int count);
void * StringScan(void * value, ZnString & in, char const * format, unsigned int count);

/// A string in a box is a copy.
struct StringInBox {
  using Value = ZnString;
  static void Write(ZnString & out, ZnString const & value) { out = value; }
  static void Read(ZnString & value, ZnString const & in) { value = in; }
};

} // namespace zntms
