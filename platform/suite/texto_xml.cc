#include "platform/suite/texto_xml.h"

#include <cstdint>

namespace kvraedi::suite {
namespace {

constexpr std::uint32_t kInvalido = 0xFFFFFFFF;

bool EsDeXml(std::uint32_t punto) {
  if (punto < 0x20) return punto == '\t' || punto == '\n' || punto == '\r';
  return punto < 0xD800 || (punto >= 0xE000 && punto < 0xFFFE) ||
         (punto >= 0x10000 && punto <= 0x10FFFF);
}

struct Caracter {
  std::uint32_t punto = kInvalido;
  std::size_t bytes = 1;
};

/// The character at the beginning of the text; a byte that begins none is invalid by itself.
Caracter PrimerCaracter(std::string_view texto) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(texto[i]); };
  const std::uint32_t primero = byte(0);
  if (primero < 0x80) return {primero, 1};
  const std::size_t bytes = primero >= 0xF0 ? 4 : primero >= 0xE0 ? 3 : 2;
  if (primero < 0xC2 || primero > 0xF4 || bytes > texto.size()) return {};
  std::uint32_t punto = primero & (0x7FU >> bytes);
  for (std::size_t i = 1; i < bytes; ++i) {
    if ((byte(i) & 0xC0U) != 0x80) return {};
    punto = punto << 6U | (byte(i) & 0x3FU);
  }
  const bool masLargoDeLoDebido = (bytes == 3 && punto < 0x800) || (bytes == 4 && punto < 0x10000);
  return masLargoDeLoDebido ? Caracter{} : Caracter{punto, bytes};
}

}  // namespace

TextoXml::TextoXml(std::string_view texto) : original_(texto) {
  for (std::size_t i = 0; i < texto.size();) {
    const Caracter caracter = PrimerCaracter(texto.substr(i));
    const bool valido = EsDeXml(caracter.punto);
    if (!valido && !sucio_) {
      sucio_ = true;
      copia_ = texto.substr(0, i);
    } else if (valido && sucio_) {
      copia_ += texto.substr(i, caracter.bytes);
    }
    i += caracter.bytes;
  }
}

}  // namespace kvraedi::suite
