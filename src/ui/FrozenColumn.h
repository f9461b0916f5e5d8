#pragma once

#include <QTableView>

namespace zelkor {

class FlexGrid;
class GridModel;

/// The first column of a grid, which stays in place above the others once these are moved to the left. It is
/// only looked at: the mouse reaches the grid through it.
class FrozenColumn final : public QTableView {
 public:
  FrozenColumn(FlexGrid& grid, const GridModel& model);

  /// Shows the first column of the grid's present content, its cells merged as there.
  void renew();
  /// Lies over the grid's left edge where something has been moved below it.
  void place();
  /// Pixels of the grid that it covers.
  int covered() const { return isHidden() ? 0 : width(); }

 private:
  FlexGrid& grid_;
  int column_ = 0;
};

}  // namespace zelkor
