#include "znmultibyte.h"

#include <algorithm>
#include <cstdint>
#include <memory>

#include "zanin.h"
#include "znstring/edit.h"
#include "znstring/units.h"

/// UTF-8, after RFC 2279.
///
/// Text is mostly long runs of one kind, so the loops below ask for the kind of the next bytes
/// once and stay with it: 16 ASCII bytes at a time, or one sequence of three bytes after another
/// by a single comparison of four bytes. Everything else goes by the table, one byte at a time.

constexpr ZnUtf8Row ZnUtf8Table[7] = {
    {0x80, 0x00, 0, 0x7F, 0},
    {0xE0, 0xC0, 6, 0x7FF, 0x80},
    {0xF0, 0xE0, 12, 0xFFFF, 0x800},
    {0xF8, 0xF0, 18, 0x1FFFFF, 0x10000},
    {0xFC, 0xF8, 24, 0x3FFFFFF, 0x200000},
    {0xFE, 0xFC, 30, 0x7FFFFFFF, 0x4000000},
    {0, 0, 0, 0, 0},
};

using namespace zntms;

namespace {

constexpr unsigned char kUnicode = 253;
/// Code sets below this one are ASCII below 128.
constexpr unsigned char kFirstOtherThanAscii = 27;

// ---- Decoding -----------------------------------------------------------------------------------

/// One sequence by the table: its bytes, or -1.
int DecodeOne(unsigned short & out, char const * in, std::size_t length) {
  unsigned int const first = static_cast<unsigned char>(*in);
  unsigned int value = first;
  int bytes = 1;
  for (ZnUtf8Row const * row = ZnUtf8Table; row->mask != 0; ++row, ++bytes) {
    if ((first & row->mask) == row->lead) {
      value &= row->max;
      out = static_cast<unsigned short>(value);
      return value < row->min ? -1 : bytes;
    }
    if (static_cast<std::size_t>(bytes) == length)
      return -1;
    unsigned int const low = static_cast<unsigned char>(in[bytes]) ^ 0x80u;
    if (low >= 64)
      return -1;
    value = value * 64 + low;
  }
  return -1;
}

std::uint64_t ReadEight(char const * in) {
  std::uint64_t eight;
  std::memcpy(&eight, in, sizeof eight);
  return eight;
}

bool SixteenAscii(char const * in) {
  return ((ReadEight(in) | ReadEight(in + 8)) & 0x8080808080808080) == 0;
}

/// The character of a well-formed sequence of three bytes at the low end of `four`, or 0.
unsigned int ThreeByteChar(std::uint32_t four) {
  if ((four & 0x00C0C0F0) != 0x008080E0)
    return 0;
  unsigned int const c = (four & 0x0F) << 12 | (four >> 2 & 0xFC0) | (four >> 16 & 0x3F);
  return c >= 0x800 ? c : 0;
}

struct Decoded {
  char const * in;   ///< behind the last sequence taken
  std::size_t chars; ///< number of characters
  bool malformed;    ///< stopped before a sequence that cannot be read
};

/// Decodes sequences that begin before `last` and end by `end`, as far as there is room for their
/// characters.
Decoded Decode(char const * in, char const * last, char const * end, unsigned short * out,
               std::size_t room) {
  unsigned short * const first = out;
  unsigned short * const full = out + room;
  while (in < last && out < full) {
    auto const byte = static_cast<unsigned char>(*in);
    if (byte < 0x80) {
      while (last - in >= 16 && full - out >= 16 && SixteenAscii(in)) {
        for (int i = 0; i < 16; ++i)
          out[i] = static_cast<unsigned char>(in[i]);
        in += 16;
        out += 16;
      }
      while (in < last && out < full && static_cast<unsigned char>(*in) < 0x80)
        *out++ = static_cast<unsigned char>(*in++);
      continue;
    }
    if (byte < 0xE0 && byte >= 0xC2 && end - in >= 2) {
      unsigned int const low = static_cast<unsigned char>(in[1]) ^ 0x80u;
      if (low >= 64)
        return {in, static_cast<std::size_t>(out - first), true};
      *out++ = static_cast<unsigned short>((byte & 0x1Fu) << 6 | low);
      in += 2;
      continue;
    }
    if (byte >= 0xE0) {
      char const * const before = in;
      while (in < last && end - in >= 4 && out < full) {
        std::uint32_t four;
        std::memcpy(&four, in, sizeof four);
        unsigned int const c = ThreeByteChar(four);
        if (c == 0)
          break;
        *out++ = static_cast<unsigned short>(c);
        in += 3;
      }
      if (in != before)
        continue;
    }
    int const bytes = DecodeOne(*out, in, static_cast<std::size_t>(end - in));
    if (bytes < 0)
      return {in, static_cast<std::size_t>(out - first), true};
    in += bytes;
    ++out;
  }
  return {in, static_cast<std::size_t>(out - first), false};
}

/// The characters in a text from `in` on; -1 if it is malformed.
long long CountChars(char const * in, char const * end) {
  unsigned short passed[256];
  long long chars = 0;
  while (in < end) {
    Decoded const block = Decode(in, end, end, passed, std::size(passed));
    if (block.malformed)
      return -1;
    chars += static_cast<long long>(block.chars);
    in = block.in;
  }
  return chars;
}

/// Decoding into a string ends behind this many bytes.
constexpr int kByteLimit = 32768;
constexpr int kLongestSequence = 6;

// ---- Encoding -----------------------------------------------------------------------------------

/// The units of a text in code set 253: as they are, or by the table of a one-byte code set.
struct WideUnits {
  char const * text;

