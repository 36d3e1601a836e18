#pragma once

#include <optional>
#include <string>

namespace kvraedi::cli {

/// The fields of an administrative centre that the command line gives.
struct DatosCentro {
  std::string codigo;  ///< names the centre, or is the code of a new one
  std::optional<std::string> codigoNuevo;
  std::optional<std::string> nombre;
  std::optional<std::string> direccion;
  std::optional<std::string> codigoPostal;
  std::optional<std::string> localidad;
  std::optional<std::string> provincia;
  std::optional<std::string> pais;
  std::optional<std::string> descripcion;
};

}  // namespace kvraedi::cli
