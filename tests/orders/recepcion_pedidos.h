#pragma once

#include <fstream>
#include <iterator>

#include "kvraedi/clsOrders.h"
#include "tests/apoyo/escenario.h"

namespace kvraedi {

inline constexpr std::string_view kInicioPedidos = "ORDERS_D_96A_UN_EAN008\r\n";

/// A host with a reception folder: warehouse 5 (two share the GLN of 6 and 7), customer 100,
/// articles 501 and 502 with bar codes. No ledger of received files.
class RecepcionPedidos : public Escenario {
 protected:
  void SetUp() override {
    Escenario::SetUp();
    base->Run(Guion("orders/recepcion_pedidos.sql"));
    for (const char* nombre : {"", "Temp", "OK", "Error", "Log"}) {
      std::filesystem::create_directories(ordenes / nombre);
    }
  }

  void Dejar(const std::string& nombre, std::string_view contenido) const {
    std::ofstream(ordenes / "Temp" / nombre, std::ios::binary) << contenido;
  }
  std::string Leer(const std::string& fichero) const {
    std::ifstream entrada(ordenes / fichero, std::ios::binary);
    return {std::istreambuf_iterator<char>(entrada), {}};
  }
  /// The folders in which the file is: "Temp", "OK", "Error" or several of them.
  std::string Donde(const std::string& nombre) const {
    std::string donde;
    for (const char* en : {"Temp", "OK", "Error"}) {
      if (std::filesystem::exists(ordenes / en / nombre))
        donde += (donde.empty() ? "" : " ") + std::string(en);
    }
    return donde;
  }
  /// The texts of the message boxes so far, "title: text", and forgets them.
  std::string Avisos() {
    std::string avisos;
    for (; vistos < toolkit.Messages().size(); ++vistos) {
      const auto& caja = toolkit.Messages()[vistos];
      avisos += caja.title + ": " + caja.text + "\n";
    }
    return avisos;
  }
  /// Texts of the entries of a log, a line each, without moment and level.
  std::string Registro(const std::string& nombre) const {
    std::string textos;
    std::istringstream lineas(Leer("Log/" + nombre + ".log"));
    for (std::string linea; std::getline(lineas, linea);) {
      linea.erase(linea.find_last_not_of('\r') + 1);
      const auto rutina = linea.find('\t', linea.find('\t') + 1) + 1;
      EXPECT_EQ(linea.substr(0, rutina), "2024-03-01 09:08:07\t0\t");
      textos += linea.substr(rutina) + "\n";
    }
    return textos;
  }
  /// All rows of a query, fields between "|", a row a line.
  std::string Filas(const std::string& columnas, const std::string& resto) const {
    std::string filas;
    const std::string sql = std::string("SELECT ").append(columnas).append(" FROM ").append(resto);
    for (auto rs = base->Open(sql); !rs->Eof(); rs->MoveNext()) {
      for (int campo = 0; campo <= std::count(columnas.begin(), columnas.end(), ','); ++campo) {
        filas += (campo == 0 ? "" : "|") + rs->GetOrEmpty<std::string>(campo);
      }
      filas += '\n';
    }
    return filas;
  }

  /// An order of one line for the customer and warehouse of the scene.
  static std::string Pedido(const std::string& numero, const std::string& gln = "8430000000055",
                            const std::string& cliente = "8411111111111") {
    return "ORD|" + numero + "|220|9\r\nDTM|20240226|20240305|20240306\r\nNADBY|" + cliente +
           "\r\nNADDP|" + gln +
           "||Tienda|Calle, 1|Vigo|36201\r\nLIN|8410000000501|EN|1\r\n"
           "QTYLIN|21|12|PCE\r\nMOALIN|18.50\r\n";
  }

  std::filesystem::path ordenes = carpeta / "Recepción" / "ORDERS";
  std::size_t vistos = 0;
};

}  // namespace kvraedi
