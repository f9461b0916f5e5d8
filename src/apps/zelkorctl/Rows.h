#pragma once

#include <iosfwd>

#include "store/engine/Recordset.h"

namespace zelkor {

/// All rows with tabs between the fields, under a line of column names. Null is \N; a tab, a line break and a
/// backslash inside a field are \t, \n, \r and \\. Dates are "YYYY-MM-DD HH:MM:SS", booleans True and False.
void printTabbed(Recordset rows, std::ostream& output);

/// All rows as a JSON array of objects; of columns with one name the first counts.
void printJson(Recordset rows, std::ostream& output);

}  // namespace zelkor
