#include "orders/crear_compras.h"

#include <charconv>
#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "frame/numero.h"
#include "frame/puertos.h"
#include "frame/sesion.h"
#include "frame/sql.h"
#include "orders/codigo_gln.h"
#include "orders/error_desadv.h"

namespace kvraedi::desadv {
namespace {

constexpr std::string_view kRutina = "CrearComprasMini";

struct Albaran {
  std::string numero;
  FechaHora fecha;
  std::string gln;
  std::int16_t almacen = 0;
};

std::int32_t ProveedorCentralizado(const std::filesystem::path& ajustes) {
  const std::string valor =
      SuiteActual()
          .LeerIni(EntornoActual(), ajustes, "OrmoPCCom", "ProveedorCentralizado")
          .value_or("");
  std::int32_t proveedor = 0;
  const char* const fin = valor.data() + valor.size();
  const auto [leido, error] = std::from_chars(valor.data(), fin, proveedor);
  if (error != std::errc{} || leido != fin || proveedor < 1) {
    Fallar("El Proveedor Centralizado no está configurado");
  }
  return proveedor;
}

void ComprobarCongruencia(const Tablas& tablas, Connection& conexion, FicheroLog& log) {
  const auto rs =
      conexion.Open(Sql("SELECT COUNT(*) AS Existe", " FROM ", tablas.cabecera, " alb",
                        " FULL OUTER JOIN ", tablas.lineas, " lin", " ON lin.Doc_Num = alb.Doc_Num",
                        " WHERE alb.Doc_Num IS NULL OR lin.Doc_Num IS NULL"));
  if (rs->Get<std::int64_t>("Existe") == 0) return;
  constexpr std::string_view kTexto = "Tablas de Pedidos Incongruentes";
  log.Escribir(0, kRutina, kTexto);
  Fallar(std::string(kTexto));
}

std::vector<Albaran> LeerAlbaranes(const Tablas& tablas, Connection& conexion) {
  const auto rs = conexion.Open(
      Sql("SELECT alb.Doc_Num, alb.Fecha, alb.GLN_Almacen, ISNULL(alm.Codigo, 0) AS Cod_Almacen",
          " FROM ", tablas.cabecera, " alb", " LEFT JOIN Almacenes alm ON alm.Cod_Empresa =",
          EmpresaActual().CodigoEmpresa(), " AND alm.EDI_GLN = alb.GLN_Almacen"));
  std::vector<Albaran> albaranes;
  std::set<std::string> numeros;
  for (; !rs->Eof(); rs->MoveNext()) {
    Albaran albaran{rs->Get<std::string>("Doc_Num"), rs->GetOrEmpty<FechaHora>("Fecha"),
                    rs->GetOrEmpty<std::string>("GLN_Almacen"),
                    rs->Get<std::int16_t>("Cod_Almacen")};
    if (!numeros.insert(albaran.numero).second) {
      Fallar("El GLN " + albaran.gln + " del albarán " + albaran.numero +
             " es el de más de un almacén.");
    }
    albaranes.push_back(std::move(albaran));
  }
  return albaranes;
}

void AnotarDesconocidos(const Tablas& tablas, Connection& conexion, FicheroLog& log) {
  const auto rs = conexion.Open(
      Sql("SELECT lin.Doc_Num, lin.Cod_Articulo FROM ", tablas.lineas,
          " lin LEFT JOIN Articulos a ON a.Cod_Empresa =", EmpresaActual().EmpresaArticulos(),
          " AND a.Codigo = lin.Cod_Articulo WHERE a.Codigo IS NULL"));
  for (; !rs->Eof(); rs->MoveNext()) {
    log.Escribir(
        0, kRutina,
        "Línea omitida, el artículo no existe. Albarán: " + rs->Get<std::string>("Doc_Num") +
            ", artículo: " + rs->Get<std::string>("Cod_Articulo"));
  }
}

/// All of them before the first is handed over: the suite works on the same connection.
std::vector<LineaCompraMini> LeerLineas(const Albaran& albaran, const Tablas& tablas,
                                        Connection& conexion) {
  const auto rs = conexion.Open(
      Sql("SELECT lin.*", " FROM ", tablas.lineas, " lin ",
          " INNER JOIN Articulos a ON a.Cod_Empresa =", EmpresaActual().EmpresaArticulos(),
          " AND a.Codigo = lin.Cod_Articulo", " WHERE lin.Doc_Num = ", SqlTexto{albaran.numero},
          " ORDER BY a.Descripcion"));
  const int articulo = rs->Field("Cod_Articulo");
  const int unidades = rs->Field("Unidades");
  const int caducidad = rs->Field("LoteCaducidad");
  const int lote = rs->Field("LoteNro");
  std::vector<LineaCompraMini> lineas;
  for (; !rs->Eof(); rs->MoveNext()) {
    lineas.push_back({rs->Get<std::int32_t>(articulo), rs->Get<Currency>(unidades),
                      rs->Get<FechaHora>(caducidad), rs->Get<std::string>(lote)});
  }
  return lineas;
}

FechaHora Hoy() {
  FechaHora hoy = EntornoActual().Now();
  hoy.hour = hoy.minute = hoy.second = 0;
  return hoy;
}

/// A second look for the warehouse, whose GLN may be stored with dots.
void BuscarAlmacen(Albaran& albaran) {
  const auto codigos = CodigosSinPuntos("Almacenes", EmpresaActual().CodigoEmpresa(), albaran.gln);
  if (codigos.size() == 1) albaran.almacen = Estrechar<std::int16_t>(codigos.front());
}

void ComprobarAlbaran(const Albaran& albaran, FicheroLog& log) {
  if (albaran.almacen == 0) {
    log.Escribir(0, kRutina,
                 "Albarán: " + albaran.numero + ", GLN de almacén desconocido: " + albaran.gln);
    Fallar("El GLN de Almacén no se encuentran en el sistema.");
  }
  if (albaran.fecha == FechaHora()) Fallar("El albarán " + albaran.numero + " no tiene fecha.");
}

CompraHecha CrearCompra(const Albaran& albaran, const Tablas& tablas, std::int32_t proveedor) {
  const auto& conexion = SesionActual().conexion;
  const auto compra = SuiteActual().NuevaCompraMini(conexion, SesionActual().empresa);
  compra->PonerCabecera({.ejercicio = albaran.fecha.year,
                         .proveedor = proveedor,
                         .almacen = albaran.almacen,
                         .fecha = Hoy(),
                         .documento = albaran.numero,
                         .usuario = Entero<std::int16_t>(ParametroTexto("UsuarioActual"))});
  const std::int32_t codigo = compra->NuevoCodigo();
  for (const auto& linea : LeerLineas(albaran, tablas, *conexion)) compra->AgregarLinea(linea);
  compra->Guardar();
  return {albaran.fecha.year, codigo, albaran.numero};
}

}  // namespace

ComprasHechas CrearComprasMini(const Tablas& tablas, const std::filesystem::path& ajustes,
                               FicheroLog& log) {
  log.Escribir(0, kRutina, "Inicio Creación CompraMini");
  const std::int32_t proveedor = ProveedorCentralizado(ajustes);
  Connection& conexion = ConexionActual();
  ComprobarCongruencia(tablas, conexion, log);
  auto albaranes = LeerAlbaranes(tablas, conexion);
  AnotarDesconocidos(tablas, conexion, log);
  ComprasHechas hechas;
  for (Albaran& albaran : albaranes) {
    if (albaran.almacen == 0) BuscarAlmacen(albaran);
    ComprobarAlbaran(albaran, log);
    hechas.ultima = CrearCompra(albaran, tablas, proveedor);
    ++hechas.albaranes;
  }
  return hechas;
}

}  // namespace kvraedi::desadv
