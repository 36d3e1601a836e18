#pragma once

#include <cstdint>
#include <filesystem>

namespace kvraedi::os {

/// Starts a program, without a shell and without arguments, and gives back its process identifier.
/// It reads nothing from the terminal, its normal output is dropped, and it finds the profile
/// folder in the variable "userprofile". Raises kErrorFile.
std::int64_t IniciarPrograma(const std::filesystem::path& programa,
                             const std::filesystem::path& perfil);

/// Waits until a process that this one started ends; returns at once when there is none of that
/// identifier. Ctrl-C meanwhile reaches the started program alone.
void EsperarPrograma(std::int64_t proceso);

}  // namespace kvraedi::os
