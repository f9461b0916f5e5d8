#pragma once

#include "support/jet/JetFileWriter.h"
#include "transfer/TransferSource.h"

namespace zelkor::test {

/// The column as the engine's own programs would create it.
JetColumn jetColumn(const dialect::ColumnInfo& column);

/// Writes all tables of an account set's file or schema: columns, indexes, rows in their order, counters.
void writeTables(TransferSource& source, JetFileWriter& file);

}  // namespace zelkor::test
