#pragma once

#include <memory>

#include "kvraedi/suite.h"

namespace kvraedi::suite {

/// A table of parties with the columns Cod_Empresa, Codigo, Nombre, Nif and Localidad, and the file
/// of it that a company uses.
struct FicheroTerceros {
  std::string_view tabla;
  std::string_view titulo;  ///< of the search window
  std::int16_t (Empresa::*empresa)() const;
};

inline constexpr FicheroTerceros kClientes{"Clientes", "Buscar clientes",
                                           &Empresa::EmpresaClientes};
inline constexpr FicheroTerceros kProveedores{"Proveedores", "Buscar proveedores",
                                              &Empresa::EmpresaProveedores};

/// The customers or suppliers of a company's file.
class FuenteTerceros : public ui::PickerSource {
 public:
  /// `fichero` must outlive the source.
  FuenteTerceros(const FicheroTerceros& fichero, std::shared_ptr<Connection> conexion,
                 std::shared_ptr<Empresa> empresa);

  ui::PickerValue Resolve(std::string_view typed) override;
  std::optional<std::string> Search(std::string_view typed, ui::Form& owner) override;

 private:
  std::unique_ptr<Recordset> Buscar(std::string_view texto) const;
  /// " FROM table WHERE Cod_Empresa = code"
  std::string Filas() const;

  const FicheroTerceros& fichero_;
  std::shared_ptr<Connection> conexion_;
  std::shared_ptr<Empresa> empresa_;
};

}  // namespace kvraedi::suite
