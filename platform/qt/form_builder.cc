#include "platform/qt/form_builder.h"

#include <QPushButton>
#include <algorithm>

#include "platform/qt/field_bindings.h"
#include "platform/qt/grid_binding.h"
#include "platform/qt/report_binding.h"

namespace kvraedi::qt {
namespace {

constexpr int kMargin = 14;
constexpr int kSpacing = 8;
constexpr int kButtonWidth = 104;
constexpr int kPairGap = 18;

bool Grows(const QWidget& widget, Qt::Orientation orientation) {
  const QSizePolicy policy = widget.sizePolicy();
  const auto part =
      orientation == Qt::Horizontal ? policy.horizontalPolicy() : policy.verticalPolicy();
  return (part & QSizePolicy::ExpandFlag) != 0;
}

/// Buttons that stand in one row are equally wide.
void EvenOut(const std::vector<QPushButton*>& buttons) {
  int width = kButtonWidth;
  for (const QPushButton* button : buttons) width = std::max(width, button->sizeHint().width());
  for (QPushButton* button : buttons) button->setMinimumWidth(width);
}

bool IsLabel(const ui::Layout& part) {
  return dynamic_cast<const ui::Label*>(part.control) != nullptr;
}

/// Sets the label of a second field in a row off from the first.
void SetOff(const std::vector<ui::Layout>& row, std::size_t place, QWidget* widget) {
  const bool between = place > 0 && place + 1 < row.size();
  if (!between || !IsLabel(row[place]) || IsLabel(row[place + 1])) return;
  widget->setContentsMargins(kPairGap, 0, 0, 0);
}

}  // namespace

QBoxLayout* FormBuilder::Build(const ui::Layout& root) {
  ui::Layout column = root;
  if (root.kind != ui::Layout::Kind::kColumn) column = ui::Column({root});
  auto* layout = static_cast<QBoxLayout*>(MakeBox(column, QBoxLayout::TopToBottom).layout);
  const int margin = root.kind == ui::Layout::Kind::kControl ? 0 : kMargin;
  layout->setContentsMargins(margin, margin, margin, margin);
  return layout;
}

FormBuilder::Piece FormBuilder::Make(const ui::Layout& part) {
  switch (part.kind) {
    case ui::Layout::Kind::kControl:
      return MakeControl(*part.control);
    case ui::Layout::Kind::kRow:
      return MakeBox(part, QBoxLayout::LeftToRight);
    case ui::Layout::Kind::kColumn:
      return MakeBox(part, QBoxLayout::TopToBottom);
    case ui::Layout::Kind::kAligned:
      return MakeAligned(part);
    case ui::Layout::Kind::kSpace:
      break;
  }
  return {nullptr, nullptr, true, true};
}

FormBuilder::Piece FormBuilder::MakeControl(ui::Control& control) {
  control.Accept(*this);
  QWidget& widget = bindings_.back()->Outer();
  return {&widget, nullptr, Grows(widget, Qt::Horizontal), Grows(widget, Qt::Vertical)};
}

FormBuilder::Piece FormBuilder::MakeBox(const ui::Layout& part, QBoxLayout::Direction direction) {
  auto* box = new QBoxLayout(direction);
  box->setSpacing(kSpacing);
  const bool isRow = direction == QBoxLayout::LeftToRight;
  Piece whole{nullptr, box, false, false};
  std::vector<QPushButton*> buttons;
  for (std::size_t place = 0; place < part.children.size(); ++place) {
    const Piece piece = Make(part.children[place]);
    const int stretch = (isRow ? piece.wide : piece.tall) ? 1 : 0;
    if (piece.IsSpace()) box->addStretch(1);
    if (piece.layout != nullptr) box->addLayout(piece.layout, stretch);
    if (piece.widget != nullptr) box->addWidget(piece.widget, stretch);
    if (isRow) SetOff(part.children, place, piece.widget);
    if (auto* button = qobject_cast<QPushButton*>(piece.widget)) buttons.push_back(button);
    whole.wide |= piece.wide && (isRow || !piece.IsSpace());
    whole.tall |= piece.tall && (!isRow || !piece.IsSpace());
  }
  if (isRow) EvenOut(buttons);
  if (!(isRow ? whole.wide : whole.tall)) box->addStretch(1);
  return whole;
}

FormBuilder::Piece FormBuilder::MakeAligned(const ui::Layout& part) {
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(kSpacing);
  grid->setVerticalSpacing(kSpacing);
  Piece whole{nullptr, grid, false, false};
  for (std::size_t row = 0; row < part.children.size(); ++row) {
    whole.tall |= FillRow(*grid, static_cast<int>(row), part.children[row]);
  }
  for (int col = 0; col < grid->columnCount(); ++col) whole.wide |= grid->columnStretch(col) > 0;
  if (!whole.wide) grid->setColumnStretch(grid->columnCount(), 1);
  return whole;
}

bool FormBuilder::FillRow(QGridLayout& grid, int row, const ui::Layout& part) {
  bool tall = false;
  const bool single = part.kind != ui::Layout::Kind::kRow;
  const std::vector<ui::Layout> cells = single ? std::vector<ui::Layout>{part} : part.children;
  for (std::size_t place = 0; place < cells.size(); ++place) {
    const int col = static_cast<int>(place);
    const Piece piece = Make(cells[place]);
    const auto alignment = piece.wide ? Qt::Alignment() : Qt::AlignLeft | Qt::AlignVCenter;
    if (piece.layout != nullptr) grid.addLayout(piece.layout, row, col);
    if (piece.widget != nullptr) grid.addWidget(piece.widget, row, col, alignment);
    SetOff(cells, place, piece.widget);
    if (piece.wide) grid.setColumnStretch(col, 1);
    tall |= piece.tall && !piece.IsSpace();
  }
  return tall;
}

void FormBuilder::Visit(ui::Label& control) { bindings_.push_back(Bind(control, window_)); }
void FormBuilder::Visit(ui::Button& control) { bindings_.push_back(Bind(control, window_)); }
void FormBuilder::Visit(ui::TextBox& control) { bindings_.push_back(Bind(control, window_)); }
void FormBuilder::Visit(ui::TextArea& control) { bindings_.push_back(Bind(control, window_)); }
void FormBuilder::Visit(ui::DateBox& control) { bindings_.push_back(Bind(control, window_)); }
void FormBuilder::Visit(ui::NumericBox& control) { bindings_.push_back(Bind(control, window_)); }
void FormBuilder::Visit(ui::ComboBox& control) { bindings_.push_back(Bind(control, window_)); }
void FormBuilder::Visit(ui::CheckBox& control) { bindings_.push_back(Bind(control, window_)); }
void FormBuilder::Visit(ui::Picker& control) { bindings_.push_back(Bind(control, window_)); }
void FormBuilder::Visit(ui::Grid& control) { bindings_.push_back(Bind(control, window_)); }
void FormBuilder::Visit(ui::ReportViewer& control) { bindings_.push_back(Bind(control, window_)); }

}  // namespace kvraedi::qt
