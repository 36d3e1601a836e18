#include "platform/suite/texto_xml.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "platform/suite/texto_sql.h"

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

bool EsUtf8(std::string_view texto) {
  while (!texto.empty()) {
    const Caracter caracter = PrimerCaracter(texto);
    if (caracter.punto == kInvalido) return false;
    texto.remove_prefix(caracter.bytes);
  }
  return true;
}

/// A byte order mark, or the zero bytes of an encoding of two or four bytes a character.
bool DiceSuCodificacion(std::string_view bytes) {
  for (const std::string_view marca : {"\xEF\xBB\xBF", "\xFF\xFE", "\xFE\xFF"}) {
    if (bytes.starts_with(marca)) return true;
  }
  return bytes.substr(0, 4).find('\0') != std::string_view::npos;
}

bool Declara1252(std::string_view bytes) {
  if (!bytes.starts_with("<?xml")) return false;
  std::string declaracion(bytes.substr(0, bytes.find("?>")));
  std::transform(declaracion.begin(), declaracion.end(), declaracion.begin(), Minuscula);
  for (const char* nombre : {"windows-1252", "cp1252", "iso-8859-1"}) {
    if (declaracion.find(nombre) != std::string::npos) return true;
  }
  return false;
}

/// A byte from 0x80 on. One that the code page lacks is the control character of its number.
std::string_view Caracter1252(unsigned char byte) {
  constexpr unsigned char kPrimero = 0x80;
  constexpr std::array<std::string_view, 32> kAltos = {
      "€", "\xC2\x81", "‚",        "ƒ", "„",        "…",        "†", "‡",        "ˆ", "‰", "Š",
      "‹", "Œ",        "\xC2\x8D", "Ž", "\xC2\x8F", "\xC2\x90", "‘", "’",        "“", "”", "•",
      "–", "—",        "˜",        "™", "š",        "›",        "œ", "\xC2\x9D", "ž", "Ÿ"};
  return kAltos[static_cast<std::size_t>(byte - kPrimero)];
}

}  // namespace

std::optional<std::string> Desde1252(std::string_view bytes) {
  if (DiceSuCodificacion(bytes) || (!Declara1252(bytes) && EsUtf8(bytes))) return std::nullopt;
  std::string texto;
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x80) {
      texto += c;
    } else if (byte < 0xA0) {
      texto += Caracter1252(byte);
    } else {
      texto += byte < 0xC0 ? '\xC2' : '\xC3';
      texto += static_cast<char>(byte < 0xC0 ? byte : byte - 0x40);
    }
  }
  return texto;
}

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
