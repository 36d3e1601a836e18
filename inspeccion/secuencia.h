#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kvraedi::inspeccion {

/// Where a record may stand: behind one whose rank is from `desde` to `hasta`; it then has `rango`.
/// Before the first record the rank is -1; one of rank 0 begins a message.
struct ReglaRegistro {
  std::string_view tag;
  int desde;
  int hasta;
  int rango;
  bool obligatorio = false;  ///< in every message
};

/// Follows the records of a file and tells those that are out of order or missing.
class Secuencia {
 public:
  explicit Secuencia(std::span<const ReglaRegistro> reglas);

  /// What is wrong with the place of a record, "" when nothing is. An unknown tag changes nothing.
  std::string_view Reparo(std::string_view tag);
  /// The tags that the message which ends here lacks; asked before the one that begins, and at the
  /// end of the file.
  std::vector<std::string_view> Faltan() const;
  /// Whether a record of that tag begins a message.
  bool Empieza(std::string_view tag) const;

 private:
  const ReglaRegistro* Regla(std::string_view tag) const;

  std::span<const ReglaRegistro> reglas_;
  std::vector<bool> vistos_;
  int rango_ = -1;
};

}  // namespace kvraedi::inspeccion
