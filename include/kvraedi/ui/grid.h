#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "kvraedi/ui/control.h"

namespace kvraedi::ui {

enum class Alignment { kLeft, kCenter, kRight };

struct GridColumn {
  std::string_view header;  ///< must outlive the grid: a literal
  int width = 0;            ///< in twips (1/1440 inch)
  Alignment alignment = Alignment::kLeft;
  bool hidden = false;
  bool check = false;  ///< shows a check box; the cell text is "0" or "1"
  /// Text in a second header row, which stands above the first as soon as one column has a text for
  /// it. Equal neighbours are joined, and so is a group with a header of the same text below it.
  std::string_view group = {};
};

/// What an adapter hangs on a grid while a native table shows it.
class KVRAEDI_API GridView : public ControlView {
 public:
  /// Rows were added or removed; all cells may have changed.
  virtual void RowsChanged() = 0;
  virtual void CellChanged(int row, int col) = 0;
  virtual void CurrentRowChanged() = 0;
  /// Makes the column as wide as its header and its cells need.
  virtual void FitColumn(int col) = 0;
};

/// A table of texts. Row 0 is the fixed header row; data rows follow from 1. Texts are UTF-8
/// without NUL characters (one would become a blank). A row is one block of memory, so that a list
/// of a hundred thousand rows stays small.
class KVRAEDI_API Grid : public Control {
 public:
  using Control::Control;

  /// Sets the columns and their headers; the data rows go.
  void SetColumns(std::span<const GridColumn> columns);
  const std::vector<GridColumn>& Columns() const { return columns_; }
  int Cols() const { return static_cast<int>(columns_.size()); }
  /// Number of rows, the header row included.
  int Rows() const { return static_cast<int>(rows_.size()) + 1; }

  /// Valid until the row changes.
  std::string_view Cell(int row, int col) const;
  /// Only data rows can be written.
  void SetCell(int row, int col, std::string_view text);
  bool IsSet(int row, int col) const { return Cell(row, col) == "1"; }
  /// Appends a data row; missing cells are empty.
  void AddRow(std::span<const std::string_view> cells);
  /// Takes a data row out. When it is the current one, the next becomes it, or else the last.
  void RemoveRow(int row);
  /// Back to the header row only.
  void Reset();
  /// While redrawing is off the native table is not told of changes.
  void SetRedraw(bool redraw);

  /// The current row; 0 when the cursor stands on no data row.
  int Row() const { return row_; }
  void SetRow(int row);
  /// Fits a column's width to its contents on the screen.
  void FitColumn(int col);
  void Accept(ControlVisitor& visitor) override;

  /// User: a click on a cell; a data row becomes the current one. Row 0 is the header.
  void Click(int row, int col);
  /// User: the cursor moved to a row without a click.
  void MoveTo(int row);
  /// Raised by a click with its row and column.
  std::function<void(int row, int col)> onClick;

  void AttachGridView(GridView* view);
  void DetachGridView();

 private:
  std::vector<GridColumn> columns_;
  std::vector<std::string> rows_;  // the cells of a data row, each ended by a NUL
  int row_ = 0;
  bool redraw_ = true;
  GridView* gridView_ = nullptr;
};

/// While it lives the grid's native table is not told of changes.
class RedrawPause {
 public:
  explicit RedrawPause(Grid& grid) : grid_(grid) { grid_.SetRedraw(false); }
  ~RedrawPause() { grid_.SetRedraw(true); }
  RedrawPause(const RedrawPause&) = delete;
  RedrawPause& operator=(const RedrawPause&) = delete;

 private:
  Grid& grid_;
};

}  // namespace kvraedi::ui
