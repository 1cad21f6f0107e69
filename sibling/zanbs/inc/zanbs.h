#pragma once

/// Base services: what the type manager asks of the process that it runs in.
///
/// Moving plain numbers between memory and stored form, clocks, a memory file, configuration,
/// reports and a version check. The component is a library of its own, so that an engine may
/// bring another one with the same interface.
///
/// Worked example: `LongStore(dst, src, 2, 3)` writes the three 32-bit numbers at `src` to the
/// twelve bytes at `dst`, most significant byte first, and gives 12. The same call with `dst` and
/// `src` exchanged reads them back.

#if defined(__GNUC__)
#define ZANBS_EXPORT __attribute__((visibility("default")))
#else
#define ZANBS_EXPORT
#endif

// ---- Scalar storage -----------------------------------------------------------------------------
//
// Every function reads only the low nibble of `format`: 2 reverses the bytes of each value, every
// other nibble leaves them as they stand in the memory of a little-endian host. Neither `dst` nor
// `src` needs any alignment; the two areas must not overlap. The result is the number of bytes
// moved. A count of 0 touches nothing.

/// Moves `count` values of 1, 2, 4 or 8 bytes. The operation is its own inverse: it stores and
/// loads. Floats move as their IEEE 754 bits.
ZANBS_EXPORT unsigned int CharStore(void * dst, void const * src, unsigned char format,
                                    unsigned int count);
ZANBS_EXPORT unsigned int ShortStore(void * dst, void const * src, unsigned char format,
                                     unsigned int count);
ZANBS_EXPORT unsigned int LongStore(void * dst, void const * src, unsigned char format,
                                    unsigned int count);
ZANBS_EXPORT unsigned int FloatStore(void * dst, void const * src, unsigned char format,
                                     unsigned int count);
ZANBS_EXPORT unsigned int DoubleStore(void * dst, void const * src, unsigned char format,
                                      unsigned int count);
ZANBS_EXPORT unsigned int O_8BStore(void * dst, void const * src, unsigned char format,
                                    unsigned int count);

/// `int` and `unsigned` take 4 bytes when stored. They have a load of their own, so that a port
/// with another width in memory could widen there.
ZANBS_EXPORT unsigned int IntStore(void * dst, void const * src, unsigned char format,
                                   unsigned int count);
ZANBS_EXPORT unsigned int IntLoad(void * dst, void const * src, unsigned char format,
                                  unsigned int count);
ZANBS_EXPORT unsigned int UnsignedStore(void * dst, void const * src, unsigned char format,
                                        unsigned int count);
ZANBS_EXPORT unsigned int UnsignedLoad(void * dst, void const * src, unsigned char format,
                                       unsigned int count);

/// One value; else as the functions above.
ZANBS_EXPORT unsigned int ShortStoreOne(void * dst, void const * src, unsigned char format);
ZANBS_EXPORT unsigned int LongStoreOne(void * dst, void const * src, unsigned char format);
ZANBS_EXPORT unsigned int O_8BStoreOne(void * dst, void const * src, unsigned char format);

/// Bytes that `count` values take when stored, modulo 2 to the power 32. No argument but `count`
/// is read; `value` may be null.
ZANBS_EXPORT unsigned int CharSizeGet(void const * value, unsigned char valueFormat,
                                      unsigned char format, unsigned int count);
ZANBS_EXPORT unsigned int ShortSizeGet(void const * value, unsigned char valueFormat,
                                       unsigned char format, unsigned int count);
ZANBS_EXPORT unsigned int LongSizeGet(void const * value, unsigned char valueFormat,
                                      unsigned char format, unsigned int count);
ZANBS_EXPORT unsigned int IntSizeGet(void const * value, unsigned char valueFormat,
                                     unsigned char format, unsigned int count);
ZANBS_EXPORT unsigned int FloatSizeGet(void const * value, unsigned char valueFormat,
                                       unsigned char format, unsigned int count);
ZANBS_EXPORT unsigned int DoubleSizeGet(void const * value, unsigned char valueFormat,
                                        unsigned char format, unsigned int count);
ZANBS_EXPORT unsigned int O_8BSizeGet(void const * value, unsigned char valueFormat,
                                      unsigned char format, unsigned int count);

