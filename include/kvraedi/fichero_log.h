#pragma once

#include <string_view>

#include "kvraedi/export.h"
#include "kvraedi/valor.h"

namespace kvraedi {

/// The suite's log writer: a text file of entries, each with its moment. Operations raise `Error`.
class KVRAEDI_API FicheroLog {
 public:
  virtual ~FicheroLog();
  /// Adds an entry at the end, handed to the system when it returns. `nivel` is 0 for ordinary
  /// entries; texts are UTF-8.
  virtual void Escribir(int nivel, std::string_view rutina, std::string_view texto) = 0;
  /// Takes the entries before that moment out. Either all of them go or, on failure, none.
  virtual void DescartarAnteriores(const FechaHora& momento) = 0;
};

}  // namespace kvraedi
