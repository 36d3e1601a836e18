// Received INVOIC files: whatever the file holds, it is read to its end or to an Error, and a line
// discount always comes behind a line.
#include "seres/factura_recibida.h"

#include <cstdlib>

#include "fuzz/entrada.h"
#include "kvraedi/error.h"

namespace kvraedi {
namespace {

class Receptor : public ReceptorFactura {
 public:
  void Linea(const LineaRecibida& /*linea*/) override { ++lineas_; }
  void Descuento(const DescuentoRecibido& /*descuento*/) override {}
  void DescuentoLinea(const DescuentoRecibido& /*descuento*/) override {
    if (lineas_ == 0) std::abort();
  }

 private:
  int lineas_ = 0;
};

void Probar(const std::uint8_t* bytes, std::size_t tamano) {
  CabeceraRecibida cabecera;
  Receptor receptor;
  try {
    LeerFacturaRecibida(Fichero(bytes, tamano), "entrada", cabecera, receptor);
  } catch (const Error&) {
    return;
  }
}

}  // namespace
}  // namespace kvraedi

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t tamano) {
  kvraedi::Probar(bytes, tamano);
  return 0;
}
