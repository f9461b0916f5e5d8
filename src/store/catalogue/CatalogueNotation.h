#pragma once

#include <initializer_list>
#include <string_view>

#include "store/catalogue/Catalogue.h"

namespace zelkor::catalogue {

/// Reads a table from the catalogue's notation: columns between blanks, in table order.
///
/// A column is `name[from..to](size):type=default#`, all but the name optional:
/// - `[1..12]` stands for one column per month, the number after the name;
/// - `(20)` is the size of a text, 60 when it is not said;
/// - `:type` is one of text, memo, short, long, counter, double, currency, date, boolean, binary where the
///   name's prefix does not say the type;
/// - `#` keeps the indexes by which a text that holds a number is ordered as one.
///
/// An index is its columns between blanks, after `unique` where it is a key.
///
/// Prefixes of the module's own tables: s text, i short, l long, dbl double, d date, b boolean, mem memo.
TableDef moduleTable(std::string_view name, std::string_view columns,
                     std::initializer_list<std::string_view> indexes = {});

/// The same with the prefixes of the suite's tables: c text, i short, m currency, d date, b boolean.
TableDef suiteTable(std::string_view name, std::string_view columns,
                    std::initializer_list<std::string_view> indexes = {});

/// The table with 0 as the default of every number that has none: a month not yet reached reads as nothing.
TableDef withZeroNumbers(TableDef table);

std::vector<TableDef> cardTables();
std::vector<TableDef> changeTables();
std::vector<TableDef> depreciationTables();
std::vector<TableDef> archiveTables();
std::vector<TableDef> settingTables();
std::vector<TableDef> ledgerTables();
std::vector<TableDef> suiteArchiveTables();
std::vector<TableDef> systemFileTables();

}  // namespace zelkor::catalogue
