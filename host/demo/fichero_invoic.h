#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace kvraedi::demo {

/// A number in a message: so many decimals, with a point. `valor` counts ten-thousandths.
std::string DecimalMensaje(std::int64_t valor, int decimales);

/// An INVOIC file as a supplier's program writes it: fixed-width records in code page 1252.
class FicheroInvoic {
 public:
  /// A field: its column, from 1, and its text; with a width the text ends at the field's end.
  struct Campo {
    std::size_t columna;
    std::string texto;
    std::size_t ancho = 0;
  };

  void Registro(std::string_view tag, std::size_t ancho, std::initializer_list<Campo> campos);
  /// A record of up to five texts of 70 characters.
  void Texto(std::string_view tag, std::initializer_list<std::string_view> textos);

  const std::string& Bytes() const { return bytes_; }

 private:
  std::string bytes_;
};

}  // namespace kvraedi::demo
