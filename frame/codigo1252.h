#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace kvraedi {

struct Escrito1252 {
  std::size_t bytes;  ///< bytes written
  bool fits;          ///< false when the text was longer than the room for it
};

/// What becomes of control characters, line ends among them, inside a text.
enum class Saltos : std::uint8_t { kBlancos, kComoEstan };

/// Writes a UTF-8 text in code page 1252, the code page of every text file of the component, as far
/// as there is room. A character that the code page lacks, or bytes that are not UTF-8, become "?".
Escrito1252 Escribir1252(std::string_view utf8, std::span<char> destino,
                         Saltos saltos = Saltos::kBlancos);

/// The UTF-8 text of bytes in code page 1252. A byte that the code page lacks becomes the control
/// character of its number.
std::string Leer1252(std::string_view bytes);

}  // namespace kvraedi
