#pragma once

#include <functional>
#include <string>

#include "kvraedi/export.h"

namespace kvraedi::ui {

class ControlVisitor;
class Form;

/// What a toolkit adapter hangs on a control while a native widget shows it. The adapter owns it
/// and detaches it before it goes.
class KVRAEDI_API ControlView {
 public:
  virtual ~ControlView();
  /// The control's state changed: show it again.
  virtual void Refresh() = 0;
  virtual void TakeFocus() = 0;
  /// The control ends; the view must not use it any more.
  virtual void ControlGone() {}
};

/// A control of a form: a plain object with state and events. Program code changes it through the
/// setters; a toolkit adapter reports what the user does through the methods that say so. User
/// actions on a control that is disabled or hidden are ignored.
///
/// A control is a member of its form and registers itself there, in declaration order.
class KVRAEDI_API Control {
 public:
  Control(Form& form, std::string name);
  virtual ~Control();
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  const std::string& Name() const { return name_; }
  Form& Parent() const { return form_; }
  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled);
  bool Visible() const { return visible_; }
  void SetVisible(bool visible);
  /// Moves the form's focus here.
  void SetFocus();
  virtual bool TakesFocus() const { return true; }
  /// Calls the visitor's overload for the control's own class.
  virtual void Accept(ControlVisitor& visitor) = 0;

  /// User: the Enter key in this control.
  void PressEnter();
  /// Raised by the Enter key; null when the control does not listen.
  std::function<void()> onEnter;
  /// User: the focus came here.
  void Entered();
  /// User: the focus leaves; what was typed is taken.
  virtual void Left() {}

  void AttachView(ControlView* view) { view_ = view; }
  void DetachView() { view_ = nullptr; }

 protected:
  bool AcceptsUser() const { return enabled_ && visible_; }
  /// Runs a handler; the form stays alive until it returns, even when it unloads the form.
  void Raise(const std::function<void()>& handler);
  void Changed();

 private:
  Form& form_;
  std::string name_;
  bool enabled_ = true;
  bool visible_ = true;
  ControlView* view_ = nullptr;
};

}  // namespace kvraedi::ui
