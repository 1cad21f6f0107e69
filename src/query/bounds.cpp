#include "query/bounds.h"

#include "zanbs.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>

namespace zntms {

namespace {

constexpr double kLargest = std::numeric_limits<double>::max();

void SaveKey(void *& key, unsigned char & length, void const * value, unsigned int size) {
  if (key != nullptr)
    return;
  key = std::malloc(std::max(size, 1u));
  if (key == nullptr)
    ZnCallMemoryHandler(size);
  length = static_cast<unsigned char>(size);
  if (size != 0)
    std::memcpy(key, value, size);
}

double FiniteOrLargest(double number) { return std::isfinite(number) ? number : kLargest; }

} // namespace

void ZnBoundsSave(ZnIdxBounds * out, void const * value, unsigned short op, unsigned int size) {
  if (out == nullptr)
    return;
  if ((op & ZnOpBelow) == 0)
    SaveKey(out->lowKey, out->lowLength, value, size);
  if ((op & ZnOpAbove) == 0)
    SaveKey(out->highKey, out->highLength, value, size);
}

double ZnEvalRange(unsigned short op, double valueLow, double valueHigh, double lo, double hi,
                   double unit) {
  double range = 0;
  auto const add = [&range](double part) {
    if (part > 0)
      range += part;
  };
  if ((op & ZnOpAbove) != 0)
    add(FiniteOrLargest(hi - (lo > valueHigh ? lo - unit : valueHigh)));
  if ((op & ZnOpBelow) != 0)
    add(FiniteOrLargest((valueLow > hi ? hi + unit : valueLow) - lo));
  if ((op & ZnOpEqual) != 0)
    add(FiniteOrLargest((hi < valueHigh ? hi : valueHigh) - (lo > valueLow ? lo : valueLow)) +
        unit);
  return range;
}

} // namespace zntms
