#pragma once

#include <filesystem>
#include <optional>

#include "kvraedi/ui/toolkit.h"

namespace kvraedi::qt {

/// Shows the dialog over the active window and waits for the user.
std::optional<std::filesystem::path> ShowFileDialog(const ui::FileDialog& dialog);
std::optional<std::filesystem::path> ShowFolderDialog(const ui::FolderDialog& dialog);

}  // namespace kvraedi::qt
