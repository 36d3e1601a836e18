#include "platform/qt/form_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLayout>
#include <QPointer>
#include <QScreen>
#include <QWindow>

#include "kvraedi/ui/toolkit.h"
#include "platform/qt/form_builder.h"
#include "platform/qt/texts.h"
#include "platform/qt/twips.h"

namespace kvraedi::qt {

FormWindow::FormWindow(ui::Form& form) : QWidget(nullptr, Qt::Window), form_(&form) {
  setObjectName(ToQt(form.Name()));
  FormBuilder builder(*this);
  setLayout(builder.Build(form.ControlLayout()));
  bindings_ = builder.TakeBindings();
  form.AttachView(this);
  if (form.ActiveControl() != nullptr) form.ActiveControl()->SetFocus();
}

FormWindow::~FormWindow() { Detach(); }

void FormWindow::Detach() {
  if (form_ == nullptr) return;
  for (const auto& binding : bindings_) binding->Detach();
  form_->DetachView();
  form_ = nullptr;
}

void FormWindow::Refresh() {
  setWindowTitle(ToQt(form_->Caption()));
  if (form_->Width() > 0) resize(TwipsToPixels(form_->Width()), height());
}

void FormWindow::Fit() {
  resize(layout()->totalSizeHint());
  Refresh();
}

void FormWindow::Place(const QWidget* owner) {
  if (placed_) return;
  placed_ = true;
  constexpr double kMostOfScreen = 0.94;
  const QRect room = screen()->availableGeometry();
  Fit();
  resize(size().boundedTo(room.size() * kMostOfScreen));
  const QPoint center = owner != nullptr ? owner->frameGeometry().center() : room.center();
  QRect frame(QPoint(), size());
  frame.moveCenter(center);
  frame.moveLeft(qMax(room.left(), qMin(frame.left(), room.right() - frame.width())));
  frame.moveTop(qMax(room.top(), qMin(frame.top(), room.bottom() - frame.height())));
  move(frame.topLeft());
}

void FormWindow::Present(bool modal, QWidget* owner) {
  if (isVisible() && modal && loop_ == nullptr) hide();
  if (!isVisible()) {
    setWindowModality(modal ? Qt::ApplicationModal : Qt::NonModal);
    Place(owner);
    winId();  // makes the native window, which keeps above its owner's
    if (owner != nullptr) windowHandle()->setTransientParent(owner->window()->windowHandle());
    show();
  }
  raise();
  activateWindow();
  if (modal && loop_ == nullptr) RunModal();
}

void FormWindow::RunModal() {
  const QPointer<FormWindow> self(this);
  QEventLoop loop;
  loop_ = &loop;
  loop.exec(QEventLoop::DialogExec);
  if (self) self->loop_ = nullptr;
}

void FormWindow::Leave() {
  hide();
  if (loop_ != nullptr) loop_->quit();
  loop_ = nullptr;
}

void FormWindow::PaintNow() {
  constexpr int kPatience = 250;  // milliseconds, for a window system that is slow to show it
  const QPointer<FormWindow> self(this);
  QElapsedTimer waited;
  waited.start();
  do {
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  } while (self && isVisible() && !windowHandle()->isExposed() && !waited.hasExpired(kPatience));
  if (!self) return;
  repaint();
  QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void FormWindow::keyPressEvent(QKeyEvent* event) {
  const int key = event->key();
  if (key == Qt::Key_Escape && windowModality() != Qt::NonModal) {
    close();
    return;
  }
  if (form_ == nullptr || key < Qt::Key_F1 || key > Qt::Key_F12) {
    QWidget::keyPressEvent(event);
    return;
  }
  RunUserAction([&] { form_->PressFunctionKey(key - Qt::Key_F1 + 1); });
}

void FormWindow::closeEvent(QCloseEvent* event) {
  const QPointer<FormWindow> self(this);
  RunUserAction([this] {
    if (form_ != nullptr) form_->Unload();
  });
  event->accept();
  if (!self) return;
  // An unload that failed half-way must not leave a window without a form behind it.
  if (form_ != nullptr && !form_->Loaded()) ui::CurrentToolkit().Close(*form_);
  event->setAccepted(form_ == nullptr);
}

}  // namespace kvraedi::qt
