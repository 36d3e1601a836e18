#include "platform/qt/grid_binding.h"

#include "platform/qt/grid_table.h"

namespace kvraedi::qt {
namespace {

class GridBinding : public Binding, public ui::GridView {
 public:
  GridBinding(ui::Grid& grid, std::unique_ptr<GridModel> model, GridTable& table)
      : Binding(grid, table, table), grid_(grid), model_(std::move(model)), table_(table) {
    connect(&table_, &QTableView::clicked, this,
            [this](const QModelIndex& cell) { Click(cell.row() + 1, cell.column()); });
    connect(table_.horizontalHeader(), &QHeaderView::sectionClicked, this,
            [this](int col) { Click(0, col); });
    connect(table_.selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& cell) { CursorMoved(cell); });
    grid.AttachGridView(this);
    ShowState();
    GridBinding::CurrentRowChanged();
  }

  void Detach() override {
    if (!Attached()) return;
    model_->Detach();
    grid_.DetachGridView();
    Binding::Detach();
  }
  void Refresh() override {
    telling_ = true;
    if (model_->TakeColumns()) table_.ShowColumns();
    telling_ = false;
    ShowState();
  }
  void TakeFocus() override { FocusField(); }
  void ControlGone() override {
    model_->Detach();
    Forget();
  }
  void RowsChanged() override {
    telling_ = true;
    model_->TakeRows();
    telling_ = false;
    CurrentRowChanged();
  }
  void CellChanged(int row, int col) override { model_->CellChanged(row, col); }
  void FitColumn(int col) override { table_.resizeColumnToContents(col); }
  void CurrentRowChanged() override {
    const QModelIndex before = table_.currentIndex();
    if (grid_.Row() == before.row() + 1) return;
    telling_ = true;
    const QModelIndex now = model_->index(grid_.Row() - 1, qMax(before.column(), 0));
    table_.clearSelection();
    table_.setCurrentIndex(now);
    telling_ = false;
  }

 private:
  void Click(int row, int col) {
    User([&] { grid_.Click(row, col); });
  }
  void CursorMoved(const QModelIndex& cell) {
    if (telling_ || !cell.isValid()) return;
    table_.selectionModel()->select(
        cell, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    User([&] { grid_.MoveTo(cell.row() + 1); });
  }
  bool OnKey(int key) override {
    if (key != Qt::Key_Space) return false;
    const QModelIndex cell = table_.currentIndex();
    if (cell.isValid() && model_->ColumnAt(cell.column()).check) {
      Click(cell.row() + 1, cell.column());
    }
    return true;
  }
  void OnEnterKey() override {
    User([this] { grid_.PressEnter(); });
  }

  ui::Grid& grid_;
  std::unique_ptr<GridModel> model_;
  GridTable& table_;
  bool telling_ = false;  // the program changes the table, not the user
};

}  // namespace

std::unique_ptr<Binding> Bind(ui::Grid& control, QWidget& parent) {
  auto model = std::make_unique<GridModel>(control);
  auto* table = new GridTable(*model, &parent);
  return std::make_unique<GridBinding>(control, std::move(model), *table);
}

}  // namespace kvraedi::qt
