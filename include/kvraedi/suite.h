#pragma once

#include <memory>

#include "kvraedi/conexion.h"
#include "kvraedi/empresa.h"
#include "kvraedi/export.h"
#include "kvraedi/ui/controls.h"

namespace kvraedi {

/// The suite's own components, as far as this one calls them.
class KVRAEDI_API Suite {
 public:
  virtual ~Suite();

  /// Look-up of the customer picker: one code, the customer's. A whole number that is no customer's
  /// code gives that code as not valid.
  virtual std::unique_ptr<ui::PickerSource> Clientes(std::shared_ptr<Connection> conexion,
                                                     std::shared_ptr<Empresa> empresa) = 0;
  /// Look-up of the chain picker: up to ten codes, one for each chain level; 0 is no choice.
  virtual std::unique_ptr<ui::PickerSource> Cadenas(std::shared_ptr<Connection> conexion,
                                                    std::shared_ptr<Empresa> empresa) = 0;
};

}  // namespace kvraedi
