#include "znstringbounds.h"

#include "zanbs.h"
#include "zncodes.h"
#include "znstrcmp.h"
#include "znstringstore.h"
#include "zntypevl/key_text.h"
#include "zntypevl/stored_text.h"
#include "zntypevl/string_estimate.h"
#include "zntypevl/string_query.h"

#include <algorithm>
#include <cstdlib>

/// The bound rows of strings: the lowest and the highest key that a comparison can match.
///
/// Worked example: "ab*" under "equal" gets the low key 08 00 FE 01 0C 50 10 50 00 FF, which is
/// "ab", and the high key 0A 00 FE 01 0C 50 10 50 FE FF 00 FF, the same and the largest unit. If
/// case does not count, every letter of the low key is lower case and every one of the high key
/// upper case, so that all ways to write it lie between the two.
///
/// The stored constant and the keys of the caller are only read: what needs a terminator is copied.

namespace zntms {

namespace {

constexpr unsigned short kKeptBits = 0x800F;
constexpr unsigned short kFlags = 0x7FF0;
constexpr unsigned short kWithoutTrace = ZnCmpIgnoreSpaces | ZnCmpIgnoreSymbols;
constexpr unsigned short kCaseBits = 0x3000;
constexpr unsigned short kDiacriticBits = 0x0F80;
constexpr unsigned short kNoWildcardFound = 65535;
/// Bytes of a key with the largest unit alone, in text of either width.
constexpr unsigned int kLargestUnitKey = 8;
constexpr unsigned char kLatinClass = 1;
/// Behind every script class that the order knows.
constexpr unsigned char kLastClass = 0x7F;

/// What stands around the text of a key.
struct KeyFrame {
  unsigned int head;
  unsigned int endMark;
  unsigned int oldLength; ///< of the old form: the least that the length field says

  bool IsOld() const { return head == kLengthField; }
  unsigned int SizeWith(unsigned int textBytes) const { return head + textBytes + endMark; }
  /// A longer text is cut at the limit and has no end mark.
  bool Holds(unsigned int textBytes) const { return SizeWith(textBytes) <= kLongestStringKey; }
  void Cut(KeyText & text) const {
    if (!Holds(text.bytes))
      text.CutTo(kLongestStringKey - head);
  }
};

/// The stored constant, with what is known of the texts that it matches.
class Constant {
public:
  Constant(void * value, unsigned short cmpOp, unsigned char byteOrder, bool oldData)
      : value_(value), byteOrder_(byteOrder), stored_(value, 0, byteOrder, oldData) {
    stored_.Read();
    if (oldData)
      stored_.codeSet = stored_.language = 0;
    unsigned int const width = CharacterWidth(stored_.codeSet);
    bytes_ = TextLengthWithin(stored_.text, width, stored_.bytes) * width;
    unsigned int const whole = bytes_;
    if ((cmpOp & ZnCmpNoWildcards) == 0)
      FindWildcard();
    if (!BeginsWithWildcard())
      ReadKeyText();
    frame_ = oldData ? KeyFrame{kLengthField, isPrefix_ ? 0u : 1u, whole + 1}
                     : KeyFrame{kStringHead, kStringEndMark, 0};
  }

  /// A wildcard stands behind the text that is known, or an end that no key can tell.
  bool IsPrefix() const { return isPrefix_; }
  bool BeginsWithWildcard() const { return isPrefix_ && bytes_ == 0; }
  KeyText const & Text() const { return text_; }
  KeyFrame const & Frame() const { return frame_; }

private:
  void FindWildcard() {
    unsigned short offset = 0;
    if (ZnFindWildcard(stored_.codeSet, stored_.language, stored_.text, 0, 65535, &offset,
                       byteOrder_) != kNoWildcardFound) {
      isPrefix_ = true;
      bytes_ = std::min<unsigned int>(bytes_, offset);
    } else {
      isPrefix_ = stored_.codeSet == kOrderText && (stored_.language & kMixedClass) != 0 &&
                  WithoutMixedMark(kOrderText, stored_.language) != kLatinClass;
    }
  }

  /// The known text in units of a key, as many as a key holds and one more.
  void ReadKeyText() {
    constexpr unsigned int kMost = kLongestStringKey - 2;
    text_.codeSet = stored_.codeSet;
    text_.language = stored_.language;
    if (BecomesKey(stored_.codeSet, byteOrder_ | ZnFormatIndexKey)) {
      TranslateText();
      return;
    }
    text_.bytes = std::min(bytes_, kMost);
    std::memcpy(text_.text, stored_.text, text_.bytes);
  }

