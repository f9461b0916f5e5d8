#pragma once

#include <string>
#include <vector>

#include "audit/BookCheck.h"
#include "audit/ReadBooks.h"
#include "store/catalogue/Catalogue.h"

namespace zelkor {

/// The file's own rules (F01 to F04): what the engine finds in it, and its tables, columns and indexes beside
/// `tables` of the catalogue. `name` is how the file is told.
void checkFile(ReadBooks& books, const std::vector<TableDef>& tables, const std::string& name,
               CheckResult& result);

}  // namespace zelkor
