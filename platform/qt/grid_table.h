#pragma once

#include <QHeaderView>
#include <QStyledItemDelegate>
#include <QTableView>

#include "platform/qt/grid_model.h"

namespace kvraedi::qt {

/// A header that draws neighbouring sections with equal texts as one.
class GridHeader : public QHeaderView {
 public:
  GridHeader(const GridModel& model, QWidget* parent);

 protected:
  void paintSection(QPainter* painter, const QRect& rect, int section) const override;

 private:
  /// Draws one text over a range of sections.
  void PaintPart(QPainter* painter, const QRect& rect, std::pair<int, int> span,
                 const QString& text) const;

  const GridModel& model_;
};

/// Draws cells; a check column's as a check box in the middle. A text that is a little too wide for
/// its cell is condensed, a longer one elided.
class GridDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

/// The native table: rows of one height, so that their number does not matter.
class GridTable : public QTableView {
 public:
  GridTable(GridModel& model, QWidget* parent);

  /// Widths and hidden columns, from the model's columns.
  void ShowColumns();
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
  /// Searching by the first letters would read every row.
  void keyboardSearch(const QString& /*text*/) override {}

 protected:
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                       const QEvent* event) const override;

 private:
  QSize SizeForRows(int width, int rows) const;

  const GridModel& model_;
};

}  // namespace kvraedi::qt
