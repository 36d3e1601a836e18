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
/// Blanks and line ends around it do not count.
class RespuestaFirma {
 public:
  explicit RespuestaFirma(std::string_view texto);
  /// What was left instead of an answer, and what is wrong with it.
  RespuestaFirma(std::string_view restos, std::string_view defecto);

  const std::string& Texto() const { return texto_; }
  bool Vacia() const { return texto_.empty(); }
  /// Raises `Error` for what is no answer.
  bool Conforme() const;
  /// The items behind the first; raises `Error` when one is missing or the date is none.
  DatosRegistro Registro() const;

 private:
  std::string texto_;
  std::string defecto_;
  std::vector<std::string> elementos_;
};

}  // namespace kvraedi::facturae
