#include "platform/qt/field_bindings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QToolButton>

#include "platform/qt/texts.h"

namespace kvraedi::qt {
namespace {

constexpr QChar kBlank = u'_';
constexpr QChar kMark = u'/';

/// Fields and buttons breathe more than the style gives them.
void GiveHeight(QWidget& widget) {
  constexpr int kRoom = 11;
  widget.setMinimumHeight(widget.fontMetrics().height() + kRoom);
}

/// Fixes a field's width to what a text needs, with room for the frame and the cursor.
void FixWidth(QLineEdit& edit, const QString& text) {
  constexpr int kRoom = 20;
  edit.setFixedWidth(edit.fontMetrics().horizontalAdvance(text) + kRoom);
  edit.setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

class LabelBinding : public ControlBinding {
 public:
  LabelBinding(ui::Label& control, QLabel& label)
      : ControlBinding(control, label, label), control_(control), label_(label) {
    label_.setTextFormat(Qt::PlainText);
    LabelBinding::Refresh();
  }
  void Refresh() override {
    constexpr int kLongest = 60;  // characters on one line, so that none makes the window too wide
    const QString caption = ToQt(control_.Caption());
    label_.setWordWrap(caption.size() > kLongest);
    label_.setText(caption);
    ShowState();
  }

 private:
  ui::Label& control_;
  QLabel& label_;
};

class ButtonBinding : public ControlBinding {
 public:
  ButtonBinding(ui::Button& control, QPushButton& button)
      : ControlBinding(control, button, button), control_(control), button_(button) {
    button_.setText(ToQt(control.Caption()));
    GiveHeight(button_);
    connect(&button_, &QPushButton::clicked, this, [this] { Press(); });
    ButtonBinding::Refresh();
  }
  void Refresh() override { ShowState(); }

 private:
  void Press() {
    User([this] { control_.Press(); });
  }
  void OnEnterKey() override { Press(); }

  ui::Button& control_;
  QPushButton& button_;
};

class LineBinding : public ControlBinding {
 public:
  LineBinding(ui::TextBox& control, QLineEdit& edit)
      : ControlBinding(control, edit, edit), control_(control), edit_(edit) {
    GiveHeight(edit_);
    connect(&edit_, &QLineEdit::textEdited, this,
            [this] { User([this] { control_.Type(FromQt(Typed())); }); });
  }
  void Refresh() override {
    const QString text = ToQt(control_.Text());
    if (Typed() != text) edit_.setText(text);
    ShowState();
  }

 protected:
  /// What stands in the field, as the control keeps it.
  virtual QString Typed() const { return edit_.text(); }
  QLineEdit& Edit() const { return edit_; }

 private:
  ui::TextBox& control_;
  QLineEdit& edit_;
};

/// The text of a masked date: "" without digits; a half-typed one keeps the blanks before its last
/// digit ("_1/03/20"), so that it is never a date.
QString DateText(QString shown) {
  while (!shown.isEmpty() && (shown.back() == kBlank || shown.back() == kMark)) shown.chop(1);
  return shown;
}

class DateBinding : public LineBinding {
 public:
  DateBinding(ui::DateBox& control, QLineEdit& edit) : LineBinding(control, edit) {
    edit.setInputMask(QStringLiteral("99/99/9999;_"));
    FixWidth(edit, QStringLiteral("00/00/0000"));
    DateBinding::Refresh();
  }

 private:
  QString Typed() const override { return DateText(Edit().displayText()); }
  bool eventFilter(QObject* watched, QEvent* event) override {
    const bool used = LineBinding::eventFilter(watched, event);
    // A click into the empty mask starts at its first place.
    if (event->type() == QEvent::MouseButtonRelease && Typed().isEmpty()) {
      Edit().setCursorPosition(0);
    }
    return used;
  }
};

class NumericBinding : public LineBinding {
 public:
  NumericBinding(ui::NumericBox& control, QLineEdit& edit) : LineBinding(control, edit) {
    static const QRegularExpression kDigits(QStringLiteral("[0-9]{0,9}"));
    edit.setValidator(new QRegularExpressionValidator(kDigits, &edit));
    edit.setAlignment(Qt::AlignRight);
    FixWidth(edit, QStringLiteral("000000000"));
    NumericBinding::Refresh();
  }
};

class TextBinding : public LineBinding {
 public:
  TextBinding(ui::TextBox& control, QLineEdit& edit) : LineBinding(control, edit) {
    TextBinding::Refresh();
  }
};

class ComboBinding : public ControlBinding {
 public:
  ComboBinding(ui::ComboBox& control, QComboBox& combo)
      : ControlBinding(control, combo, combo), control_(control), combo_(combo) {
    GiveHeight(combo_);
    connect(&combo_, &QComboBox::activated, this,
            [this](int index) { User([&] { control_.Choose(index); }); });
    ComboBinding::Refresh();
  }
  void Refresh() override {
    for (auto item = static_cast<std::size_t>(combo_.count()); item < control_.Items().size();
         ++item) {
      combo_.addItem(ToQt(control_.Items()[item]));
    }
    combo_.setCurrentIndex(control_.ListIndex());
    ShowState();
  }

 private:
  bool eventFilter(QObject* watched, QEvent* event) override {
    // The wheel would choose, and so search, while the user only means to scroll.
    if (event->type() == QEvent::Wheel && !combo_.hasFocus()) {
      event->ignore();
      return true;
    }
    return ControlBinding::eventFilter(watched, event);
  }

  ui::ComboBox& control_;
  QComboBox& combo_;
};

class CheckBinding : public ControlBinding {
 public:
  CheckBinding(ui::CheckBox& control, QCheckBox& box)
      : ControlBinding(control, box, box), control_(control), box_(box) {
    box_.setText(ToQt(control.Caption()));
    connect(&box_, &QCheckBox::clicked, this, [this] {
      const QPointer<CheckBinding> self(this);
      User([this] { control_.Toggle(); });
      if (self && Attached()) Refresh();
    });
    CheckBinding::Refresh();
  }
  void Refresh() override {
    box_.setChecked(control_.Value());
    ShowState();
  }

 private:
  ui::CheckBox& control_;
  QCheckBox& box_;
};

/// A picker's widgets: the field, its search button, and the name of the record found.
struct PickerWidgets {
  QWidget& outer;
  QLineEdit& edit;
  QToolButton& search;
  QLabel& description;
};

PickerWidgets MakePickerWidgets(QWidget& parent) {
  constexpr int kSpacing = 4, kLeastDescription = 180;
  auto* outer = new QWidget(&parent);
  auto* row = new QHBoxLayout(outer);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(kSpacing);
  auto* edit = new QLineEdit(outer);
  FixWidth(*edit, QStringLiteral("0000000000"));
  auto* search = new QToolButton(outer);
  search->setText(QStringLiteral("…"));
  search->setToolTip(QStringLiteral("Buscar (F3)"));
  search->setFocusPolicy(Qt::NoFocus);
  GiveHeight(*edit);
  GiveHeight(*search);
  auto* description = new QLabel(outer);
  description->setTextFormat(Qt::PlainText);
  description->setMinimumWidth(kLeastDescription);
  description->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  row->addWidget(edit);
  row->addWidget(search);
  row->addWidget(description, 1);
  outer->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  return {*outer, *edit, *search, *description};
}

class PickerBinding : public ControlBinding {
 public:
  PickerBinding(ui::Picker& control, const PickerWidgets& widgets)
      : ControlBinding(control, widgets.outer, widgets.edit), control_(control), widgets_(widgets) {
    const QString name = ToQt(control.Name());
    widgets_.search.setObjectName(name + QStringLiteral("_Buscar"));
    widgets_.description.setObjectName(name + QStringLiteral("_Descripcion"));
    connect(&widgets_.edit, &QLineEdit::textEdited, this, [this](const QString& text) {
      User([&] { control_.Type(FromQt(text)); });
      if (Attached()) Refresh();
    });
    connect(&widgets_.search, &QToolButton::clicked, this, [this] { Search(); });
    PickerBinding::Refresh();
  }
  void Refresh() override {
    const QString text = ToQt(control_.Text());
    if (widgets_.edit.text() != text) widgets_.edit.setText(text);
    widgets_.description.setText(ToQt(control_.Description()));
    ShowState();
  }

 private:
  void Search() {
    User([this] { control_.Search(); });
  }
  bool OnKey(int key) override {
    if (key != Qt::Key_F3) return false;
    Search();
    return true;
  }

  ui::Picker& control_;
  PickerWidgets widgets_;
};

}  // namespace

std::unique_ptr<Binding> Bind(ui::Label& control, QWidget& parent) {
  return std::make_unique<LabelBinding>(control, *new QLabel(&parent));
}

std::unique_ptr<Binding> Bind(ui::Button& control, QWidget& parent) {
  return std::make_unique<ButtonBinding>(control, *new QPushButton(&parent));
}

std::unique_ptr<Binding> Bind(ui::TextBox& control, QWidget& parent) {
  return std::make_unique<TextBinding>(control, *new QLineEdit(&parent));
}

std::unique_ptr<Binding> Bind(ui::DateBox& control, QWidget& parent) {
  return std::make_unique<DateBinding>(control, *new QLineEdit(&parent));
}

std::unique_ptr<Binding> Bind(ui::NumericBox& control, QWidget& parent) {
  return std::make_unique<NumericBinding>(control, *new QLineEdit(&parent));
}

std::unique_ptr<Binding> Bind(ui::ComboBox& control, QWidget& parent) {
  auto* combo = new QComboBox(&parent);
  combo->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  combo->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  return std::make_unique<ComboBinding>(control, *combo);
}

std::unique_ptr<Binding> Bind(ui::CheckBox& control, QWidget& parent) {
  return std::make_unique<CheckBinding>(control, *new QCheckBox(&parent));
}

std::unique_ptr<Binding> Bind(ui::Picker& control, QWidget& parent) {
  return std::make_unique<PickerBinding>(control, MakePickerWidgets(parent));
}

}  // namespace kvraedi::qt
