#pragma once

#include <exception>
#include <utility>

#include "kvraedi/ui/toolkit.h"

namespace kvraedi::qt {

/// Shows the box over the active window and waits for the user.
ui::Answer ShowMessageBox(const ui::MessageBox& box);

void ShowFailure(const std::exception& failure);
/// The same, once the events under way are done: a box in the midst of a change of focus would
/// spoil it.
void ShowFailureLater(const std::exception& failure);

/// Runs what a user's action sets off: no exception may travel through the event loop.
template <class Action>
void RunUserAction(Action&& action) {
  try {
    std::forward<Action>(action)();
  } catch (const std::exception& failure) {
    ShowFailure(failure);
  }
}

}  // namespace kvraedi::qt
