#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "kvraedi/valor.h"

namespace kvraedi {

/// The invoice (tipo 0) or ticket invoice (tipo 1) whose attachments are meant; of the two keys
/// only its own is read. Its company is the session's.
struct DocumentoAnexos {
  std::int16_t tipo = 0;
  std::int16_t ejercicio = 0;
  std::int16_t serie = 0;
  std::int32_t codigo = 0;
  std::int16_t tipoDoc = 0;
  std::int16_t almacenFT = 0;
  std::int16_t cajaFT = 0;
  FechaHora fechaFT;
  std::int32_t codigoFT = 0;
};

// Statements on the document's rows of EDI_Anexos.

std::string ConsultaAnexos(const DocumentoAnexos& documento);
/// A row without content.
std::string InsertarAnexo(const DocumentoAnexos& documento, std::string_view nombre,
                          std::string_view descripcion);
/// The content of the attachment of that name.
std::string ConsultaContenido(const DocumentoAnexos& documento, std::string_view nombre);
std::string BorrarAnexo(const DocumentoAnexos& documento, std::string_view nombre);

}  // namespace kvraedi
