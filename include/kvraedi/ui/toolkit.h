#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "kvraedi/export.h"
#include "kvraedi/ui/form.h"

namespace kvraedi::ui {

enum class Icon { kNone, kInformation, kExclamation, kCritical, kQuestion };
enum class Buttons { kOk, kYesNo };
enum class Answer { kOk, kYes, kNo };
enum class Pointer { kDefault = 0, kHourglass = 11 };

struct MessageBox {
  std::string text;
  std::string title;
  Icon icon = Icon::kNone;
  Buttons buttons = Buttons::kOk;
  Answer preset = Answer::kOk;  ///< the button that Enter presses
};

/// A dialog in which the user chooses a file to open.
struct FileDialog {
  std::string title;
  std::string filter;            ///< pairs "description|patterns": "Imágenes (*.png)|*.png;*.jpg"
  std::filesystem::path folder;  ///< where it begins; empty leaves that to the toolkit
  std::string name;              ///< stands in the field at first
};

/// A dialog in which the user chooses a folder.
struct FolderDialog {
  std::string title;
  std::filesystem::path folder;  ///< where it begins; empty leaves that to the toolkit
};

struct Font {
  std::string_view family;
  int points = 8;
  bool bold = false;
};

/// Draws forms and message boxes. Forms belong to the component; an adapter keeps a native window
/// for a form from Open to Close and never outlives it with a view. One thread.
class KVRAEDI_API Toolkit {
 public:
  virtual ~Toolkit();

  /// Shows the box and waits for the user.
  virtual Answer Show(const MessageBox& box) = 0;
  /// Shows the dialog and waits; the path of an existing file, or nothing when the user gives up.
  virtual std::optional<std::filesystem::path> ChooseFile(const FileDialog& dialog) = 0;
  /// The same for an existing folder.
  virtual std::optional<std::filesystem::path> ChooseFolder(const FolderDialog& dialog) = 0;
  /// Shows the form's window, made if it is not there yet; the form counts as visible already. With
  /// kModal returns when Hide or Close is called for the form. `owner` may be null.
  virtual void Open(Form& form, ShowMode mode, Form* owner) = 0;
  virtual void Hide(Form& form) = 0;
  /// Takes the window away for good. Does nothing for a form that has none. When it returns, also
  /// with an error, the toolkit knows nothing of the form any more.
  virtual void Close(Form& form) = 0;
  /// Paints the form's window now, before the call returns.
  virtual void Repaint(Form& form) = 0;
  virtual void SetPointer(Pointer pointer) = 0;
  /// Width of a text of one line in twips.
  virtual int TextWidth(const Font& font, std::string_view text) = 0;
};

/// Passes every call on: the base of toolkits that log or fail on purpose.
class KVRAEDI_API ToolkitWrapper : public Toolkit {
 public:
  /// `target` must outlive the wrapper, and the wrapper the windows that were opened through it.
  explicit ToolkitWrapper(Toolkit& target) : target_(target) {}

  Answer Show(const MessageBox& box) override { return target_.Show(box); }
  std::optional<std::filesystem::path> ChooseFile(const FileDialog& dialog) override {
    return target_.ChooseFile(dialog);
  }
  std::optional<std::filesystem::path> ChooseFolder(const FolderDialog& dialog) override {
    return target_.ChooseFolder(dialog);
  }
  void Open(Form& form, ShowMode mode, Form* owner) override { target_.Open(form, mode, owner); }
  void Hide(Form& form) override { target_.Hide(form); }
  void Close(Form& form) override { target_.Close(form); }
  void Repaint(Form& form) override { target_.Repaint(form); }
  void SetPointer(Pointer pointer) override { target_.SetPointer(pointer); }
  int TextWidth(const Font& font, std::string_view text) override {
    return target_.TextWidth(font, text);
  }

 private:
  Toolkit& target_;
};

/// The toolkit in use; raises `Error` when the host has installed none.
KVRAEDI_API Toolkit& CurrentToolkit();

}  // namespace kvraedi::ui
