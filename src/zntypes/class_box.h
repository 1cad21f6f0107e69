#pragma once

#include "zncodes.h"
#include "znstring.h"
#include "zntypecvt.h"
#include "zntypes/class_life.h"

/// Boxes and nulls of value classes: what a class writes into a string, and makes of one.
///
/// A kind says how one value moves:
///
///     struct SealText {
///       using Value = ZnSeal;
///       static void Write(ZnString & out, Value const & value);  // into an empty string
///       static void Read(Value & value, ZnString & in);          // from a string, not null
///       static void SetBlank(Value & value);                     // where it has something to say
///       static void SetDefault(Value & value);                   // likewise
///     };
///
/// and its row takes `kClassBox<SealText>`. A null value becomes a null string. An element without
/// a string, or with a null one, becomes what `SetBlank` says, else null, or in a class without
/// null what a new value is. The default value, unless a null is asked for, is what `SetDefault`
/// says, else a new value. `Read` may use the string up.

namespace zntms {

template <class Value>
int IsValueNull(void * value) {
  return static_cast<Value const *>(value)->IsNullValue();
}

template <class Value>
int SetValueNull(void * value) {
  return static_cast<Value *>(value)->SetNullValue();
}

template <class Value>
inline constexpr RowNull kClassNull = {&IsValueNull<Value>, &SetValueNull<Value>};

template <class Value>
concept Nullable = requires(Value & value) {
  value.SetNullValue();
};

template <class Text>
ZnTypeConvertData * BoxValues(void * value, unsigned int count) {
  auto const * const values = static_cast<typename Text::Value const *>(value);
  auto * const strings = static_cast<ZnString *>(CreateValues<ZnString>(count));
  for (unsigned int i = 0; i < count; ++i) {
    if constexpr (Nullable<typename Text::Value>) {
      if (values[i].IsNullValue()) {
        strings[i].SetNullValue();
        continue;
      }
    }
    Text::Write(strings[i], values[i]);
  }
  return ZnTypeConvertData::Make(ZnSTRING_T, count, strings, nullptr);
}

template <class Text, ZnTypeRow::CreateFunc create>
void * UnboxValues(ZnTypeConvertData * box, unsigned int count) {
  auto * const values = static_cast<typename Text::Value *>(create(count));
  for (unsigned int i = 0; i < count; ++i) {
    ZnString * const in = box ? box->GetString(static_cast<int>(i)) : nullptr;
    if (in && !in->IsNullValue())
      Text::Read(values[i], *in);
    else if constexpr (requires { Text::SetBlank(values[i]); })
      Text::SetBlank(values[i]);
    else if constexpr (Nullable<typename Text::Value>)
      values[i].SetNullValue();
  }
  return values;
}

template <class Text, ZnTypeRow::CreateFunc create>
void * DefaultValues(unsigned int count, [[maybe_unused]] int wantNull) {
  auto * const values = static_cast<typename Text::Value *>(create(count));
  if constexpr (requires { Text::SetDefault(*values); }) {
    for (unsigned int i = 0; i < count; ++i)
      Text::SetDefault(values[i]);
  }
  if constexpr (Nullable<typename Text::Value>) {
    for (unsigned int i = 0; wantNull && i < count; ++i)
      values[i].SetNullValue();
  }
  return values;
}

/// `create` is the row's `Create`.
template <class Text, ZnTypeRow::CreateFunc create = &CreateValues<typename Text::Value>>
inline constexpr RowBox kClassBox = {&BoxValues<Text>, &UnboxValues<Text, create>,
                                     &DefaultValues<Text, create>};

} // namespace zntms
