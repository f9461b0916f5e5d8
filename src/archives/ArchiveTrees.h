#pragma once

#include <set>
#include <span>
#include <string>
#include <vector>

#include "archives/ClsBLLAssentTypes.h"
#include "base/TreeRow.h"
#include "store/engine/Database.h"

namespace zelkor {

/// The archive as a selection dialog shows it: names as texts, codes (sNum) as tags, keys "t" and the sID. An
/// entry without a parent hangs below the row with the code "&"; it is a head where the archive has no such
/// row. Empty when the archive cannot be read.
std::vector<TreeRow> archiveTree(ClsBLLAssentTypes& types, ArchiveKind kind);

/// Codes of the entries that have others below them, which no card may bear.
std::set<std::string> codesOfHeads(std::span<const TreeRow> tree);

/// What a selection dialog gives back: the entry's code (sNum or sID) and its name.
struct ArchiveEntry {
  std::string code;
  std::string name;
};

// Archives of two levels below a head with the key "N0": keys "N" and the code, texts code, blank, name; the
// codes as tags, which the head has not.

std::vector<TreeRow> departPickTree(Database& data);
std::vector<TreeRow> statusPickTree(Database& data);
/// The ways of reduction.
std::vector<TreeRow> reductionPickTree(Database& data);

}  // namespace zelkor
