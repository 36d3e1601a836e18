#include "platform/qt/bindings.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>

#include "kvraedi/ui/form.h"
#include "platform/qt/texts.h"

namespace kvraedi::qt {

Binding::Binding(ui::Control& control, QWidget& outer, QWidget& field)
    : control_(&control), outer_(outer), field_(field) {
  field_.setObjectName(ToQt(control.Name()));
  field_.installEventFilter(this);
}

Binding::~Binding() = default;

void Binding::Detach() {
  if (control_ != nullptr) control_->DetachView();
  control_ = nullptr;
}

void Binding::ShowState() {
  if (!Attached()) return;
  outer_.setEnabled(control_->Enabled());
  if (outer_.isHidden() == control_->Visible()) outer_.setVisible(control_->Visible());
}

void Binding::FocusField() {
  field_.setFocus(Qt::OtherFocusReason);
  if (auto* edit = qobject_cast<QLineEdit*>(&field_)) edit->selectAll();
}

void Binding::Commit() {
  try {
    control_->Left();
  } catch (const std::exception& failure) {
    ShowFailureLater(failure);
  }
}

void Binding::OnEnterKey() {
  const bool movesOn = !control_->onEnter;
  const QPointer<Binding> self(this);
  User([this] { control_->PressEnter(); });
  // The handler may have shown a box, and the window may have gone meanwhile.
  if (!self || !Attached() || !movesOn) return;
  User([this] { control_->Parent().FocusNext(*control_); });
}

bool Binding::eventFilter(QObject* /*watched*/, QEvent* event) {
  if (!Attached()) return false;
  if (event->type() == QEvent::FocusIn) {
    User([this] { control_->Entered(); });
  } else if (event->type() == QEvent::FocusOut) {
    const auto reason = static_cast<QFocusEvent*>(event)->reason();
    if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason) Commit();
  } else if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter) return OnKey(key);
    OnEnterKey();
    return true;
  }
  return false;
}

}  // namespace kvraedi::qt