  unsigned int operator[](std::size_t i) const { return ReadUnit(text + 2 * i); }
  /// Whether 8 units from `i` on are ASCII; then they go to `out`.
  bool EightAscii(std::size_t i, char * out) const {
    char const * const in = text + 2 * i;
    if (((ReadEight(in) | ReadEight(in + 8)) & 0xFF80FF80FF80FF80) != 0)
      return false;
    for (int k = 0; k < 8; ++k)
      out[k] = in[2 * k];
    return true;
  }
};

struct ByteUnits {
  char const * text;
  unsigned short const * toUnicode;
  bool agreesWithAscii; ///< bytes below 128 are ASCII

  unsigned int operator[](std::size_t i) const {
    return toUnicode[static_cast<unsigned char>(text[i])];
  }
  bool EightAscii(std::size_t i, char * out) const {
    std::uint64_t const eight = ReadEight(text + i);
    if (!agreesWithAscii || (eight & 0x8080808080808080) != 0)
      return false;
    std::memcpy(out, &eight, sizeof eight);
    return true;
  }
};

constexpr unsigned int BytesOf(unsigned int unit) {
  return 1u + (unit > ZnUtf8Table[0].max) + (unit > ZnUtf8Table[1].max);
}

/// Writes a unit by its number of bytes.
void EncodeUnit(char * out, unsigned int unit, unsigned int bytes) {
  if (bytes == 1) {
    out[0] = static_cast<char>(unit);
  } else if (bytes == 2) {
    out[0] = static_cast<char>(0xC0 | unit >> 6);
    out[1] = static_cast<char>(0x80 | (unit & 0x3F));
  } else {
    out[0] = static_cast<char>(0xE0 | unit >> 12);
    out[1] = static_cast<char>(0x80 | (unit >> 6 & 0x3F));
    out[2] = static_cast<char>(0x80 | (unit & 0x3F));
  }
}

struct Encoded {
  std::size_t chars; ///< characters that fitted
  std::size_t bytes; ///< their bytes
};

/// Writes a unit of three bytes, and a byte more.
void EncodeThreeInFour(char * out, unsigned int unit) {
  std::uint32_t const four = 0x008080E0 | unit >> 12 | (unit & 0xFC0) << 2 | (unit & 0x3F) << 16;
  std::memcpy(out, &four, sizeof four);
}

template <class Units>
Encoded Encode(Units const & units, std::size_t length, char * out, std::size_t room) {
  std::size_t i = 0;
  std::size_t bytes = 0;
  while (i < length && bytes < room) {
    unsigned int unit = units[i];
    if (unit <= ZnUtf8Table[0].max) {
      for (; length - i >= 8 && room - bytes >= 8 && units.EightAscii(i, out + bytes); i += 8)
        bytes += 8;
      for (; i < length && bytes < room && (unit = units[i]) <= ZnUtf8Table[0].max; ++i)
        out[bytes++] = static_cast<char>(unit);
      continue;
    }
    std::size_t const before = i;
    for (; i < length && room - bytes >= 4 && (unit = units[i]) > ZnUtf8Table[1].max; ++i) {
      EncodeThreeInFour(out + bytes, unit);
      bytes += 3;
    }
    if (i != before)
      continue;
    unsigned int const needed = BytesOf(unit);
    if (room - bytes < needed)
      break;
    EncodeUnit(out + bytes, unit, needed);
    bytes += needed;
    ++i;
  }
  return {i, bytes};
}

template <class Units>
std::size_t CountBytes(Units const & units, std::size_t length) {
  std::size_t bytes = 0;
  for (std::size_t i = 0; i < length; ++i)
    bytes += BytesOf(units[i]);
  return bytes;
}

/// The text of a string as units of code set 253, converted only where no table serves.
class UnicodeText {
public:
  explicit UnicodeText(ZnString const & s) : length_(s.Len()), text_(s.StrGet()) {
    if (s.codeSet == kUnicode)
      return;
    if (WidthOf(s.codeSet) == 1) {
      toUnicode_ = ZnLanguageContext::QueryCodeSet(s.codeSet)->toUnicode;
      agreesWithAscii_ = s.codeSet < kFirstOtherThanAscii;
      return;
    }
    converted_.SetCodeSet(kUnicode);
    converted_ += s;
    length_ = converted_.Len();
    text_ = converted_.StrGet();
  }