  void TranslateText() {
    constexpr unsigned char kHostKey = ZnFormatLittleEndian | ZnFormatIndexKey;
    char key[kStringHead + kLongestStringKey - 2];
    char empty[kStringHead] = {0, 0, static_cast<char>(stored_.codeSet),
                               static_cast<char>(stored_.language)};
    WriteLength(empty, kStringHead, byteOrder_);
    unsigned int const size =
        ZnStringTranslate(key, kHostKey, sizeof key, bytes_ != 0 ? value_ : empty, byteOrder_,
                          kStringHead + bytes_, 1);
    text_.codeSet = static_cast<unsigned char>(key[2]);
    text_.language = static_cast<unsigned char>(key[3]);
    // The length field counts an end mark, be it there or cut off, in the place of its own bytes.
    text_.bytes = std::min(size, ReadLength(key, kHostKey)) - kStringHead;
    std::memcpy(text_.text, key + kStringHead, text_.bytes);
    isPrefix_ |= text_.IsMixed();
  }

  void * value_;
  unsigned char byteOrder_;
  StoredTexts stored_;
  unsigned int bytes_ = 0; ///< of the text up to the first wildcard
  bool isPrefix_ = false;
  KeyText text_;
  KeyFrame frame_{};
};

/// Which bits of letters a comparison ignores.
struct LetterMasks {
  unsigned short caseBits;
  unsigned short diacriticBits;

  explicit LetterMasks(unsigned short cmpOp)
      : caseBits((cmpOp & ZnCmpIgnoreCase) != 0 ? kCaseBits : 0),
        diacriticBits((cmpOp & ZnCmpIgnoreAccents) != 0 ? kDiacriticBits : 0) {}

  unsigned short Both() const { return caseBits | diacriticBits; }
  /// Without diacritic, and in lower case, which orders first.
  unsigned short Lowest(unsigned short letter) const {
    return static_cast<unsigned short>((letter & ~diacriticBits) | caseBits);
  }
  unsigned short Highest(unsigned short letter) const {
    return static_cast<unsigned short>((letter | diacriticBits) & ~caseBits);
  }
};

KeyText LowText(Constant const & constant, LetterMasks const & masks) {
  KeyText text = constant.Text();
  text.VaryLetters([&masks](unsigned short letter) { return masks.Lowest(letter); });
  constant.Frame().Cut(text);
  return text;
}

bool HasSignificantUnit(KeyText const & text) {
  for (unsigned int i = 0; i < text.bytes; i += 2)
    if (ReadUnit(text.text + i) >= kFirstSignificantOrder)
      return true;
  return false;
}

/// The text of the high key: behind a prefix stands the largest unit. It takes the place of the
/// last unit where spaces or symbols leave no trace, since any number may stand in front of that.
KeyText HighText(Constant const & constant, LetterMasks const & masks, bool leavesNoTrace) {
  KeyText text = constant.Text();
  // Spaces and symbols are the same in all classes, so that any class may follow.
  if (constant.IsPrefix() && text.codeSet == kOrderText && !HasSignificantUnit(text))
    text.language = kLastClass;
  text.VaryLetters([&masks](unsigned short letter) { return masks.Highest(letter); });
  if (constant.IsPrefix() || (leavesNoTrace && text.bytes == 0))
    text.AppendLargest();
  constant.Frame().Cut(text);
  if (constant.IsPrefix() || leavesNoTrace)
    WriteLargest(text.text + text.bytes - text.Width(), text.Width());
  return text;
}

/// A new key of `size` bytes in a block of at least `keyLimit`; `line` is that of the report if
/// the key is too long.
void * NewKey(KeyText const & text, KeyFrame const & frame, unsigned int size,
              unsigned char keyLimit, unsigned char byteOrder, int line) {
  unsigned int const room = (std::max<unsigned int>(keyLimit, size) + 1) & ~1u;
  auto * const key = static_cast<char *>(std::calloc(room, 1));
  if (key == nullptr)
    ZnCallMemoryHandler(size);
  unsigned int const end = frame.head + text.bytes;
  if (frame.IsOld()) {
    WriteLength(key, std::max(frame.oldLength, text.bytes + 1), byteOrder);
  } else {
    WriteLength(key, end, byteOrder);
    key[2] = static_cast<char>(text.codeSet);
    key[3] = static_cast<char>(text.language);
  }
  if (text.Width() == 2)
    ShortStore(key + frame.head, text.text, byteOrder, text.Units());
  else
    std::memcpy(key + frame.head, text.text, text.bytes);
  unsigned int actualLen = end;
  if (frame.Holds(text.bytes)) {
    if (!frame.IsOld())
      WriteEndMark(key + end);
    actualLen += frame.endMark;
  }
  if (actualLen > kLongestStringKey)
    ZANT_assert("actualLen <= 254", "src\\zntypevl", line);
  return key;
}

/// A key that the caller holds, if there is one, or what stands for it.
struct KnownKey {
  StoredTexts stored;
  BoundText text;

