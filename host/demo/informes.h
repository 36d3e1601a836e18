#pragma once

#include <filesystem>
#include <span>
#include <string_view>

namespace kvraedi::demo {

struct InformeDemo {
  std::string_view fichero;
  std::string_view texto;
};

/// The report files of the folder Rpt, as they were when the program was built.
extern const std::span<const InformeDemo> kInformes;

/// Writes the report files into a folder that exists. Raises `Error`.
void CrearInformes(const std::filesystem::path& carpeta);

}  // namespace kvraedi::demo
