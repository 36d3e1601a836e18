#include "kvraedi/clsPedidosProvEmision.h"

#include <filesystem>
#include <memory>
#include <string_view>

#include "frame/formato.h"
#include "frame/numero.h"
#include "frame/ruta.h"
#include "frame/sesion.h"
#include "frame/sql.h"
#include "kvraedi/error.h"
#include "orders/escritor_campos.h"
#include "orders/valores_mensaje.h"

namespace kvraedi {
namespace {

constexpr const char* kOrigen = "clsPedidosProvEmision.Exportar";

/// How a supplier takes orders; 0 is not set.
struct Plataforma {
  std::int16_t plataforma = 0;
  std::int16_t mensaje = 0;
};

constexpr std::int16_t kPlataformaVersiones = 4;
constexpr std::int16_t kMensajeV4 = 1;
constexpr std::int16_t kMensajeV3 = 2;
constexpr std::int16_t kPlataformaEan = 5;

std::unique_ptr<Recordset> AbrirPedido(std::int32_t pedido) {
  const Empresa& empresa = EmpresaActual();
  auto rs = ConexionActual().Open(
      Sql("SELECT pp.Codigo, pp.Cod_Proveedor, pp.Fecha, ppl.Ref, ppl.Unidades, ppl.Bultos AS"
          " Cajas, ppl.Palets, pp.Fecha_Esperada, ppl.Cod_Articulo, pp.Cod_Almacen",
          ", ISNULL(acb.Cod_Barras, '') AS EAN, ppl.Descripcion", " FROM Pedidos_Proveedores pp",
          " INNER JOIN Pedidos_Proveedores_Lineas ppl",
          " ON ppl.Cod_Empresa = pp.Cod_Empresa AND ppl.Codigo = pp.Codigo",
          " LEFT JOIN Articulos_CBarras acb", " ON acb.Cod_Empresa =", empresa.EmpresaArticulos(),
          " AND acb.Cod_Articulo = ppl.Cod_Articulo AND acb.Principal = 1",
          " WHERE pp.Cod_Empresa = ", empresa.CodigoEmpresa(), " AND pp.Codigo = ", pedido));
  if (rs->Eof()) {
    throw Error(clsPedidosProvEmision::kErrorSinPedido, kOrigen,
                "No existe ningun pedido con el código:" + std::to_string(pedido));
  }
  return rs;
}

Plataforma LeerPlataforma(std::int32_t proveedor) {
  const auto rs = ConexionActual().Open(
      Sql("SELECT Cod_EDIPlat, Cod_EDITipoMsg FROM Proveedores WHERE Codigo = ", proveedor,
          " AND Cod_Empresa = ", EmpresaActual().EmpresaProveedores()));
  Plataforma leida;
  if (!rs->Eof()) {
    leida.plataforma = rs->GetOrEmpty<std::int16_t>("Cod_EDIPlat");
    leida.mensaje = rs->GetOrEmpty<std::int16_t>("Cod_EDITipoMsg");
  }
  if (leida.plataforma == 0 || leida.mensaje == 0) {
    throw Error(clsPedidosProvEmision::kErrorSinPlataforma, kOrigen,
                "No se ha definido ninguna plataforma de exportación para el proveedor: " +
                    std::to_string(proveedor));
  }
  return leida;
}

std::string LeerConsignacion(std::int16_t almacen) {
  const auto rs = ConexionActual().Open(
      Sql("SELECT PedProv_Consignacion FROM Almacenes WHERE Codigo = ", almacen,
          " AND Cod_Empresa = ", EmpresaActual().CodigoEmpresa()));
  return rs->Eof() ? "" : rs->GetOrEmpty<std::string>("PedProv_Consignacion");
}

std::string Fecha(const Recordset& pedido) {
  return pedido.IsNull("Fecha") ? "" : FechaTexto(pedido.Get<FechaHora>("Fecha"));
}

std::string UnidadesEnteras(const Recordset& pedido) {
  return TextoDe(RedondearAlPar(pedido.Get<double>("Unidades"), 0));
}

std::string_view Texto(const Recordset& pedido, std::string_view campo) {
  return pedido.GetOrEmpty<std::string_view>(campo);
}

void EscribirV4(Recordset& pedido, std::string_view consignacion, EscritorCampos& fichero) {
  fichero.Registro({"V4.0", std::to_string(pedido.Get<std::int32_t>("Codigo")), consignacion,
                    Fecha(pedido), "P", "0"});
  for (; !pedido.Eof(); pedido.MoveNext()) {
    fichero.Registro({Texto(pedido, "Ref"), UnidadesEnteras(pedido), Fecha(pedido)});
  }
}

void EscribirV3(Recordset& pedido, std::string_view consignacion, EscritorCampos& fichero) {
  fichero.Registro({"V3.0", std::to_string(pedido.Get<std::int32_t>("Codigo")), consignacion,
                    Fecha(pedido), ""});
  for (; !pedido.Eof(); pedido.MoveNext()) {
    fichero.Registro({Texto(pedido, "Ref"), UnidadesEnteras(pedido),
                      TextoDe(pedido.Get<double>("Palets")), "0", "0", "", "", "1"});
  }
}

void ExportarEan(Recordset& pedido, const std::filesystem::path& ruta) {
  EscritorCampos fichero(ruta, kTabulador);
  for (; !pedido.Eof(); pedido.MoveNext()) {
    fichero.Registro({Texto(pedido, "Ref"), Texto(pedido, "EAN"),
                      TextoDe(pedido.Get<double>("Unidades")), Texto(pedido, "Descripcion")});
  }
  fichero.Cerrar();
}

void ExportarVersion(std::int16_t mensaje, Recordset& pedido, const std::filesystem::path& ruta) {
  if (mensaje != kMensajeV4 && mensaje != kMensajeV3) return;
  const std::string consignacion = LeerConsignacion(pedido.Get<std::int16_t>("Cod_Almacen"));
  EscritorCampos fichero(ruta, kTabulador);
  (mensaje == kMensajeV4 ? EscribirV4 : EscribirV3)(pedido, consignacion, fichero);
  fichero.Cerrar();
}

void ExportarPedido(std::int32_t codigo, const std::filesystem::path& ruta) {
  const auto pedido = AbrirPedido(codigo);
  const Plataforma plataforma = LeerPlataforma(pedido->Get<std::int32_t>("Cod_Proveedor"));
  switch (plataforma.plataforma) {
    case kPlataformaVersiones:
      return ExportarVersion(plataforma.mensaje, *pedido, ruta);
    case kPlataformaEan:
      return ExportarEan(*pedido, ruta);
    default:
      throw Error(
          clsPedidosProvEmision::kErrorPlataforma, kOrigen,
          "La plataforma definina no es valida para esta función:" + std::to_string(codigo));
  }
}

}  // namespace

void clsPedidosProvEmision::Exportar(const std::string& strFilePath) {
  try {
    ExportarPedido(codigoPedido_, RutaDe(strFilePath));
  } catch (const Error& error) {
    throw Error(error.Number(), kOrigen, "(" + error.Description() + ") " + kOrigen);
  }
}

}  // namespace kvraedi
