#include "seres/consultas_invoic.h"

#include "frame/sql.h"

namespace kvraedi::invoic {

std::string ConsultaFactura(const ClaveFactura& clave, std::int16_t empresaClientes,
                            std::int16_t cliente) {
  return Sql(
      " SELECT f.*, c.EDI_GLN AS Cli_EDI_GLN, c.IntraCom, c.Nombre AS Cli_Nombre,"
      " c.Direccion AS Cli_Direccion, c.CP AS Cli_Cp,"
      " c.Localidad AS Cli_Localidad, c.Provincia AS Cli_Provincia,"
      " ISNULL(p.ISOCodigo, '') AS Cli_Pais, c.Telefono AS Cli_Telefono, c.Fax AS Cli_Fax,"
      " c.Nif AS Cli_Nif,"
      " dbo.fn_FE_ImporteNetoLineas(1, f.Cod_Empresa, f.Cod_Ejercicio, f.Serie, f.Codigo,"
      " f.TipoDoc) AS ImporteNetoLineas,"
      " dbo.fn_FE_ImporteBrutoLineas(1, f.Cod_Empresa, f.Cod_Ejercicio, f.Serie, f.Codigo,"
      " f.TipoDoc) AS ImporteBrutoLineas,"
      " dbo.fn_FE_PrevCobros(1, f.Cod_Empresa, f.Cod_Ejercicio, f.Serie, f.Codigo, f.TipoDoc)"
      " AS PrevCobros,"
      " e.Nombre_1 AS Emp_Nombre1, e.Nombre_2 AS Emp_Nombre2, e.Direccion AS Emp_Direccion,"
      " e.CP AS Emp_Cp, e.Localidad AS Emp_Localidad,"
      " e.Provincia AS Emp_Provincia, e.Pais AS Emp_Pais, e.Telefono AS Emp_Telefono,"
      " e.Fax AS Emp_Fax, e.Nif AS Emp_Nif, ISNULL(ef.Cod_EDIPlat, 0) AS EDI_Tx,"
      " ISNULL(ef.EDIFichero,'') AS NombreFichero"
      " FROM Clientes c"
      " INNER JOIN Facturas f"
      " ON c.Cod_Empresa =",
      empresaClientes,
      " AND f.Cliente = c.Codigo"
      " INNER JOIN Empresas e"
      " ON e.Codigo = f.Cod_Empresa"
      " LEFT JOIN Paises p"
      " ON c.Cod_Pais = p.Cod_Pais"
      " LEFT JOIN EDI_Envio_Facturas ef"
      " ON f.Cod_Empresa = ef.Cod_Empresa AND f.Cod_Ejercicio = ef.Cod_Ejercicio"
      " AND f.Serie = ef.Serie AND f.Codigo = ef.Codigo AND f.TipoDoc = ef.TipoDoc"
      " WHERE f.Cod_Empresa =",
      clave.empresa, " AND c.Codigo = ", cliente,
      " "
      " AND f.Cod_Ejercicio =",
      clave.ejercicio, " AND f.Serie =", clave.serie, " AND f.Codigo =", clave.codigo,
      " AND f.TipoDoc =", clave.tipoDoc, " ORDER BY f.Fecha, f.Serie, f.Codigo, f.TipoDoc, f.Hora");
}

std::string ConsultaLineas(const ClaveFactura& clave, std::int16_t empresaClientes) {
  return Sql(
      "SELECT fl.Num_Linea, fl.Cod_Articulo, fl.Descripcion, fl.Peso, fl.PrecioG,"
      " fl.Precio, fl.Unidades, c.IntraCom, fl.Bultos, fl.Descripcion,"
      " fl.PDescuento, fl.Descuento, fl.Impuesto"
      " FROM Facturas f"
      " INNER JOIN Facturas_Lineas fl"
      " ON f.Cod_Empresa = fl.Cod_Empresa AND f.Cod_Ejercicio = fl.Cod_Ejercicio"
      " AND f.Serie = fl.Serie AND f.Codigo = fl.Codigo AND f.TipoDoc = fl.TipoDoc"
      " INNER JOIN Clientes c"
      " ON c.Cod_Empresa =",
      empresaClientes,
      " AND f.Cliente = c.Codigo"
      " WHERE f.Cod_Empresa = ",
      clave.empresa, " AND f.Cod_Ejercicio = ", clave.ejercicio, " AND f.Serie = ", clave.serie,
      " AND f.Codigo = ", clave.codigo, " AND f.TipoDoc = ", clave.tipoDoc,
      " ORDER BY fl.Num_Linea");
}

std::string ConsultaImpuestos(const ClaveFactura& clave) {
  return Sql(
      "SELECT Base, Tipo, Importe"
      " FROM Facturas_Impuestos f"
      " WHERE f.Cod_Empresa = ",
      clave.empresa, " AND f.Cod_Ejercicio = ", clave.ejercicio, " AND f.Serie = ", clave.serie,
      " AND f.Codigo = ", clave.codigo, " AND f.TipoDoc = ", clave.tipoDoc,
      " AND Tipo > 0"
      " ORDER BY f.Tipo");
}

std::string ConsultaVencimientos(const ClaveFactura& clave) {
  return Sql(
      "SELECT Fecha_Vto, Importe"
      " FROM Facturas_PrevCobros"
      " WHERE Cod_Empresa = ",
      clave.empresa, " AND Cod_Ejercicio = ", clave.ejercicio, " AND Serie = ", clave.serie,
      " AND Codigo = ", clave.codigo, " AND TipoDoc = ", clave.tipoDoc, " ORDER BY Apunte");
}

std::string ConsultaEnvio(const std::string& fichero) {
  return Sql("SELECT EDIFichero FROM EDI_Envio_Facturas WHERE EDIFichero = ", SqlTexto{fichero});
}

std::string InsertarEnvio(const ClaveFactura& clave, const std::string& identificador,
                          const std::string& fichero) {
  return Sql(
      "INSERT INTO EDI_Envio_Facturas (Cod_EDIPlat, Cod_EDITipoMsg, IdentificadorMsg, Cod_Empresa,"
      " Cod_Ejercicio, Serie, Codigo, TipoDoc, EDIFichero) VALUES (2, 1, ",
      SqlTexto{identificador}, ", ", clave.empresa, ", ", clave.ejercicio, ", ", clave.serie, ", ",
      clave.codigo, ", ", clave.tipoDoc, ",", SqlTexto{fichero}, ")");
}

}  // namespace kvraedi::invoic
