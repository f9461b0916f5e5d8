#pragma once

#include <span>
#include <string_view>

namespace zelkor {

/// One step on the way from a revision of the books to the next.
///
/// Each data file of an account set keeps the number of the revision that it has reached. A new set is made
/// from the catalogue and has the last one; `zelkorctl renew` takes an older one there by the rows with
/// higher numbers, in their order.
///
/// To change a table, change the catalogue and add a row with the next number; a row that books have been
/// renewed by stays as it is. `change` is one of
/// - `table.column`: the column as the catalogue has it, in the table and in its template. An older table
///   gets it last, so it comes last in the catalogue, too. Existing rows get its default.
/// - `table`: a new table with its indexes, as the catalogue has it.
/// - any other change to one of the catalogue's tables, as a statement of the dialect: an index, values to be
///   filled in.
/// A table, column or index that is there already is passed over.
struct RevisionStep {
  int revision = 0;
  std::string_view change;
};

/// The steps, by rising numbers. The first sets, which keep no number, have revision 1.
std::span<const RevisionStep> revisionSteps();

/// The revision of new books: the last step's.
int currentRevision();

}  // namespace zelkor
