#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "base/RowSearch.h"
#include "ui/FindBar.h"
#include "ui/FlexGrid.h"

namespace zelkor {

/// Searches the rows of a grid: those that have every word that was typed are shown alone, the first of them
/// is the current one; Enter opens the current row. A click on a heading of the grid sorts.
class GridFindBar final : public FindBar {
 public:
  /// What of a row is searched. Must not throw.
  using RowText = std::function<std::string(std::size_t row)>;

  GridFindBar(FlexGrid& grid, const QString& hint, RowText textOf, QWidget* form);

  /// What the texts are made of has changed: they are read again with the next search.
  void forgetTexts();

 private:
  QString search(const QString& text) override;
  void step(int direction) override;
  void take() override;
  void searchNewRows();

  FlexGrid& grid_;
  RowText textOf_;
  RowSearch texts_;  // of the grid's rows below the header, as far as one has been sought
};

}  // namespace zelkor
