#include "kvraedi/ui/report_viewer.h"

#include <algorithm>
#include <utility>

#include "kvraedi/ui/controls.h"

namespace kvraedi::ui {

void ReportViewer::SetTools(const ReportViewerTools& tools) {
  tools_ = tools;
  Changed();
}

void ReportViewer::SetSource(DocumentoImprimible source) {
  source_ = std::move(source);
  ++sourceNumber_;
  page_ = 1;
  pages_ = 0;
  Changed();
}

void ReportViewer::SetZoom(int percent) {
  constexpr int kLeast = 10, kMost = 500;
  zoom_ = std::clamp(percent, kLeast, kMost);
  Changed();
}

void ReportViewer::PagesKnown(int pages) {
  pages_ = std::max(pages, 0);
  page_ = std::clamp(page_, 1, std::max(pages_, 1));
}

void ReportViewer::GoTo(int page) {
  if (!AcceptsUser()) return;
  page_ = std::clamp(page, 1, std::max(pages_, 1));
  Changed();
}

void ReportViewer::ZoomTo(int percent) {
  if (AcceptsUser()) SetZoom(percent);
}

void ReportViewer::Print() {
  if (AcceptsUser() && tools_.print) Raise(onPrint);
}

void ReportViewer::Save(const std::filesystem::path& file) {
  if (AcceptsUser() && tools_.save && onSave) Raise([&] { onSave(file); });
}

void ReportViewer::Close() {
  if (AcceptsUser()) Raise(onClose);
}

void ReportViewer::Accept(ControlVisitor& visitor) { visitor.Visit(*this); }

}  // namespace kvraedi::ui
