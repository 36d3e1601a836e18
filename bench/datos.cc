#include "bench/datos.h"

#include <cstdint>
#include <fstream>

#include "frame/sql.h"
#include "host/demo/crear_demo.h"
#include "host/demo/esquema.h"
#include "platform/sqlite/sqlite_connection.h"

namespace kvraedi::bench {

const std::string_view kMaestros = R"(
INSERT INTO Empresas (Codigo, Nombre_1, Nombre_2, Direccion, CP, Localidad, Provincia, Pais, Nif,
  Emp_Articulos, Emp_Clientes, Emp_Proveedores, Aplica_IGIC)
  VALUES (1, 'Ñandú y Cía, S.L.', 'Mayorista', 'C/ Mayor, 1', '35001', 'Las Palmas', 'Las Palmas',
  'ESP', 'B35000000', 1, 1, 1, 1);
INSERT INTO Empresas_Parametros VALUES (1, 'EDI_PathFichEnvios', 'Envios');
INSERT INTO Empresas_Parametros VALUES (1, 'EDI_GLNEmpresa', '8400000000017');
INSERT INTO Empresas_Parametros VALUES (1, 'EDI_RegistroMercantil', 'R.M. Las Palmas T.1 F.2');
INSERT INTO Impuestos VALUES (1, 'IGIC 7', 7);
INSERT INTO Paises (Cod_Pais, Nombre, ISOCodigo) VALUES (34, 'España', 'ES');
INSERT INTO Clientes (Cod_Empresa, Codigo, Nombre, Nif, Direccion, CP, Localidad, Provincia,
  Cod_Pais, EDI_GLN, Cod_EDIPlat_Fra, Cod_EDITipoMsg_Fra)
  VALUES (1, 100, 'Hipermercado', 'A28000000', 'Gran Vía, 2', '28013', 'Madrid', 'Madrid', 34,
  '8411111111111', 2, 1);
)";

namespace {

constexpr std::string_view kColumnasFactura =
    "INSERT INTO Facturas (Cod_Empresa, Cod_Ejercicio, Serie, Codigo, TipoDoc, Fecha, Hora,"
    " Cliente, Almacen, ImporteB, Impuestos, Total, Observ) ";

void InsertarFactura(Connection& conexion, int codigo, int lineas) {
  const std::string clave = Sql("1, ", kEjercicio, ", 1, ", codigo, ", 0");
  conexion.Execute(Sql(kColumnasFactura, "VALUES (", clave,
                       ", '15/05/2026', '15/05/2026 10:45:30', ", kCliente,
                       ", 5, 100, 7, 107, 'Entregar por la mañana')"));
  conexion.Execute(
      Sql("INSERT INTO Facturas_Impuestos (Cod_Empresa, Cod_Ejercicio, Serie, Codigo, TipoDoc,"
          " Tipo, Base, Importe) VALUES (",
          clave, ", 1, 100, 7)"));
  conexion.Execute(
      Sql("INSERT INTO Facturas_PrevCobros (Cod_Empresa, Cod_Ejercicio, Serie, Codigo, TipoDoc,"
          " Apunte, Fecha_Vto, Importe) VALUES (",
          clave, ", 1, '15/06/2026', 107)"));
  for (int linea = 1; linea <= lineas; ++linea) {
    conexion.Execute(
        Sql("INSERT INTO Facturas_Lineas (Cod_Empresa, Cod_Ejercicio, Serie, Codigo, TipoDoc,"
            " Num_Linea, Cod_Articulo, Descripcion, Unidades, Precio, PrecioG, PDescuento,"
            " Descuento, Impuesto) VALUES (",
            clave, ", ", linea, ", ", 1000 + linea, ", 'Queso curado de oveja', 4.5, 2.3456, 2.5, ",
            linea % 2 * 10, ", ", linea % 2, ", 1)"));
  }
}

constexpr std::string_view kDestino =
    ", 'Hipermercado Sur', 'C/ Sol, 12', 'Arrecife', 'Las Palmas', '35500', 'ESP', 'A28000000'";

/// A summary invoice: its total is its own, for equal ones would be one message.
void InsertarResumen(Connection& conexion, int codigo) {
  conexion.Execute(
      Sql("INSERT INTO Facturas (Cod_Empresa, Cod_Ejercicio, Serie, Codigo, TipoDoc, Fecha, Hora,"
          " Cliente, Almacen, TipoFactura, FormaPago, ImporteB, Dto1, Dto2, Impuestos, Total,"
          " Ent_Nombre, Ent_Direccion, Ent_Localidad, Ent_Provincia, Ent_Cp, Ent_Pais, Ent_Nif,"
          " Ent_Telefono, Ent_Fax, Ent_Contacto) VALUES (1, ",
          kEjercicio, ", 1, ", codigo, ", 0, '15/05/2026', '15/05/2026 10:45:30', ", kCliente,
          ", 5, 2, 5, 100, 1.5, 2, 7, ", codigo, kDestino, ", '928000000', '928000001', 'Ana')"));
  for (int i = 0; i < kAlbaranesPorFactura; ++i) {
    const std::string clave = Sql("1, ", kEjercicio, ", 1, ", codigo * kAlbaranesPorFactura + i);
    conexion.Execute(
        Sql("INSERT INTO Albaranes_F (Cod_Empresa, Cod_Ejercicio, Serie, Codigo, Factura_Codigo,"
            " Fecha, Ent_Nombre, Ent_Direccion, Ent_Localidad, Ent_Provincia, Ent_Cp, Ent_Pais,"
            " Ent_Nif) VALUES (",
            clave, ", ", codigo, ", '15/05/2026'", kDestino, ")"));
    conexion.Execute(
        Sql("INSERT INTO Albaranes_F_Lineas (Cod_Empresa, Cod_Ejercicio, Serie, Codigo, Num_Linea,"
            " Cod_Articulo, Precio, PvpBase) VALUES (",
            clave, ", 1, 1001, 1234.5, 1000.25)"));
  }
}

constexpr std::string_view kMaestrosFacturae = R"(
UPDATE Paises SET ISO3Codigo = 'ESP';
UPDATE Clientes SET Nombre_Comercial = 'Hiper', EDI_Rol_Fiscal = 'L01', EDI_Rol_Receptor = 'L01',
  EDI_Rol_Pagador = 'L01', Cod_EDIPlat_Fra = 3;
INSERT INTO EDI_Centros_Administrativos VALUES ('L01', 'Intervención', 'Plaza 1', '35500',
  'Arrecife', 'Las Palmas', 34, 'Oficina contable');
INSERT INTO Igic_Tipos VALUES (1, 1, '01/01/2020', '31/12/2099', 7);
)";

