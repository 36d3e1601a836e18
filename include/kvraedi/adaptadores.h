#pragma once

#include "kvraedi/entorno.h"
#include "kvraedi/export.h"
#include "kvraedi/suite.h"
#include "kvraedi/ui/toolkit.h"

namespace kvraedi {

/// What the host lends to the component. Each must live until it is taken back or replaced, and the
/// toolkit, too, as long as a screen of its is open or until it ends by itself, which takes its
/// windows away. A null leaves the port without an adapter, and the first routine that needs it
/// raises `Error`.
struct Adaptadores {
  Entorno* entorno = nullptr;
  ui::Toolkit* toolkit = nullptr;
  Suite* suite = nullptr;
};

/// Replaces the adapters in use; without arguments in the braces, `InstalarAdaptadores({})`, takes
/// them back. First it closes the windows that the component shares between its screens: the
/// progress message and the report preview. Never raises.
///
/// Install adapters before the first public class is used. They may be taken back or replaced
/// whenever no operation of the component is running: not from a handler, nor while a modal screen
/// is open. Screens that are open may stay so: their window is closed by the toolkit that opened it
/// when they unload, with their public class or before. Whether the toolkit, the public classes or
/// the adapters' other objects end first is up to the host.
KVRAEDI_API void InstalarAdaptadores(const Adaptadores& adaptadores);

}  // namespace kvraedi
