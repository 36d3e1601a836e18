#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "kvraedi/ui/control.h"
#include "kvraedi/ui/grid.h"
#include "kvraedi/ui/report_viewer.h"

namespace kvraedi::ui {

/// A text that the user only reads.
class KVRAEDI_API Label : public Control {
 public:
  Label(Form& form, std::string name, std::string caption = {});
  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption);
  bool TakesFocus() const override { return false; }
  void Accept(ControlVisitor& visitor) override;

 private:
  std::string caption_;
};

/// A push button; "&" in the caption marks its access key.
class KVRAEDI_API Button : public Control {
 public:
  Button(Form& form, std::string name, std::string caption);
  const std::string& Caption() const { return caption_; }
  void Accept(ControlVisitor& visitor) override;

  /// User: a click, or the access key.
  void Press();
  std::function<void()> onClick;

 private:
  std::string caption_;
};

/// A field with a text of one line.
class KVRAEDI_API TextBox : public Control {
 public:
  using Control::Control;
  const std::string& Text() const { return text_; }
  void SetText(std::string text);
  /// What the user types turns into capital letters; what stood there already stays as it is.
  void SetUpperCase(bool upperCase) { upperCase_ = upperCase; }
  void Accept(ControlVisitor& visitor) override;

  /// User: the field now holds this text.
  virtual void Type(std::string_view text);

 private:
  std::string text_;
  bool upperCase_ = false;
};

/// A field with a text of several lines, CR LF between two of them.
class KVRAEDI_API TextArea : public TextBox {
 public:
  using TextBox::TextBox;
  /// A read-only text can be looked through but not changed by the user.
  bool ReadOnly() const { return readOnly_; }
  void SetReadOnly(bool readOnly);
  void Accept(ControlVisitor& visitor) override;
  void Type(std::string_view text) override;

 private:
  bool readOnly_ = false;
};

/// A date under the mask "##/##/####". The text is what stands in the field ("01/03/2024"), "" when
/// no digit was typed; a half-typed date is kept as it is. Whether it is a date is not judged here.
class KVRAEDI_API DateBox : public TextBox {
 public:
  using TextBox::TextBox;
  void Accept(ControlVisitor& visitor) override;
  /// Digits typed without marks take them from the mask ("01032024" is "01/03/2024").
  void Type(std::string_view text) override;
};

/// A whole number from 0 to 999999999; an empty field is 0. Other characters are not taken.
class KVRAEDI_API NumericBox : public TextBox {
 public:
  using TextBox::TextBox;
  void Accept(ControlVisitor& visitor) override;
  void Type(std::string_view text) override;
  std::int32_t Value() const;
};

/// A list from which one item is chosen. No item is chosen at first (index -1).
class KVRAEDI_API ComboBox : public Control {
 public:
  using Control::Control;
  /// `data` is a number that stands for the item and is not shown.
  void AddItem(std::string text, std::int32_t data = 0);
  const std::vector<std::string>& Items() const { return items_; }
  int ListIndex() const { return index_; }
  /// Raises onClick when the index changes, as a user's choice does.
  void SetListIndex(int index);
  /// Text and data of the item chosen; "" and 0 when there is none.
  std::string_view Text() const;
  std::int32_t Data() const;
  /// Chooses the first item of that text or data; leaves the choice as it is when there is none.
  void SelectText(std::string_view text);
  void SelectData(std::int32_t data);
  void Accept(ControlVisitor& visitor) override;

  /// User: an item was chosen; raises onClick also when it is the one chosen before.
  void Choose(int index);
  std::function<void()> onClick;

 private:
  std::vector<std::string> items_;
  std::vector<std::int32_t> data_;
  int index_ = -1;
};

class KVRAEDI_API CheckBox : public Control {
 public:
  CheckBox(Form& form, std::string name, std::string caption = {});
  const std::string& Caption() const { return caption_; }
  bool Value() const { return value_; }
  /// Raises onClick when the value changes, as a user's click does.
  void SetValue(bool value);
  void Accept(ControlVisitor& visitor) override;

  /// User: a click.
  void Toggle();
  std::function<void()> onClick;

 private:
  std::string caption_;
  bool value_ = false;
};

/// What a typed text means to a picker.
struct PickerValue {
  bool valid = false;               ///< a record of that code exists
  std::string text;                 ///< the text to show in the field
  std::string description;          ///< the record's name, shown beside it
  std::vector<std::int32_t> codes;  ///< the codes; empty when the text holds none
};

/// Where a picker looks its values up. Comes from the suite; may raise `Error`.
class KVRAEDI_API PickerSource {
 public:
  virtual ~PickerSource();
  virtual PickerValue Resolve(std::string_view typed) = 0;
  /// Lets the user search; gives back the text to put into the field, or nothing.
  virtual std::optional<std::string> Search(std::string_view typed, Form& owner) = 0;
};

/// A code field with its record's name beside it and a search. Without a source nothing is valid.
class KVRAEDI_API Picker : public Control {
 public:
  using Control::Control;
  void SetSource(std::unique_ptr<PickerSource> source);
  /// Looks the text up if that has not been done since it was typed. May raise `Error`.
  bool Valid();
  /// Code at a place, 0 when there is none there.
  std::int32_t Code(std::size_t place = 0);
  std::string Description();
  const std::string& Text() const { return text_; }
  void Clear();
  void Accept(ControlVisitor& visitor) override;

  /// User: the field now holds this text.
  void Type(std::string_view text);
  /// User: the search button.
  void Search();
  /// User: the focus leaves; the text is looked up.
  void Left() override;

 private:
  const PickerValue& Resolved();

  std::unique_ptr<PickerSource> source_;
  std::string text_;
  std::optional<PickerValue> value_;
};

class KVRAEDI_API ControlVisitor {
 public:
  virtual ~ControlVisitor();
  virtual void Visit(Label& control) = 0;
  virtual void Visit(Button& control) = 0;
  virtual void Visit(TextBox& control) = 0;
  virtual void Visit(TextArea& control) = 0;
  virtual void Visit(DateBox& control) = 0;
  virtual void Visit(NumericBox& control) = 0;
  virtual void Visit(ComboBox& control) = 0;
  virtual void Visit(CheckBox& control) = 0;
  virtual void Visit(Picker& control) = 0;
  virtual void Visit(Grid& control) = 0;
  virtual void Visit(ReportViewer& control) = 0;
};

}  // namespace kvraedi::ui
