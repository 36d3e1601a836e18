#pragma once

#include <filesystem>
#include <map>
#include <string_view>

#include "kvraedi/ui/toolkit.h"

namespace kvraedi {

namespace qt {
class FormWindow;
}

/// Draws forms with Qt 6 Widgets; all of them by the same rules, from their layouts. The host owns
/// the QApplication: it is there before the first call and outlives the toolkit. Destroying the
/// toolkit, outside any handler, takes its windows away; the forms stay as they are.
///
/// A window's objectName is the name of its form, a widget's the name of its control. An exception
/// that leaves a user's action is shown in a message box.
class QtToolkit : public ui::Toolkit {
 public:
  QtToolkit() = default;
  ~QtToolkit() override;
  QtToolkit(const QtToolkit&) = delete;
  QtToolkit& operator=(const QtToolkit&) = delete;

  /// The form of that name that has a window, or null.
  ui::Form* OpenForm(std::string_view name) const;
  /// Saves a picture of the form's window as PNG, in the size that its contents ask for. Raises
  /// kErrorFile when it cannot be written; does nothing for a form without a window.
  void SavePicture(ui::Form& form, const std::filesystem::path& file);

  ui::Answer Show(const ui::MessageBox& box) override;
  std::optional<std::filesystem::path> ChooseFile(const ui::FileDialog& dialog) override;
  std::optional<std::filesystem::path> ChooseFolder(const ui::FolderDialog& dialog) override;
  void Open(ui::Form& form, ui::ShowMode mode, ui::Form* owner) override;
  void Hide(ui::Form& form) override;
  void Close(ui::Form& form) override;
  void Repaint(ui::Form& form) override;
  void SetPointer(ui::Pointer pointer) override;
  int TextWidth(const ui::Font& font, std::string_view text) override;

 private:
  qt::FormWindow* Window(ui::Form* form) const;

  std::map<ui::Form*, qt::FormWindow*> windows_;
  bool hourglass_ = false;
};

}  // namespace kvraedi
