#include "seres/consultas_coacsu.h"

#include "frame/sql.h"

namespace kvraedi::coacsu {

std::string ConsultaResumen(const Seleccion& seleccion) {
  return Sql(
      " SELECT c.Cta_Bancaria, f.FormaPago, f.ImporteB, (f.Dto1 + f.Dto2) Dto, f.Impuestos,"
      " f.Total, MIN(af.Fecha) FechaInicio, MAX(af.Fecha) FechaFin, f.Ent_Nombre Nombre,"
      " f.Ent_Direccion Direccion, f.Ent_Localidad Localidad, f.Ent_Provincia Provincia,"
      " f.Ent_Cp Cp, f.Ent_Pais Pais, f.Ent_Nif Nif, f.Ent_Telefono Telefono, f.Ent_Fax Fax,"
      " f.Ent_Contacto Contacto "
      " FROM Albaranes_F af "
      " LEFT JOIN Facturas f "
      " ON f.Cod_Ejercicio = af.Cod_Ejercicio AND f.Cod_Empresa = af.Cod_Empresa"
      " AND f.Serie = af.Serie AND f.Codigo = af.Factura_Codigo AND f.Fecha = af.Fecha"
      " INNER JOIN Clientes c ON f.Cliente = c.Codigo "
      " LEFT JOIN Albaranes_F_Impuestos afi "
      " ON af.Cod_Ejercicio = afi.Cod_Ejercicio AND af.Cod_Empresa = afi.Cod_Empresa"
      " AND af.Serie = afi.Serie AND af.Codigo  = afi.Codigo "
      " WHERE f.TipoFactura = 2 AND c.Codigo = ",
      seleccion.cliente, " AND f.Fecha BETWEEN ", SqlTexto{seleccion.fechaInicial}, " AND ",
      SqlTexto{seleccion.fechaFinal},
      " GROUP BY Cta_Bancaria, f.FormaPago, f.ImporteB, (f.Dto1 + f.Dto2), f.Impuestos, f.Total,"
      " f.Ent_Nombre, f.Ent_Direccion, f.Ent_Localidad, f.Ent_Provincia, f.Ent_Cp, f.Ent_Pais,"
      " f.Ent_Nif, f.Ent_Telefono, f.Ent_Fax, f.Ent_Contacto ");
}

std::string ConsultaAlbaranes(const Seleccion& seleccion) {
  return Sql(
      " SELECT af.Codigo NumDocumento, af.Fecha, afl.Precio, afl.PvpBase, af.Ent_Nombre Nombre,"
      " af.Ent_Direccion Direccion, af.Ent_Localidad Localidad, af.Ent_Provincia Provincia,"
      " af.Ent_Cp Cp, af.Ent_Pais Pais, af.Ent_Nif Nif "
      " FROM Facturas f LEFT JOIN Albaranes_F af ON f.Cod_Ejercicio = af.Cod_Ejercicio"
      " AND f.Cod_Empresa = af.Cod_Empresa AND f.Serie = af.Serie AND f.Codigo = af.Factura_Codigo"
      " AND f.Fecha = af.Fecha "
      " LEFT JOIN Albaranes_F_Lineas afl ON af.Cod_Ejercicio = afl.Cod_Ejercicio"
      " AND af.Cod_Empresa = afl.Cod_Empresa AND af.Serie = afl.Serie AND af.Codigo = afl.Codigo "
      " INNER JOIN Clientes c ON f.Cliente = c.Codigo "
      " WHERE afl.Cod_Articulo <> -1 AND f.TipoFactura = 2 AND c.Codigo = ",
      seleccion.cliente, " AND f.Fecha BETWEEN ", SqlTexto{seleccion.fechaInicial}, " AND ",
      SqlTexto{seleccion.fechaFinal});
}

}  // namespace kvraedi::coacsu
