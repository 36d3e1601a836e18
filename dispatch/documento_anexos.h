#pragma once

#include <string>
#include <string_view>

#include "facturae/documento.h"

namespace kvraedi {

// Statements on the rows of EDI_Anexos of a document; its company is the session's.

std::string ConsultaAnexos(const facturae::ClaveDocumento& documento);
/// A row without content.
std::string InsertarAnexo(const facturae::ClaveDocumento& documento, std::string_view nombre,
                          std::string_view descripcion);
/// The content of the attachment of that name.
std::string ConsultaContenido(const facturae::ClaveDocumento& documento, std::string_view nombre);
/// A row for each attachment of that name that has no content.
std::string ConsultaSinContenido(const facturae::ClaveDocumento& documento,
                                 std::string_view nombre);
std::string BorrarAnexo(const facturae::ClaveDocumento& documento, std::string_view nombre);

}  // namespace kvraedi
