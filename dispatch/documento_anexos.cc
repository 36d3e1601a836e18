#include "dispatch/documento_anexos.h"

#include "frame/formato.h"
#include "frame/sesion.h"
#include "frame/sql.h"

namespace kvraedi {

using facturae::ClaveDocumento;

namespace {

std::string Condiciones(const ClaveDocumento& d) {
  const std::int16_t empresa = EmpresaActual().CodigoEmpresa();
  constexpr std::string_view kMensaje = " WHERE Cod_EDIPlat = 3 AND Cod_EDITipoMsg = 1 ";
  if (d.EsTicket()) {
    return Sql(kMensaje, "   AND Cod_Empresa_FT =", empresa, "   AND Cod_Almacen_FT =", d.almacenFT,
               "   AND Caja_FT =", d.cajaFT, "   AND Fecha_FT =", SqlTexto{FechaTexto(d.fechaFT)},
               "   AND Codigo_FT =", d.codigoFT);
  }
  return Sql(kMensaje, "   AND Cod_Empresa =", empresa, "   AND Cod_Ejercicio =", d.ejercicio,
             "   AND Serie =", d.serie, "   AND Codigo =", d.codigo, "   AND TipoDoc =", d.tipoDoc);
}

std::string DeNombre(std::string_view nombre) {
  return Sql("   AND NombreAnexo =", SqlTexto{nombre});
}

}  // namespace

std::string ConsultaAnexos(const ClaveDocumento& documento) {
  return Sql("SELECT NombreAnexo, DescripcionAnexo FROM EDI_Anexos ", Condiciones(documento));
}

std::string InsertarAnexo(const ClaveDocumento& d, std::string_view nombre,
                          std::string_view descripcion) {
  const std::int16_t empresa = EmpresaActual().CodigoEmpresa();
  const std::string anexo =
      Sql(", ", SqlTexto{nombre}, ", ", SqlTexto{descripcion}, ",CONVERT(varbinary(MAX),''))");
  if (d.EsTicket()) {
    return Sql(
        "INSERT INTO EDI_Anexos (Cod_EDIPlat, Cod_EDITipoMsg, Hora, Cod_Empresa_FT,"
        " Cod_Almacen_FT, Caja_FT,"
        " Fecha_FT, Codigo_FT, NombreAnexo, DescripcionAnexo, Stream) "
        " VALUES (3,1"
        ", GETDATE(), ",
        empresa, ", ", d.almacenFT, ", ", d.cajaFT, ", ", SqlTexto{FechaTexto(d.fechaFT)}, ", ",
        d.codigoFT, anexo);
  }
  return Sql(
      "INSERT INTO EDI_Anexos (Cod_EDIPlat,Cod_EDITipoMsg,Hora,Cod_Empresa,Cod_Ejercicio,Serie,"
      "Codigo,TipoDoc,NombreAnexo,DescripcionAnexo,Stream) "
      " VALUES (3,1"
      ", GETDATE(), ",
      empresa, ", ", d.ejercicio, ", ", d.serie, ", ", d.codigo, ", ", d.tipoDoc, anexo);
}

std::string ConsultaContenido(const ClaveDocumento& documento, std::string_view nombre) {
  return Sql("SELECT stream FROM EDI_Anexos ", Condiciones(documento), DeNombre(nombre));
}

std::string ConsultaSinContenido(const ClaveDocumento& documento, std::string_view nombre) {
  return Sql("SELECT NombreAnexo FROM EDI_Anexos ", Condiciones(documento), DeNombre(nombre),
             "   AND Stream = ''");
}

std::string BorrarAnexo(const ClaveDocumento& documento, std::string_view nombre) {
  return Sql("DELETE FROM EDI_Anexos ", Condiciones(documento), DeNombre(nombre));
}

}  // namespace kvraedi
