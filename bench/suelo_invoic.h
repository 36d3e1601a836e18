#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <utility>

#include "bench/suelo.h"

namespace kvraedi::bench {

/// The folder and file operations of sending an invoice, in the two halves between which it is
/// recorded.
class FicheroSuelo {
 public:
  explicit FicheroSuelo(std::filesystem::path envios) : envios_(std::move(envios)) {}
  /// Checks and makes the folders.
  void Preparar();
  /// Writes so many bytes under a name of its own and copies them beside their final place.
  void Escribir(std::size_t bytes);
  void Terminar();
  const std::string& Nombre() const { return nombre_; }

 private:
  std::string Anual() const;
  std::string Definitivo() const { return Anual() + "/" + nombre_; }

  std::filesystem::path envios_;
  std::string nombre_;
  std::string bytes_;
  int numero_ = 0;
};

/// What an invoice of so many lines takes in its file.
std::size_t BytesDeFactura(int lineas);

/// What sending an invoice costs at least: the same statements prepared on the bare library, the
/// same folder and file operations, and a file of as many bytes.
class SueloInvoic {
 public:
  SueloInvoic(const BaseSuelo& base, std::filesystem::path envios);
  void Enviar(int codigo);

 private:
  FicheroSuelo fichero_;
  SentenciaSuelo factura_, lineas_, impuestos_, vencimientos_, insertar_;
};

}  // namespace kvraedi::bench
