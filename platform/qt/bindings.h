#pragma once

#include <QObject>
#include <QWidget>
#include <utility>

#include "kvraedi/ui/controls.h"
#include "platform/qt/message_box.h"

namespace kvraedi::qt {

/// Ties a control to the widget that shows it. After Detach nothing reaches the control, which may
/// be gone; a binding is detached while the handler that ended its form still runs.
class Binding : public QObject {
 public:
  /// `outer` is what the layout places; `field` in it takes focus and keys. Both are the same for
  /// most controls.
  Binding(ui::Control& control, QWidget& outer, QWidget& field);
  ~Binding() override;

  QWidget& Outer() const { return outer_; }
  virtual void Detach();

 protected:
  /// Ends the tie from the control's side.
  void Forget() { control_ = nullptr; }
  bool Attached() const { return control_ != nullptr; }
  /// Reports a user's action to the control.
  template <class Action>
  void User(Action&& action) {
    if (Attached()) RunUserAction(std::forward<Action>(action));
  }
  /// Shows what all controls have.
  void ShowState();
  void FocusField();
  /// The focus leaves for another field of the form.
  virtual void Commit();
  virtual void OnEnterKey();
  /// True when the key was used up.
  virtual bool OnKey(int /*key*/) { return false; }

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  ui::Control* control_;
  QWidget& outer_;
  QWidget& field_;
};

/// A binding that is also the control's view.
class ControlBinding : public Binding, public ui::ControlView {
 public:
  ControlBinding(ui::Control& control, QWidget& outer, QWidget& field)
      : Binding(control, outer, field) {
    control.AttachView(this);
  }
  void TakeFocus() override { FocusField(); }
  void ControlGone() override { Forget(); }
};

}  // namespace kvraedi::qt
