#pragma once

#include <QBoxLayout>
#include <QGridLayout>
#include <memory>
#include <vector>

#include "kvraedi/ui/form.h"
#include "platform/qt/bindings.h"

namespace kvraedi::qt {

/// Makes the widgets of a form and places them as its layout says. The tab order is the layout's.
class FormBuilder : private ui::ControlVisitor {
 public:
  explicit FormBuilder(QWidget& window) : window_(window) {}

  /// The layout for the whole window; the window takes it over.
  QBoxLayout* Build(const ui::Layout& root);
  std::vector<std::unique_ptr<Binding>> TakeBindings() { return std::move(bindings_); }

 private:
  /// A part of the tree as Qt has it: a widget, a layout, or neither for free room.
  struct Piece {
    QWidget* widget = nullptr;
    QLayout* layout = nullptr;
    bool wide = false;  ///< takes free room to the sides
    bool tall = false;  ///< takes free room below
    bool IsSpace() const { return widget == nullptr && layout == nullptr; }
  };

  Piece Make(const ui::Layout& part);
  Piece MakeControl(ui::Control& control);
  Piece MakeBox(const ui::Layout& part, QBoxLayout::Direction direction);
  Piece MakeAligned(const ui::Layout& part);
  /// The cells of one row; gives back whether one of them is tall.
  bool FillRow(QGridLayout& grid, int row, const ui::Layout& part);

  void Visit(ui::Label& control) override;
  void Visit(ui::Button& control) override;
  void Visit(ui::TextBox& control) override;
  void Visit(ui::TextArea& control) override;
  void Visit(ui::DateBox& control) override;
  void Visit(ui::NumericBox& control) override;
  void Visit(ui::ComboBox& control) override;
  void Visit(ui::CheckBox& control) override;
  void Visit(ui::Picker& control) override;
  void Visit(ui::Grid& control) override;
  void Visit(ui::ReportViewer& control) override;

  QWidget& window_;
  std::vector<std::unique_ptr<Binding>> bindings_;
};

}  // namespace kvraedi::qt
