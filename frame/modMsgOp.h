#pragma once

#include <string>
#include <string_view>

#include "kvraedi/ui/form.h"

namespace kvraedi {

inline constexpr std::string_view kMensajeOperacion = "Realizando operación, espere por favor...";

/// The small window with the text of the operation that is running.
class frmMsg : public ui::Form {
 public:
  frmMsg();

  void Mensaje(std::string mensaje) { mensaje_ = std::move(mensaje); }
  /// Shows the message, if there is one, and fits the window to it; where texts cannot be measured
  /// the toolkit fits it.
  void RefreshMsg();

 protected:
  void OnLoad() override { RefreshMsg(); }

 private:
  std::string mensaje_;
  ui::Label lblMsg{*this, "lblMsg"};
};

/// Shows the progress message with the hourglass pointer, or hides it. An empty text stands for the
/// general one. Failures are ignored, each by itself: the message never interrupts its caller.
void MsgOp(bool mostrar, std::string_view mensaje) noexcept;

/// Takes the window away; the next message makes another.
void CerrarMsgOp() noexcept;

}  // namespace kvraedi
