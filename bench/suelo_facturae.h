#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "bench/suelo.h"

namespace kvraedi::bench {

/// Builds the Facturae document of one invoice in a string, tag by tag, and writes it at once.
class SueloFacturae {
 public:
  SueloFacturae(const BaseSuelo& base, int codigo);
  void Escribir(const std::filesystem::path& fichero);

 private:
  void Abrir(std::string_view nombre);
  void Cerrar(std::string_view nombre);
  void Hoja(std::string_view nombre, std::string_view texto);
  void Importe(std::string_view nombre, std::string_view texto);
  void Direccion(std::string_view calle, std::string_view cp, std::string_view localidad,
                 std::string_view provincia, std::string_view pais);
  void Cabecera();
  void Partes();
  void Factura();
  void Impuesto(double tasa, double base, double cuota);
  void Linea();

  int codigo_;
  SentenciaSuelo totales_, partes_, factura_, impuestos_, lineas_, anexos_;
  std::string xml_;
  std::size_t nivel_ = 0;
};

}  // namespace kvraedi::bench
