#pragma once

#include <memory>

#include "kvraedi/ui/controls.h"
#include "platform/qt/bindings.h"

namespace kvraedi::qt {

/// The widget of each kind of control, made as a child of `parent` and tied to the control.
std::unique_ptr<Binding> Bind(ui::Label& control, QWidget& parent);
std::unique_ptr<Binding> Bind(ui::Button& control, QWidget& parent);
std::unique_ptr<Binding> Bind(ui::TextBox& control, QWidget& parent);
std::unique_ptr<Binding> Bind(ui::TextArea& control, QWidget& parent);
std::unique_ptr<Binding> Bind(ui::DateBox& control, QWidget& parent);
std::unique_ptr<Binding> Bind(ui::NumericBox& control, QWidget& parent);
std::unique_ptr<Binding> Bind(ui::ComboBox& control, QWidget& parent);
std::unique_ptr<Binding> Bind(ui::CheckBox& control, QWidget& parent);
std::unique_ptr<Binding> Bind(ui::Picker& control, QWidget& parent);

}  // namespace kvraedi::qt
