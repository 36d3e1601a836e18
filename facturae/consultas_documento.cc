#include "facturae/consultas_documento.h"

#include "frame/formato.h"
#include "frame/sql.h"

namespace kvraedi::facturae {
namespace {

constexpr std::string_view kUnionTickets =
    " INNER JOIN TPV_Tickets ticket ON ticket.Cod_Empresa = f.Cod_Empresa AND ticket.Cod_Almacen ="
    " f.Cod_Almacen AND ticket.Caja = f.Caja AND ticket.Fecha = f.Fecha AND ticket.Codigo ="
    " f.Codigo";

/// The conditions on the key of a ticket of TPV_Tickets_Factura.
std::string ClaveTicket(const ClaveDocumento& clave, std::int16_t empresa) {
  return Sql(" WHERE f.Cod_Empresa = ", empresa, "   AND f.Cod_Almacen = ", clave.almacenFT,
             "   AND f.Caja = ", clave.cajaFT,
             "   AND f.Fecha = ", SqlTexto{FechaTexto(clave.fechaFT)},
             "   AND f.Codigo = ", clave.codigoFT);
}

struct Rol {
  std::string_view numero;
  std::string_view sufijo;
};

/// The columns of the centre that acts in a role.
std::string ColumnasDelRol(const Rol& rol) {
  const auto [n, s] = rol;
  return Sql(", ca", n, ".Codigo AS Codigo", s, ", ca", n, ".Direccion AS Direccion", s, ", ca", n,
             ".CodigoPostal AS CP", s, ", ca", n, ".Localidad AS Localidad", s, ", ca", n,
             ".Provincia AS Provincia", s, ", pa", n, ".ISO3Codigo AS Pais", s, ", ca", n,
             ".Descripcion AS Descripcion", s);
}

}  // namespace

std::string ConsultaTotales(const ClaveDocumento& clave, std::int16_t empresa) {
  if (clave.EsTicket()) {
    return Sql(" SELECT ticket.total AS total,     1 AS numFacturas   FROM Tpv_Tickets_Factura f ",
               kUnionTickets, "  WHERE f.Cod_Empresa = ", empresa,
               "    AND f.Cod_Almacen = ", clave.almacenFT, "    AND f.Caja = ", clave.cajaFT,
               "    AND f.Fecha = ", SqlTexto{FechaTexto(clave.fechaFT)},
               "    AND f.Codigo = ", clave.codigoFT);
  }
  return Sql(
      " SELECT f.total AS total,     1 AS numFacturas,     f.Cod_Empresa, f.Cod_Ejercicio, f.Serie,"
      " f.TipoDoc  FROM Facturas f   WHERE f.Cod_Empresa = ",
      empresa, "    AND f.codigo = ", clave.codigo, "    AND f.serie = ", clave.serie,
      "    AND f.Cod_Ejercicio = ", clave.ejercicio, "    AND f.TipoDoc = ", clave.tipoDoc);
}

std::string ConsultaPartes(std::int16_t empresa, std::int32_t cliente) {
  std::string sql =
      "  SELECT TOP 1 e.Nombre_1 AS Emp_Nombre1, e.Nombre_2 AS Emp_Nombre2,"
      " e.Direccion AS Emp_Direccion, e.CP AS Emp_Cp, e.Localidad AS Emp_Localidad,"
      " e.Provincia AS Emp_Provincia, e.Pais AS Emp_Pais, e.Telefono AS Emp_Telefono,"
      " e.Fax AS Emp_Fax, e.Nif AS Emp_Nif, e.email, c.nombre, c.Nombre_Comercial, c.Direccion,"
      " c.CP, c.Localidad, c.Provincia, tipo AS CompTipoPersona, c.Nif AS CompNif,"
      " p.ISO3Codigo AS CompPais3, p.ISOCodigo AS CompPais";
  for (const Rol rol :
       {Rol{"1", "Fiscal"}, {"2", "Receptor"}, {"3", "Pagador"}, {"4", "Comprador"}}) {
    sql += ColumnasDelRol(rol);
  }
  SqlAppend(sql,
            "    FROM Empresas e     LEFT JOIN Clientes c ON c.Cod_Empresa = e.Emp_Clientes "
            "    LEFT JOIN EDI_Centros_Administrativos ca1 ON ca1.Codigo = c.EDI_Rol_Fiscal"
            "    LEFT JOIN EDI_Centros_Administrativos ca2 ON ca2.Codigo = c.EDI_Rol_Receptor"
            "    LEFT JOIN EDI_Centros_Administrativos ca3 ON ca3.Codigo = c.EDI_Rol_Pagador"
            "    LEFT JOIN EDI_Centros_Administrativos ca4 ON ca4.Codigo = c.EDI_Rol_Comprador"
            "    LEFT JOIN Paises p ON p.Cod_Pais = c.Cod_Pais "
            "    LEFT JOIN Paises pa1 ON pa1.Cod_Pais = ca1.Cod_Pais "
            "    LEFT JOIN Paises pa2 ON pa2.Cod_Pais = ca2.Cod_Pais "
            "    LEFT JOIN Paises pa3 ON pa3.Cod_Pais = ca3.Cod_Pais "
            "    LEFT JOIN Paises pa4 ON pa4.Cod_Pais = ca4.Cod_Pais "
            "   WHERE e.Codigo = ");
  SqlAppend(sql, empresa);
  SqlAppend(sql, "     AND c.codigo = ");
  SqlAppend(sql, cliente);
  return sql;
}

std::string ConsultaFactura(const ClaveDocumento& clave, std::int16_t empresa) {
  if (clave.EsTicket()) {
    return Sql(
        " SELECT f.Factura_Codigo AS Codigo, f.Factura_Serie AS Serie, f.Factura_Fecha AS Fecha,"
        " ticket.Total, ticket.Total AS ImporteB, 0 AS ImporteImpuesto, 0 AS Descuento1,"
        " 0 AS Descuento2 FROM TPV_Tickets_Factura f ",
        kUnionTickets, ClaveTicket(clave, empresa), " ORDER BY f.Codigo ");
  }
  return Sql(
      " SELECT f.Codigo, f.Serie, f.Fecha, f.Total, f.ImporteB, f.Impuestos AS ImporteImpuesto "
      "   ,ISNULL(f.Dto1,0) AS Descuento1, ISNULL(f.Dto2,0) AS Descuento2 FROM Facturas f "
      " WHERE f.Codigo = ",
      clave.codigo, "   AND f.Serie = ", clave.serie, "   AND f.Cod_Ejercicio = ", clave.ejercicio,
      "   AND f.Cod_Empresa = ", empresa, "   AND f.TipoDoc = ", clave.tipoDoc,
      " ORDER BY f.Codigo ");
}

std::string ConsultaRevision(const ClaveDocumento& clave, std::int16_t empresa) {
  constexpr std::string_view kSelect = "SELECT Revision FROM EDI_Envio_Facturas ";
  constexpr std::string_view kPlataforma = "   AND Cod_EDIPlat = 3   AND Cod_EDITipoMsg = 1";
  if (clave.EsTicket()) {
    return Sql(kSelect, " WHERE Cod_Empresa_FT = ", empresa,
               "   AND Cod_Almacen_FT = ", clave.almacenFT, "   AND Caja_FT = ", clave.cajaFT,
               "   AND Fecha_FT = ", SqlTexto{FechaTexto(clave.fechaFT)},
               "   AND Codigo_FT = ", clave.codigoFT, kPlataforma);
  }
  return Sql(kSelect, " WHERE codigo = ", clave.codigo, "   AND serie = ", clave.serie,
             "   AND Cod_Ejercicio = ", clave.ejercicio, "   AND Cod_Empresa = ", empresa,
             "   AND TipoDoc = ", clave.tipoDoc, kPlataforma);
}

std::string ConsultaImpuestos(const ClaveDocumento& clave, std::int16_t empresa) {
  return Sql(
      " SELECT ISNULL(fi.Importe,0) AS ImporteImpuesto, ISNULL(fi.Base,0) AS Base,"
      " ISNULL(it.Imp_Valor,0) AS Imp_Valor  FROM Facturas f LEFT JOIN Facturas_Impuestos fi"
      " ON f.Codigo = fi.Codigo AND fi.Cod_Ejercicio = f.Cod_Ejercicio AND"
      " fi.Cod_Empresa = f.Cod_Empresa AND fi.Serie = f.Serie and fi.TipoDoc = f.TipoDoc "
      " LEFT JOIN Igic_Tipos it ON it.Cod_Empresa = fi.Cod_Empresa AND it.Tipo = fi.Tipo AND"
      " f.fecha BETWEEN it.FechaI AND it.FechaF  WHERE f.Cod_Empresa = ",
      empresa, " AND f.Cod_Ejercicio = ", clave.ejercicio, " AND f.Serie = ", clave.serie,
      " AND f.Codigo = ", clave.codigo, " AND f.TipoDoc = ", clave.tipoDoc, " ORDER BY f.Codigo ");
}

std::string ConsultaLineas(const ClaveDocumento& clave, const Empresa& empresa) {
  const std::int16_t codigo = empresa.CodigoEmpresa();
  if (clave.EsTicket()) {
    return Sql(
        "  SELECT ISNULL(art.Descripcion,'') AS Descripcion, ISNULL(flin.Cantidad,0) AS Unidades,"
        " ISNULL(flin.Pvp,0) AS Precio, ISNULL(flin.Pvp * flin.Cantidad,0) AS CostoTotal, "
        " ISNULL(flin.Dto,0) AS PDescuento, ISNULL(flin.Importe_sinDto,0) - ISNULL(flin.Importe,0)"
        " AS ImporteDescuento, ISNULL(flin.Cod_Articulo,0) AS Cod_Articulo, "
        " ISNULL(it.Imp_Valor,0) AS ValorImpuesto, ISNULL(flin.PA,0) AS AplicaPromocion,"
        " -1 AS Tipo_Venta, -1 AS Tipo_Impresion FROM Tpv_Tickets_Factura f "
        " INNER JOIN Clientes c ON c.Cod_Empresa =",
        empresa.EmpresaClientes(),
        " AND f.Cliente = c.Codigo  LEFT JOIN TPV_Tickets_Lineas flin ON"
        " flin.Cod_Empresa = f.Cod_Empresa AND flin.Cod_Almacen = f.Cod_Almacen AND"
        " flin.Caja = f.Caja AND flin.Fecha = f.Fecha AND flin.Codigo = f.Codigo"
        " LEFT JOIN Igic_Tipos it ON it.Cod_Empresa = f.Cod_Empresa AND it.Tipo = flin.TipoImpuesto"
        " AND f.fecha BETWEEN it.FechaI AND it.FechaF  LEFT JOIN Articulos art ON"
        " art.Cod_Empresa =",
        empresa.EmpresaArticulos(), " AND art.Codigo = flin.Cod_Articulo",
        ClaveTicket(clave, codigo), " AND flin.Cod_Articulo <> -1  ORDER BY f.codigo");
  }
  return Sql(
      "  SELECT f.codigo, ISNULL(flin.Descripcion,'') AS Descripcion,"
      " ISNULL(flin.Unidades,0) AS Unidades, ISNULL(flin.Precio,0) AS Precio,"
      " ISNULL(flin.Precio * flin.Unidades,0) AS CostoTotal, "
      " ISNULL(flin.PDescuento,0) AS PDescuento,"
      "ISNULL((flin.PDescuento/100)*flin.Precio * flin.Unidades,0) AS ImporteDescuento,"
      " ISNULL(flin.Cod_Articulo,0) AS Cod_Articulo,  ISNULL(it.Imp_Valor,0) AS ValorImpuesto,"
      " 0 AS AplicaPromocion, c.Tipo_Venta, c.Tipo_Impresion     FROM Clientes c "
      "     INNER JOIN Facturas f ON c.Cod_Empresa =",
      empresa.EmpresaClientes(),
      " AND f.Cliente = c.Codigo      LEFT JOIN Facturas_Lineas flin "
      "          ON  f.Cod_Ejercicio = flin.Cod_Ejercicio "
      "          AND f.Cod_Empresa = flin.Cod_Empresa           AND f.Serie = flin.Serie "
      "          AND f.Codigo = flin.Codigo           AND f.TipoDoc = flin.TipoDoc "
      " LEFT JOIN Igic_Tipos it ON it.Cod_Empresa = f.Cod_Empresa AND it.Tipo = flin.Impuesto AND"
      " f.fecha BETWEEN it.FechaI AND it.FechaF      WHERE f.codigo = ",
      clave.codigo, "       AND f.serie = ", clave.serie,
      "       AND f.Cod_Ejercicio = ", clave.ejercicio, "       AND f.Cod_Empresa = ", codigo,
      "       AND f.TipoDoc = ", clave.tipoDoc,
      "       AND ((c.Tipo_Impresion = 0 AND c.Tipo_Venta = 1 AND flin.Cod_Articulo = -1) OR"
      " (flin.Cod_Articulo <> -1))     ORDER BY f.codigo");
}

std::string ConsultaAnexos(const ClaveDocumento& clave, std::int16_t empresa) {
  constexpr std::string_view kSelect =
      " SELECT Stream, NombreAnexo, DescripcionAnexo  FROM EDI_Anexos f";
  constexpr std::string_view kCondiciones =
      " AND f.Cod_EDIPlat = 3 AND f.Cod_EDITipoMsg = 1 AND f.Stream <> ''";
  if (clave.EsTicket()) {
    return Sql(kSelect, " WHERE Cod_Empresa_FT = ", empresa,
               " AND Cod_Almacen_FT = ", clave.almacenFT, " AND Caja_FT = ", clave.cajaFT,
               " AND Fecha_FT = ", SqlTexto{FechaTexto(clave.fechaFT)},
               " AND Codigo_FT = ", clave.codigoFT, kCondiciones);
  }
  return Sql(kSelect, " WHERE f.Cod_Empresa = ", empresa,
             " AND f.Cod_Ejercicio = ", clave.ejercicio, " AND f.Serie = ", clave.serie,
             " AND f.Codigo = ", clave.codigo, " AND f.TipoDoc = ", clave.tipoDoc, kCondiciones);
}

}  // namespace kvraedi::facturae
