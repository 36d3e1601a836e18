#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace kvraedi {

struct Escrito1252 {
  std::size_t bytes;  ///< bytes written
  bool fits;          ///< false when the text was longer than the room for it
};

/// Writes a UTF-8 text in code page 1252, the code page of every text file of the component, as far
/// as there is room. CR, LF and TAB become blanks; a character that the code page lacks, or bytes
/// that are not UTF-8, become "?".
Escrito1252 Escribir1252(std::string_view utf8, std::span<char> destino);

/// The UTF-8 text of bytes in code page 1252. A byte that the code page lacks becomes the control
/// character of its number.
std::string Leer1252(std::string_view bytes);

}  // namespace kvraedi
