#include <algorithm>
#include <iomanip>
#include <ostream>

#include "host/cli/fallo.h"
#include "host/cli/ordenes.h"
#include "kvraedi/contenido_invoic.h"
#include "kvraedi/error.h"

namespace kvraedi::cli {
namespace {

std::string SinControles(std::string texto) {
  std::replace_if(
      texto.begin(), texto.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
  return texto;
}

void Escribir(const CampoInvoic& campo, std::ostream& salida) {
  constexpr int kAnchoLinea = 6, kAnchoTag = 7, kAnchoNombre = 18, kAnchoSitio = 8;
  const std::string sitio =
      std::to_string(campo.posicion) + "-" + std::to_string(campo.posicion + campo.ancho - 1);
  salida << std::right << std::setw(kAnchoLinea) << campo.linea << "  " << std::left
         << std::setw(kAnchoTag) << SinControles(std::string(campo.tag)) << std::setw(kAnchoNombre)
         << (campo.nombre.empty() ? "-" : campo.nombre) << std::setw(kAnchoSitio) << sitio << "  "
         << SinControles(campo.valor) << '\n';
}

}  // namespace

int EjecutarVer(const Argumentos& argumentos, const Salida& salida) {
  EntornoSistema entorno(argumentos.entorno);
  try {
    RecorrerInvoic(entorno.OpenForReading(argumentos.fichero),
                   [&](const CampoInvoic& campo) { Escribir(campo, salida.resultado); });
  } catch (const Error& error) {
    throw Fallo(kSinFicheros, error.Description());
  }
  return kHecho;
}

}  // namespace kvraedi::cli
