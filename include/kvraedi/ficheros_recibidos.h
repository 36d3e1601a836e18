#pragma once

#include <string>

#include "kvraedi/export.h"

namespace kvraedi {

/// The messages that are taken in file by file. Each kind has its folders below the reception root
/// (parameter "EDI_PathFichRecibir"): ORDERS files wait in ORDERS/Temp and end in ORDERS/OK or
/// ORDERS/Error; DESADV files wait in Rx and end in OK or Error.
enum class TipoRecibido { kOrders, kDesadv };

/// What speaks against taking a file of OK or Error in once more, as a text for people: that the
/// ledger of received files (table EDI_Ficheros_Recibidos) knows its content or, without ledger,
/// that it stands in OK. "" when nothing does. Needs the session's company and connection; raises
/// `Error` when there is no such file, and when one of its name waits already.
KVRAEDI_API std::string ObjecionAReprocesar(TipoRecibido tipo, const std::string& fichero);

/// Brings a file back from Error or, when it is not there, from OK to the folder where it waits to
/// be taken in, and lets its content be taken in once more. It asks nobody. Raises `Error`; the
/// file then is where it was.
KVRAEDI_API void ReprocesarFichero(TipoRecibido tipo, const std::string& fichero);

/// Takes a file that waits out of the way of the others, to Error. Raises `Error`.
KVRAEDI_API void ApartarFichero(TipoRecibido tipo, const std::string& fichero);

}  // namespace kvraedi
