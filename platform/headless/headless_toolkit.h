#pragma once

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "kvraedi/ui/toolkit.h"

namespace kvraedi {

/// A toolkit without a screen, for batch work and tests. Message boxes are recorded and answered
/// from a queue; a form shown modally is used by the steps queued for it, then closed as by its
/// close box. A user's actions are the user methods of the controls.
class HeadlessToolkit : public ui::Toolkit {
 public:
  HeadlessToolkit() = default;
  /// Forms that are still open lose their window.
  ~HeadlessToolkit() override;
  using Steps = std::function<void(ui::Form&)>;

  /// Queues steps for the next modal show of the form of that name.
  void OnShow(const std::string& form, Steps steps) { steps_[form].push_back(std::move(steps)); }
  /// Queues the answer to the next question; without one the preset button is pressed.
  void QueueAnswer(ui::Answer answer) { answers_.push_back(answer); }

  /// Queues the file for the next dialog that asks for one; without one the user gives up.
  void QueueFile(std::filesystem::path file) { files_.push_back(std::move(file)); }
  /// The same for a folder.
  void QueueFolder(std::filesystem::path folder) { folders_.push_back(std::move(folder)); }

  /// The dialogs shown so far.
  const std::vector<ui::FileDialog>& FileDialogs() const { return fileDialogs_; }
  const std::vector<ui::FolderDialog>& FolderDialogs() const { return folderDialogs_; }
  const std::vector<ui::MessageBox>& Messages() const { return messages_; }
  /// Called with every box when it is shown.
  std::function<void(const ui::MessageBox&)> onMessage;
  /// The form of that name that has a window, or null.
  ui::Form* OpenForm(std::string_view name) const;
  ui::Pointer CurrentPointer() const { return pointer_; }

  ui::Answer Show(const ui::MessageBox& box) override;
  std::optional<std::filesystem::path> ChooseFile(const ui::FileDialog& dialog) override;
  std::optional<std::filesystem::path> ChooseFolder(const ui::FolderDialog& dialog) override;
  void Open(ui::Form& form, ui::ShowMode mode, ui::Form* owner) override;
  void Hide(ui::Form& form) override;
  void Close(ui::Form& form) override;
  void Repaint(ui::Form& form) override;
  void SetPointer(ui::Pointer pointer) override { pointer_ = pointer; }
  int TextWidth(const ui::Font& font, std::string_view text) override;

 private:
  class Window : public ui::FormView {
   public:
    void Refresh() override {}
  };

  std::map<std::string, std::deque<Steps>> steps_;
  std::deque<ui::Answer> answers_;
  std::deque<std::filesystem::path> files_;
  std::deque<std::filesystem::path> folders_;
  std::vector<ui::FileDialog> fileDialogs_;
  std::vector<ui::FolderDialog> folderDialogs_;
  std::vector<ui::MessageBox> messages_;
  std::map<ui::Form*, Window> windows_;
  ui::Pointer pointer_ = ui::Pointer::kDefault;
};

}  // namespace kvraedi
