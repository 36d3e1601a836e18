#include <QKeyEvent>
#include <QPlainTextEdit>

#include "platform/qt/field_bindings.h"
#include "platform/qt/texts.h"

namespace kvraedi::qt {
namespace {

class AreaBinding : public ControlBinding {
 public:
  AreaBinding(ui::TextArea& control, QPlainTextEdit& edit)
      : ControlBinding(control, edit, edit), control_(control), edit_(edit) {
    edit_.setTabChangesFocus(true);
    connect(&edit_, &QPlainTextEdit::textChanged, this, [this] { Typed(); });
    AreaBinding::Refresh();
  }
  void Refresh() override {
    Show(Lines());
    edit_.setReadOnly(control_.ReadOnly());
    ShowState();
  }

 private:
  QString Lines() const {
    return ToQt(control_.Text()).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
  }

  /// Puts another text into the field; the cursor stays where it is, as far as there is text.
  void Show(const QString& text) {
    if (edit_.toPlainText() == text) return;
    telling_ = true;
    const int place = edit_.textCursor().position();
    // One step with what was typed, so that it is undone with it.
    QTextCursor whole(edit_.document());
    whole.joinPreviousEditBlock();
    whole.select(QTextCursor::Document);
    whole.insertText(text);
    whole.endEditBlock();
    QTextCursor cursor = edit_.textCursor();
    cursor.setPosition(qMin(place, static_cast<int>(text.size())));
    edit_.setTextCursor(cursor);
    telling_ = false;
  }

  void Typed() {
    if (telling_) return;
    QString text = edit_.toPlainText();
    text.replace(QStringLiteral("\n"), QStringLiteral("\r\n"));
    User([&] { control_.Type(FromQt(text)); });
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    // Enter begins a new line here.
    if (event->type() == QEvent::KeyPress) {
      const int key = static_cast<QKeyEvent*>(event)->key();
      if (key == Qt::Key_Return || key == Qt::Key_Enter) return false;
    }
    return ControlBinding::eventFilter(watched, event);
  }

  ui::TextArea& control_;
  QPlainTextEdit& edit_;
  bool telling_ = false;  // the program changes the text, not the user
};

}  // namespace

std::unique_ptr<Binding> Bind(ui::TextArea& control, QWidget& parent) {
  constexpr int kLines = 4, kRoom = 12;
  auto* edit = new QPlainTextEdit(&parent);
  edit->setMinimumHeight(kLines * edit->fontMetrics().lineSpacing() + kRoom);
  return std::make_unique<AreaBinding>(control, *edit);
}

}  // namespace kvraedi::qt
