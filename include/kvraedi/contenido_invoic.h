#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "kvraedi/entorno.h"
#include "kvraedi/export.h"

namespace kvraedi {

/// A field of a record of an INVOIC file, as it stands there.
struct CampoInvoic {
  std::int64_t linea = 0;    ///< of the file, from 1
  std::string_view tag;      ///< of the record
  std::string_view nombre;   ///< "" for an area that the format leaves blank, or an unknown record
  std::size_t posicion = 0;  ///< from 1
  std::size_t ancho = 0;
  std::string valor;  ///< UTF-8, without blanks around it
};

/// Reads an INVOIC file of code page 1252, whoever wrote it, and hands over every field that is not
/// blank, in the order of the file. Nothing is judged, and nothing of the file is kept in memory.
/// Raises `Error` when the file cannot be read on.
KVRAEDI_API void RecorrerInvoic(std::unique_ptr<FileReader> fichero,
                                const std::function<void(const CampoInvoic&)>& recibir);

}  // namespace kvraedi