  KnownKey(void const * key, unsigned char length, unsigned char byteOrder, bool oldData,
           BoundText const & otherwise)
      : stored(key, key != nullptr ? length : 0, byteOrder, oldData), text(otherwise) {
    if (key == nullptr || length == 0)
      return;
    stored.Read();
    stored.TakeMixedMark();
    unsigned int const head = oldData ? kLengthField : kStringHead;
    text = {stored.codeSet, stored.language, stored.text,
            length < head ? 0 : (length - head) / CharacterWidth(stored.codeSet)};
  }
};

BoundText TextOf(KeyText const & text, unsigned int length) {
  return {text.codeSet, WithoutMixedMark(text.codeSet, text.language), text.text, length};
}

/// The share of a constant that begins with a wildcard: what it matches may stand anywhere, so that
/// any operator selects from the whole range.
float ShareOfAnyText(unsigned short op) {
  constexpr int kLine = 1126;
  bool const selects = (op & (ZnOpEqual | ZnOpBelow | ZnOpAbove)) != 0;
  if (!selects)
    ZANT_assert("charWildPos != 0 || valueRange >= valueTotalArea", "src\\zntypevl", kLine);
  return selects ? 1.0F : 0.0F;
}

float Bound(ZnIdxBounds * area, unsigned short & op, void * value, unsigned char format,
            ZnIdxBounds * out, bool oldData) {
  constexpr int kLowKeyLine = 821;
  constexpr int kHighKeyLine = 962;
  unsigned char const byteOrder = IsBigEndian(format) ? ZnFormatBigEndian : ZnFormatLittleEndian;
  unsigned short const cmpOp = op & kFlags;
  op &= kKeptBits;
  Constant const constant(value, cmpOp, byteOrder, oldData);
  if (constant.IsPrefix())
    op |= ZnOpWildcard;
  if (out == nullptr)
    return 0;
  if (constant.BeginsWithWildcard())
    return ShareOfAnyText(op);

  KeyFrame const & frame = constant.Frame();
  KeyText const & text = constant.Text();
  bool const leavesNoTrace = (cmpOp & kWithoutTrace) != 0;
  bool const fromStart = leavesNoTrace && (cmpOp & ZnOpFromStart) != 0;
  bool const bounded = (op & ZnOpAbove) == 0;
  LetterMasks const masks(cmpOp);
  KeyText const low = LowText(constant, masks);
  KeyText const high = bounded ? HighText(constant, masks, leavesNoTrace) : text;
  unsigned int lowUnits = kNoLength;
  unsigned int highUnits = kNoLength;
  if (constant.IsPrefix()) {
    lowUnits = text.Units();
    highUnits = text.Units() + text.Width();
  }
  if (!frame.Holds(high.bytes))
    highUnits = high.Units();

  // What the caller holds is read before keys of the constant are added.
  KnownKey const lowKey(out->lowKey, out->lowLength, byteOrder, oldData, TextOf(low, lowUnits));
  KnownKey const highKey(out->highKey, out->highLength, byteOrder, oldData,
                         TextOf(high, highUnits));
  BoundText nowhere = TextOf(low, out->keyLimit);
  nowhere.text = kEmptyText;
  ZnIdxBounds const none{};
  ZnIdxBounds const & ends = area != nullptr ? *area : none;
  KnownKey const areaLow(ends.lowKey, ends.lowLength, byteOrder, oldData, nowhere);
  KnownKey const areaHigh(ends.highKey, ends.highLength, byteOrder, oldData, nowhere);

  if (out->lowKey == nullptr && (op & ZnOpBelow) == 0 && !fromStart) {
    KeyText lowest = low;
    if (text.bytes == 0 && (cmpOp & (ZnCmpNoWildcards | ZnCmpKeysOnly)) == 0)
      lowest.MakeNull();
    unsigned int const size = std::min(frame.SizeWith(low.bytes), kLongestStringKey);
    out->lowKey = NewKey(lowest, frame, size, out->keyLimit, byteOrder, kLowKeyLine);
    out->lowLength = static_cast<unsigned char>(size);
  }
  if (out->highKey == nullptr && bounded) {
    unsigned int const size = leavesNoTrace && text.bytes == 0
                                  ? kLargestUnitKey
                                  : std::min(frame.SizeWith(high.bytes), kLongestStringKey);
    out->highKey = NewKey(high, frame, size, out->keyLimit, byteOrder, kHighKeyLine);
    out->highLength = static_cast<unsigned char>(size);
  }
  return ShareOfArea({lowKey.text, highKey.text, areaLow.text, areaHigh.text}, op, cmpOp,
                     masks.Both(), byteOrder);
}

} // namespace

float OldStringEvalAndBound(ZnIdxBounds * area, unsigned short & op, void * value,
                            unsigned char format, unsigned int, ZnIdxBounds * out) {
  return Bound(area, op, value, format, out, true);
}

} // namespace zntms

float ZnStringEvalAndBound(ZnIdxBounds * area, unsigned short & op, void * value,
                           unsigned char format, unsigned int, ZnIdxBounds * out) {
  return zntms::Bound(area, op, value, format, out, false);
}
