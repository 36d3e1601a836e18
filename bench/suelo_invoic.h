#pragma once

#include <filesystem>

#include "bench/suelo.h"

namespace kvraedi::bench {

/// What sending an invoice costs at least: the same statements prepared on the bare library, the
/// same folder and file operations, and a file of as many bytes.
class SueloInvoic {
 public:
  SueloInvoic(const BaseSuelo& base, std::filesystem::path envios);
  void Enviar(int codigo);

 private:
  void Copiar(const std::string& de, const std::string& a);

  std::filesystem::path envios_;
  SentenciaSuelo factura_, lineas_, impuestos_, vencimientos_, insertar_;
  std::string bytes_;
  int numero_ = 0;
};

}  // namespace kvraedi::bench
