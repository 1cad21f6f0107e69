#include "_znnulty.h"

#include "zanbs.h"

int ZnNullOrderToInt(ZnNullOrder order) {
  switch (order) {
  case ZnNullOrderBoth:
    return 0;
  case ZnNullOrderFirst:
    return -1;
  case ZnNullOrderSecond:
    return 1;
  case ZnNullOrderUnknown:
    ZANT_assert("nr != unknown", "inc\\_znnulty", 168);
    break;
  }
  return -2;
}