  std::size_t Length() const { return length_; }

  /// Calls `work` with the units.
  template <class Work>
  auto With(Work const & work) const {
    return toUnicode_ ? work(ByteUnits{text_, toUnicode_, agreesWithAscii_})
                      : work(WideUnits{text_});
  }

private:
  std::size_t length_;
  char const * text_;
  unsigned short const * toUnicode_ = nullptr;
  bool agreesWithAscii_ = false;
  ZnString converted_;
};

/// Whether a one-byte text is all ASCII.
bool IsAscii(char const * text, std::size_t length) {
  std::size_t i = 0;
  std::uint64_t bits = 0;
  for (; length - i >= 8; i += 8)
    bits |= ReadEight(text + i);
  for (; i < length; ++i)
    bits |= static_cast<unsigned char>(text[i]) & 0x80u;
  return (bits & 0x8080808080808080) == 0;
}

} // namespace

// ---- Single characters --------------------------------------------------------------------------

int ZnMultiByte2WChar(unsigned short * out, char * in, unsigned long long length) {
  if (!in)
    return 0;
  if (length == 0)
    return -1;
  unsigned short c;
  int const bytes = DecodeOne(c, in, length);
  if (bytes > 0 && out)
    *out = c;
  return bytes;
}

int ZnWChar2MultiByte(char * out, wchar_t c) {
  if (!out)
    return 0;
  auto const value = static_cast<unsigned int>(c);
  int bytes = 0;
  while (bytes < 6 && ZnUtf8Table[bytes].max < value)
    ++bytes;
  if (bytes == 6)
    return -1;
  unsigned int shift = ZnUtf8Table[bytes].shift;
  *out = static_cast<char>(value >> shift | ZnUtf8Table[bytes].lead);
  while (shift > 0) {
    shift -= 6;
    *++out = static_cast<char>((value >> shift & 0x3F) | 0x80);
  }
  return bytes + 1;
}

// ---- Texts --------------------------------------------------------------------------------------

int ZnMultiByteStr2WCharStr(unsigned short * out, int outLength, char * in, int inLength) {
  if (inLength <= 0)
    return 0;
  char const * const end = in + inLength;
  Decoded const written =
      Decode(in, end, end, out, out ? static_cast<std::size_t>(std::max(outLength, 0)) : 0);
  if (written.malformed)
    return -1;
  long long const more = CountChars(written.in, end);
  return more < 0 ? -1 : static_cast<int>(static_cast<long long>(written.chars) + more);
}

