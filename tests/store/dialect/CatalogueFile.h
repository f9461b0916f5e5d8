#pragma once

#include <memory>

#include "store/accountset/DataFile.h"
#include "store/catalogue/Catalogue.h"
#include "store/StoreFixture.h"

namespace zelkor::dialect::test {

/// A data file with the empty tables of the catalogue, opened by the engine alone.
class CatalogueFile {
 public:
  CatalogueFile() {
    engine_->begin();
    for (const auto* tables : {&dataTables(), &systemTables()})
      for (const TableDef& table : *tables)
        for (const std::string& sql : createStatements(table, engine_->words())) engine_->run(sql);
    engine_->commit();
  }

  const std::string& path() const { return path_; }
  Engine& engine() { return *engine_; }

 private:
  zelkor::test::TempDir directory_;
  std::string path_ = zelkor::test::makeEmptyDataFile(directory_.path());
  std::unique_ptr<Engine> engine_ = openDataFile(path_);
};

}  // namespace zelkor::dialect::test
