#include "kvraedi/ui/form.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "kvraedi/ui/toolkit.h"

namespace kvraedi::ui {

FormView::~FormView() = default;
Toolkit::~Toolkit() = default;

namespace {

Layout Container(Layout::Kind kind, std::initializer_list<Layout> children) {
  Layout layout;
  layout.kind = kind;
  layout.children = children;
  return layout;
}

void Flatten(const Layout& layout, std::vector<Control*>& out) {
  if (layout.control != nullptr) out.push_back(layout.control);
  for (const Layout& child : layout.children) Flatten(child, out);
}

}  // namespace

Layout Row(std::initializer_list<Layout> children) {
  return Container(Layout::Kind::kRow, children);
}
Layout Column(std::initializer_list<Layout> children) {
  return Container(Layout::Kind::kColumn, children);
}
Layout Aligned(std::initializer_list<Layout> rows) {
  return Container(Layout::Kind::kAligned, rows);
}
Layout Space() { return {}; }

Form::Form(std::string name, std::string caption)
    : name_(std::move(name)), caption_(std::move(caption)) {}

Form::~Form() {
  try {
    CloseWindow();
  } catch (const std::exception&) {  // nobody is left to be told
  }
}

void Form::CloseWindow() {
  if (view_ != nullptr) toolkit_->Close(*this);
}

void Form::SetCaption(std::string caption) {
  caption_ = std::move(caption);
  if (view_ != nullptr) view_->Refresh();
}

void Form::SetWidth(int twips) {
  width_ = twips;
  if (view_ != nullptr) view_->Refresh();
}

void Form::Show(ShowMode mode, Form* owner) {
  const auto alive = weak_from_this().lock();
  if (state_ == State::kNew) {
    state_ = State::kLoaded;
    try {
      OnLoad();
    } catch (...) {
      Unload();
      throw;
    }
  }
  if (state_ != State::kLoaded) return;
  Toolkit& toolkit = CurrentToolkit();
  if (toolkit_ != &toolkit) CloseWindow();
  toolkit_ = &toolkit;
  const bool before = visible_;
  visible_ = true;
  try {
    OnActivate();
    toolkit.Open(*this, mode, owner);
  } catch (...) {
    visible_ = before && state_ == State::kLoaded;
    throw;
  }
}

void Form::Hide() {
  if (!visible_) return;
  visible_ = false;
  if (view_ == nullptr) return;
  try {
    toolkit_->Hide(*this);
  } catch (...) {
    visible_ = true;
    throw;
  }
}

void Form::Unload() {
  if (state_ != State::kLoaded) return;
  const auto alive = weak_from_this().lock();
  state_ = State::kUnloaded;
  visible_ = false;
  OnUnload();
  if (onUnload) onUnload();
  CloseWindow();
}

void Form::PressFunctionKey(int number) {
  const auto alive = weak_from_this().lock();
  if (onFunctionKey) onFunctionKey(number);
}

Control* Form::Find(std::string_view name) const {
  const auto found = std::find_if(controls_.begin(), controls_.end(),
                                  [&](const Control* control) { return control->Name() == name; });
  return found == controls_.end() ? nullptr : *found;
}

void Form::FocusNext(const Control& from) {
  std::vector<Control*> order;
  Flatten(layout_, order);
  const auto here = std::find(order.begin(), order.end(), &from);
  if (here == order.end()) return;
  std::rotate(order.begin(), here + 1, order.end());
  const auto next = std::find_if(order.begin(), order.end(), [](const Control* control) {
    return control->TakesFocus() && control->Enabled() && control->Visible();
  });
  if (next != order.end()) (*next)->SetFocus();
}

}  // namespace kvraedi::ui
