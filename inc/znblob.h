#pragma once

#include "znexport.h"

class ZnBlob;

/// What a blob owns while it is not null.
struct ZnBlobData {
  char * bytes; ///< owned, from `malloc`; may be null while `length` is 0
  int length;   ///< bytes in use
};

/// A run of bytes of any length, up to 2147483647.
///
/// Worked example: `ZnBlob b; b.Append("abc", 3); b.Cut(1, 1);` leaves the two bytes "ac";
/// `b.Search(c)` with the one byte "c" in `c` gives 1.
///
/// Null and empty are different states: `data` null is the null blob, `data` set with `length` 0
/// the empty one, which is what a new blob is. Each blob owns its bytes; every copy copies them.
/// Where memory for bytes is short, `ZnCallMemoryHandler` is called and does not return; the blob
/// then still holds what it held. A negative size counts as 0. An object may be used from one
/// thread at a time.
class ZANTMS_EXPORT ZnBlob {
public:
  ZnBlobData * data; ///< null for a null blob

  // ---- Construction and assignment -------------------------------------------------------------

  ZnBlob();
  ZnBlob(ZnBlob const & other);
  /// `size` bytes of uninitialised content.
  ZnBlob(int size);
  /// A copy of `size` bytes.
  ZnBlob(void const * source, int size);
  ~ZnBlob();

  /// Keeps the buffer if the content is replaced by one that is up to 128 bytes shorter.
  ZnBlob & operator=(ZnBlob const & other);
  /// Takes over a copy of `size` bytes, with the same rule; a null blob becomes set. `source` may
  /// be part of this blob.
  void SetTo(void const * source, int size);
  /// Moves: takes over the content of `other`, which is left empty, or null if it was null.
  void Destroy(ZnBlob & other);

  // ---- State -----------------------------------------------------------------------------------

  /// Bytes in use; 0 for a null blob.
  int Length() const { return data ? data->length : 0; }
  int IsNullValue() const { return data == nullptr; }
  /// Frees the content and makes the blob null; gives 0.
  int SetNullValue();

  /// 1 if both are null, or both set with the same bytes; else 0.
  int operator==(ZnBlob const & other) const;
  /// Three-way: null before empty before everything else, bytes in unsigned order, a shorter blob
  /// before a longer one that begins with it. -2 or 2 exactly if one side alone is null.
  int operator!=(ZnBlob const & other) const;

  // ---- Edits -----------------------------------------------------------------------------------

  /// Appends the bytes of `other`; a null or empty one changes nothing.
  ZnBlob & operator+=(ZnBlob const & other);
  void Append(ZnBlob const & other);
  /// A size below 1 changes nothing; a null blob becomes one of these bytes. `source` may be part
  /// of this blob.
  void Append(void const * source, int size);
  /// Bytes that are added are uninitialised. Shrinking keeps the buffer.
  void Resize(unsigned int size);
  /// New content of exactly `size` bytes, which begins with the old one as far as that goes; the
  /// rest is uninitialised.
  void Expand(int size);
  /// Takes `count` bytes out, as far as there are; nothing for an `offset` behind the end or a
  /// `count` below 1. A blob that loses all bytes becomes empty.
  void Cut(int offset, int count);
  /// A new blob of `count` bytes, as far as there are. Where that selects nothing (a null blob, an
  /// `offset` behind the end, a `count` of 0) the result is one byte that means nothing.
  ZnBlob CopyFrom(int offset, int count) const;
  /// Overwrites this blob's own bytes from `offset` on with the first `count` bytes of `source`,
  /// as far as this blob goes. A `source` without that many bytes gives what it has.
  void CopyTo(ZnBlob const & source, int offset, int count);

  // ---- Search ----------------------------------------------------------------------------------

  /// The byte at `offset`; null for a null blob, for a `count` of 0, and unless `count` bytes stand
  /// there. The pointer holds until the next change of the blob.
  char * Seek(int offset, int count) const;
  /// The offset of the first occurrence of the bytes of `pattern`, 0 for an empty one; 65535 if
  /// there is none, or if this blob is null. In a blob of more than 65535 bytes a hit at that very
  /// offset looks the same. Time grows with the sum of the lengths, whatever the bytes.
  int Search(ZnBlob const & pattern) const;

private:
  /// A text with its terminator.
  ZnBlob(char const * text);
  /// Takes a signed 32-bit length in host order and the bytes behind it; null if it is negative.
  ZnBlob & operator=(char const * image);
  /// The content as a decimal text with a terminator; 0 for a null blob.
  operator short() const;
  operator int() const;
  operator double() const;
  /// New data of `n` + 1 uninitialised bytes for the caller, who owns it.
  ZnBlobData * AllocData(int n) const;
};

/// The compare row of blobs: `count` blobs in memory (`format` 8) or two stored units. Lengths are
/// those of the stored units, 0 for what a unit itself says; `cmpOp` is not read. Gives what
/// `operator!=` gives for the first pair that differs. A unit that is cut short inside an element
/// is ordered by the bytes that are there, then by the lengths that the elements had; `error` is
/// always 0.
ZANTMS_EXPORT int BlobCompare(unsigned char format, unsigned int lengthA, void * valueA,
                              unsigned int lengthB, void * valueB, unsigned short int cmpOp,
                              unsigned int count, int & error);
