#pragma once

#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "kvraedi/export.h"
#include "kvraedi/ui/controls.h"

namespace kvraedi::ui {

/// How a form's controls stand: a tree of rows and columns. An adapter draws any form from it.
struct KVRAEDI_API Layout {
  enum class Kind {
    kControl,
    kRow,      ///< children side by side
    kColumn,   ///< children one below the other
    kAligned,  ///< children are rows whose cells line up in columns
    kSpace,    ///< takes what room is left
  };

  Layout() = default;
  Layout(Control& leaf) : kind(Kind::kControl), control(&leaf) {}  // NOLINT: a leaf is a layout

  Kind kind = Kind::kSpace;
  Control* control = nullptr;
  std::vector<Layout> children;
};

KVRAEDI_API Layout Row(std::initializer_list<Layout> children);
KVRAEDI_API Layout Column(std::initializer_list<Layout> children);
KVRAEDI_API Layout Aligned(std::initializer_list<Layout> rows);
KVRAEDI_API Layout Space();

enum class ShowMode { kModeless = 0, kModal = 1 };

class Toolkit;

/// What an adapter hangs on a form while a native window shows it.
class KVRAEDI_API FormView {
 public:
  virtual ~FormView();
  /// Caption or width changed.
  virtual void Refresh() = 0;
};

/// A screen: a plain object whose controls are its members. It is loaded by its first Show, shown,
/// hidden, and unloaded; after that the object is spent. Forms are held by shared pointers, so that
/// one that unloads itself inside a handler lives until the handler returns.
class KVRAEDI_API Form : public std::enable_shared_from_this<Form> {
 public:
  Form(std::string name, std::string caption);
  /// Takes the window away; neither OnUnload nor the unload event is reached from here.
  virtual ~Form();
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  const std::string& Name() const { return name_; }
  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption);
  /// Width of the window in twips; 0 lets the toolkit fit it to the controls.
  int Width() const { return width_; }
  void SetWidth(int twips);

  /// Loads the form if that has not been done, then shows it or brings it forward. Modal returns
  /// when the form is hidden or unloaded. A form that unloads itself while loading is not shown;
  /// one whose loading fails is unloaded. The toolkit that opens the window also hides and closes
  /// it, whatever the host installs in between.
  void Show(ShowMode mode = ShowMode::kModeless, Form* owner = nullptr);
  void Hide();
  /// Ends the form: OnUnload, then the unload event, then the native window goes. Once only; an
  /// error of the window does not keep the form from being forgotten.
  void Unload();
  bool Loaded() const { return state_ == State::kLoaded; }
  bool Visible() const { return visible_; }

  const std::vector<Control*>& Controls() const { return controls_; }
  /// The control of that name, or null.
  Control* Find(std::string_view name) const;
  const Layout& ControlLayout() const { return layout_; }
  Control* ActiveControl() const { return active_; }
  /// Moves the focus to the next control in layout order that can take it.
  void FocusNext(const Control& from);

  /// The unload event; one listener.
  std::function<void()> onUnload;

  /// User: a function key, by its number (9 is F9), that the control with the focus has no use for.
  void PressFunctionKey(int number);

  void AttachView(FormView* view) { view_ = view; }
  void DetachView() { view_ = nullptr; }

 protected:
  virtual void OnLoad() {}
  /// Each Show, just before the window comes up.
  virtual void OnActivate() {}
  virtual void OnUnload() {}
  void SetLayout(Layout layout) { layout_ = std::move(layout); }
  /// Raised by function keys anywhere on the form; null when it does not listen.
  std::function<void(int number)> onFunctionKey;

 private:
  friend class Control;
  enum class State { kNew, kLoaded, kUnloaded };
  void CloseWindow();

  std::string name_;
  std::string caption_;
  int width_ = 0;
  State state_ = State::kNew;
  bool visible_ = false;
  std::vector<Control*> controls_;
  Control* active_ = nullptr;
  Layout layout_;
  FormView* view_ = nullptr;
  Toolkit* toolkit_ = nullptr;  // of the window; no view outlives it
};

}  // namespace kvraedi::ui
