#pragma once

#include <string>
#include <string_view>

#include "store/dialect/Translation.h"

namespace zelkor::dialect::test {

/// What a golden file keeps of one statement: its text, and for either engine the translation or the error.
std::string goldenEntry(std::string_view statement, const SchemaView& schema);

/// The same for criteria that are looked for in the rows of a query.
std::string goldenSearch(std::string_view query, std::string_view criteria, const SchemaView& schema);

/// "text", "long", ... as the golden files say it.
std::string_view nameOf(ColumnType type);

/// Every output column of the query.
std::vector<std::size_t> allColumns(const Query& query);

}  // namespace zelkor::dialect::test
