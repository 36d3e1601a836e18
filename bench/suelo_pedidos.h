#pragma once

#include <filesystem>
#include <string>

#include "bench/suelo.h"

namespace kvraedi::bench {

/// What writing a supplier order as ORDERS costs at least: the same statements prepared on the bare
/// library, and the same bytes in a file. Texts must be plain ASCII.
class SueloOrders {
 public:
  explicit SueloOrders(const BaseSuelo& base);
  void Generar(int pedido, const std::filesystem::path& fichero);

 private:
  SentenciaSuelo pedido_, lineas_;
  std::string bytes_;
};

/// The same of a receipt as RECADV, for a company under IGIC, in store 3.
class SueloRecadv {
 public:
  explicit SueloRecadv(const BaseSuelo& base);
  void Generar(int entrada, const std::filesystem::path& carpeta);

 private:
  SentenciaSuelo entrada_, impuestos_;
  std::string bytes_;
};

}  // namespace kvraedi::bench