int ZnMBS2ZnString(char const * in, ZnString & out, int inLength) {
  unsigned char const language = out.language;
  ZnString text(kUnicode, language);
  if (inLength < 1) {
    out.Destruct(text);
    return 0;
  }
  unsigned short local[256];
  std::unique_ptr<unsigned short[]> large;
  unsigned short * units = local;
  Decoded part = {in, 0, true};
  if (in) {
    // A zero byte ends the text before anything behind it is read; so does a sequence whose low
    // 16 bits are 0, which shows afterwards.
    int const most = std::min(inLength, kByteLimit + kLongestSequence);
    void const * const zero = std::memchr(in, 0, static_cast<std::size_t>(most));
    char const * const end = zero ? static_cast<char const *>(zero) : in + most;
    char const * const last = std::min(end, in + kByteLimit);
    auto const room = static_cast<std::size_t>(last - in);
    if (room > std::size(local)) {
      large.reset(new unsigned short[room]);
      units = large.get();
    }
    part = Decode(in, last, end, units, room);
    unsigned short const * const stop = std::find(units, units + part.chars, 0);
    if (stop != units + part.chars)
      part = Decode(in, last, end, units, static_cast<std::size_t>(stop - units));
  }
  ZnStringEdit(text, reinterpret_cast<char const *>(units), kUnicode, 0, 0,
               static_cast<unsigned short>(part.chars), 1, EditAssignAt);
  out.Destruct(text);
  if (part.malformed)
    return -1;
  auto const taken = static_cast<int>(part.in - in);
  return taken >= kByteLimit ? -2 : taken;
}

int ZnMultiByteString2ZnString(char const * in, ZnString & out, int inLength) {
  return ZnMBS2ZnString(in, out, inLength);
}

int ZnMultiByteString2ZnString(ZnString const & in, ZnString & out) {
  return ZnMBS2ZnString(in.StrGet(), out, in.Len());
}

int ZnMBSLength(ZnString const & s, unsigned short maxChars) {
  constexpr unsigned char firstNotMeasuredWhole = 6;
  if (maxChars == 0)
    return 0;
  if (s.codeSet < firstNotMeasuredWhole && IsAscii(s.StrGet(), s.Len()))
    return s.Len();
  UnicodeText const text(s);
  std::size_t const length = std::min<std::size_t>(text.Length(), maxChars);
  return static_cast<int>(text.With([&](auto const & units) { return CountBytes(units, length); }));
}

int ZnString2ZnMBS(ZnString const & s, char * out, int outSize) {
  std::size_t const room = out ? static_cast<std::size_t>(std::max(outSize, 0)) : 0;
  if (s.codeSet < kFirstOtherThanAscii) {
    std::size_t const length = s.Len();
    if (IsAscii(s.StrGet(), length)) {
      std::size_t const copied = std::min(length, room);
      if (copied != 0)
        std::memcpy(out, s.StrGet(), copied);
      if (copied < room)
        std::memset(out + copied, 0, room - copied);
      return copied < length ? -static_cast<int>(length) : static_cast<int>(length);
    }
  }
  UnicodeText const text(s);
  Encoded const part =
      text.With([&](auto const & units) { return Encode(units, text.Length(), out, room); });
  auto const bytes = static_cast<int>(part.bytes);
  if (part.chars < text.Length())
    return -bytes;
  if (part.bytes < room)
    out[part.bytes] = 0;
  return bytes;
}

int ZnString2MultiByteString(ZnString const & s, char *& out, int & size) {
  bool const allocate = size <= 0 || !out;
  if (allocate) {
    char local[2048];
    int bytes = ZnString2ZnMBS(s, local, sizeof local);
    out = nullptr;
    size = 0;
    std::unique_ptr<char[]> buffer;
    if (bytes > 0) {
      buffer.reset(new char[static_cast<std::size_t>(bytes) + 1]);
      std::memcpy(buffer.get(), local, static_cast<std::size_t>(bytes));
    } else {
      UnicodeText const text(s);
      bytes = text.With([&](auto const & units) {
        std::size_t const needed = CountBytes(units, text.Length());
        buffer.reset(new char[needed + 1]);
        return static_cast<int>(Encode(units, text.Length(), buffer.get(), needed).bytes);
      });
    }
    buffer[static_cast<std::size_t>(bytes)] = 0;
    out = buffer.release();
    size = bytes + 1;
    return bytes;
  }
  int const bytes = ZnString2ZnMBS(s, out, size);
  if (bytes > 0 || (bytes == 0 && s.IsEmpty()))
    return bytes;
  UnicodeText const text(s);
  size = static_cast<int>(
      text.With([&](auto const & units) { return CountBytes(units, text.Length()); }));
  return -1;
}
