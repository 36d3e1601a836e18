#include "platform/suite/suite_referencia.h"

#include <utility>

#include "platform/suite/documento_pugi.h"
#include "platform/suite/fuente_cadenas.h"
#include "platform/suite/fuente_clientes.h"

namespace kvraedi {

std::unique_ptr<ui::PickerSource> SuiteReferencia::Clientes(std::shared_ptr<Connection> conexion,
                                                            std::shared_ptr<Empresa> empresa) {
  return std::make_unique<suite::FuenteClientes>(std::move(conexion), std::move(empresa));
}

std::unique_ptr<ui::PickerSource> SuiteReferencia::Cadenas(std::shared_ptr<Connection> conexion,
                                                           std::shared_ptr<Empresa> empresa) {
  return std::make_unique<suite::FuenteCadenas>(std::move(conexion), std::move(empresa));
}

std::optional<LugarPostal> SuiteReferencia::BuscarCodigoPostal(Connection& conexion,
                                                               std::int32_t codigo) {
  const auto rs = conexion.Open(
      "SELECT cp.Localidad, cp.Provincia, p.Nombre AS Pais FROM Codigos_Postales cp"
      " LEFT JOIN Paises p ON p.Cod_Pais = cp.Cod_Pais WHERE cp.Codigo = " +
      std::to_string(codigo));
  if (rs->Eof()) return std::nullopt;
  return LugarPostal{rs->GetOrEmpty<std::string>("Localidad"),
                     rs->GetOrEmpty<std::string>("Provincia"), rs->GetOrEmpty<std::string>("Pais")};
}

std::unique_ptr<DocumentoXml> SuiteReferencia::NuevoDocumentoXml(Entorno& entorno) {
  return std::make_unique<suite::DocumentoPugi>(entorno);
}

}  // namespace kvraedi
