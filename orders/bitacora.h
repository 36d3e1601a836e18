#pragma once

#include <filesystem>
#include <memory>
#include <string_view>

#include "kvraedi/entorno.h"
#include "kvraedi/fichero_log.h"

namespace kvraedi {

/// The log of a routine that takes received orders in.
class Bitacora {
 public:
  /// `entorno` and `rutina` must outlive the log. Raises `Error`.
  Bitacora(Entorno& entorno, const std::filesystem::path& fichero, std::string_view rutina);

  void Anotar(std::string_view texto) { log_->Escribir(0, rutina_, texto); }
  /// The same where an error has been raised already: one more is dropped.
  void AnotarFallo(std::string_view texto) noexcept;
  /// Takes the entries out that are older than 30 days.
  void DescartarAntiguas();

 private:
  Entorno& entorno_;
  std::string_view rutina_;
  std::unique_ptr<FicheroLog> log_;
};

}  // namespace kvraedi
