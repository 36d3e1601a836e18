#include "host/cli/ficheros_firmados.h"

#include <string>

#include "host/cli/columnas.h"
#include "kvraedi/valor.h"

namespace kvraedi::cli {
namespace {

constexpr const char* kFacturae = "3";

/// The Facturae sending of a row, when that is the channel of the row's customer.
std::string ConsultaEnvio(const SesionCli& sesion, const ui::Grid& lista, int fila,
                          const std::string& ejercicio) {
  const auto celda = [&](int columna) { return std::string(lista.Cell(fila, columna)); };
  const std::string empresa = std::to_string(sesion.EmpresaActual()->CodigoEmpresa());
  const bool ticket = celda(kTipoNum) == "1";
  const std::string clave =
      ticket ? "_FT = " + empresa + " AND ef.Cod_Almacen_FT = " + celda(kAlmacenFt) +
                   " AND ef.Caja_FT = " + celda(kCajaFt) + " AND ef.Fecha_FT = '" +
                   celda(kFechaFt) + "' AND ef.Codigo_FT = " + celda(kCodigoFt)
             : " = " + empresa + " AND ef.Cod_Ejercicio = " + ejercicio +
                   " AND ef.Serie = " + celda(kSerie) + " AND ef.Codigo = " + celda(kFactura) +
                   " AND ef.TipoDoc = " + celda(kTipoDoc);
  return "SELECT ef.EDIFichero FROM EDI_Envio_Facturas ef"
         " INNER JOIN Clientes c ON c.Cod_EDIPlat_Fra = ef.Cod_EDIPlat AND c.Cod_Empresa = " +
         std::to_string(sesion.EmpresaActual()->EmpresaClientes()) +
         " AND c.Codigo = " + celda(kCliente) + " WHERE ef.Cod_EDIPlat = " + kFacturae +
         " AND ef.Cod_Empresa" + clave;
}

}  // namespace

std::vector<std::filesystem::path> FicherosFirmados(SesionCli& sesion, const ui::Grid& lista,
                                                    const std::vector<int>& filas) {
  std::vector<std::filesystem::path> ficheros;
  const std::filesystem::path raiz = sesion.Parametro("EDI_PathFichEnvios");
  for (const int fila : filas) {
    const bool ticket = lista.Cell(fila, kTipoNum) == "1";
    const auto fecha = FechaHora::Parse(lista.Cell(fila, ticket ? kFechaFt : kFecha));
    if (!fecha) continue;
    const std::string ejercicio = std::to_string(fecha->year);
    const auto rs = sesion.Conexion()->Open(ConsultaEnvio(sesion, lista, fila, ejercicio));
    if (!rs->Eof()) ficheros.push_back(raiz / ejercicio / rs->GetOrEmpty<std::string>(0));
  }
  return ficheros;
}

}  // namespace kvraedi::cli
