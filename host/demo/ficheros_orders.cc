#include "host/demo/ficheros_orders.h"

#include <fstream>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "host/demo/maestros.h"

namespace kvraedi::demo {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kInicio = "ORDERS_D_96A_UN_EAN008\r\n";
constexpr std::string_view kInicioAntiguo = "ORDERS_D_93A_UN_EAN007  \r\n";

struct LineaPedido {
  std::string barras;
  std::string_view cantidad;
  std::string_view importe;
};

std::vector<std::string> Columna(Connection& conexion, const std::string& sql) {
  std::vector<std::string> valores;
  for (auto rs = conexion.Open(sql); !rs->Eof(); rs->MoveNext()) {
    valores.push_back(rs->Get<std::string>(0));
  }
  return valores;
}

std::string Pedido(std::string_view numero, std::string_view cliente, int almacen,
                   const std::vector<LineaPedido>& lineas) {
  std::string texto = "ORD|" + std::string(numero) +
                      "|220|9\r\nDTM|20260601|20260604|20260605\r\nNADSU|8437000111115\r\nNADBY|";
  texto.append(cliente).append("||||Supermercados del Norte, S.L.|C/ Real, 7|Arucas|35400\r\n");
  texto += "NADDP|" + Gln(1000 + almacen) + "||Tienda 3|Avda. de Canarias, 12|Telde|35200\r\n";
  int numeroLinea = 0;
  for (const LineaPedido& linea : lineas) {
    texto += "LIN|" + linea.barras + "|EN|" + std::to_string(++numeroLinea) +
             "\r\nIMDLIN|F|M||Art\355culo pedido\r\nQTYLIN|21|";
    texto.append(linea.cantidad).append("|PCE\r\nMOALIN|").append(linea.importe).append("\r\n");
  }
  return texto + "MOARES|100.5|100.5|7.04|107.54|100.5\r\nCNTRES|||" + std::to_string(numeroLinea) +
         "|" + std::to_string(numeroLinea) + "\r\n";
}

void Escribir(const fs::path& carpeta, std::string_view nombre, const std::string& contenido) {
  std::ofstream fichero(carpeta / nombre, std::ios::binary);
  fichero << contenido;
  fichero.close();
  if (!fichero) {
    throw Error(kErrorFile, "CrearDemo", "No se ha podido escribir " + std::string(nombre));
  }
}

}  // namespace

void CrearFicherosOrders(Connection& conexion, const fs::path& recepcion) {
  const fs::path carpeta = recepcion / "ORDERS" / "Temp";
  std::error_code error;
  fs::create_directories(carpeta, error);
  if (error) throw Error(kErrorFile, "CrearDemo", "No se ha podido crear " + carpeta.string());
  const auto clientes = Columna(conexion,
                                "SELECT TOP 2 EDI_GLN FROM Clientes WHERE Cod_Empresa = 1"
                                " AND EDI_GLN IS NOT NULL ORDER BY Codigo");
  const auto sinGln = Columna(conexion,
                              "SELECT TOP 1 Codigo FROM Clientes WHERE Cod_Empresa = 1"
                              " AND EDI_GLN IS NULL ORDER BY Codigo");
  const auto barras = Columna(conexion,
                              "SELECT TOP 4 Cod_Barras FROM Articulos_CBarras"
                              " WHERE Cod_Empresa = 1 AND Principal = 1 ORDER BY Cod_Articulo");
  const std::string inicio(kInicio);
  Escribir(carpeta, "super_0601.dat",
           inicio +
               Pedido("00004711", clientes.at(0), 1,
                      {{barras.at(0), "12", "60"}, {barras.at(1), "2,5", "40.50"}}) +
               Pedido("00004712", clientes.at(0), 2, {{barras.at(2), "6", "100.5"}}));
  Escribir(carpeta, "O'Hara & hijos.dat",
           std::string(kInicioAntiguo) +
               Pedido("900100", clientes.at(1), 1,
                      {{barras.at(3), "24", "90"}, {"8410000099999", "1", "10.5"}}));
  Escribir(carpeta, "por_codigo.dat",
           inicio + Pedido("33", sinGln.at(0), 2, {{barras.at(0), "3", "100.5"}}));
  Escribir(carpeta, "factura.dat", "INVOIC_D_93A_UN_EAN007\r\nINV|1|380\r\n");
  Escribir(carpeta, "vacio.dat", "");
  Escribir(
      carpeta, "cantidad_mala.dat",
      inicio + Pedido("5000", clientes.at(0), 1, {{barras.at(0), "1); DROP TABLE Facturas", "1"}}));
}

}  // namespace kvraedi::demo
