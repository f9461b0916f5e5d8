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
  endResetModel();
  return grid;
}

void GridModel::addRows(TextGrid more) {
  if (more.rows() == 0) return;
  const int first = rowCount();
  beginInsertRows({}, first, first + static_cast<int>(more.rows()) - 1);
  grid_.append(std::move(more));
  endInsertRows();
}

void GridModel::setText(std::size_t row, std::size_t column, std::string text) {
  grid_.setText(row, column, std::move(text));
  if (row < grid_.headerRows()) return;
  const QModelIndex cell = index(viewRow(row), static_cast<int>(column));
  emit dataChanged(cell, cell);
}

int GridModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() || grid_.rows() < grid_.headerRows() ? 0 : viewRow(grid_.rows());
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
  if (role == Qt::FontRole && grid_.bold(row, column)) {
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
