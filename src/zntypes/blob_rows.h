#pragma once

#include "znblob.h"
#include "zntypes/class_box.h"
#include "zntypes/empty_rows.h"
#include "zntypes/translate.h"

/// Groups of the row of blobs.

namespace zntms {

ZnString & BlobPrint(ZnString & out, void * value, char const * format, unsigned int count);
void * BlobScan(void * value, ZnString & in, char const * format, unsigned int count);
unsigned int BlobStore(void * dst, void const * src, unsigned char format, unsigned int count);
/// Into blobs that are there. 0 for a corrupt unit: elements before the fault stay loaded.
unsigned int BlobLoad(void * dst, void const * src, unsigned char format, unsigned int count);
unsigned int BlobNullSizeGet(unsigned int count);
unsigned int BlobSizeGet(void const * value, unsigned char valueFormat, unsigned char format,
                         unsigned int count);
unsigned int BlobSizeGetFromMemFile(MemFile * file, unsigned char format, unsigned int count);
float BoundBlobs(ZnIdxBounds * area, unsigned short & op, void * value, unsigned char format,
                 unsigned int count, ZnIdxBounds * out);
unsigned int HashBlobs(unsigned char format, unsigned int length, void * value, unsigned int count,
                       int & error);

/// The content has no text form: a box holds an empty string for each blob that is set.
struct BlobText {
  using Value = ZnBlob;
  static void Write(ZnString &, Value const &) {}
  static void Read(Value &, ZnString const &) {}
};

inline constexpr RowText kBlobText = {"[BLOB,len=%L]", &BlobPrint, &BlobScan};
inline constexpr RowLife kBlobLife = kClassLife<ZnBlob>;
inline constexpr RowStorage kBlobStorage = {
    &BlobStore,
    &BlobLoad,
    &BlobNullSizeGet,
    &BlobSizeGet,
    &BlobSizeGetFromMemFile,
    &Translate<&BlobStore, &BlobLoad, &AssignValues<ZnBlob>, sizeof(ZnBlob)>};
inline constexpr RowQuery kBlobQuery = {&BlobCompare, &BoundBlobs, &HashBlobs};
inline constexpr RowBox kBlobBox = kClassBox<BlobText>;
inline constexpr RowNull kBlobNull = kClassNull<ZnBlob>;
inline constexpr ZnTypeRow::StepFunc kBlobStep = &NoStep;

} // namespace zntms
