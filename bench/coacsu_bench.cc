#include <stdexcept>

#include "bench/datos.h"
#include "bench/puesto.h"
#include "bench/suelo_coacsu.h"
#include "seres/modSeres.h"

namespace kvraedi::bench {
namespace {

namespace fs = std::filesystem;

void Generar(Puesto& puesto) {
  if (!ProcesarFacturasCoacsu(kCliente, std::string(kDesde), std::string(kHasta))) {
    throw std::runtime_error(puesto.toolkit.Messages().back().text);
  }
}

/// The file that the component writes in the root of the drive.
fs::path Fichero(const Copia& copia) { return copia.Base().parent_path() / "KVRAEDI_COACSU.txt"; }

void Propio(benchmark::State& state, int facturas) {
  const Copia copia(PrepararCoacsu(CarpetaBench(), facturas));
  Puesto puesto(copia.Base());
  Medir(state, [&] { Generar(puesto); });
}

void Suelo(benchmark::State& state, int facturas) {
  const Copia copia(PrepararCoacsu(CarpetaBench(), facturas));
  const fs::path fichero = copia.Envios() / "suelo.txt";
  {
    const BaseSuelo base(copia.Base());
    SueloCoacsu suelo(base);
    Medir(state, [&] { suelo.Generar(fichero); });
  }
  Puesto puesto(copia.Base());
  Generar(puesto);
  if (fs::file_size(fichero) != fs::file_size(Fichero(copia))) {
    throw std::runtime_error("the floor writes another number of bytes");
  }
}

void Caso(const std::string& nombre, int facturas) {
  Registrar(
      nombre, [facturas](benchmark::State& state) { Propio(state, facturas); },
      [facturas](benchmark::State& state) { Suelo(state, facturas); });
}

}  // namespace

// Every message lists the notes of all invoices: three times the invoices are nine times the
// records.
void RegistrarCoacsu() {
  Caso("coacsu_100", 100);
  Caso("coacsu_300", 300);
}

}  // namespace kvraedi::bench
