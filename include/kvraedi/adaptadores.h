#pragma once

#include "kvraedi/entorno.h"
#include "kvraedi/export.h"
#include "kvraedi/suite.h"
#include "kvraedi/ui/toolkit.h"

namespace kvraedi {

/// What the host lends to the component. Each must outlive its use; a null leaves the port without
/// an adapter, and the first routine that needs it raises `Error`.
struct Adaptadores {
  Entorno* entorno = nullptr;
  ui::Toolkit* toolkit = nullptr;
  Suite* suite = nullptr;
};

/// Replaces the adapters in use. Call it before the first public class is used.
KVRAEDI_API void InstalarAdaptadores(const Adaptadores& adaptadores);

}  // namespace kvraedi
