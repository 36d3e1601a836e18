#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "kvraedi/valor.h"

namespace kvraedi::facturae {

/// What the receiving service gave for a sending.
struct DatosRegistro {
  std::string registro;
  std::string seguimiento;
  std::string fechaTexto;  ///< as the answer has it
  FechaHora fecha;
};

/// The signer's answer: a list separated by commas, whose first item tells whether all went well.
class RespuestaFirma {
 public:
  explicit RespuestaFirma(std::string_view texto);

  const std::string& Texto() const { return texto_; }
  bool Vacia() const { return elementos_.empty(); }
  bool Conforme() const { return !Vacia() && elementos_.front() == "OK"; }
  /// The items behind the first; raises `Error` when one is missing or the date is none.
  DatosRegistro Registro() const;

 private:
  std::string texto_;
  std::vector<std::string> elementos_;
};

}  // namespace kvraedi::facturae
