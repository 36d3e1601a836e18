#include <gtest/gtest.h>

#include "kvraedi/ui/form.h"

namespace kvraedi {
namespace {

struct GridForm : ui::Form {
  GridForm() : Form("frmTabla", "") {
    constexpr ui::GridColumn kColumns[] = {{"A"}, {"B"}, {"C"}};
    grid.SetColumns(kColumns);
  }
  void Add(std::initializer_list<std::string_view> cells) {
    grid.AddRow(std::span(cells.begin(), cells.size()));
  }
  ui::Grid grid{*this, "grid"};
};

TEST(Grid, KeepsCellsOfEveryLengthApart) {
  GridForm form;
  form.Add({"1", "", "tres"});
  form.Add({"x"});
  form.grid.SetCell(1, 1, "dos");
  form.grid.SetCell(1, 0, "");
  form.grid.SetCell(1, 2, std::string_view("a\0b", 3));
  form.grid.SetCell(2, 2, "fin");
  for (const auto& [row, col] : {std::pair(0, 0), {3, 0}, {1, 3}, {1, -1}}) {
    form.grid.SetCell(row, col, "fuera");
    EXPECT_EQ(form.grid.Cell(row, col), row == 0 ? "A" : "");
  }
  const char* cells[][3] = {{"A", "B", "C"}, {"", "dos", "a b"}, {"x", "", "fin"}};
  for (const int row : {0, 1, 2}) {
    for (const int col : {0, 1, 2}) EXPECT_EQ(form.grid.Cell(row, col), cells[row][col]);
  }
}

TEST(Grid, ClicksMoveTheCursorOnDataRowsOnly) {
  GridForm form;
  std::vector<std::pair<int, int>> clicks;
  form.grid.onClick = [&](int row, int col) { clicks.emplace_back(row, col); };
  form.Add({"1"});
  form.grid.Click(1, 2);
  form.grid.Click(0, 1);
  form.grid.Click(5, 0);
  EXPECT_EQ(clicks, (std::vector<std::pair<int, int>>{{1, 2}, {0, 1}}));
  EXPECT_EQ(form.grid.Row(), 1);
  form.grid.Reset();
  EXPECT_EQ(form.grid.Row(), 0);
  EXPECT_EQ(form.grid.Rows(), 1);
}

TEST(Grid, TheCursorStaysWhenARowGoes) {
  const struct {
    int current, removed, after;
    const char* cell;
  } cases[] = {{1, 1, 1, "b"}, {2, 2, 2, "c"}, {3, 3, 2, "b"}, {3, 1, 2, "c"},
               {1, 3, 1, "a"}, {0, 2, 0, "A"}, {2, 0, 2, "b"}, {2, 4, 2, "b"}};
  for (const auto& [current, removed, after, cell] : cases) {
    GridForm form;
    for (const char* text : {"a", "b", "c"}) form.Add({text});
    form.grid.SetRow(current);
    form.grid.RemoveRow(removed);
    EXPECT_EQ(form.grid.Row(), after) << current << " " << removed;
    EXPECT_EQ(form.grid.Cell(after, 0), cell) << current << " " << removed;
  }
}

/// What a native table is told.
struct View : ui::GridView {
  void Refresh() override {}
  void TakeFocus() override {}
  void RowsChanged() override { ++rows; }
  void CellChanged(int /*row*/, int /*col*/) override { ++cells; }
  void CurrentRowChanged() override {}
  void FitColumn(int col) override { fitted = col; }
  int rows = 0, cells = 0, fitted = -1;
};

TEST(Grid, TellsTheTableOnceWhenRedrawingIsResumed) {
  GridForm form;
  View view;
  form.grid.AttachGridView(&view);
  form.grid.SetRedraw(false);
  for (int i = 0; i < 10; ++i) form.Add({"1"});
  form.grid.SetCell(3, 0, "0");
  EXPECT_EQ(view.rows + view.cells, 0);
  form.grid.SetRedraw(true);
  form.grid.SetCell(3, 0, "1");
  EXPECT_EQ(view.rows, 1);
  EXPECT_EQ(view.cells, 1);
  form.grid.FitColumn(form.grid.Cols());
  EXPECT_EQ(view.fitted, -1) << "no such column";
  form.grid.FitColumn(0);
  EXPECT_EQ(view.fitted, 0);
  form.grid.DetachGridView();
}

}  // namespace
}  // namespace kvraedi
