#include "platform/qt/grid_table.h"

#include <QApplication>
#include <QFontMetrics>
#include <QPainter>
#include <QScrollBar>

#include "platform/qt/twips.h"

namespace kvraedi::qt {
namespace {

/// Columns are as wide as a narrower font needs: the font, condensed when that makes the text fit.
QFont Fitted(const QFont& font, const QString& text, int room) {
  constexpr int kWhole = 100, kLeast = 75, kStep = 2;  // percent
  const auto width = [&](const QFont& tried) {
    return QFontMetricsF(tried).horizontalAdvance(text);
  };
  const qreal whole = width(font);
  if (whole < room || whole * kLeast > room * kWhole) return font;
  QFont condensed = font;
  for (int stretch = kWhole - kStep; stretch >= kLeast; stretch -= kStep) {
    condensed.setStretch(stretch);
    if (width(condensed) < room) return condensed;
  }
  return font;
}

int TextMargins(const QWidget& widget) {
  return 2 * (widget.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &widget) + 1);
}

}  // namespace

GridHeader::GridHeader(const GridModel& model, QWidget* parent)
    : QHeaderView(Qt::Horizontal, parent), model_(model) {
  setSectionsClickable(true);
  setHighlightSections(false);
  // The text in the middle of a joined header moves when one of its columns is resized.
  connect(this, &QHeaderView::sectionResized, this, [this] { viewport()->update(); });
}

void GridHeader::paintSection(QPainter* painter, const QRect& rect, int section) const {
  const auto& column = model_.ColumnAt(section);
  if (!model_.HasGroups() || column.group == column.header) {
    PaintPart(painter, rect, model_.HeaderSpan(section), column.header);
    return;
  }
  QRect above = rect;
  above.setBottom(rect.center().y());
  QRect below = rect;
  below.setTop(above.bottom() + 1);
  PaintPart(painter, above, model_.GroupSpan(section), column.group);
  PaintPart(painter, below, model_.HeaderSpan(section), column.header);
}

void GridHeader::PaintPart(QPainter* painter, const QRect& rect, std::pair<int, int> span,
                           const QString& text) const {
  QStyleOptionHeader option;
  initStyleOption(&option);
  option.rect = rect;
  option.rect.setLeft(sectionViewportPosition(span.first));
  option.rect.setRight(sectionViewportPosition(span.second) + sectionSize(span.second) - 1);
  option.section = span.first;
  option.text = text;
  option.textAlignment = Qt::AlignCenter;
  painter->save();
  painter->setFont(Fitted(font(), text, option.rect.width() - TextMargins(*this)));
  style()->drawControl(QStyle::CE_Header, &option, painter, this);
  painter->restore();
}

void GridDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  option->features &= ~QStyleOptionViewItem::HasCheckIndicator;
  if (option->widget == nullptr) return;
  option->font =
      Fitted(option->font, option->text, option->rect.width() - TextMargins(*option->widget));
  option->fontMetrics = QFontMetrics(option->font);
}

void GridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
  QStyledItemDelegate::paint(painter, option, index);
  const QVariant state = index.data(Qt::CheckStateRole);
  if (!state.isValid()) return;
  const QStyle& style = *option.widget->style();
  QStyleOptionButton box;
  box.palette = option.palette;
  box.state = option.state & QStyle::State_Enabled;
  box.state |= state.toInt() == Qt::Checked ? QStyle::State_On : QStyle::State_Off;
  const QSize size(style.pixelMetric(QStyle::PM_IndicatorWidth, nullptr, option.widget),
                   style.pixelMetric(QStyle::PM_IndicatorHeight, nullptr, option.widget));
  box.rect = QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, size, option.rect);
  style.drawPrimitive(QStyle::PE_IndicatorCheckBox, &box, painter, option.widget);
}

GridTable::GridTable(GridModel& model, QWidget* parent) : QTableView(parent), model_(model) {
  constexpr int kRowRoom = 8;
  setHorizontalHeader(new GridHeader(model, this));
  setItemDelegate(new GridDelegate(this));
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setMinimumSectionSize(fontMetrics().height());
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRowRoom);
  setModel(&model);
  setSelectionBehavior(SelectRows);
  setSelectionMode(SingleSelection);
  setEditTriggers(NoEditTriggers);
  setTabKeyNavigation(false);
  setWordWrap(false);
  setAlternatingRowColors(true);
  setHorizontalScrollMode(ScrollPerPixel);
  ShowColumns();
}

void GridTable::ShowColumns() {
  constexpr int kHeaderRoom = 8;
  horizontalHeader()->setMinimumSectionSize(kHeaderRoom);
  const int rows = model_.HasGroups() ? 2 : 1;
  horizontalHeader()->setFixedHeight(rows * (fontMetrics().height() + 2 * kHeaderRoom));
  for (int col = 0; col < model_.columnCount(); ++col) {
    const auto& column = model_.ColumnAt(col);
    setColumnHidden(col, column.hidden);
    if (!column.hidden) setColumnWidth(col, TwipsToPixels(column.twips));
  }
}

QSize GridTable::SizeForRows(int width, int rows) const {
  const int height = horizontalHeader()->height() + rows * verticalHeader()->defaultSectionSize();
  return {width + 2 * frameWidth(), height + 2 * frameWidth()};
}

QSize GridTable::sizeHint() const {
  constexpr int kRows = 16, kFewRows = 7, kNarrow = 450;
  const int width = horizontalHeader()->length();
  const int bar = verticalScrollBar()->sizeHint().width();
  // A narrow grid shows a detail of something, and has few rows.
  return SizeForRows(width + bar, width < kNarrow ? kFewRows : kRows).expandedTo(minimumSizeHint());
}

QSize GridTable::minimumSizeHint() const {
  constexpr int kWidth = 300, kRows = 4;
  return SizeForRows(kWidth, kRows);
}

QItemSelectionModel::SelectionFlags GridTable::selectionCommand(const QModelIndex& /*index*/,
                                                                const QEvent* /*event*/) const {
  return QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows;
}

}  // namespace kvraedi::qt
