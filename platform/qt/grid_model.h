#pragma once

#include <QAbstractTableModel>
#include <QString>
#include <utility>
#include <vector>

#include "kvraedi/ui/grid.h"

namespace kvraedi::qt {

/// The data rows of a Grid, read cell by cell as they are shown. What the grid's rows and columns
/// were when it last told of a change is kept here: a grid changes silently while redrawing is off.
class GridModel : public QAbstractTableModel {
 public:
  struct Column {
    QString header;
    QString group;
    int twips = 0;
    ui::Alignment alignment = ui::Alignment::kLeft;
    bool hidden = false;
    bool check = false;
    bool operator==(const Column&) const = default;
  };

  explicit GridModel(const ui::Grid& grid);

  /// The grid is gone; every cell is empty from now on.
  void Detach() { grid_ = nullptr; }
  /// Takes the grid's columns; true when they are not those of before.
  bool TakeColumns();
  void TakeRows();
  /// A cell of a data row, with the grid's numbers.
  void CellChanged(int row, int col);

  const std::vector<Column>& Columns() const { return columns_; }
  const Column& ColumnAt(int col) const { return columns_[static_cast<std::size_t>(col)]; }
  /// First and last column under the same header text as `col`; hidden ones in between count.
  std::pair<int, int> HeaderSpan(int col) const;
  /// The same for the group above the header.
  std::pair<int, int> GroupSpan(int col) const;
  bool HasGroups() const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  QVariant CellText(const QModelIndex& index) const;
  template <class Joins>
  std::pair<int, int> Span(int col, const Joins& joins) const;
  int GridRows() const { return grid_->Rows() - 1; }

  const ui::Grid* grid_;
  std::vector<Column> columns_;
  int rows_ = 0;
};

}  // namespace kvraedi::qt
