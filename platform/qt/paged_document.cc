#include "platform/qt/paged_document.h"

#include <QAbstractTextDocumentLayout>
#include <QPageLayout>

#include "kvraedi/error.h"
#include "platform/qt/texts.h"

namespace kvraedi::qt {
namespace {

constexpr double kPointsPerInch = 72;

QFont BodyFont() {
  constexpr double kPoints = 8.5;
  QFont font(QStringLiteral("DejaVu Sans"));
  font.setStyleHint(QFont::SansSerif);
  font.setPointSizeF(kPoints);
  return font;
}

QFont FootFont() {
  constexpr double kPoints = 7;
  QFont font = BodyFont();
  font.setPointSizeF(kPoints);
  return font;
}

}  // namespace

QPageLayout PaperLayout() {
  constexpr double kSides = 16, kTop = 15, kBottom = 11;  // millimetres
  return {QPageSize(QPageSize::A4),
          QPageLayout::Portrait,
          {kSides, kTop, kSides, kBottom},
          QPageLayout::Millimeter};
}

PagedDocument::PagedDocument(const DocumentoImprimible& document, QPagedPaintDevice& device)
    : foot_(ToQt(document.pie)) {
  constexpr double kFootLines = 3;
  line_ = FootFont().pointSizeF() * 1.3 * device.logicalDpiY() / kPointsPerInch;
  body_ = {static_cast<double>(device.width()), device.height() - kFootLines * line_};
  text_.setDocumentMargin(0);
  text_.setDefaultFont(BodyFont());
  text_.documentLayout()->setPaintDevice(&device);
  text_.setHtml(ToQt(document.html));
  text_.setPageSize(body_);
}

void PagedDocument::Paint(QPainter& painter, int page) {
  const QRectF part(QPointF(0, page * body_.height()), body_);
  painter.save();
  painter.translate(0, -part.top());
  painter.setClipRect(part);
  QAbstractTextDocumentLayout::PaintContext context;
  context.clip = part;
  context.palette.setColor(QPalette::Text, Qt::black);
  text_.documentLayout()->draw(&painter, context);
  painter.restore();
  PaintFoot(painter, page);
}

void PagedDocument::PaintFoot(QPainter& painter, int page) const {
  const QRectF foot(0, body_.height() + line_, body_.width(), 2 * line_);
  const QString number = QStringLiteral("Página %1 de %2").arg(page + 1).arg(Pages());
  painter.save();
  painter.setPen(QPen(QColor(0xb8, 0xc2, 0xcc), line_ / 20));
  painter.drawLine(foot.topLeft(), foot.topRight());
  painter.setFont(FootFont());
  painter.setPen(QColor(0x5b, 0x67, 0x73));
  painter.drawText(foot, Qt::AlignRight | Qt::AlignBottom, number);
  const double room = foot.width() - 12 * line_;
  const QString text =
      QFontMetricsF(painter.font(), painter.device()).elidedText(foot_, Qt::ElideRight, room);
  painter.drawText(foot, Qt::AlignLeft | Qt::AlignBottom, text);
  painter.restore();
}

void PaintPages(const DocumentoImprimible& document, QPagedPaintDevice& device) {
  QPainter painter;
  if (!painter.begin(&device)) {
    throw Error(kErrorFile, "Impresora", "No se puede imprimir el documento");
  }
  PagedDocument pages(document, device);
  for (int page = 0; page < pages.Pages(); ++page) {
    if (page > 0 && !device.newPage()) {
      throw Error(kErrorFile, "Impresora", "No se puede imprimir el documento");
    }
    pages.Paint(painter, page);
  }
}

}  // namespace kvraedi::qt
