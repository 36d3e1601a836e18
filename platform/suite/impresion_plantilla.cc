#include "platform/suite/impresion_plantilla.h"

#include <array>
#include <utility>

#include "kvraedi/error.h"
#include "platform/suite/informes.h"

namespace kvraedi::suite {
namespace {

using Clave = std::array<std::pair<const char*, std::string>, 5>;

Clave ClaveDe(const Empresa& empresa, const DatosImpresionFactura& datos) {
  return {{{"Cod_Empresa", std::to_string(empresa.CodigoEmpresa())},
           {"Cod_Ejercicio", std::to_string(datos.ejercicio)},
           {"Serie", std::to_string(datos.serie)},
           {"Codigo", std::to_string(datos.codigo)},
           {"TipoDoc", std::to_string(datos.tipoDoc)}}};
}

void ComprobarQueExiste(Connection& conexion, const Clave& clave) {
  std::string sql = "SELECT Codigo FROM Facturas";
  const char* enlace = " WHERE ";
  for (const auto& [campo, valor] : clave) {
    sql += enlace + std::string(campo) + " = " + valor;
    enlace = " AND ";
  }
  if (!conexion.Open(sql)->Eof()) return;
  throw Error(
      kErrorItemNotFound, "ImpresionFactura",
      "No existe la factura " + clave[2].second + "/" + clave[3].second + " de " + clave[1].second);
}

std::filesystem::path Ruta(const std::string& utf8) {
  return std::u8string(utf8.begin(), utf8.end());
}

}  // namespace

ImpresionPlantilla::ImpresionPlantilla(Entorno& entorno, Impresora& impresora,
                                       std::shared_ptr<Connection> conexion,
                                       std::shared_ptr<Empresa> empresa)
    : entorno_(entorno),
      impresora_(impresora),
      conexion_(std::move(conexion)),
      empresa_(std::move(empresa)) {}

void ImpresionPlantilla::Imprimir(const DatosImpresionFactura& datos) {
  Guardar(impresora_.Pdf(Documento(datos)), datos.ficheroPdf);
}

DocumentoImprimible ImpresionPlantilla::Documento(const DatosImpresionFactura& datos) const {
  const Clave clave = ClaveDe(*empresa_, datos);
  ComprobarQueExiste(*conexion_, clave);
  const auto informe =
      AbrirInforme(entorno_, conexion_, Ruta(empresa_->RutaAplicacion()) / "Rpt" / "Factura.rpt");
  for (const auto& [campo, valor] : clave) informe->Filtrar(campo, valor);
  return informe->Documento();
}

/// Under another name until it is whole.
void ImpresionPlantilla::Guardar(const std::string& pdf,
                                 const std::filesystem::path& fichero) const {
  std::filesystem::path parcial = fichero;
  parcial += ".parcial";
  try {
    const auto escritor = entorno_.Create(parcial);
    escritor->Write(pdf);
    escritor->Close();
    entorno_.Rename(parcial, fichero);
  } catch (const Error&) {
    try {
      if (entorno_.FileExists(parcial)) entorno_.Delete(parcial);
    } catch (const Error&) {  // the first error is the one to tell
    }
    throw;
  }
}

}  // namespace kvraedi::suite
