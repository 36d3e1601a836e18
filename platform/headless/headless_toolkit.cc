#include "platform/headless/headless_toolkit.h"

#include <algorithm>

namespace kvraedi {
namespace {

/// The first path of a queue, taken out of it.
std::optional<std::filesystem::path> Next(std::deque<std::filesystem::path>& queue) {
  if (queue.empty()) return std::nullopt;
  std::filesystem::path path = std::move(queue.front());
  queue.pop_front();
  return path;
}

}  // namespace

HeadlessToolkit::~HeadlessToolkit() {
  for (auto& [form, window] : windows_) form->DetachView();
}

ui::Form* HeadlessToolkit::OpenForm(std::string_view name) const {
  const auto found = std::find_if(windows_.begin(), windows_.end(),
                                  [&](const auto& window) { return window.first->Name() == name; });
  return found == windows_.end() ? nullptr : found->first;
}

ui::Answer HeadlessToolkit::Show(const ui::MessageBox& box) {
  messages_.push_back(box);
  if (onMessage) onMessage(box);
  if (box.buttons == ui::Buttons::kOk) return ui::Answer::kOk;
  if (answers_.empty()) return box.preset;
  const ui::Answer answer = answers_.front();
  answers_.pop_front();
  return answer;
}

std::optional<std::filesystem::path> HeadlessToolkit::ChooseFile(const ui::FileDialog& dialog) {
  fileDialogs_.push_back(dialog);
  return Next(files_);
}

std::optional<std::filesystem::path> HeadlessToolkit::ChooseFolder(const ui::FolderDialog& dialog) {
  folderDialogs_.push_back(dialog);
  return Next(folders_);
}

void HeadlessToolkit::Open(ui::Form& form, ui::ShowMode mode, ui::Form* /*owner*/) {
  form.AttachView(&windows_[&form]);
  if (mode != ui::ShowMode::kModal) return;
  auto& queue = steps_[form.Name()];
  if (!queue.empty()) {
    const Steps steps = std::move(queue.front());
    queue.pop_front();
    steps(form);
  }
  if (form.Visible()) form.Unload();
}

void HeadlessToolkit::Hide(ui::Form& /*form*/) {}

void HeadlessToolkit::Close(ui::Form& form) {
  form.DetachView();
  windows_.erase(&form);
}

void HeadlessToolkit::Repaint(ui::Form& /*form*/) {}

int HeadlessToolkit::TextWidth(const ui::Font& font, std::string_view text) {
  constexpr int kTwipsPerPoint = 20;
  const auto characters = std::count_if(text.begin(), text.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
  });
  return static_cast<int>(characters) * font.points * kTwipsPerPoint * (font.bold ? 6 : 5) / 10;
}

}  // namespace kvraedi
