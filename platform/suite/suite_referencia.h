#pragma once

#include <memory>

#include "kvraedi/suite.h"

namespace kvraedi {

/// Small, real versions of the suite's components over its own tables. Searches open the window
/// frmBuscar on the toolkit in use.
class SuiteReferencia : public Suite {
 public:
  /// `impresora` must outlive the suite; without one nothing can be printed.
  explicit SuiteReferencia(Impresora* impresora = nullptr) : impresora_(impresora) {}

  std::unique_ptr<ui::PickerSource> Clientes(std::shared_ptr<Connection> conexion,
                                             std::shared_ptr<Empresa> empresa) override;
  std::unique_ptr<ui::PickerSource> Proveedores(std::shared_ptr<Connection> conexion,
                                                std::shared_ptr<Empresa> empresa) override;
  /// Typed as "1/5": the code of level 1, a slash, the code of level 2 and so on; 0 or nothing
  /// between slashes is no choice at that level.
  std::unique_ptr<ui::PickerSource> Cadenas(std::shared_ptr<Connection> conexion,
                                            std::shared_ptr<Empresa> empresa) override;
  /// In the table Codigos_Postales.
  std::optional<LugarPostal> BuscarCodigoPostal(Connection& conexion, std::int32_t codigo) override;
  std::unique_ptr<DocumentoXml> NuevoDocumentoXml(Entorno& entorno) override;
  std::unique_ptr<FicheroLog> AbrirLog(Entorno& entorno,
                                       const std::filesystem::path& fichero) override;
  std::optional<std::string> LeerIni(Entorno& entorno, const std::filesystem::path& fichero,
                                     std::string_view seccion, std::string_view clave) override;
  std::unique_ptr<PedidoCliente> NuevoPedidoCliente(std::shared_ptr<Connection> conexion,
                                                    std::shared_ptr<Empresa> empresa) override;
  std::unique_ptr<CompraMini> NuevaCompraMini(std::shared_ptr<Connection> conexion,
                                              std::shared_ptr<Empresa> empresa) override;
  std::unique_ptr<ImpresionFactura> NuevaImpresionFactura(
      Entorno& entorno, std::shared_ptr<Connection> conexion,
      std::shared_ptr<Empresa> empresa) override;
  std::unique_ptr<Informe> AbrirInforme(Entorno& entorno, std::shared_ptr<Connection> conexion,
                                        const std::filesystem::path& fichero) override;
  Impresora& ImpresoraActual() override;

 private:
  Impresora* impresora_;
};

}  // namespace kvraedi
