#include <map>
#include <tuple>

#include "tests/host/demo/carpeta_demo.h"

namespace kvraedi {
namespace {

using Clave = std::tuple<int, int, int, int, int>;

Clave LeerClave(const Recordset& rs) {
  return {rs.Get<std::int32_t>("Cod_Empresa"), rs.Get<std::int32_t>("Cod_Ejercicio"),
          rs.Get<std::int32_t>("Serie"), rs.Get<std::int32_t>("Codigo"),
          rs.Get<std::int32_t>("TipoDoc")};
}

/// `value` to the multiple of `step`, halves away from zero.
std::int64_t Redondo(std::int64_t value, std::int64_t step) {
  const std::int64_t rest = std::abs(value) % step;
  const std::int64_t down = std::abs(value) - rest;
  return (value < 0 ? -1 : 1) * (2 * rest >= step ? down + step : down);
}

class ContenidoDemo : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    carpeta = new CarpetaDemo("contenido");
    db = new SqliteConnection(carpeta->Crear(400).string());
  }
  static void TearDownTestSuite() {
    delete db;
    delete carpeta;
  }
  /// Sum of a money column by invoice, in ten-thousandths.
  static std::map<Clave, std::int64_t> Sumar(const std::string& tabla, const char* columna) {
    std::map<Clave, std::int64_t> sums;
    const auto rs = db->Open("SELECT * FROM " + tabla);
    for (; !rs->Eof(); rs->MoveNext()) sums[LeerClave(*rs)] += rs->Get<Currency>(columna).Units();
    return sums;
  }

  static CarpetaDemo* carpeta;
  static SqliteConnection* db;
};
CarpetaDemo* ContenidoDemo::carpeta = nullptr;
SqliteConnection* ContenidoDemo::db = nullptr;

TEST_F(ContenidoDemo, EveryReferenceExists) {
  std::vector<std::string> sueltas = {
      "Facturas f LEFT JOIN Clientes c ON c.Cod_Empresa = 1 AND c.Codigo = f.Cliente"
      " WHERE c.Codigo IS NULL",
      "Facturas f LEFT JOIN Almacenes a ON a.Cod_Empresa = f.Cod_Empresa AND a.Codigo = f.Almacen"
      " WHERE a.Codigo IS NULL",
      "Facturas_Lineas l LEFT JOIN Impuestos i ON i.Codigo = l.Impuesto WHERE i.Codigo IS NULL",
      "TPV_Tickets_Factura f LEFT JOIN TPV_Tickets t ON t.Cod_Empresa = f.Cod_Empresa"
      " AND t.Cod_Almacen = f.Cod_Almacen AND t.Caja = f.Caja AND t.Fecha = f.Fecha"
      " AND t.Codigo = f.Codigo WHERE t.Codigo IS NULL",
      "Clientes c LEFT JOIN Cadenas n ON n.Cod_Empresa = 1 AND n.Nivel = 10"
      " AND n.Codigo = c.Cad_Nivel_10 WHERE c.Cad_Nivel_10 > 0 AND n.Codigo IS NULL",
      "EDI_Centros_Administrativos ca LEFT JOIN Codigos_Postales cp ON cp.Codigo ="
      " CAST(ca.CodigoPostal AS int) AND cp.Localidad = ca.Localidad"
      " AND cp.Provincia = ca.Provincia WHERE cp.Codigo IS NULL",
      "Facturas WHERE Cod_Empresa = 2 AND Impuestos <> 0",
      "(SELECT Cod_Empresa, Cod_Almacen FROM Pedidos_Proveedores UNION"
      " SELECT Cod_Empresa, Cod_Almacen FROM Entradas) d LEFT JOIN Almacenes a"
      " ON a.Cod_Empresa = d.Cod_Empresa AND a.Codigo = d.Cod_Almacen WHERE a.Codigo IS NULL",
  };
  for (const std::string rol : {"Fiscal", "Receptor", "Pagador", "Comprador"}) {
    const std::string columna = "c.EDI_Rol_" + rol;
    EXPECT_GT(Contar(*db, "Clientes c WHERE " + columna + " <> ''"), 0) << rol;
    sueltas.push_back("Clientes c LEFT JOIN EDI_Centros_Administrativos ca ON ca.Codigo = " +
                      columna + " WHERE " + columna + " <> '' AND ca.Codigo IS NULL");
  }
  for (const std::string& suelta : sueltas) EXPECT_EQ(Contar(*db, suelta), 0) << suelta;
}

TEST_F(ContenidoDemo, TotalsAddUp) {
  auto bases = Sumar("Facturas_Impuestos", "Base");
  auto cuotas = Sumar("Facturas_Impuestos", "Importe");
  auto cobros = Sumar("Facturas_PrevCobros", "Importe");
  auto netos = Sumar(
      "(SELECT f.*, dbo.fn_FE_ImporteNetoLineas(1, f.Cod_Empresa, f.Cod_Ejercicio, f.Serie,"
      " f.Codigo, f.TipoDoc) AS Neto FROM Facturas f) n",
      "Neto");
  const auto rs = db->Open("SELECT * FROM Facturas");
  int facturas = 0;
  for (; !rs->Eof(); rs->MoveNext(), ++facturas) {
    const Clave clave = LeerClave(*rs);
    SCOPED_TRACE(::testing::PrintToString(clave));
    const auto units = [&](const char* campo) { return rs->Get<Currency>(campo).Units(); };
    EXPECT_EQ(units("ImporteB"), Redondo(netos[clave], 100));
    std::int64_t base = units("ImporteB");
    for (const auto& [dto, tipo] : {std::pair("Dto1", "TDto1"), std::pair("Dto2", "TDto2")}) {
      const bool importe = rs->Get<std::int16_t>(tipo) == 1;
      base -= importe ? units(dto) : Redondo(base * units(dto), 100'000'000) / 1'000'000;
    }
    base += units("Importe_Portes");
    EXPECT_EQ(base, bases[clave]);
    EXPECT_EQ(units("Impuestos"), cuotas[clave]);
    EXPECT_EQ(units("Total"), base + cuotas[clave]);
    EXPECT_EQ(units("Total") < 0, std::get<4>(clave) == 1 || units("ImporteB") < 0);
    EXPECT_EQ(cobros[clave], rs->Get<std::int16_t>("FormaPago") == 0 ? 0 : units("Total"));
  }
  EXPECT_EQ(facturas, 400);
}

}  // namespace
}  // namespace kvraedi
