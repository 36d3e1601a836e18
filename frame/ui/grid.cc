#include "kvraedi/ui/grid.h"

#include <algorithm>
#include <cstring>

#include "kvraedi/ui/controls.h"
#include "kvraedi/ui/form.h"

namespace kvraedi::ui {
namespace {

/// Where a cell begins in a row's block.
std::size_t CellStart(const std::string& row, int col) {
  std::size_t start = 0;
  for (; col > 0; --col) start = row.find('\0', start) + 1;
  return start;
}

void AppendCell(std::string& row, std::string_view text) {
  const std::size_t start = row.size();
  row.append(text);
  std::replace(row.begin() + static_cast<std::ptrdiff_t>(start), row.end(), '\0', ' ');
  row += '\0';
}

}  // namespace

void Grid::SetColumns(std::span<const GridColumn> columns) {
  columns_.assign(columns.begin(), columns.end());
  Reset();
  Changed();
}

std::string_view Grid::Cell(int row, int col) const {
  if (row < 0 || row >= Rows() || col < 0 || col >= Cols()) return {};
  if (row == 0) return columns_[static_cast<std::size_t>(col)].header;
  const std::string& block = rows_[static_cast<std::size_t>(row - 1)];
  return block.c_str() + CellStart(block, col);
}

void Grid::SetCell(int row, int col, std::string_view text) {
  if (row < 1 || row >= Rows() || col < 0 || col >= Cols()) return;
  std::string& block = rows_[static_cast<std::size_t>(row - 1)];
  const std::size_t start = CellStart(block, col);
  std::string cell;
  AppendCell(cell, text);
  block.replace(start, block.find('\0', start) + 1 - start, cell);
  if (redraw_ && gridView_ != nullptr) gridView_->CellChanged(row, col);
}

void Grid::AddRow(std::span<const std::string_view> cells) {
  std::size_t size = columns_.size();
  for (const auto& cell : cells) size += cell.size();
  std::string block;
  block.reserve(size);
  for (std::size_t col = 0; col < columns_.size(); ++col) {
    AppendCell(block, col < cells.size() ? cells[col] : std::string_view());
  }
  rows_.push_back(std::move(block));
  if (redraw_ && gridView_ != nullptr) gridView_->RowsChanged();
}

void Grid::RemoveRow(int row) {
  if (row < 1 || row >= Rows()) return;
  rows_.erase(rows_.begin() + (row - 1));
  if (row_ > row || row_ == Rows()) --row_;
  if (redraw_ && gridView_ != nullptr) gridView_->RowsChanged();
}

void Grid::Reset() {
  rows_.clear();
  rows_.shrink_to_fit();
  row_ = 0;
  if (redraw_ && gridView_ != nullptr) gridView_->RowsChanged();
}

void Grid::SetRedraw(bool redraw) {
  redraw_ = redraw;
  if (redraw_ && gridView_ != nullptr) gridView_->RowsChanged();
}

void Grid::SetRow(int row) {
  if (row < 0 || row >= Rows()) return;
  row_ = row;
  if (redraw_ && gridView_ != nullptr) gridView_->CurrentRowChanged();
}

void Grid::FitColumn(int col) {
  if (gridView_ != nullptr && col >= 0 && col < Cols()) gridView_->FitColumn(col);
}

void Grid::Click(int row, int col) {
  if (!AcceptsUser() || row < 0 || row >= Rows() || col < 0 || col >= Cols()) return;
  Entered();
  if (row > 0) SetRow(row);
  if (onClick) Raise([&] { onClick(row, col); });
}

void Grid::MoveTo(int row) {
  if (AcceptsUser() && row > 0 && row < Rows()) row_ = row;
}

void Grid::Accept(ControlVisitor& visitor) { visitor.Visit(*this); }

void Grid::AttachGridView(GridView* view) {
  gridView_ = view;
  AttachView(view);
}

void Grid::DetachGridView() {
  gridView_ = nullptr;
  DetachView();
}

}  // namespace kvraedi::ui
