#include "platform/qt/report_binding.h"

#include <QFileDialog>
#include <QPointer>

#include "platform/qt/paged_document.h"
#include "platform/qt/report_widget.h"

namespace kvraedi::qt {
namespace {

constexpr double kPercent = 100;

class ReportBinding : public ControlBinding {
 public:
  ReportBinding(ui::ReportViewer& viewer, ReportWidget& widget)
      : ControlBinding(viewer, widget, widget), viewer_(viewer), widget_(widget) {
    connect(&widget_.Preview(), &QPrintPreviewWidget::paintRequested, this,
            [this](QPrinter* printer) { Draw(*printer); });
    connect(&widget_.Preview(), &QPrintPreviewWidget::previewChanged, this, [this] { Scrolled(); });
    Listen(widget_.print, [this] { viewer_.Print(); });
    Listen(widget_.save, [this] { Save(); });
    Listen(widget_.previous, [this] { viewer_.GoTo(viewer_.Page() - 1); });
    Listen(widget_.next, [this] { viewer_.GoTo(viewer_.Page() + 1); });
    Listen(widget_.smaller, [this] { viewer_.ZoomTo(viewer_.Zoom() * 4 / 5); });
    Listen(widget_.larger, [this] { viewer_.ZoomTo(viewer_.Zoom() * 5 / 4); });
    Listen(widget_.whole_width, [this] { FitWidth(); });
    Listen(widget_.close, [this] { viewer_.Close(); });
    ReportBinding::Refresh();
  }

  void Refresh() override {
    auto& preview = widget_.Preview();
    telling_ = true;
    const bool isNew = drawn_ != viewer_.SourceNumber();
    if (isNew) {
      drawn_ = viewer_.SourceNumber();
      preview.updatePreview();
      viewer_.PagesKnown(preview.pageCount());
    }
    preview.setZoomFactor(viewer_.Zoom() / kPercent);
    preview.setCurrentPage(viewer_.Page());
    if (isNew) widget_.ToTop();
    telling_ = false;
    const auto& tools = viewer_.Tools();
    widget_.ShowTools(tools.navigation, tools.print, tools.save);
    widget_.ShowPlace(viewer_.Page(), viewer_.Pages(), viewer_.Zoom());
    ShowState();
  }

 private:
  template <class Handler>
  void Listen(const QAction* action, Handler handler) {
    connect(action, &QAction::triggered, this, [this, handler] { User(handler); });
  }
  void Draw(QPrinter& printer) {
    User([&] { PaintPages(viewer_.Source(), printer); });
  }
  /// The user scrolls from page to page.
  void Scrolled() {
    if (telling_) return;
    User([this] { viewer_.GoTo(widget_.Preview().currentPage()); });
  }
  void FitWidth() {
    widget_.Preview().fitToWidth();
    viewer_.ZoomTo(qRound(widget_.Preview().zoomFactor() * kPercent));
  }
  void Save() {
    const QPointer<ReportBinding> self(this);
    const QString file =
        QFileDialog::getSaveFileName(&widget_, QStringLiteral("Guardar en un fichero PDF"),
                                     QString(), QStringLiteral("Documentos PDF (*.pdf)"));
    if (file.isEmpty() || !self || !Attached()) return;
    const QString whole = file.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive)
                              ? file
                              : file + QStringLiteral(".pdf");
    viewer_.Save(whole.toStdU16String());
  }

  ui::ReportViewer& viewer_;
  ReportWidget& widget_;
  int drawn_ = -1;        // number of the source that the pages show
  bool telling_ = false;  // the program moves the pages, not the user
};

}  // namespace

std::unique_ptr<Binding> Bind(ui::ReportViewer& control, QWidget& parent) {
  return std::make_unique<ReportBinding>(control, *new ReportWidget(&parent));
}

}  // namespace kvraedi::qt
