#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "support/jet/JetPages.h"
#include "support/jet/JetRow.h"
#include "support/jet/JetText.h"

namespace zelkor::test::jet {

/// What is in front of a table's columns and is known only when its last row is.
struct TableState {
  std::uint32_t rows = 0;
  std::uint32_t lastCounter = 0;
  std::uint32_t ownedPages = 0;  // pointers to usage maps
  std::uint32_t freePages = 0;
  struct IndexPages {
    std::uint32_t map = 0;
    std::uint32_t root = 0;
  };
  std::vector<IndexPages> indexes;
  struct LongMaps {
    std::uint32_t owned = 0;
    std::uint32_t free = 0;
  };
  std::vector<LongMaps> longColumns;
};

/// A table's definition, which is on one page or a chain of them.
class TableDefinition {
 public:
  TableDefinition(PageFile& file, TextEncoder& encoder, std::vector<JetColumn> columns,
                  std::vector<JetIndex> indexes, bool isSystem);

  std::uint32_t page() const { return pages_.front(); }
  const std::vector<ColumnPlace>& places() const { return places_; }
  std::size_t indexes() const { return indexes_.size(); }
  void write(const TableState& state) const;

 private:
  std::string content(const TableState& state) const;
  void addHead(std::string& out, const TableState& state) const;
  void addColumn(std::string& out, std::size_t number) const;
  void addName(std::string& out, const std::string& name) const;
  void addIndexColumns(std::string& out, const JetIndex& index, const TableState::IndexPages& pages) const;
  void addIndexHead(std::string& out, std::size_t number) const;

  PageFile& file_;
  TextEncoder& encoder_;
  std::vector<ColumnPlace> places_;
  std::vector<JetIndex> indexes_;
  bool isSystem_;
  std::vector<std::uint32_t> pages_;
};

/// Fills one table.
class TableWriter {
 public:
  TableWriter(PageFile& file, TextEncoder& encoder, UsageMaps& maps, std::vector<JetColumn> columns,
              std::vector<JetIndex> indexes, bool isSystem = false);

  std::uint32_t page() const { return definition_.page(); }
  void add(const std::vector<JetCell>& cells, JetRowState state);
  void setLastCounter(std::int32_t number);
  void finish();

 private:
  void count(const std::vector<JetCell>& cells);
  std::uint32_t emptyIndex();

  PageFile& file_;
  UsageMaps& maps_;
  TableDefinition definition_;
  RowPacker packer_;
  RowPages rows_;
  RowPages movedRows_;
  TableState state_;
  bool isCounterTold_ = false;
};

}  // namespace zelkor::test::jet
