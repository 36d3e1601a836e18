#pragma once

#include <filesystem>
#include <functional>

#include "kvraedi/impresion.h"
#include "kvraedi/ui/control.h"

namespace kvraedi::ui {

/// Parts of a report viewer's toolbar.
struct ReportViewerTools {
  bool navigation = false;  ///< pages and zoom
  bool print = false;
  bool save = false;
};

/// Shows a document page by page, with a toolbar above it. How many pages there are is known only
/// where something draws them.
class KVRAEDI_API ReportViewer : public Control {
 public:
  using Control::Control;
  const ReportViewerTools& Tools() const { return tools_; }
  void SetTools(const ReportViewerTools& tools);
  /// The document to show; it begins with its first page.
  const DocumentoImprimible& Source() const { return source_; }
  void SetSource(DocumentoImprimible source);
  /// Counts the documents given so far, so that a view notices a new one.
  int SourceNumber() const { return sourceNumber_; }
  /// In percent of the paper's size.
  int Zoom() const { return zoom_; }
  void SetZoom(int percent);
  int Page() const { return page_; }    ///< from 1
  int Pages() const { return pages_; }  ///< 0 when that is not known
  void Accept(ControlVisitor& visitor) override;

  /// Told by a view that has divided the document into pages.
  void PagesKnown(int pages);

  /// User: another page; one that is not there is the nearest that is.
  void GoTo(int page);
  /// User: the zoom, from 10 to 500 percent.
  void ZoomTo(int percent);
  /// User: the buttons that print the document, save it in a file and close the viewer.
  void Print();
  void Save(const std::filesystem::path& file);
  void Close();
  std::function<void()> onPrint;
  std::function<void(const std::filesystem::path& file)> onSave;
  std::function<void()> onClose;

 private:
  ReportViewerTools tools_;
  DocumentoImprimible source_;
  int sourceNumber_ = 0;
  int zoom_ = 100;
  int page_ = 1;
  int pages_ = 0;
};

}  // namespace kvraedi::ui
