#pragma once

#include "zncodes.h"
#include "znexport.h"

class ZnString;
class ZnTypeMgr;

/// A box of values on their way between two types: in this library always `count` strings.
class ZANTMS_EXPORT ZnTypeConvertData {
public:
  ZnTypeMgr * mgr;    ///< deletes `data` with the box; null: the data stays with its maker
  void * data;        ///< array of `count` values, in the form that `Create` gives
  unsigned int count; ///< number of elements
  char typeId;        ///< their type; 100 while the box is empty

  /// An empty box.
  ZnTypeConvertData();
  ZnTypeConvertData(char id, unsigned int number, void * values, ZnTypeMgr * manager);
  /// Deletes the data if `mgr` and `data` are set, and leaves the box empty.
  ~ZnTypeConvertData();
  ZnTypeConvertData(ZnTypeConvertData const &) = delete;
  ZnTypeConvertData & operator=(ZnTypeConvertData const &) = delete;

  /// A new box on the heap; the caller owns it.
  static ZnTypeConvertData * Make(char id, unsigned int count, void * data, ZnTypeMgr * mgr);

  /// The string of an element; null if `index` is negative or not below `count`, or if the box
  /// holds no strings.
  ZnString * GetString(int index);
};
