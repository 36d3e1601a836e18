#include "platform/qt/report_widget.h"

#include <QGraphicsView>
#include <QScrollBar>
#include <QTimer>
#include <QVBoxLayout>

#include "platform/qt/paged_document.h"

namespace kvraedi::qt {
namespace {

QAction* NewAction(QWidget* owner, const char* text, const char* tip,
                   const QList<QKeySequence>& keys) {
  auto* action = new QAction(QString::fromUtf8(text), owner);
  QString hint = QString::fromUtf8(tip);
  if (!keys.isEmpty()) hint += " (" + keys.first().toString(QKeySequence::NativeText) + ")";
  action->setToolTip(hint);
  action->setShortcuts(keys);
  action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  owner->addAction(action);
  return action;
}

}  // namespace

ReportWidget::ReportWidget(QWidget* parent)
    : QWidget(parent),
      print(NewAction(this, "&Imprimir", "Imprimir", {QKeySequence::Print})),
      save(NewAction(this, "&Guardar PDF…", "Guardar en un fichero PDF", {QKeySequence::Save})),
      previous(NewAction(this, "◀", "Página anterior", {Qt::CTRL | Qt::Key_PageUp})),
      next(NewAction(this, "▶", "Página siguiente", {Qt::CTRL | Qt::Key_PageDown})),
      smaller(NewAction(this, "−", "Alejar", {QKeySequence::ZoomOut})),
      larger(NewAction(this, "+", "Acercar", {QKeySequence::ZoomIn, Qt::CTRL | Qt::Key_Equal})),
      whole_width(NewAction(this, "&Ancho de página", "Ajustar al ancho", {Qt::CTRL | Qt::Key_0})),
      close(NewAction(this, "&Cerrar", "Cerrar la vista previa", {Qt::Key_Escape})),
      printer_(QPrinter::HighResolution),
      preview_(nullptr),
      tools_(new QToolBar(this)) {
  printer_.setOutputFormat(QPrinter::PdfFormat);
  printer_.setPageLayout(PaperLayout());
  preview_ = new QPrintPreviewWidget(&printer_, this);
  Arrange();
  setFocusProxy(preview_);
}

void ReportWidget::Arrange() {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(tools_);
  column->addWidget(preview_, 1);
  tools_->setToolButtonStyle(Qt::ToolButtonTextOnly);
  tools_->addActions({print, save});
  navigation_ = {tools_->addSeparator(), previous};
  tools_->addAction(previous);
  page_ = AddLabel(QStringLiteral("Página 000 de 000"));
  tools_->addAction(next);
  navigation_ += {next, tools_->addSeparator(), smaller};
  tools_->addAction(smaller);
  zoom_ = AddLabel(QStringLiteral("000 %"));
  tools_->addActions({larger, whole_width});
  navigation_ += {larger, whole_width};
  auto* room = new QWidget;
  room->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  tools_->addWidget(room);
  tools_->addAction(close);
}

QLabel* ReportWidget::AddLabel(const QString& widest) {
  auto* label = new QLabel;
  label->setAlignment(Qt::AlignCenter);
  label->setMinimumWidth(label->fontMetrics().horizontalAdvance(widest));
  navigation_ += tools_->addWidget(label);
  return label;
}

QSize ReportWidget::sizeHint() const {
  constexpr QSize kWindow(1060, 820);
  return kWindow;
}

void ReportWidget::ToTop() {
  const auto* view = preview_->findChild<QGraphicsView*>();
  if (view != nullptr) view->verticalScrollBar()->setValue(view->verticalScrollBar()->minimum());
}

void ReportWidget::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  QTimer::singleShot(0, this, [this] { ToTop(); });
}

void ReportWidget::ShowTools(bool navigation, bool prints, bool saves) {
  print->setVisible(prints);
  save->setVisible(saves);
  for (QAction* action : std::as_const(navigation_)) action->setVisible(navigation);
}

void ReportWidget::ShowPlace(int page, int pages, int zoom) {
  page_->setText(QStringLiteral("Página %1 de %2").arg(page).arg(pages));
  zoom_->setText(QStringLiteral("%1 %").arg(zoom));
  previous->setEnabled(page > 1);
  next->setEnabled(page < pages);
}

}  // namespace kvraedi::qt
