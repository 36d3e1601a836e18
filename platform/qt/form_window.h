#pragma once

#include <QEventLoop>
#include <QWidget>
#include <memory>
#include <vector>

#include "kvraedi/ui/form.h"
#include "platform/qt/bindings.h"

namespace kvraedi::qt {

/// The native window of a form. After Detach it is an empty shell that waits for its deletion.
class FormWindow : public QWidget, public ui::FormView {
 public:
  explicit FormWindow(ui::Form& form);
  ~FormWindow() override;

  /// Cuts the window and its widgets from the form, which may be gone afterwards.
  void Detach();
  /// Shows the window over `owner`, which may be null, or brings it forward. Modal returns when
  /// Leave is called.
  void Present(bool modal, QWidget* owner);
  /// Takes the window off the screen and ends its modal show.
  void Leave();
  /// Makes the window as large as its contents ask for.
  void Fit();
  /// Paints before it returns; user input waits.
  void PaintNow();
  void Refresh() override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void Place(const QWidget* owner);
  void RunModal();

  ui::Form* form_;
  std::vector<std::unique_ptr<Binding>> bindings_;
  QEventLoop* loop_ = nullptr;
  bool placed_ = false;
};

}  // namespace kvraedi::qt
