#include <fstream>
#include <iterator>
#include <stdexcept>

#include "bench/datos.h"
#include "bench/puesto.h"
#include "bench/suelo_facturae.h"
#include "facturae/documento.h"
#include "frame/puertos.h"

namespace kvraedi::bench {
namespace {

namespace fs = std::filesystem;

/// Builds and saves the document of an invoice.
void Generar(int codigo, const fs::path& fichero) {
  const auto xml = SuiteActual().NuevoDocumentoXml(EntornoActual());
  facturae::ConstruirDocumento(facturae::Estado(), *xml, kCliente,
                               {.ejercicio = kEjercicio, .serie = 1, .codigo = codigo}, 0);
  xml->Guardar(fichero);
}

std::string Contenido(const fs::path& fichero) {
  std::ifstream entrada(fichero, std::ios::binary);
  return {std::istreambuf_iterator<char>(entrada), {}};
}

void Propio(benchmark::State& state, int codigo, int veces) {
  const Copia copia(PrepararFacturae(CarpetaBench()));
  const Puesto puesto(copia.Base());
  const fs::path fichero = copia.Envios() / "documento.xml";
  Medir(state, [&] {
    for (int i = 0; i < veces; ++i) Generar(codigo, fichero);
  });
}

void Suelo(benchmark::State& state, int codigo, int veces) {
  const Copia copia(PrepararFacturae(CarpetaBench()));
  const Puesto puesto(copia.Base());
  const BaseSuelo base(copia.Base());
  SueloFacturae suelo(base, codigo);
  const fs::path fichero = copia.Envios() / "suelo.xml";
  Medir(state, [&] {
    for (int i = 0; i < veces; ++i) suelo.Escribir(fichero);
  });
  const fs::path propio = copia.Envios() / "documento.xml";
  Generar(codigo, propio);
  if (Contenido(fichero) != Contenido(propio)) {
    throw std::runtime_error("the floor writes another document");
  }
}

void Caso(const std::string& nombre, int codigo, int veces) {
  Registrar(
      nombre, [=](benchmark::State& state) { Propio(state, codigo, veces); },
      [=](benchmark::State& state) { Suelo(state, codigo, veces); });
}

}  // namespace

void RegistrarFacturae() {
  Caso("facturae_10_lineas", kDiezLineas, 1000);
  Caso("facturae_10000_lineas", kDiezMilLineas, 1);
}

}  // namespace kvraedi::bench
