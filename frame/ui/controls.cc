#include "kvraedi/ui/controls.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "kvraedi/ui/form.h"

namespace kvraedi::ui {
namespace {

bool ContinuesCharacter(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; }

/// Capitals of the letters of the component's texts: A to Z and the accented ones up to U+00FE.
void Capitalize(std::string& utf8, std::size_t begin, std::size_t end) {
  constexpr unsigned kFirst = 0xA0, kDivision = 0xB7, kLast = 0xBE, kStep = 0x20;
  for (std::size_t i = begin; i < end; ++i) {
    const auto byte = static_cast<unsigned char>(utf8[i]);
    const bool accented = i > 0 && utf8[i - 1] == '\xC3' && byte >= kFirst && byte <= kLast;
    if ((byte >= 'a' && byte <= 'z') || (accented && byte != kDivision)) {
      utf8[i] = static_cast<char>(byte - kStep);
    }
  }
}

/// `now` with what differs from `before` in capitals.
std::string TypedInCapitals(std::string_view before, std::string_view now) {
  const auto first = static_cast<std::size_t>(
      std::mismatch(before.begin(), before.end(), now.begin(), now.end()).second - now.begin());
  std::size_t last = now.size();
  for (std::size_t rest = before.size(); rest > first && last > first; --rest, --last) {
    if (before[rest - 1] != now[last - 1]) break;
  }
  std::size_t begin = first;
  while (begin > 0 && begin < now.size() && ContinuesCharacter(now[begin])) --begin;
  while (last < now.size() && ContinuesCharacter(now[last])) ++last;
  std::string text(now);
  Capitalize(text, begin, last);
  return text;
}

}  // namespace

ControlVisitor::~ControlVisitor() = default;
PickerSource::~PickerSource() = default;

Label::Label(Form& form, std::string name, std::string caption)
    : Control(form, std::move(name)), caption_(std::move(caption)) {}

void Label::SetCaption(std::string caption) {
  caption_ = std::move(caption);
  Changed();
}

void Label::Accept(ControlVisitor& visitor) { visitor.Visit(*this); }

Button::Button(Form& form, std::string name, std::string caption)
    : Control(form, std::move(name)), caption_(std::move(caption)) {}

void Button::Accept(ControlVisitor& visitor) { visitor.Visit(*this); }

void Button::Press() {
  if (!AcceptsUser()) return;
  Entered();
  Raise(onClick);
}

void TextBox::SetText(std::string text) {
  text_ = std::move(text);
  Changed();
}

void TextBox::Accept(ControlVisitor& visitor) { visitor.Visit(*this); }

void TextBox::Type(std::string_view text) {
  if (!AcceptsUser()) return;
  text_ = upperCase_ ? TypedInCapitals(text_, text) : std::string(text);
  Changed();
}

void TextArea::SetReadOnly(bool readOnly) {
  readOnly_ = readOnly;
  Changed();
}

void TextArea::Accept(ControlVisitor& visitor) { visitor.Visit(*this); }

void TextArea::Type(std::string_view text) {
  if (!readOnly_) TextBox::Type(text);
}

void DateBox::Accept(ControlVisitor& visitor) { visitor.Visit(*this); }

void DateBox::Type(std::string_view text) {
  constexpr std::size_t kDay = 2, kMonth = 4, kYear = 8;
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  std::string typed;
  if (text.size() == kYear && std::all_of(text.begin(), text.end(), isDigit)) {
    typed.append(text.substr(0, kDay)).append("/");
    typed.append(text.substr(kDay, kMonth - kDay)).append("/").append(text.substr(kMonth));
  } else if (std::any_of(text.begin(), text.end(), isDigit)) {
    typed = text;
  }
  TextBox::Type(typed);
}

void NumericBox::Accept(ControlVisitor& visitor) { visitor.Visit(*this); }

void NumericBox::Type(std::string_view text) {
  constexpr std::size_t kMostDigits = 9;
  std::string digits;
  for (const char c : text) {
    if (c >= '0' && c <= '9' && digits.size() < kMostDigits) digits += c;
  }
  TextBox::Type(digits);
}

std::int32_t NumericBox::Value() const {
  std::int32_t value = 0;
  std::from_chars(Text().data(), Text().data() + Text().size(), value);
  return value;
}

void ComboBox::AddItem(std::string text, std::int32_t data) {
  items_.push_back(std::move(text));
  data_.push_back(data);
  Changed();
}

std::string_view ComboBox::Text() const {
  return index_ < 0 ? std::string_view() : items_[static_cast<std::size_t>(index_)];
}

std::int32_t ComboBox::Data() const {
  return index_ < 0 ? 0 : data_[static_cast<std::size_t>(index_)];
}

void ComboBox::SelectText(std::string_view text) {
  const auto found = std::find(items_.begin(), items_.end(), text);
  if (found != items_.end()) SetListIndex(static_cast<int>(found - items_.begin()));
}

void ComboBox::SelectData(std::int32_t data) {
  const auto found = std::find(data_.begin(), data_.end(), data);
  if (found != data_.end()) SetListIndex(static_cast<int>(found - data_.begin()));
}

void ComboBox::SetListIndex(int index) {
  if (index < -1 || index >= static_cast<int>(items_.size()) || index == index_) return;
  index_ = index;
  Changed();
  Raise(onClick);
}

void ComboBox::Choose(int index) {
  if (!AcceptsUser() || index < 0 || index >= static_cast<int>(items_.size())) return;
  Entered();
  index_ = index;
  Changed();
  Raise(onClick);
}

void ComboBox::Accept(ControlVisitor& visitor) { visitor.Visit(*this); }

CheckBox::CheckBox(Form& form, std::string name, std::string caption)
    : Control(form, std::move(name)), caption_(std::move(caption)) {}

void CheckBox::SetValue(bool value) {
  if (value == value_) return;
  value_ = value;
  Changed();
  Raise(onClick);
}

void CheckBox::Toggle() {
  if (!AcceptsUser()) return;
  Entered();
  SetValue(!value_);
}

void CheckBox::Accept(ControlVisitor& visitor) { visitor.Visit(*this); }

void Picker::SetSource(std::unique_ptr<PickerSource> source) {
  source_ = std::move(source);
  value_.reset();
}

const PickerValue& Picker::Resolved() {
  if (!value_) {
    value_ = source_ ? source_->Resolve(text_) : PickerValue{};
    if (source_) text_ = value_->text;
    Changed();
  }
  return *value_;
}

bool Picker::Valid() { return Resolved().valid; }

std::int32_t Picker::Code(std::size_t place) {
  const auto& codes = Resolved().codes;
  return place < codes.size() ? codes[place] : 0;
}

std::string Picker::Description() { return value_ ? value_->description : std::string(); }

void Picker::Clear() {
  text_.clear();
  value_.reset();
  Changed();
}

void Picker::Type(std::string_view text) {
  if (!AcceptsUser()) return;
  text_ = text;
  value_.reset();
}

void Picker::Search() {
  if (!AcceptsUser() || !source_) return;
  const auto alive = Parent().weak_from_this().lock();
  Entered();
  const auto chosen = source_->Search(text_, Parent());
  if (!chosen) return;
  Type(*chosen);
  Resolved();
}

void Picker::Left() { Resolved(); }

void Picker::Accept(ControlVisitor& visitor) { visitor.Visit(*this); }

}  // namespace kvraedi::ui
