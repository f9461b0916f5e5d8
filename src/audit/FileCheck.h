#pragma once

#include <string>
#include <vector>

#include "audit/BookCheck.h"
#include "audit/ReadBooks.h"
#include "store/catalogue/Catalogue.h"

namespace zelkor {

/// What the engine's own check of that file has found (F01). `name` is how the file is told.
void addIntegrity(const IntegrityCheck& integrity, const std::string& name, CheckResult& result);

/// The tables, columns and indexes of the file beside `tables` of the catalogue (F02 to F04).
void checkTables(ReadBooks& books, const std::vector<TableDef>& tables, CheckResult& result);

}  // namespace zelkor
