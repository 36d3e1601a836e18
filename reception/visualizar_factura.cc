#include "reception/visualizar_factura.h"

#include <filesystem>
#include <optional>

#include "frame/carpeta_anexos.h"
#include "frame/ruta.h"
#include "frame/sesion.h"
#include "frame/sql.h"
#include "kvraedi/error.h"
#include "seres/frmVisorFactura.h"

namespace kvraedi {
namespace {

/// Where the received file stands; nothing when there is no such invoice or no reception folder.
/// The name that the database gives never leads out of the folder of its fiscal year.
std::optional<std::filesystem::path> FicheroRecibido(const std::string& identificador) {
  const auto rs = ConexionActual().Open(
      Sql(" SELECT ef.* FROM EDI_Recepcion_Facturas ef WHERE ef.IdentificadorMsg = ",
          SqlTexto{identificador}));
  if (rs->Eof()) return std::nullopt;
  const auto raiz = ParametroRuta("EDI_PathFichRecibir");
  if (raiz.empty()) return std::nullopt;
  const auto ejercicio = rs->Get<std::int16_t>("Cod_Ejercicio");
  return raiz / std::to_string(ejercicio) /
         RutaDe(NombreDeFichero(rs->GetOrEmpty<std::string>("EDIFichero")));
}

}  // namespace

bool VisualizarFactura(const std::string& identificador, std::int16_t plataforma,
                       std::int16_t tipoMensaje, ui::Form& owner) {
  try {
    const auto fichero = FicheroRecibido(identificador);
    if (!fichero) return false;
    const auto visor = std::make_shared<frmVisorFactura>();
    visor->Fichero(*fichero);
    visor->Plataforma(plataforma);
    visor->TipoMensaje(tipoMensaje);
    visor->Show(ui::ShowMode::kModal, &owner);
    return !visor->Cancelado();
  } catch (const std::exception&) {
    return false;
  }
}

}  // namespace kvraedi
