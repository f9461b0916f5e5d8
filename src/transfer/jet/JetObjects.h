#pragma once

#include <string>
#include <vector>

#include "transfer/jet/JetFile.h"
#include "transfer/jet/JetProblems.h"
#include "transfer/jet/JetText.h"

namespace zelkor::jet {

enum class ObjectKind : unsigned char {
  Table,
  SystemTable,
  DeletedTable,  // kept by the file until it is compacted
  LinkedTable,
  Query,
  Form,
  Report,
  Macro,
  Module,
  Relation,
  Other
};

/// An entry of the file's own catalogue.
struct Object {
  ObjectKind kind = ObjectKind::Other;
  std::string name;
  bool nameWhole = true;
  PageNumber definition = 0;  // of a table
  std::string otherFile;      // of a linked table
  std::string otherTable;
};

/// Everything that the file says it holds, in the order in which it was made. Error 3343 when the catalogue
/// is damaged; one that counts other entries than it has is a problem. Not left to libmdb, which takes
/// reports for tables that are linked by ODBC.
std::vector<Object> readObjects(JetFile& file, TextDecoder& texts, Problems& problems);

}  // namespace zelkor::jet