/// Bytes that `count` null values take when stored: the same as for any values.
ZANBS_EXPORT unsigned int CharNullSizeGet(unsigned int count);
ZANBS_EXPORT unsigned int ShortNullSizeGet(unsigned int count);
ZANBS_EXPORT unsigned int LongNullSizeGet(unsigned int count);
ZANBS_EXPORT unsigned int IntNullSizeGet(unsigned int count);
ZANBS_EXPORT unsigned int FloatNullSizeGet(unsigned int count);
ZANBS_EXPORT unsigned int DoubleNullSizeGet(unsigned int count);
ZANBS_EXPORT unsigned int O_8BNullSizeGet(unsigned int count);

// ---- Clocks -------------------------------------------------------------------------------------

/// A calendar date; month 1 to 12, day 1 to 31.
struct bdate {
  unsigned short year;
  unsigned char month;
  unsigned char day;
};

/// A time of day. `zone` is 1 on entry to the local clocks and 0 on entry to the clocks in UTC, and
/// stays as it is, but that `bksgettime` called with 0 leaves the zone's offset from UTC there, in
/// seconds. Where there is no time zone that is 0, and local time is UTC.
struct btime {
  unsigned char hour;
  unsigned char minute;
  unsigned char second;
  int zone;
};

/// The local date.
ZANBS_EXPORT void bksgetdate(bdate * date);
/// The local time of day.
ZANBS_EXPORT void bksgettime(btime * time);
/// The time of day and the date in UTC, read at one instant.
ZANBS_EXPORT void bksgetsystemtime(btime * time, bdate * date);
/// Local date and time, read at one instant, with the nanoseconds of the second (0 to 999999999).
ZANBS_EXPORT void bksGetHiresTime(bdate & date, btime & time, int & nanoseconds);
/// The same in UTC.
ZANBS_EXPORT void bksGetHiresTimeUTC(bdate & date, btime & time, int & nanoseconds);

/// What `bksgettimezone` gives where there is no time zone.
inline constexpr int ZnNoTimeZone = -2171;

/// Minutes to add to UTC to get local time at present, or `ZnNoTimeZone`.
ZANBS_EXPORT int bksgettimezone();

/// A clock that the functions above read in place of the system's: for tests, and for engines
/// with a time of their own. Both functions are called on the caller's thread.
struct BksClock {
  /// Writes the instant as seconds since 1970-01-01 00:00 UTC and the nanoseconds within it.
  void (*now)(long long & seconds, int & nanoseconds);
  /// Minutes to add to UTC to get local time at the instant `seconds`, or `ZnNoTimeZone`.
  int (*zone)(long long seconds);
};

/// Installs `clock`, which must outlive its use, and gives the one before; null stands for the
/// system's clock with the zone of the process (`TZ`). To be called at program start: not locked.
ZANBS_EXPORT BksClock const * bksSetClock(BksClock const * clock);

/// The instant of the present clock, as `BksClock::now`.
ZANBS_EXPORT void bksGetInstant(long long & seconds, int & nanoseconds);

// ---- Memory file --------------------------------------------------------------------------------

/// A read-only sequence of bytes with a current place: a caller's buffer or a file's content.
/// The first two fields are read by callers.
class ZANBS_EXPORT MemFile {
public:
  unsigned int size = 0;     ///< bytes in all
  unsigned int position = 0; ///< current place; never above `size`

  /// An empty file.
  MemFile() = default;
  /// Over `length` bytes of the caller's, which must outlive the object.
  MemFile(void const * bytes, unsigned int length);
  /// Over the content of the named file, read whole. If it cannot be read, or holds 4 GiB or more,
  /// the object is empty and `IsOpen` gives false.
  explicit MemFile(char const * path);
  ~MemFile();
  MemFile(MemFile const &) = delete;
  MemFile & operator=(MemFile const &) = delete;

  /// Whether there are bytes behind the object, be it none of them: false for the default object,
  /// a null buffer and a file that could not be read.
  bool IsOpen() const;

  /// Modes of `Seek`: where `offset` counts from.
  enum Mode : int { FromStart = 0, FromCurrent = 1, FromEnd = 2 };

  /// Goes to a place and tells what stands there. `*length` is on entry the number of bytes
  /// wanted, on return the number that are there, from the new place to the end of the file and
  /// no more than were wanted. The place moves by `offset` alone, not by the bytes told.
  /// Gives a pointer to the bytes, or null with `*length` 0 if the new place is the end of the
  /// file. The same result, with the place unmoved, means that the new place would lie outside the
  /// file or that there is no such mode. The bytes are for reading only. `flag` is reserved, 0.
  void * Seek(long long offset, int mode, unsigned int * length, int flag);

private:
  unsigned char const * bytes_ = nullptr;
  unsigned char * owned_ = nullptr;
};

