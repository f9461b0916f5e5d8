#include "ui/GridModel.h"

#include <QFont>

#include "ui/Texts.h"

namespace zelkor {
namespace {

QVariant alignmentOf(Align align) {
  const Qt::AlignmentFlag side = align == Align::Left    ? Qt::AlignLeft
                                 : align == Align::Right ? Qt::AlignRight
                                                         : Qt::AlignHCenter;
  return static_cast<int>(side | Qt::AlignVCenter);
}

}  // namespace

TextGrid GridModel::setGrid(TextGrid grid) {
  beginResetModel();
  std::swap(grid_, grid);
  order(std::nullopt);
  endResetModel();
  return grid;
}

void GridModel::addRows(TextGrid more) {
  if (more.rows() == 0) return;
  const int first = rowCount();
  const std::size_t firstOfGrid = grid_.rows();
  beginInsertRows({}, first, first + static_cast<int>(more.rows()) - 1);
  grid_.append(std::move(more));
  for (std::size_t row = firstOfGrid; order_ && row < grid_.rows(); ++row) {
    places_.push_back(static_cast<int>(order_->size()));
    order_->push_back(static_cast<std::uint32_t>(row));
  }
  endInsertRows();
}

void GridModel::setText(std::size_t row, std::size_t column, std::string text) {
  grid_.setText(row, column, std::move(text));
  if (row < grid_.headerRows() || viewRow(row) < 0) return;
  const QModelIndex cell = index(viewRow(row), static_cast<int>(column));
  emit dataChanged(cell, cell);
}

void GridModel::arrange(std::optional<std::vector<std::uint32_t>> rows) {
  beginResetModel();
  order(std::move(rows));
  endResetModel();
}

std::vector<std::uint32_t> GridModel::allRows() const {
  std::vector<std::uint32_t> rows;
  rows.reserve(grid_.rows());
  for (std::size_t row = grid_.headerRows(); row < grid_.rows(); ++row) {
    if (!grid_.rowHidden(row)) rows.push_back(static_cast<std::uint32_t>(row));
  }
  return rows;
}

/// An order is kept only where it is another than the grid's own.
void GridModel::order(std::optional<std::vector<std::uint32_t>> rows) {
  order_ = std::move(rows);
  places_.clear();
  if (!order_) {
    std::vector<std::uint32_t> all = allRows();
    if (grid_.rows() <= grid_.headerRows() + all.size()) return;
    order_ = std::move(all);
  }
  places_.assign(grid_.rows(), -1);
  for (std::size_t place = 0; place < order_->size(); ++place) {
    places_[(*order_)[place]] = static_cast<int>(place);
  }
}

std::size_t GridModel::gridRow(int viewRow) const {
  const auto place = static_cast<std::size_t>(viewRow);
  return order_ ? (*order_)[place] : place + grid_.headerRows();
}

int GridModel::viewRow(std::size_t gridRow) const {
  if (!order_) return static_cast<int>(gridRow - grid_.headerRows());
  return gridRow < places_.size() ? places_[gridRow] : -1;
}

int GridModel::rowCount(const QModelIndex& parent) const {
  if (parent.isValid() || grid_.rows() < grid_.headerRows()) return 0;
  return static_cast<int>(order_ ? order_->size() : grid_.rows() - grid_.headerRows());
}

int GridModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(grid_.columns());
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
  const std::size_t row = gridRow(index.row());
  const auto column = static_cast<std::size_t>(index.column());
  if (role == Qt::DisplayRole) return toQt(grid_.text(row, column));
  if (role == Qt::TextAlignmentRole) {
    return alignmentOf(grid_.centred(row, column) ? Align::Center : grid_.alignment(column));
  }
  if (role == Qt::FontRole && (grid_.bold(row, column) || grid_.isTotal(row))) {
    QFont font;
    font.setBold(true);
    return font;
  }
  return {};
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole || grid_.headerRows() == 0) return {};
  return toQt(grid_.text(grid_.headerRows() - 1, static_cast<std::size_t>(section)));
}

}  // namespace zelkor
