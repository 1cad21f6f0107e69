#include "zntypes/empty_rows.h"

#include "zncodes.h"

namespace zntms {

void * EmptyCreate(unsigned int) { return nullptr; }
void * EmptyDelete(void *, unsigned int) { return nullptr; }
void EmptyConstruct(void *, unsigned int, unsigned int) {}
void EmptyAssign(void *, void *, unsigned int, int) {}

unsigned int EmptyMove(void *, void const *, unsigned char, unsigned int) { return 0; }
unsigned int EmptyNullSize(unsigned int) { return 0; }
unsigned int EmptySize(void const *, unsigned char, unsigned char, unsigned int) { return 0; }
unsigned int EmptyFileSize(MemFile *, unsigned char, unsigned int) { return 0; }
unsigned int EmptyTranslate(void *, unsigned char, unsigned int, void *, unsigned char,
                            unsigned int, unsigned int) {
  return 0;
}

int EmptyCompare(unsigned char, unsigned int, void *, unsigned int, void *, unsigned short int,
                 unsigned int, int & error) {
  error = 0;
  return 0;
}
float EmptyBound(ZnIdxBounds *, unsigned short &, void *, unsigned char, unsigned int,
                 ZnIdxBounds *) {
  return 0;
}
unsigned int EmptyHash(unsigned char, unsigned int, void *, unsigned int, int & error) {
  error = 0;
  return 0;
}

ZnTypeConvertData * EmptyConvertTo(void *, unsigned int) { return nullptr; }
void * EmptyConvertFrom(ZnTypeConvertData *, unsigned int) { return nullptr; }
void * EmptyDefault(unsigned int, int) { return nullptr; }

ZnString & EmptyPrint(ZnString & out, void *, char const *, unsigned int) { return out; }
void * EmptyScan(void *, ZnString &, char const *, unsigned int) { return nullptr; }

int NeverNull(void *) { return 0; }
int NoStep(void *, unsigned int, unsigned char, unsigned char) { return ZnErrNotSupported; }

} // namespace zntms
