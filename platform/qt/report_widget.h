#pragma once

#include <QAction>
#include <QLabel>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QToolBar>
#include <QWidget>

namespace kvraedi::qt {

/// What a report viewer looks like: a toolbar above the pages. The keys of its actions hold while
/// the focus is within it.
class ReportWidget : public QWidget {
 public:
  explicit ReportWidget(QWidget* parent);
  QSize sizeHint() const override;

  QPrintPreviewWidget& Preview() { return *preview_; }
  void ShowTools(bool navigation, bool prints, bool saves);
  void ShowPlace(int page, int pages, int zoom);
  /// Scrolls to the top of the first page; also once the widget has its size.
  void ToTop();

  QAction* const print;
  QAction* const save;
  QAction* const previous;
  QAction* const next;
  QAction* const smaller;
  QAction* const larger;
  QAction* const whole_width;
  QAction* const close;

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  QLabel* AddLabel(const QString& widest);
  void Arrange();

  QPrinter printer_;
  QPrintPreviewWidget* preview_;
  QToolBar* tools_;
  QLabel* page_ = nullptr;
  QLabel* zoom_ = nullptr;
  QList<QAction*> navigation_;
};

}  // namespace kvraedi::qt
