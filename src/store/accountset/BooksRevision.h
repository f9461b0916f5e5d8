#pragma once

#include <string>
#include <vector>

#include "store/catalogue/Catalogue.h"
#include "store/engine/Engine.h"

// How far the books that lie in a file or on a server have come, beside what this program knows.
namespace zelkor {

/// The revision of the books; those that keep no number have the first.
int revisionOf(Engine& books);

/// Error 3343 with both numbers for books that a newer program has renewed. `path` is for the text.
void requireKnownRevision(Engine& books, const std::string& path);

/// One sentence for books that are older than this program, its functions on a server among them: what they
/// are, and how to renew them. Empty for all others, also for what holds no books.
std::string renewalAdvice(Engine& books, const std::string& path);
/// A line with the advice, for whoever goes on with such books.
std::string renewalNotice(const std::string& advice);

/// Whether one of the names is that of one of the tables.
bool namesSome(const std::vector<std::string>& names, const std::vector<TableDef>& tables);

}  // namespace zelkor
