#include "platform/qt/grid_model.h"

#include <algorithm>

#include "platform/qt/texts.h"

namespace kvraedi::qt {
namespace {

Qt::Alignment NativeAlignment(ui::Alignment alignment) {
  switch (alignment) {
    case ui::Alignment::kCenter:
      return Qt::AlignCenter;
    case ui::Alignment::kRight:
      return Qt::AlignRight | Qt::AlignVCenter;
    case ui::Alignment::kLeft:
      break;
  }
  return Qt::AlignLeft | Qt::AlignVCenter;
}

}  // namespace

GridModel::GridModel(const ui::Grid& grid) : grid_(&grid) { TakeColumns(); }

bool GridModel::TakeColumns() {
  std::vector<Column> columns;
  for (const ui::GridColumn& column : grid_->Columns()) {
    columns.push_back({ToQt(column.header), ToQt(column.group), column.width, column.alignment,
                       column.hidden, column.check});
  }
  if (columns == columns_) return false;
  beginResetModel();
  columns_ = std::move(columns);
  rows_ = GridRows();
  endResetModel();
  return true;
}

void GridModel::TakeRows() {
  const int now = GridRows();
  if (now > rows_) {
    beginInsertRows({}, rows_, now - 1);
    rows_ = now;
    endInsertRows();
  } else if (now < rows_) {
    beginRemoveRows({}, now, rows_ - 1);
    rows_ = now;
    endRemoveRows();
  }
  if (rows_ > 0) emit dataChanged(index(0, 0), index(rows_ - 1, columnCount() - 1));
}

void GridModel::CellChanged(int row, int col) {
  const QModelIndex cell = index(row - 1, col);
  if (cell.isValid()) emit dataChanged(cell, cell);
}

template <class Joins>
std::pair<int, int> GridModel::Span(int col, const Joins& joinsText) const {
  std::pair<int, int> span(col, col);
  const auto joins = [&](int other) {
    return ColumnAt(other).hidden || joinsText(ColumnAt(col), ColumnAt(other));
  };
  while (span.first > 0 && joins(span.first - 1)) --span.first;
  while (span.second + 1 < columnCount() && joins(span.second + 1)) ++span.second;
  while (ColumnAt(span.first).hidden && span.first < col) ++span.first;
  while (ColumnAt(span.second).hidden && span.second > col) --span.second;
  return span;
}

std::pair<int, int> GridModel::HeaderSpan(int col) const {
  if (ColumnAt(col).header.isEmpty()) return {col, col};
  return Span(col, [](const Column& one, const Column& other) {
    return one.header == other.header && one.group == other.group;
  });
}

std::pair<int, int> GridModel::GroupSpan(int col) const {
  if (ColumnAt(col).group.isEmpty()) return {col, col};
  return Span(col, [](const Column& one, const Column& other) { return one.group == other.group; });
}

bool GridModel::HasGroups() const {
  return std::any_of(columns_.begin(), columns_.end(),
                     [](const Column& column) { return !column.group.isEmpty(); });
}

int GridModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : rows_; }

int GridModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant GridModel::CellText(const QModelIndex& index) const {
  QString text = ToQt(grid_->Cell(index.row() + 1, index.column()));
  // Rows are one line high.
  return text.replace(QLatin1String("\r\n"), QLatin1String(" "))
      .replace(QLatin1Char('\n'), QLatin1Char(' '));
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
  if (grid_ == nullptr || !index.isValid()) return {};
  const Column& column = ColumnAt(index.column());
  switch (role) {
    case Qt::DisplayRole:
      return column.check ? QVariant() : CellText(index);
    case Qt::CheckStateRole:
      if (!column.check) return {};
      return grid_->IsSet(index.row() + 1, index.column()) ? Qt::Checked : Qt::Unchecked;
    case Qt::TextAlignmentRole:
      return QVariant::fromValue(NativeAlignment(column.alignment));
    default:
      return {};
  }
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
  switch (role) {
    case Qt::DisplayRole:
      return ColumnAt(section).header;
    case Qt::TextAlignmentRole:
      return QVariant::fromValue(Qt::Alignment(Qt::AlignCenter));
    default:
      return {};
  }
}

}  // namespace kvraedi::qt
