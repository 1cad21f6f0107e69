/// A process to be started by start_bench.py. With USE_TABLES it loads the language component and
/// reads an order number; without it does nothing.

#ifdef USE_TABLES
#include "zanin.h"
#endif

int main() {
#ifdef USE_TABLES
  return ZnLanguageContext::QueryCodeSet(253)->orderTable->Plain('a').order == 0;
#else
  return 0;
#endif
}
