#include <fstream>
#include <stdexcept>
#include <string>

#include "bench/datos.h"
#include "bench/puesto.h"
#include "bench/suelo_desadv.h"
#include "kvraedi/clsDesadv.h"

namespace kvraedi::bench {
namespace {

namespace fs = std::filesystem;

/// A file of delivery notes of kArticulos lines each, three records a line, in a copy's Rx.
fs::path EscribirFichero(const Copia& copia, int lineas) {
  const fs::path raiz = copia.Base().parent_path();
  for (const char* carpeta : {"Rx", "OK", "Error"}) fs::create_directory(raiz / carpeta);
  std::ofstream(raiz / "OrmoPCCom.ini") << "[OrmoPCCom]\r\nProveedorCentralizado=12\r\n";
  const fs::path ruta = raiz / "Rx" / "desadv.dat";
  std::ofstream fichero(ruta, std::ios::binary);
  fichero << "DESADV_D_96A_UN_EAN005\r\n";
  for (int i = 0; i < lineas; ++i) {
    const int articulo = i % kArticulos + 1;
    if (articulo == 1) {
      fichero << "BGM|" << 4000000 + i << "|351|9\r\nRFF|ON|88|20260510\r\nNADDP|" << kGlnAlmacen
              << "\r\n";
    }
    fichero << "LIN|" << articulo << "\r\nQTYLIN|12|" << i % 50 << ".25|KGM\r\n"
            << "PCILIN|36E|20261231||||||L" << i << "\r\n";
  }
  return ruta;
}

void Comprobar(const fs::path& base, int lineas) {
  const BaseSuelo abierta(base);
  SentenciaSuelo resultado(abierta,
                           "SELECT COUNT(*), SUM(Unidades) FROM"
                           " Compras_Mini_Lineas WHERE Lote_Numero LIKE 'L%'");
  double unidades = 0;
  for (int i = 0; i < lineas; ++i) unidades += i % 50 + 0.25;
  if (!resultado.Paso() || resultado.Real(0) != lineas || resultado.Real(1) != unidades) {
    throw std::runtime_error("the purchases are others");
  }
}

void Propio(benchmark::State& state, int lineas) {
  const Copia copia(PrepararDesadv(CarpetaBench()));
  const Puesto puesto(copia.Base());
  EscribirFichero(copia, lineas);
  Medir(state, [] { clsDesadv().Insertar("desadv.dat"); });
  Comprobar(copia.Base(), lineas);
}

void Suelo(benchmark::State& state, int lineas) {
  const Copia copia(PrepararDesadv(CarpetaBench()));
  const fs::path fichero = EscribirFichero(copia, lineas);
  {
    const BaseSuelo base(copia.Base());
    Medir(state, [&] {
      InsertarDesadvSuelo(base, fichero, copia.Base().parent_path() / "OK" / "desadv.dat");
    });
  }
  Comprobar(copia.Base(), lineas);
}

void Caso(const std::string& nombre, int lineas) {
  Registrar(
      nombre, [=](benchmark::State& state) { Propio(state, lineas); },
      [=](benchmark::State& state) { Suelo(state, lineas); });
}

}  // namespace

void RegistrarDesadv() {
  Caso("desadv_10000_lineas", 10000);
  Caso("desadv_100000_lineas", 100000);
  Caso("desadv_1000000_lineas", 1000000);
}

}  // namespace kvraedi::bench
