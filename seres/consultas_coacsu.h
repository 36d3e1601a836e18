#pragma once

#include <cstdint>
#include <string>

namespace kvraedi::coacsu {

/// Whose summary invoices a message tells of. The dates go into the statements as they were typed.
struct Seleccion {
  std::int16_t cliente = 0;
  std::string fechaInicial;
  std::string fechaFinal;
};

/// One row per summary invoice, with the range of dates of its delivery notes.
std::string ConsultaResumen(const Seleccion& seleccion);
/// The delivery lines of all the summary invoices of the selection.
std::string ConsultaAlbaranes(const Seleccion& seleccion);

}  // namespace kvraedi::coacsu
