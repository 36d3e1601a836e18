#include "kvraedi/contenido_fichero.h"

#include <algorithm>
#include <array>
#include <memory>

#include "inspeccion/lectura.h"

namespace kvraedi {
namespace {

constexpr std::array<std::string_view, 10> kNombres = {"desconocido",
                                                       "INVOIC",
                                                       "COACSU",
                                                       "ORDERS",
                                                       "RECADV",
                                                       "DESADV",
                                                       "pedido a proveedor V4.0",
                                                       "pedido a proveedor V3.0",
                                                       "pedido a proveedor con códigos de barras",
                                                       "Facturae"};

/// Parts of the names of fields that stand for people, firms, places, tax numbers and accounts, or
/// hold free texts. A field without a name may hold anything.
constexpr std::array<std::string_view, 27> kPersonales = {
    "Nombre",    "Direccion", "Localidad", "Provincia", "Cp",          "CP",        "Nif",
    "Contacto",  "Telefono",  "Fax",       "Registro",  "Texto",       "Cuenta",    "Descripcion",
    "Name",      "Surname",   "Address",   "Town",      "Province",    "PostCode",  "TaxIdent",
    "Telephone", "Mail",      "IBAN",      "Account",   "Description", "Attachment"};

/// A document begins with "<", behind a byte order mark and blanks.
bool EsXml(std::string_view principio) {
  const auto primero = principio.find_first_not_of(" \t\r\n\xEF\xBB\xBF");
  return primero != std::string_view::npos && principio[primero] == '<';
}

}  // namespace

std::string_view NombreFormato(FormatoFichero formato) {
  return kNombres.at(static_cast<std::size_t>(formato));
}

FormatoFichero RecorrerFichero(Entorno& entorno, Suite& suite, const std::filesystem::path& fichero,
                               const ReceptorCampos& recibir) {
  LectorTexto lector(entorno.OpenForReading(fichero));
  if (!lector.Siguiente()) return FormatoFichero::kDesconocido;
  if (EsXml(lector.Linea())) {
    const auto documento = suite.NuevoDocumentoXml(entorno);
    documento->Cargar(fichero);
    if (documento->LeerTexto("SchemaVersion").empty()) return FormatoFichero::kDesconocido;
    inspeccion::RecorrerFacturae(*documento, recibir);
    return FormatoFichero::kFacturae;
  }
  const FormatoFichero formato = inspeccion::FormatoDeLinea(lector.Linea());
  switch (formato) {
    case FormatoFichero::kDesconocido:
      break;
    case FormatoFichero::kInvoic:
      inspeccion::RecorrerInvoic(lector, recibir);
      break;
    case FormatoFichero::kCoacsu:
      inspeccion::RecorrerCoacsu(lector, recibir);
      break;
    default:
      inspeccion::RecorrerBarras(formato, lector, recibir);
  }
  return formato;
}

bool EsPersonal(std::string_view nombre) {
  return nombre.empty() ||
         std::any_of(kPersonales.begin(), kPersonales.end(), [&](std::string_view parte) {
           return nombre.find(parte) != std::string_view::npos;
         });
}

std::string Enmascarado(std::string_view valor) {
  std::string oculto;
  for (const char c : valor) {
    const auto byte = static_cast<unsigned char>(c);
    if ((byte & 0xC0U) == 0x80U) continue;  // the rest of a letter
    if (c >= '0' && c <= '9') {
      oculto += '9';
    } else if (byte >= 0x80U || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z')) {
      oculto += 'X';
    } else {
      oculto += c;
    }
  }
  return oculto;
}

}  // namespace kvraedi
