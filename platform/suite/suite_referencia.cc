#include "platform/suite/suite_referencia.h"

#include <utility>

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

}  // namespace kvraedi
