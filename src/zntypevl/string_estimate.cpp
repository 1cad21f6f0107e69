#include "zntypevl/string_estimate.h"

#include "query/bounds.h"
#include "znchar.h"
#include "zncodes.h"
#include "znstrcmp.h"
#include "znstringbounds.h"
#include "zntypevl/key_text.h"

#include <algorithm>

namespace zntms {

namespace {

constexpr double kTwo32 = 4294967296.0;
/// The distance of neighbouring texts: on the scale of order numbers, and on that of bytes.
constexpr double kOrderUnit = 0x100000;
constexpr double kByteUnit = 128;

/// A place in one of the four texts.
class Place {
public:
  Place(BoundText const & text, unsigned char byteOrder)
      : at_(text.text, text.codeSet, text.language, byteOrder), length_(text.length) {}

  /// The next byte or order number, 0 at the end; letters without the bits of `mask`.
  unsigned short Next(unsigned short mask) {
    if (at_.codeSet == 0) {
      auto const byte = static_cast<unsigned char>(*at_.current);
      at_.current += byte != 0;
      return byte;
    }
    unsigned short const order = at_.GetNextOrder(1);
    bool const isLetter = IsLetterOrder(order) && ScriptClass() < kFirstClassWithoutLetters;
    return static_cast<unsigned short>(isLetter ? order & ~mask : order);
  }

  int ScriptClass() const { return at_.scriptClass & 0x7F; }

  /// Its number on the scale of the estimates, `passed` units behind the start of its text, within
  /// `most` characters of that.
  double Position(unsigned int passed, unsigned int most = kNoLength) const {
    return ZnStringKeyPosition(at_, static_cast<unsigned short>(std::min(length_, most) - passed));
  }

private:
  ZnStringIterator at_;
  unsigned int length_;
};

/// The places behind what all four texts begin with.
struct Places {
  Place low, high, areaLow, areaHigh;
  unsigned int passed = 0;

  Places(EstimateTexts const & texts, unsigned char byteOrder)
      : low(texts.low, byteOrder), high(texts.high, byteOrder), areaLow(texts.areaLow, byteOrder),
        areaHigh(texts.areaHigh, byteOrder) {}

  /// Moves over one unit if it is the same everywhere and no end; else nothing moves.
  bool Pass(unsigned short mask) {
    Places next = *this;
    unsigned short const unit = next.low.Next(mask);
    bool const same = unit != 0 && unit == next.high.Next(mask) &&
                      unit == next.areaLow.Next(mask) && unit == next.areaHigh.Next(mask);
    if (!same || (passed == 0 && !next.OfOneClass()))
      return false;
    ++next.passed;
    *this = next;
    return true;
  }

private:
  bool OfOneClass() const {
    int const scriptClass = low.ScriptClass();
    return scriptClass == high.ScriptClass() && scriptClass == areaLow.ScriptClass() &&
           scriptClass == areaHigh.ScriptClass();
  }
};

int CompareWithin(BoundText const & a, BoundText const & b, unsigned short cmpOp,
                  unsigned int length, unsigned char byteOrder) {
  return ZnStrCmp(a.codeSet, a.language, a.text, b.codeSet, b.language, b.text, cmpOp,
                  static_cast<short>(length), byteOrder, nullptr);
}

bool BeginsAboveAscii(BoundText const & text) {
  return text.codeSet == 0 && static_cast<unsigned char>(*text.text) > 127;
}

/// Three letters do not tell everything. Where they leave nothing, the end keys of the index are
/// asked whether they belong to the selection.
bool SelectsAnEnd(EstimateTexts const & texts, unsigned short op, unsigned short cmpOp,
                  unsigned char byteOrder, double low, double high, double areaLow,
                  double areaHigh) {
  auto const & [lowText, highText, areaLowText, areaHighText] = texts;
  bool const below = (op & ZnOpBelow) != 0 && areaLow == high;
  bool const above = (op & ZnOpAbove) != 0 && areaHigh == low;
  if (below || above) {
    if ((op & ZnOpBelow) != 0 &&
        CompareWithin(highText, areaLowText, cmpOp, lowText.length, byteOrder) >= 0)
      return true;
    if ((op & ZnOpAbove) != 0 &&
        CompareWithin(lowText, areaHighText, cmpOp, std::min(highText.length, areaHighText.length),
                      byteOrder) <= 0)
      return true;
  }
  if ((op & ZnOpEqual) == 0)
    return false;
  if (areaHigh < high && areaHighText.length < highText.length &&
      CompareWithin(highText, areaHighText, cmpOp, areaHighText.length, byteOrder) == 0)
    return true;
  return BeginsAboveAscii(highText) && BeginsAboveAscii(areaHighText);
}

} // namespace

float ShareOfArea(EstimateTexts const & texts, unsigned short op, unsigned short cmpOp,
                  unsigned short mask, unsigned char byteOrder) {
  Places places(texts, byteOrder);
  unsigned int const limit =
      std::min({texts.low.length, texts.high.length, texts.areaLow.length, texts.areaHigh.length});
  while (places.passed < limit && places.Pass(mask)) {
  }
  double const areaHigh = places.areaHigh.Position(places.passed);
  double const areaLow = places.areaLow.Position(places.passed);
  double const low = places.low.Position(places.passed, texts.areaLow.length);
  double const high = places.high.Position(places.passed, texts.areaHigh.length);
  double const unit = texts.low.codeSet != 0 ? kOrderUnit : kByteUnit;
  double const total = areaHigh - areaLow + unit;
  double range = ZnEvalRange(op, low, high, areaLow, areaHigh, unit);
  if (range == 0 && SelectsAnEnd(texts, op, cmpOp, byteOrder, low, high, areaLow, areaHigh))
    range = unit;
  // End keys in the wrong order leave nothing to be a share of.
  return total > 0 ? static_cast<float>(range / total) : static_cast<float>(range > 0);
}

} // namespace zntms

using namespace zntms;

double ZnStringKeyPosition(ZnStringIterator const & text, unsigned short maxChars) {
  if (text.codeSet == 0) {
    constexpr unsigned int kBytes = 4;
    unsigned int number = 0;
    char const * at = text.current;
    for (unsigned int i = 0; i < kBytes; ++i) {
      bool const counts = i < maxChars && at != nullptr && *at != 0;
      number = number << 7 | (counts ? std::min(static_cast<unsigned char>(*at++),
                                                static_cast<unsigned char>(127))
                                     : 0u);
    }
    return number;
  }
  constexpr unsigned int kOrders = 3;
  constexpr unsigned short kLetterBits = 0x407F;
  ZnStringIterator it(text);
  auto const scriptClass = static_cast<unsigned int>(it.scriptClass & 0x7F);
  unsigned int orders[kOrders] = {};
  unsigned int taken = 0;
  for (unsigned int read = 0; taken < kOrders && (read < maxChars || maxChars == kNoLength);
       ++read) {
    unsigned short const order = it.GetNextOrder(1);
    if (order == 0)
      break;
    if (order < kFirstSignificantOrder)
      continue;
    bool const isLetter =
        IsLetterOrder(order) && (it.scriptClass & 0x7F) != kFirstClassWithoutLetters;
    orders[taken++] = isLetter ? order & kLetterBits : order;
  }
  return (orders[0] | scriptClass << 16) * kTwo32 + (orders[1] << 16 | orders[2]);
}
