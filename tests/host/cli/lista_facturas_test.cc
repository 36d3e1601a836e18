#include "host/cli/lista_facturas.h"

#include <gtest/gtest.h>

#include <array>

#include "host/cli/columnas.h"
#include "kvraedi/ui/form.h"
#include "tests/host/cli/ejecucion.h"

namespace kvraedi::cli {
namespace {

class Pantalla : public ui::Form {
 public:
  Pantalla() : Form("frmPrueba", "") { lista.SetColumns(std::vector<ui::GridColumn>(kColumnas)); }
  void Anadir(std::string_view nombre, std::string_view importe) {
    std::array<std::string_view, kColumnas> celdas = {
        "0", "X", "1",    "7", "01/03/2024", "5", nombre, "1", "Sur", importe,
        "0", "1", "2024", "",  "FD",         "0", "0",    "0", "",    "0"};
    lista.AddRow(celdas);
  }
  ui::Grid lista{*this, "vsDocs"};
};

TEST(ListaFacturas, JsonEscapesWhatItHasTo) {
  Pantalla pantalla;
  const std::string nombre = "Muñoz \"El\\Niño\"\r\n\t\x01 100 € S.L. {[,:]}";
  pantalla.Anadir(nombre, "1234,50");
  pantalla.Anadir("", "0,00");
  std::ostringstream salida;
  EscribirJson(pantalla.lista, salida);
  const auto fila = [](const std::string& escrito, const std::string& importe) {
    return R"({"seleccion": "0", "generada": "X", "serie": "1", "factura": "7", )"
           R"("fecha": "01/03/2024", "cliente": "5", "cliente_nombre": ")" +
           escrito + R"(", "almacen": "1", "almacen_nombre": "Sur", "importe": ")" + importe +
           R"(", "tipo_doc": "0", "no_enviar": "1", "ejercicio": "2024", "anexos": "", )"
           R"("tipo": "FD", "tipo_num": "0", "almacen_ft": "0", "caja_ft": "0", "fecha_ft": "", )"
           R"("codigo_ft": "0"})";
  };
  EXPECT_EQ(salida.str(),
            "[\n" +
                fila(R"(Muñoz \"El\\Niño\"\u000d\u000a\u0009\u0001 100 € S.L. {[,:]})", "1234,50") +
                ",\n" + fila("", "0,00") + "\n]\n");
}

TEST(ListaFacturas, TheTableLinesUpByCharacters) {
  Pantalla pantalla;
  pantalla.Anadir("Ñandú €uro", "1,00");
  pantalla.Anadir("Nandu\nEuro", "12345,67");
  std::ostringstream salida;
  EscribirTabla(pantalla.lista, salida);
  std::istringstream lineas(salida.str());
  std::string titulos;
  std::string primera;
  std::string segunda;
  std::getline(lineas, titulos);
  std::getline(lineas, primera);
  std::getline(lineas, segunda);
  const auto tras = [](const std::string& linea, const char* texto) {
    return linea.substr(linea.find(texto));
  };
  EXPECT_EQ(tras(primera, "Ñandú"),
            "Ñandú €uro     1  Sur          1,00  X                  FD    2024/1/7/0");
  EXPECT_EQ(tras(segunda, "Nandu"),
            "Nandu Euro     1  Sur      12345,67  X                  FD    2024/1/7/0");
  EXPECT_EQ(tras(titulos, "Nombre"),
            "Nombre      Alm.  Almacén   Importe  No enviar  Anexos  Tipo  Clave");
}

}  // namespace
}  // namespace kvraedi::cli