constexpr std::string_view kMaestrosCompras = R"(
UPDATE Empresas SET Nombre_1 = 'Mayorista, S.L.';
INSERT INTO Almacenes (Cod_Empresa, Codigo, Nombre, Direccion, CP, Localidad, EDI_GLN)
  VALUES (1, 3, 'Norte', 'Muelle, 2', '35002', 'Arucas', '8437000000031');
INSERT INTO Proveedores (Cod_Empresa, Codigo, Nombre) VALUES (1, 20, 'Conservas');
INSERT INTO Proveedores_GLN VALUES (1, 20, '8412345678901', 1);
)";

void InsertarPedido(Connection& conexion, int lineas) {
  conexion.Execute(Sql("INSERT INTO Pedidos_Proveedores VALUES (1, ", lineas,
                       ", 20, 3, '15/05/2026', '18/05/2026', '20/05/2026', ", lineas, ", 12.5)"));
  for (int linea = 1; linea <= lineas; ++linea) {
    conexion.Execute(Sql("INSERT INTO Pedidos_Proveedores_Lineas VALUES (1, ", lineas, ", ", linea,
                         ", ", linea % kArticulos + 1, ", 'R-1', 'Queso curado de oveja', ",
                         linea % 96 + 1, ".5, 2, 0.5, 2.3456)"));
  }
}

void InsertarEntrada(Connection& conexion, int codigo) {
  constexpr int kImpuestosPorEntrada = 20;
  conexion.Execute(Sql("INSERT INTO Entradas VALUES (1, ", kEjercicio, ", 3, ", codigo,
                       ", '15/05/2026', 20, 1234, 'ALB-000157', 100, 107)"));
  for (int tipo = 1; tipo <= kImpuestosPorEntrada; ++tipo) {
    conexion.Execute(Sql("INSERT INTO Entradas_Impuestos VALUES (1, ", kEjercicio, ", 3, ", codigo,
                         ", ", tipo, ", ", codigo, ".25, 7, 3.1416)"));
  }
}

/// A database with the masters and what `llenar` puts in; made once.
template <class Llenar>
std::filesystem::path Preparar(const std::filesystem::path& carpeta, const std::string& nombre,
                               Llenar llenar) {
  auto ruta = carpeta / (nombre + ".db");
  if (std::filesystem::exists(ruta)) return ruta;
  const auto provisional = carpeta / (nombre + ".nueva");
  std::filesystem::remove(provisional);
  {
    SqliteConnection conexion(provisional.string(),
                              {.create = true, .durability = Durability::kNone});
    for (const auto script : demo::kScriptsSqlite) conexion.Run(script);
    conexion.Run(kMaestros);
    conexion.BeginTrans();
    llenar(conexion);
    conexion.CommitTrans();
  }
  std::filesystem::rename(provisional, ruta);
  return ruta;
}

}  // namespace

void InsertarFacturas(Connection& conexion) {
  for (int codigo = 1; codigo <= kFacturas; ++codigo) {
    InsertarFactura(conexion, codigo, kLineasPorFactura);
  }
}

void InsertarCienMilFacturas(Connection& conexion) {
  conexion.Execute("INSERT INTO Almacenes (Cod_Empresa, Codigo, Nombre) VALUES (1, 5, 'Central')");
  for (int codigo = 1; codigo <= kFacturas; ++codigo) InsertarFactura(conexion, codigo, 0);
  for (int primera = kFacturas; primera < 100'000; primera += kFacturas) {
    conexion.Execute(Sql(kColumnasFactura, "SELECT Cod_Empresa, Cod_Ejercicio, Serie, Codigo + ",
                         primera,
                         ", TipoDoc, Fecha, Hora, Cliente, Almacen, ImporteB, Impuestos, Total,"
                         " Observ FROM Facturas WHERE Codigo <= ",
                         kFacturas));
  }
}

