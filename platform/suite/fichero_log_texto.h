#pragma once

#include <filesystem>
#include <memory>
#include <string_view>

#include "kvraedi/entorno.h"
#include "kvraedi/fichero_log.h"

namespace kvraedi::suite {

/// A log of one line an entry, in UTF-8: "yyyy-mm-dd hh:mm:ss", level, routine and text, with a tab
/// between them. Line ends and tabs inside a text become blanks.
class FicheroLogTexto : public FicheroLog {
 public:
  /// `entorno` must outlive the log.
  FicheroLogTexto(Entorno& entorno, std::filesystem::path fichero);
  void Escribir(int nivel, std::string_view rutina, std::string_view texto) override;
  void DescartarAnteriores(const FechaHora& momento) override;

 private:
  Entorno& entorno_;
  std::filesystem::path ruta_;
  std::unique_ptr<FileWriter> fichero_;
};

}  // namespace kvraedi::suite
