#pragma once

#include <string>
#include <vector>

#include "store/dialect/binding/BindTree.h"

// The order of rows, as keys that leave no two of them alike. The rows of a table come as they were added,
// joined ones by the rows of the first table, then by those of the next; groups by their keys, Null first; a
// UNION by its columns, a UNION ALL one part after the other; distinct rows where the first of those that
// are alike would come. A SELECT in FROM has its own order. Where the last key of ORDER BY descends, rows
// that are alike come the other way round, but for groups and UNION.
namespace zelkor::dialect {

/// What an engine does by itself or cannot do: see Emitter.
struct EngineOrder {
  bool movesRows = false;
  bool keysNestedRows = false;
};

/// The order of the rows that FROM gives. The SELECTs in it have numbered theirs.
std::vector<bound::OrderKey> orderOfSources(const std::vector<bound::Source>& from, bool descending,
                                            const EngineOrder& engine);
/// What tells rows apart that are alike in the ORDER BY.
std::vector<bound::OrderKey> tiesOf(const bound::Select& select, const EngineOrder& engine);
/// Whether the rows come in their order without being told.
bool comesInOrder(const bound::Select& select, const EngineOrder& engine);

/// The SELECT with all keys that decide which rows it gives and, if `ordered`, how they come. Ranked rows
/// have a further last item then, which tells their order.
bound::Select withOrder(bound::Select select, bool ordered, const EngineOrder& engine);
/// Whether the first rows are told by their ranks: they may be more than were asked for.
bool isRanked(const bound::Select& select);

/// What the output column is called, counted from 0, where its own name would not do.
std::string columnName(std::size_t index);

}  // namespace zelkor::dialect
