#pragma once

#include <filesystem>
#include <initializer_list>
#include <string>
#include <string_view>

#include "frame/escritor_texto.h"

namespace kvraedi {

inline constexpr char kBarra = '|';
inline constexpr char kTabulador = '\t';

/// Writes a text file of records, one a line, whose fields are parted by one character without
/// quoting, in code page 1252. Line ends and tabs in a value become blanks between bars and stand
/// as they are between tabs. What was written stays when the writer is destroyed without Cerrar.
class EscritorCampos {
 public:
  /// Makes the file, or empties it; raises kErrorFile.
  EscritorCampos(const std::filesystem::path& fichero, char separador);

  /// Appends a record of these texts (UTF-8), in order.
  void Registro(std::initializer_list<std::string_view> campos);
  void Cerrar() { texto_.Cerrar(); }

 private:
  EscritorTexto texto_;
  char separador_;
  std::string linea_;
};

}  // namespace kvraedi