// ---- Reports ------------------------------------------------------------------------------------

/// Reports a condition that does not hold, and returns: the caller carries on.
ZANBS_EXPORT void ZANT_assert(char const * message, char const * file, int line);
using ZantAssertHandler = void (*)(char const * message, char const * file, int line);
/// Installs a handler in place of the report on standard error and gives the one before; null
/// stands for the report on standard error.
ZANBS_EXPORT ZantAssertHandler ZantSetAssertHandler(ZantAssertHandler handler);

/// Called when `size` bytes could not be allocated. Never returns: a handler may release memory
/// or leave by an exception; if none does, the process ends by `std::abort` after a report.
[[noreturn]] ZANBS_EXPORT void ZnCallMemoryHandler(unsigned long long size);
using ZnMemoryHandler = void (*)(unsigned long long size);
/// Installs a handler and gives the one before; null stands for the report and the end alone.
ZANBS_EXPORT ZnMemoryHandler ZnSetMemoryHandler(ZnMemoryHandler handler);

// ---- Configuration ------------------------------------------------------------------------------

/// A name in a request to `ZnConfig`; has the memory layout of the string class above this
/// library. `text` ends with a zero byte; the other fields are 0.
struct ZnConfigName {
  char const * text;
  unsigned short capacity;
  unsigned char codeSet;
  unsigned char language;
};

/// A set of keys and values in named sections. Lookups never fail: a key that is missing, or
/// whose value is not of the form asked for, leaves the output as it was.
/// `sections` is a list of names that ends with null and is searched in order, or null for the
/// keys that stand outside of every section.
class ZANBS_EXPORT ZnConfig {
public:
  /// The text of a key, or null; lives as long as the object.
  virtual char const * GetText(char const * key, ZnConfigName const * const * sections) const = 0;
  /// A whole number in decimal, octal (0…) or hexadecimal (0x…).
  virtual void GetNumber(char const * key, long long * value,
                         ZnConfigName const * const * sections) const = 0;
  /// A number with a fraction, point and exponent as in C, whatever the locale.
  virtual void GetDouble(char const * key, double * value,
                         ZnConfigName const * const * sections) const = 0;
  /// A 16-bit flag, which the caller has cleared: a number of 0 to 65535, or one of the words yes,
  /// on and true for 1 and no, off and false for 0, in either case.
  virtual void GetFlag(char const * key, unsigned short * flag,
                       ZnConfigName const * const * sections) const = 0;

protected:
  ~ZnConfig() = default;
};

/// The keys and values of a file: lines `key = value`, sections in brackets, comments that begin
/// with `#` or `;`. Lines of no such form are passed over. Names are told apart by case; the last
/// line of a key holds.
class ZANBS_EXPORT ZnFileConfig final : public ZnConfig {
public:
  /// Reads the whole of `file`, from its start; nothing of it is needed afterwards.
  explicit ZnFileConfig(MemFile & file);
  ~ZnFileConfig();
  ZnFileConfig(ZnFileConfig const &) = delete;
  ZnFileConfig & operator=(ZnFileConfig const &) = delete;

  char const * GetText(char const * key, ZnConfigName const * const * sections) const override;
  void GetNumber(char const * key, long long * value,
                 ZnConfigName const * const * sections) const override;
  void GetDouble(char const * key, double * value,
                 ZnConfigName const * const * sections) const override;
  void GetFlag(char const * key, unsigned short * flag,
               ZnConfigName const * const * sections) const override;

private:
  struct Entries;
  Entries * entries_;
};

/// Gives the configuration as it was. `config` replaces it, unless it is the pointer with all
/// bits set (`ZnConfigQuery`), which makes the call a plain read. Null means none.
/// At first use the configuration is the file that the environment variable `ZANTMS_CONFIG`
/// names, or null. The caller keeps what it installs. Not locked.
ZANBS_EXPORT ZnConfig * DefaultConfig(ZnConfig * config);
/// The argument of `DefaultConfig` that only reads.
ZANBS_EXPORT ZnConfig * ZnConfigQuery();

// ---- Version ------------------------------------------------------------------------------------

/// Tells whether a module of the given version fits this component: 0 if it does, 1 if the major
/// version differs, 2 if the minor version is newer than this component's. Bit 0 of `flags` asks
/// for the first test, bit 1 for the second; further bits are reserved. Patch, build and revision
/// never decide.
ZANBS_EXPORT int CheckZnVersionNumber(unsigned int major, unsigned int minor, unsigned int patch,
                                      unsigned int build, unsigned int revision, int flags);
