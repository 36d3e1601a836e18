#include "platform/suite/suite_referencia.h"

#include <utility>

#include "platform/suite/compra_mini_suite.h"
#include "platform/suite/documento_pugi.h"
#include "platform/suite/fichero_ini.h"
#include "platform/suite/fichero_log_texto.h"
#include "platform/suite/fuente_cadenas.h"
#include "platform/suite/fuente_terceros.h"
#include "platform/suite/impresion_plantilla.h"
#include "platform/suite/informes.h"
#include "platform/suite/pedido_cliente_suite.h"

namespace kvraedi {

std::unique_ptr<ui::PickerSource> SuiteReferencia::Clientes(std::shared_ptr<Connection> conexion,
                                                            std::shared_ptr<Empresa> empresa) {
  return std::make_unique<suite::FuenteTerceros>(suite::kClientes, std::move(conexion),
                                                 std::move(empresa));
}

std::unique_ptr<ui::PickerSource> SuiteReferencia::Proveedores(std::shared_ptr<Connection> conexion,
                                                               std::shared_ptr<Empresa> empresa) {
  return std::make_unique<suite::FuenteTerceros>(suite::kProveedores, std::move(conexion),
                                                 std::move(empresa));
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

std::unique_ptr<FicheroLog> SuiteReferencia::AbrirLog(Entorno& entorno,
                                                      const std::filesystem::path& fichero) {
  return std::make_unique<suite::FicheroLogTexto>(entorno, fichero);
}

std::optional<std::string> SuiteReferencia::LeerIni(Entorno& entorno,
                                                    const std::filesystem::path& fichero,
                                                    std::string_view seccion,
                                                    std::string_view clave) {
  return suite::LeerIni(entorno, fichero, seccion, clave);
}

std::unique_ptr<PedidoCliente> SuiteReferencia::NuevoPedidoCliente(
    std::shared_ptr<Connection> conexion, std::shared_ptr<Empresa> empresa) {
  return std::make_unique<suite::PedidoClienteSuite>(std::move(conexion), std::move(empresa));
}

std::unique_ptr<CompraMini> SuiteReferencia::NuevaCompraMini(std::shared_ptr<Connection> conexion,
                                                             std::shared_ptr<Empresa> empresa) {
  return std::make_unique<suite::CompraMiniSuite>(std::move(conexion), std::move(empresa));
}

std::unique_ptr<ImpresionFactura> SuiteReferencia::NuevaImpresionFactura(
    Entorno& entorno, std::shared_ptr<Connection> conexion, std::shared_ptr<Empresa> empresa) {
  return std::make_unique<suite::ImpresionPlantilla>(entorno, ImpresoraActual(),
                                                     std::move(conexion), std::move(empresa));
}

std::unique_ptr<Informe> SuiteReferencia::AbrirInforme(Entorno& entorno,
                                                       std::shared_ptr<Connection> conexion,
                                                       const std::filesystem::path& fichero) {
  return suite::AbrirInforme(entorno, conexion, fichero);
}

Impresora& SuiteReferencia::ImpresoraActual() {
  if (impresora_ != nullptr) return *impresora_;
  throw Error(kErrorItemNotFound, "kvraedi", "Esta instalación no puede imprimir");
}

}  // namespace kvraedi