std::filesystem::path PrepararInvoic(const std::filesystem::path& carpeta) {
  return Preparar(carpeta, "invoic", [](SqliteConnection& conexion) {
    InsertarFacturas(conexion);
    for (const auto& [codigo, lineas] : {kMil, kDiezMil}) InsertarFactura(conexion, codigo, lineas);
  });
}

std::filesystem::path PrepararFacturae(const std::filesystem::path& carpeta) {
  return Preparar(carpeta, "facturae", [](SqliteConnection& conexion) {
    conexion.Run(kMaestrosFacturae);
    for (const int lineas : {kDiezLineas, kDiezMilLineas}) {
      InsertarFactura(conexion, lineas, lineas);
    }
  });
}

std::filesystem::path PrepararCoacsu(const std::filesystem::path& carpeta, int facturas) {
  return Preparar(carpeta, "coacsu_" + std::to_string(facturas), [&](SqliteConnection& conexion) {
    for (int codigo = 1; codigo <= facturas; ++codigo) InsertarResumen(conexion, codigo);
  });
}

void InsertarRecepcion(Connection& conexion) {
  conexion.Execute("INSERT INTO Empresas_Parametros VALUES (1, 'EDI_PathFichRecibir', '.')");
  conexion.Execute("INSERT INTO Empresas_Parametros VALUES (1, 'UsuarioActual', '1')");
  conexion.Execute(
      Sql("INSERT INTO Almacenes (Cod_Empresa, Codigo, Nombre, EDI_GLN) VALUES"
          " (1, 1, 'Central', ",
          SqlTexto{kGlnAlmacen}, ")"));
  for (int codigo = 1; codigo <= kArticulos; ++codigo) {
    conexion.Execute(Sql("INSERT INTO Articulos VALUES (1, ", codigo, ", 'Queso curado ",
                         codigo * 7919 % kArticulos, "')"));
  }
}

std::filesystem::path PrepararDesadv(const std::filesystem::path& carpeta) {
  return Preparar(carpeta, "desadv",
                  [](SqliteConnection& conexion) { InsertarRecepcion(conexion); });
}

void EscribirOrders(const std::filesystem::path& carpeta, int pedidos) {
  for (const char* sub : {"Temp", "OK", "Error", "Log"}) {
    std::filesystem::create_directories(carpeta / sub);
  }
  std::ofstream fichero(carpeta / "Temp" / "orders.dat", std::ios::binary);
  fichero << "ORDERS_D_96A_UN_EAN008\r\n";
  for (int pedido = 0; pedido < pedidos; ++pedido) {
    fichero << "ORD|" << 4000000 + pedido
            << "|220|9\r\nDTM|20260515|20260520|20260521\r\nNADSU|8437000111115\r\nNADBY|"
            << kCliente << "\r\nNADDP|" << kGlnAlmacen << "\r\nFTX|Sin avisar\r\n";
    for (int linea = 1; linea <= kLineasPorPedido; ++linea) {
      fichero << "LIN|" << 8410000000000 + linea * std::int64_t{17} << "|EN|" << linea
              << "\r\nIMDLIN|F|M||Queso curado de cabra " << linea << "\r\nQTYLIN|21|" << linea
              << ".5\r\nMOALIN|" << linea * 3 << ".25\r\n";
    }
    fichero << "MOARES|100.5|100.5|7|107.5\r\n";
  }
}

std::filesystem::path PrepararCompras(const std::filesystem::path& carpeta) {
  return Preparar(carpeta, "compras", [](SqliteConnection& conexion) {
    conexion.Run(kMaestrosCompras);
    for (int codigo = 1; codigo <= kArticulos; ++codigo) {
      conexion.Execute(Sql("INSERT INTO Articulos VALUES (1, ", codigo, ", 'Queso')"));
    }
    for (const int primero : {1, 80001}) {
      for (int codigo = primero; codigo < primero + 20; ++codigo) {
        conexion.Execute(Sql("INSERT INTO Articulos_CBarras VALUES (1, ", codigo, ", '84",
                             codigo + 1000000, "', 1)"));
      }
    }
    for (const int lineas : {kPedidoCorto, kPedidoLargo}) InsertarPedido(conexion, lineas);
    for (int codigo = 1; codigo <= kEntradas; ++codigo) InsertarEntrada(conexion, codigo);
  });
}

std::filesystem::path PrepararLista(const std::filesystem::path& carpeta, int facturas) {
  const auto demo = carpeta / ("lista_" + std::to_string(facturas));
  if (std::filesystem::exists(demo / "kvraedi.db")) return demo / "kvraedi.db";
  return demo::CrearDemo({.carpeta = demo, .facturas = facturas});
}

}  // namespace kvraedi::bench
