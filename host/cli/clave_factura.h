#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "kvraedi/ui/grid.h"
#include "kvraedi/valor.h"

namespace kvraedi::cli {

/// The key that names one row of the list on the command line: "EJERCICIO/SERIE/NUMERO[/TIPODOC]"
/// or "FT:ALMACEN/CAJA/FECHA/NUMERO".
class ClaveFactura {
 public:
  /// Nothing when the text has neither form.
  static std::optional<ClaveFactura> Leer(std::string_view texto);
  /// The complete key of a row of the list.
  static std::string De(const ui::Grid& lista, int fila);

  bool Coincide(const ui::Grid& lista, int fila) const;
  const std::string& Texto() const { return texto_; }

 private:
  struct Directa {
    std::int64_t ejercicio;
    std::int64_t serie;
    std::int64_t numero;
    std::optional<std::int64_t> tipoDoc;
  };
  struct Ticket {
    std::int64_t almacen;
    std::int64_t caja;
    FechaHora fecha;
    std::int64_t numero;
  };

  static std::optional<Directa> LeerDirecta(std::string_view texto);
  static std::optional<Ticket> LeerTicket(std::string_view texto);

  std::string texto_;
  std::variant<Directa, Ticket> clave_;
};

}  // namespace kvraedi::cli
