#pragma once

#include <memory>

#include "kvraedi/suite.h"

namespace kvraedi::suite {

/// Customers of the company's customer file.
class FuenteClientes : public ui::PickerSource {
 public:
  FuenteClientes(std::shared_ptr<Connection> conexion, std::shared_ptr<Empresa> empresa);
  ui::PickerValue Resolve(std::string_view typed) override;
  std::optional<std::string> Search(std::string_view typed, ui::Form& owner) override;

 private:
  std::unique_ptr<Recordset> Buscar(std::string_view texto) const;

  std::shared_ptr<Connection> conexion_;
  std::shared_ptr<Empresa> empresa_;
};

}  // namespace kvraedi::suite
