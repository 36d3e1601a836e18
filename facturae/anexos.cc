#include "facturae/anexos.h"

#include "facturae/consultas_documento.h"
#include "facturae/elementos.h"
#include "frame/base64.h"
#include "frame/carpeta_anexos.h"
#include "frame/fila.h"
#include "frame/puertos.h"
#include "frame/sesion.h"

namespace kvraedi::facturae {
namespace {

/// What follows the last point of a file name; the whole name when it has none.
std::string_view Extension(std::string_view nombre) { return nombre.substr(nombre.rfind('.') + 1); }

void GuardarCopia(CarpetaAnexos& carpeta, std::string_view nombre, const Bytes& bytes) {
  carpeta.Guardar(nombre, {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

/// An attachment: its contents are read back from its local copy.
void EscribirAnexo(DocumentoXml& xml, NodoXml documentos, CarpetaAnexos& carpeta,
                   std::string_view nombre, std::string_view descripcion) {
  const std::string contenido = CodificaBase64(carpeta.Leer(nombre));
  Anadir(xml, xml.Elemento(documentos, "Attachment"),
         {{"AttachmentFormat", Extension(nombre)},
          {"AttachmentEncoding", "BASE64"},
          {"AttachmentDescription", descripcion},
          {"AttachmentData", contenido}});
}

}  // namespace

void EscribirAnexos(DocumentoXml& xml, NodoXml factura, const ClaveDocumento& clave) {
  const auto filas = ConexionActual().Open(ConsultaAnexos(clave, EmpresaActual().CodigoEmpresa()));
  if (filas->Eof()) return;
  CarpetaAnexos carpeta(EntornoActual());
  const NodoXml documentos =
      xml.Elemento(xml.Elemento(factura, "AdditionalData"), "RelatedDocuments");
  const Fila fila(*filas);
  while (!filas->Eof()) {
    const auto nombre = fila.Get<std::string>("NombreAnexo");
    const auto descripcion = fila.Get<std::string>("DescripcionAnexo");
    GuardarCopia(carpeta, nombre, fila.Get<Bytes>("Stream"));
    filas->MoveNext();  // lets go of the bytes, which may be many, before they are encoded
    EscribirAnexo(xml, documentos, carpeta, nombre, descripcion);
  }
}

}  // namespace kvraedi::facturae
