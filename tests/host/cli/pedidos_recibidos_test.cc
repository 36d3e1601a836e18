#include <fstream>

#include "platform/sqlite/sqlite_connection.h"
#include "tests/host/cli/con_demo.h"

namespace kvraedi::cli {
namespace {

namespace fs = std::filesystem;

class PedidosRecibidosCli : public ConDemo {
 protected:
  Ejecucion Orders(const std::string& orden, const Palabras& mas = {}) const {
    return Ejecutar({"orders", orden, "--ahora", "2026-06-02T10:20:30"}, mas);
  }
  fs::path Carpeta(const char* nombre) const { return Demo() / "Recepcion" / "ORDERS" / nombre; }
};

std::size_t Veces(const std::string& texto, std::string_view busca) {
  std::size_t veces = 0;
  for (auto i = texto.find(busca); i != std::string::npos; i = texto.find(busca, i + 1)) ++veces;
  return veces;
}

TEST_F(PedidosRecibidosCli, LosDeLaDemostracionSeTomanYLoMaloSeDice) {
  const Ejecucion malo = Orders("insertar");
  EXPECT_EQ(malo.codigo, 1);
  EXPECT_TRUE(malo.Dice("cantidad_mala.dat, línea ")) << malo.mensajes;
  EXPECT_TRUE(malo.Dice("registro QTYLIN, campo 2"));
  EXPECT_NE(malo.resultado.find("  Temp: cantidad_mala.dat\n"), std::string::npos);
  EXPECT_NE(Orders("pendientes").resultado.find("  cantidad_mala.dat\n"), std::string::npos);

  fs::remove(Carpeta("Temp") / "cantidad_mala.dat");
  const Ejecucion bueno = Orders("insertar");
  EXPECT_EQ(bueno.codigo, 0) << bueno.mensajes;
  const std::string dicho = malo.resultado + bueno.resultado;
  for (const char* numero : {"pedido 4711,", "pedido 4712,", "pedido 900100,", "pedido 33,"}) {
    EXPECT_EQ(Veces(dicho, numero), 1U) << numero;
  }
  EXPECT_EQ(Veces(dicho, "artículo desconocido (8410000099999), cantidad: 1\n"), 1U);
  EXPECT_EQ(Veces(dicho, "cantidad: 2.5\n"), 1U);
  for (const char* lugar :
       {"OK: super_0601.dat", "OK: O'Hara & hijos.dat", "Error: factura.dat", "Error: vacio.dat"}) {
    EXPECT_EQ(Veces(dicho, "\n  " + std::string(lugar) + "\n"), 1U) << lugar;
  }
  EXPECT_EQ(Veces(dicho, "\tFin Lectura Fichero: "), 3U);
  EXPECT_EQ(Orders("pendientes").resultado,
            "Pedidos recibidos sin crear:\n  ninguno\nFicheros sin leer:\n  ninguno\n");

  EXPECT_EQ(Veces(dicho, "ya tenía"), 0U);
  fs::copy(Carpeta("OK") / "super_0601.dat", Carpeta("Temp") / "otra.dat");
  EXPECT_EQ(Veces(Orders("insertar").resultado, "  Error: otra.dat\n"), 1U);
  EXPECT_TRUE(Orders("reprocesar", {"otra.dat"}).Dice("con --forzar"));
  EXPECT_EQ(Orders("reprocesar", {"otra.dat", "--forzar"}).codigo, 0);
  EXPECT_EQ(Veces(Orders("insertar").resultado, "; el cliente ya tenía uno de ese número\n"), 2U);
}

TEST_F(PedidosRecibidosCli, ElRegistroTieneTodoLoQueVaALaBase) {
  const fs::path fichero = carpeta / "registro.sql";
  fs::remove(Carpeta("Temp") / "cantidad_mala.dat");
  EXPECT_EQ(Ejecutar({"orders", "insertar", "--registro-sql", fichero.string()}).codigo, 0);
  const std::string registro = Contenido(fichero);
  EXPECT_GE(Veces(registro, "-- BEGIN TRANSACTION"), 2U);
  EXPECT_EQ(Veces(registro, "-- BEGIN TRANSACTION"), Veces(registro, "-- COMMIT"));
  EXPECT_GE(Veces(registro, "FROM Empresas"), 1U) << "the company's own";
  const Ejecucion demo({"demo", "--carpeta", (carpeta / "otra").string(), "--facturas", "1",
                        "--registro-sql", fichero.string()});
  EXPECT_EQ(Veces(Contenido(fichero), "INSERT INTO Facturas "), 1U) << demo.mensajes;
}

TEST_F(PedidosRecibidosCli, LosPendientesDicenPorQue) {
  SqliteConnection db(Base().string());
  db.Run(R"(
INSERT INTO EDI_PedidosClientes (Fichero, Doc_Num) VALUES ('a.dat', '1');
INSERT INTO EDI_PedidosClientes (Fichero, Doc_Num, GLN_ClienteEntrega) VALUES ('a.dat', '2', 'X');
INSERT INTO EDI_PedidosClientes (Fichero, Doc_Num, GLN_ClienteEntrega)
  SELECT 'a.dat', '3', EDI_GLN FROM Almacenes WHERE Cod_Empresa = 1 AND Codigo = 1;
INSERT INTO EDI_PedidosClientes (Fichero, Doc_Num, GLN_ClienteEntrega, Fecha_Emision, GLN_Cliente)
  SELECT 'a.dat', '4', EDI_GLN, '01/06/2026', 'Y' FROM Almacenes WHERE Cod_Empresa = 1 AND Codigo = 1;
INSERT INTO EDI_PedidosClientes (Fichero, Doc_Num, GLN_ClienteEntrega, Fecha_Emision, GLN_Cliente)
  SELECT 'a.dat', '5', EDI_GLN, '01/06/2026', '1' FROM Almacenes WHERE Cod_Empresa = 1 AND Codigo = 1;
INSERT INTO EDI_PedidosClientes_Lineas (Fichero, Doc_Num, Cod_Barras)
  VALUES ('a.dat', '2', 'A'), ('a.dat', '3', 'A'), ('a.dat', '4', 'A'), ('a.dat', '5', 'A'), ('a.dat', '6', 'A'))");
  const std::string dicho = Orders("pendientes").resultado;
  EXPECT_EQ(dicho.substr(0, dicho.find("Ficheros")),
            "Pedidos recibidos sin crear:\n"
            "  1 (a.dat, líneas 0): no tiene líneas; hasta que las tenga no se crea ninguno\n"
            "  2 (a.dat, líneas 1): el GLN de entrega «X» es el de 0 almacenes\n"
            "  3 (a.dat, líneas 1): no tiene fecha de emisión\n"
            "  4 (a.dat, líneas 1): el GLN de cliente «Y» no es el de ninguno\n"
            "  5 (a.dat, líneas 1): nada en él lo impide\n"
            "  6: hay líneas (1) sin su pedido; hasta que lo tengan no se crea ninguno\n");
}

}  // namespace
}  // namespace kvraedi::cli
