#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "kvraedi/entorno.h"
#include "kvraedi/export.h"
#include "kvraedi/suite.h"

namespace kvraedi {

/// The files that this component writes or takes in.
enum class FormatoFichero : std::uint8_t {
  kDesconocido,
  kInvoic,
  kCoacsu,
  kOrders,
  kRecadv,
  kDesadv,
  kPedidoV4,   ///< supplier order of the versions' platform, V4.0
  kPedidoV3,   ///< the same, V3.0
  kPedidoEan,  ///< supplier order of the bar codes' platform
  kFacturae,
};

/// "INVOIC", "Facturae"...: what people call a format.
KVRAEDI_API std::string_view NombreFormato(FormatoFichero formato);

/// A field of a record as it stands in a file, or what is wrong with a record as a whole.
struct CampoFichero {
  std::int64_t linea = 0;     ///< of the file, from 1; 0 when it has none (XML, a missing record)
  std::string_view registro;  ///< tag of the record; of XML, the path of the parent: "Parties/..."
  std::string_view nombre;    ///< "" for an area that the format leaves blank, or a whole record
  std::size_t posicion = 0;   ///< first character, from 1; in files with separators, the field
  std::size_t ancho = 0;      ///< in characters; 0 where the format gives none
  std::string_view valor;     ///< UTF-8, without blanks around it
  std::string_view reparo;    ///< what is wrong with it, in Spanish; "" when nothing is
};

/// Takes a field over; the texts are valid during the call.
using ReceptorCampos = std::function<void(const CampoFichero&)>;

/// Looks into a file, told by what it holds: hands over every field that is not blank, in the order
/// of the file, and what is wrong with fields and records. A fixed-width or bar file is read line
/// by line, an XML one as a whole, through a document of the suite. Raises `Error` when the file
/// cannot be read on. A file of none of the formats gives kDesconocido, and no field.
KVRAEDI_API FormatoFichero RecorrerFichero(Entorno& entorno, Suite& suite,
                                           const std::filesystem::path& fichero,
                                           const ReceptorCampos& recibir);

/// Whether a field names a person or a firm, says where they are, is a tax number or an account, or
/// is a free text or an area that may hold one of these: what is hidden before a file is shown to
/// strangers. `nombre` is that of a CampoFichero.
KVRAEDI_API bool EsPersonal(std::string_view nombre);

/// The value with its letters as X and its digits as 9.
KVRAEDI_API std::string Enmascarado(std::string_view valor);

}  // namespace kvraedi
