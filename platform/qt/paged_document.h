#pragma once

#include <QPagedPaintDevice>
#include <QPainter>
#include <QTextDocument>
#include <string>

#include "kvraedi/impresion.h"

namespace kvraedi::qt {

/// A4, upright, with the margins of all documents.
QPageLayout PaperLayout();

/// A document divided into the pages of a device, each with its foot.
class PagedDocument {
 public:
  /// `device` has the paper's layout and outlives the object.
  PagedDocument(const DocumentoImprimible& document, QPagedPaintDevice& device);

  int Pages() const { return text_.pageCount(); }
  /// Paints a page, from 0.
  void Paint(QPainter& painter, int page);

 private:
  void PaintFoot(QPainter& painter, int page) const;

  QTextDocument text_;
  QString foot_;
  QSizeF body_;  // in the device's pixels
  double line_;  // height of a line of the foot
};

/// Puts all pages on a device that nobody paints on. Raises kErrorFile when it refuses.
void PaintPages(const DocumentoImprimible& document, QPagedPaintDevice& device);

}  // namespace kvraedi::qt
