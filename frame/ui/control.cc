#include "kvraedi/ui/control.h"

#include <utility>

#include "kvraedi/ui/form.h"

namespace kvraedi::ui {

ControlView::~ControlView() = default;

Control::Control(Form& form, std::string name) : form_(form), name_(std::move(name)) {
  form_.controls_.push_back(this);
}

Control::~Control() {
  if (view_ != nullptr) view_->ControlGone();
}

void Control::SetEnabled(bool enabled) {
  enabled_ = enabled;
  Changed();
}

void Control::SetVisible(bool visible) {
  visible_ = visible;
  Changed();
}

void Control::SetFocus() {
  form_.active_ = this;
  if (view_ != nullptr) view_->TakeFocus();
}

void Control::Entered() { form_.active_ = this; }

void Control::PressEnter() {
  if (!AcceptsUser()) return;
  Left();
  Raise(onEnter);
}

void Control::Raise(const std::function<void()>& handler) {
  if (!handler) return;
  const auto alive = form_.weak_from_this().lock();
  handler();
}

void Control::Changed() {
  if (view_ != nullptr) view_->Refresh();
}

}  // namespace kvraedi::ui
