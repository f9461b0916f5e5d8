#pragma once

#include <string>
#include <vector>

#include "transfer/jet/JetFile.h"
#include "transfer/jet/JetText.h"

namespace zelkor::jet {

/// The types of columns by the numbers that are in the file.
enum class Type : unsigned char {
  Boolean = 1,
  Byte = 2,
  Short = 3,
  Long = 4,
  Money = 5,
  Single = 6,
  Double = 7,
  Date = 8,
  Binary = 9,
  Text = 10,
  Ole = 11,
  Memo = 12,
  Guid = 15,
  Numeric = 16
};

/// Bytes that a value of a type takes which are always as many; 0 for other types.
std::size_t sizeOf(Type type);

struct Column {
  std::string name;
  Type type = Type::Text;  // may be one that is not known
  std::size_t number = 0;  // within the rows; numbers of deleted columns are not given again
  std::size_t variableIndex = 0;
  std::size_t fixedOffset = 0;
  std::size_t length = 0;   // bytes
  std::size_t display = 0;  // orders the columns for people
  int precision = 0;
  int scale = 0;
  bool fixed = false;
  bool counter = false;
};

struct IndexColumn {
  std::size_t number = 0;  // of the column
  bool descending = false;
};

struct Index {
  std::string name;
  std::vector<IndexColumn> columns;
  bool primary = false;
  bool unique = false;
  bool ignoresNull = false;
};

/// A table as the file defines it.
struct Definition {
  PageNumber page = 0;  // by which its pages of rows know it
  std::int64_t rows = 0;
  std::int64_t lastCounter = 0;
  std::vector<Column> columns;  // in the order in which they are shown
  std::vector<Index> indexes;   // without those that only serve relations
  std::vector<PageNumber> pages;
  std::vector<std::string> unreadableNames;

  const Column* columnOf(std::size_t number) const;
};

/// Reads a definition and sees that all pages it refers to, also by its maps, lie in the file. Error 3343
/// when it makes no sense. Not left to libmdb, which reads the keys of indexes wrongly where relations have
/// keys of their own, and replaces what it cannot convert in names.
Definition readDefinition(JetFile& file, PageNumber page, TextDecoder& texts);

}  // namespace zelkor::jet
