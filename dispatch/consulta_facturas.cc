#include "dispatch/consulta_facturas.h"

#include "frame/sql.h"

namespace kvraedi {
namespace {

constexpr std::string_view kSeleccion =
    "SELECT Tipo, Serie, Codigo, Cliente, Almacen, Total, TipoDoc, ExcluirEDI, Cod_Ejercicio, Hora,"
    " fecha,"
    " Cli_EDI_GLN, IntraCom, Cli_Nombre, Cli_Nif, EDI_Tx, Alm_Nombre, nombrePlat, nombreMsg,"
    " Cod_Empresa_FT, Cod_Almacen_FT, Caja_FT, Fecha_FT, Codigo_FT,"
    " anexos"
    " FROM(";

constexpr std::string_view kColumnasFactura =
    " SELECT DISTINCT 0 AS Tipo, f.Serie, f.Codigo, f.Cliente, f.Almacen,"
    " f.Total,f.TipoDoc,f.ExcluirEDI,f.Cod_Ejercicio, f.Hora,f.fecha,";

constexpr std::string_view kColumnasTicket =
    " SELECT DISTINCT 1 AS Tipo, ft.Factura_Serie AS Serie, ft.Factura_Codigo AS Codigo,"
    " ft.Cliente, ft.Factura_Almacen AS Almacen,"
    " ticket.Total,ft.Factura_TipoDoc AS TipoDoc,ISNULL(ft.ExcluirEDI,0) AS ExcluirEDI,"
    " 0 AS Cod_Ejercicio, ft.Hora, ft.Factura_Fecha AS fecha,";

constexpr std::string_view kColumnasComunes =
    " c.EDI_GLN AS Cli_EDI_GLN, c.IntraCom, c.Nombre AS Cli_Nombre, c.Nif AS Cli_Nif,"
    " ISNULL(ef.Cod_EDIPlat, 0) AS EDI_Tx,"
    " alm.Nombre AS Alm_Nombre, plat.Nombre AS nombrePlat, msg.Nombre AS nombreMsg,";

constexpr std::string_view kClaveVacia =
    " 0 AS Cod_Empresa_FT, 0 AS Cod_Almacen_FT, 0 AS Caja_FT, '' AS Fecha_FT, 0 AS Codigo_FT,"
    " COUNT(anex.Serie) anexos"
    " FROM Facturas f"
    " INNER JOIN Clientes c ON c.Cod_Empresa =";

constexpr std::string_view kClaveTicket =
    " ft.Cod_Empresa AS Cod_Empresa_FT, ft.Cod_Almacen AS Cod_Almacen_FT, ft.Caja AS Caja_FT,"
    " ft.Fecha AS Fecha_FT, ft.Codigo AS Codigo_FT,"
    " COUNT(anex.Serie) anexos"
    " FROM TPV_Tickets_Factura ft"
    " INNER JOIN Clientes c ON c.Cod_Empresa =";

constexpr std::string_view kUnionesFactura =
    " AND f.Cliente = c.Codigo"
    " INNER JOIN Empresas e ON e.Codigo = f.Cod_Empresa"
    " INNER JOIN Almacenes alm ON alm.Cod_Empresa = f.Cod_Empresa AND alm.Codigo = f.Almacen";

constexpr std::string_view kUnionesTicket =
    " AND ft.Cliente = c.Codigo"
    " INNER JOIN TPV_Tickets ticket ON ticket.Cod_Empresa = ft.Cod_Empresa"
    " AND ticket.Cod_Almacen = ft.Cod_Almacen AND ticket.Caja = ft.Caja"
    " AND ticket.Fecha = ft.Fecha AND ticket.Codigo = ft.Codigo"
    " INNER JOIN Empresas e ON e.Codigo = ft.Cod_Empresa"
    " INNER JOIN Almacenes alm ON alm.Cod_Empresa = ft.Cod_Empresa AND alm.Codigo = ft.Cod_Almacen";

constexpr std::string_view kUnionesComunes =
    " LEFT JOIN Paises p ON c.Cod_Pais = p.Cod_Pais"
    " LEFT JOIN EDI_Plataforma plat ON plat.Cod_EDIPlat = c.Cod_EDIPlat_Fra"
    " LEFT JOIN EDI_TipoMsg msg ON msg.Cod_EDIPlat = c.Cod_EDIPlat_Fra"
    " AND msg.Cod_EDITipoMsg = c.Cod_EDITipoMsg_Fra"
    " LEFT JOIN EDI_Anexos anex ON anex.Cod_EDIPlat = c.Cod_EDIPlat_Fra"
    " AND anex.Cod_EDITipoMsg = c.Cod_EDITipoMsg_Fra ";

constexpr std::string_view kAnexosFactura =
    " AND anex.Cod_Empresa = f.Cod_Empresa AND anex.Cod_Ejercicio =f.Cod_Ejercicio"
    " AND anex.Serie =f.Serie AND anex.Codigo =f.Codigo AND anex.TipoDoc =f.TipoDoc ";

constexpr std::string_view kAnexosTicket =
    " AND anex.Cod_Empresa_FT = ft.Cod_Empresa AND anex.Cod_Almacen_FT =ft.Cod_Almacen"
    " AND anex.Caja_FT =ft.Caja AND anex.Fecha_FT =ft.Fecha AND anex.Codigo_FT =ft.Codigo ";

constexpr std::string_view kEnvioFactura =
    " ON f.Cod_Empresa = ef.Cod_Empresa AND f.Cod_Ejercicio = ef.Cod_Ejercicio"
    " AND f.Serie = ef.Serie AND f.Codigo = ef.Codigo AND f.TipoDoc = ef.TipoDoc"
    " WHERE f.Cod_Empresa =";

constexpr std::string_view kEnvioTicket =
    " ON ft.Cod_Empresa = ef.Cod_Empresa_FT AND ft.Cod_Almacen = ef.Cod_Almacen_FT"
    " AND ft.Caja = ef.Caja_FT AND ft.Fecha = ef.Fecha_FT AND ft.Codigo = ef.Codigo_FT"
    " WHERE ft.Cod_Empresa =";

constexpr std::string_view kGrupoFactura =
    " GROUP BY f.Serie, f.Codigo, f.Cliente, f.Almacen,f.Total,f.TipoDoc,f.ExcluirEDI,"
    "f.Cod_Ejercicio,f.fecha,f.Hora, "
    " c.EDI_GLN, c.IntraCom, c.Nombre , c.Nif, ISNULL(p.ISOCodigo, ''), c.Telefono , "
    " ISNULL(ef.Cod_EDIPlat, 0), alm.Nombre , plat.Nombre, msg.Nombre";

constexpr std::string_view kGrupoTicket =
    " GROUP BY ft.Factura_Serie, ft.Factura_Codigo, ft.Cliente, ft.Factura_Almacen,ticket.Total,"
    "ft.Factura_TipoDoc,ft.ExcluirEDI,ft.Factura_Fecha,ft.Hora, "
    " c.EDI_GLN, c.IntraCom, c.Nombre , c.Nif, ISNULL(p.ISOCodigo, ''), c.Telefono , "
    " e.Nif , ISNULL(ef.Cod_EDIPlat, 0), alm.Nombre , plat.Nombre, msg.Nombre,"
    " ft.Cod_Empresa, ft.Cod_Almacen, ft.Caja, ft.Fecha, ft.Codigo";

constexpr std::string_view kOrden = " ORDER BY T.Fecha DESC, T.Serie, T.Codigo, T.TipoDoc, T.Hora";

std::string_view UnionEstado(Estado estado) {
  return estado == Estado::kGeneradas ? " INNER JOIN EDI_Envio_Facturas ef"
                                      : " LEFT JOIN EDI_Envio_Facturas ef";
}

std::string_view CondicionEstado(Estado estado) {
  return estado == Estado::kPendientes ? " AND ISNULL(ef.Cod_EDIPlat,0) = 0" : "";
}

std::string_view CondicionTipo(TipoFactura tipo) {
  switch (tipo) {
    case TipoFactura::kDirecta:
      return " WHERE Tipo = 0";
    case TipoFactura::kTicket:
      return " WHERE Tipo = 1";
    default:
      return "";
  }
}

std::string CondicionCliente(const FiltroFacturas& filtro) {
  std::string condicion;
  for (std::size_t nivel = 0; nivel < kNivelesCadena; ++nivel) {
    if (filtro.cadena[nivel] <= 0) continue;
    condicion += Sql(" AND c.Cad_Nivel_", nivel + 1, " = ", filtro.cadena[nivel]);
  }
  if (filtro.cliente >= 1) condicion += Sql(" AND c.Codigo = ", filtro.cliente);
  return condicion;
}

}  // namespace

std::string ConsultaFacturas(const FiltroFacturas& filtro, std::int16_t empresa,
                             std::int16_t empresaClientes) {
  const SqlTexto desde{filtro.fechaInicial};
  const SqlTexto hasta{filtro.fechaFinal};
  const std::string_view envio = UnionEstado(filtro.estado);
  const std::string condiciones =
      std::string(CondicionEstado(filtro.estado)) + CondicionCliente(filtro);
  return Sql(kSeleccion, kColumnasFactura, kColumnasComunes, kClaveVacia, empresaClientes,
             kUnionesFactura, kUnionesComunes, kAnexosFactura, envio, kEnvioFactura, empresa,
             " AND f.Fecha BETWEEN ", desde, " AND ", hasta, condiciones, kGrupoFactura, " UNION ",
             kColumnasTicket, kColumnasComunes, kClaveTicket, empresaClientes, kUnionesTicket,
             kUnionesComunes, kAnexosTicket, envio, kEnvioTicket, empresa,
             " AND ft.Factura_Fecha BETWEEN ", desde, " AND ", hasta, condiciones, kGrupoTicket,
             ")T", CondicionTipo(filtro.tipo), kOrden);
}

}  // namespace kvraedi
