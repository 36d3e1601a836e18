#include "facturae/registro_envio.h"

#include <string>

#include "facturae/consultas_documento.h"
#include "frame/codigo1252.h"
#include "frame/formato.h"
#include "frame/puertos.h"
#include "frame/sesion.h"
#include "frame/sql.h"
#include "kvraedi/error.h"

namespace kvraedi::facturae {
namespace {

/// The length of a UTF-8 text as the database counts it.
std::size_t CaracteresUtf16(std::string_view texto) {
  std::size_t unidades = 0;
  for (const char c : texto) {
    const auto byte = static_cast<unsigned char>(c);
    const bool continua = (byte & 0xC0U) == 0x80U;
    unidades += continua ? 0 : byte >= 0xF0U ? 2 : 1;
  }
  return unidades;
}

std::string ClaveFactura(const ClaveDocumento& clave) {
  return Sql(EmpresaActual().CodigoEmpresa(), ", ", clave.ejercicio, ", ", clave.serie, ", ",
             clave.codigo, ", ", clave.tipoDoc);
}

std::string ClaveTicket(const ClaveDocumento& clave, const std::string& fecha) {
  return Sql(EmpresaActual().CodigoEmpresa(), ", ", clave.almacenFT, ", ", clave.cajaFT, ", ",
             SqlTexto{fecha}, ", ", clave.codigoFT);
}

std::string FicheroFirmado(const std::string& documento) { return documento + ".xsig"; }

std::string NumeroDe(const DatosRegistro& datos) {
  return datos.registro + " - " + datos.seguimiento;
}

/// Codes of the receiving service in one column. One that is too long must show before the earlier
/// record is deleted: the database would tell only afterwards.
SqlTexto NumeroRegistro(const std::string& numero) {
  constexpr std::size_t kAncho = 100;  // nvarchar(100) in the suite's schema
  if (CaracteresUtf16(numero) > kAncho) {
    throw Error(kErrorDatabase, "modFactura_E",
                "Los códigos de registro y seguimiento no caben en los " + std::to_string(kAncho) +
                    " caracteres de EDINumeroRegistro");
  }
  return SqlTexto{numero};
}

}  // namespace

RegistroRespuestas::RegistroRespuestas(const std::filesystem::path& fichero)
    : fichero_(EntornoActual().Append(fichero)) {}

void RegistroRespuestas::Anotar(std::string_view texto) {
  const std::string linea = FormatearFecha(EntornoActual().Now(), "yyyymmddhhnnss").append(texto);
  std::string bytes(linea.size(), ' ');
  bytes.resize(Escribir1252(linea, bytes).bytes);
  fichero_.Linea(bytes);
}

bool TieneEnvio(const ClaveDocumento& clave) {
  return !ConexionActual().Open(ConsultaRevision(clave, EmpresaActual().CodigoEmpresa()))->Eof();
}

std::string ConsultaRegistro(const std::string& documento, const DatosRegistro& datos) {
  const std::string fichero = FicheroFirmado(documento);
  const std::string numero = NumeroDe(datos);
  return Sql("SELECT EDIFichero FROM EDI_Envio_Facturas WHERE EDIFichero = ", SqlTexto{fichero},
             " AND EDINumeroRegistro = ", SqlTexto{numero});
}

std::string BorrarEnvios(const ClaveDocumento& clave) {
  const std::int16_t empresa = EmpresaActual().CodigoEmpresa();
  if (clave.EsTicket()) {
    return Sql(
        "DELETE FROM EDI_Envio_Facturas"
        " WHERE Cod_Empresa_FT = ",
        empresa, "   AND Cod_Almacen_FT = ", clave.almacenFT, "   AND Caja_FT = ", clave.cajaFT,
        "   AND Fecha_FT = ", SqlTexto{FechaTexto(clave.fechaFT)},
        "   AND Codigo_FT = ", clave.codigoFT);
  }
  return Sql(
      "DELETE FROM EDI_Envio_Facturas"
      " WHERE Cod_Empresa = ",
      empresa, " AND Cod_Ejercicio = ", clave.ejercicio, " AND Serie = ", clave.serie,
      " AND Codigo = ", clave.codigo, " AND TipoDoc = ", clave.tipoDoc);
}

std::string InsertarEnvio(const ClaveDocumento& clave, const EstadoFacturaE& estado,
                          const DatosRegistro& datos) {
  const std::string numero = NumeroDe(datos);
  const std::string fichero = FicheroFirmado(estado.identificadorLote);
  return Sql(clave.EsTicket()
                 ? "INSERT INTO EDI_Envio_Facturas (Cod_EDIPlat, Cod_EDITipoMsg, IdentificadorMsg,"
                   " Hora, Cod_Empresa_FT, Cod_Almacen_FT, Caja_FT, Fecha_FT, Codigo_FT, Copias,"
                   " EDIFichero, EDINumeroRegistro, EDIFechaRegistro, Revision) "
                 : "INSERT INTO EDI_Envio_Facturas (Cod_EDIPlat, Cod_EDITipoMsg, IdentificadorMsg,"
                   " Hora, Cod_Empresa, Cod_Ejercicio, Serie, Codigo, TipoDoc, Copias,"
                   " EDIFichero, EDINumeroRegistro, EDIFechaRegistro, Revision) ",
             " VALUES (3 , 1,", estado.identificadorLote, ", GETDATE(), ",
             clave.EsTicket() ? ClaveTicket(clave, FechaTexto(clave.fechaFT)) : ClaveFactura(clave),
             ", 1, ", SqlTexto{fichero}, ", ", NumeroRegistro(numero), ", ",
             SqlTexto{FechaTexto(datos.fecha)}, ", ", estado.revisionUsada, ")");
}

}  // namespace kvraedi::facturae
