#include "host/demo/ficheros_desadv.h"

#include <array>
#include <fstream>
#include <string>
#include <string_view>

#include "host/demo/maestros.h"
#include "kvraedi/error.h"

namespace kvraedi::demo {
namespace {

namespace fs = std::filesystem;

struct FicheroDemo {
  std::string_view nombre;
  std::string_view registros;  // lines end in LF here; "<1>" is the GLN of store 1 of company 1
};

constexpr auto kFicheros = std::to_array<FicheroDemo>({
    // Two delivery notes; kilos, packages and lots.
    {"desadv_bueno.dat",
     "DESADV_D_96A_UN_EAN005\n"
     "BGM|A-2026-0101|351|9\n"
     "RFF|ON|500123|20260210\n"
     "NADDP|<1>\n"
     "LIN|1002\n"
     "QTYLIN|12|18.75|KGM\n"
     "PCILIN|36E|20260430||||||QM-0210\n"
     "LIN|1006\n"
     "QTYLIN|12|3|PCE\n"
     "QTYLIN|59|24|PCE\n"
     "PCILIN|36E|||||||RM-77\n"
     "BGM|A-2026-0102|351|9\n"
     "RFF|ON|500124|20260210\n"
     "NADDP|<2>\n"
     "LIN|1005\n"
     "QTYLIN|12|120|KGM\n"
     "LIN|1005\n"
     "QTYLIN|12|30,5|KGM\n"},
    // The other header; an expiry in a month 13, and an article that nobody knows.
    {"desadv_articulo_desconocido.dat",
     "DESADV_D_93A_UN_EAN004\n"
     "BGM|A-2026-0103|351|9\n"
     "RFF|ON|500125|20260211\n"
     "NADDP|<1>\n"
     "LIN|1001\n"
     "QTYLIN|12|2|PCE\n"
     "QTYLIN|59|12|PCE\n"
     "PCILIN|36E|20261301||||||GM-13\n"
     "LIN|999999\n"
     "QTYLIN|12|5|KGM\n"},
    {"desadv_gln_desconocido.dat",
     "DESADV_D_96A_UN_EAN005\n"
     "BGM|A-2026-0104|351|9\n"
     "RFF|ON|500126|20260212\n"
     "NADDP|8499999999999\n"
     "LIN|1001\n"
     "QTYLIN|12|4|KGM\n"},
    {"desadv_cantidad_mala.dat",
     "DESADV_D_96A_UN_EAN005\n"
     "BGM|A-2026-0105|351|9\n"
     "RFF|ON|500127|20260212\n"
     "NADDP|<1>\n"
     "LIN|1001\n"
     "QTYLIN|12|1); DROP TABLE Articulos --|KGM\n"},
    {"desadv_albaran_repetido.dat",
     "DESADV_D_96A_UN_EAN005\n"
     "BGM|A-2026-0106|351|9\n"
     "BGM|A-2026-0106|351|9\n"},
    {"desadv_cabecera_mala.dat", "ORDERS_D_96A_UN_EAN008\nORD|1|220|9\n"},
});

void Escribir(const fs::path& ruta, std::string_view texto) {
  std::ofstream fichero(ruta, std::ios::binary);
  for (std::size_t i = 0; i < texto.size(); ++i) {
    if (texto[i] == '\n') {
      fichero << "\r\n";
    } else if (texto[i] == '<') {
      constexpr std::int64_t kAlmacenesEmpresa1 = 1000;
      fichero << Gln(kAlmacenesEmpresa1 + (texto[i + 1] - '0'));
      i += 2;
    } else {
      fichero << texto[i];
    }
  }
  if (!fichero.flush()) {
    throw Error(kErrorFile, "CrearDemo", "No se ha podido escribir " + ruta.string() + ".");
  }
}

}  // namespace

void CrearFicherosDesadv(const fs::path& recepcion) {
  for (const char* carpeta : {"Rx", "OK", "Error"}) {
    std::error_code error;
    fs::create_directory(recepcion / carpeta, error);
  }
  Escribir(recepcion / "OrmoPCCom.ini", "[OrmoPCCom]\nProveedorCentralizado=12\n");
  for (const auto& [nombre, registros] : kFicheros) Escribir(recepcion / "Rx" / nombre, registros);
}

}  // namespace kvraedi::demo
