#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "kvraedi/conexion.h"
#include "kvraedi/entorno.h"
#include "kvraedi/informe.h"
#include "platform/suite/filas_informe.h"
#include "platform/suite/plantilla_informe.h"

namespace kvraedi::suite {

/// A report made from a file whose layout is a template. The tables are read through the session's
/// connection: of an origin only the place counts, its logon has been used when the connection was
/// opened.
class InformePlantilla : public Informe {
 public:
  /// Raises `Error` with the file's name.
  InformePlantilla(Entorno& entorno, std::shared_ptr<Connection> conexion,
                   const std::filesystem::path& fichero);

  std::vector<std::string> Tablas() const override;
  void Ubicar(std::string_view tabla, const OrigenTabla& origen) override;
  Informe* Subinforme(std::string_view nombre) override;
  void Filtrar(std::string_view campo, std::string_view valor) override;
  DocumentoImprimible Documento() override;

 private:
  DocumentoImprimible Rellenar();

  std::shared_ptr<Connection> conexion_;
  std::string nombre_;  // of the file
  PlantillaInforme plantilla_;
  OrigenesInforme origenes_;
  FiltrosInforme filtros_;
  std::map<std::string, std::unique_ptr<InformePlantilla>> subinformes_;  // by file
};

}  // namespace kvraedi::suite
