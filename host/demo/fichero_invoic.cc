#include "host/demo/fichero_invoic.h"

#include <algorithm>

namespace kvraedi::demo {
namespace {

constexpr std::size_t kMasLargo = 35;  // of a text

/// The letters of the demo's texts in code page 1252: those of Latin 1 and the euro, one byte each.
std::string Codigo1252(std::string_view utf8) {
  constexpr std::string_view kEuro = "€";
  std::string bytes;
  for (std::size_t i = 0; i < utf8.size(); ++i) {
    if (utf8.substr(i).starts_with(kEuro)) {
      bytes += '\x80';
      i += kEuro.size() - 1;
      continue;
    }
    const auto byte = static_cast<unsigned char>(utf8[i]);
    const bool doble = (byte == 0xC2 || byte == 0xC3) && i + 1 < utf8.size();
    if (doble) {
      const auto segundo = static_cast<unsigned char>(utf8[++i]);
      bytes += static_cast<char>(byte == 0xC3 ? segundo + 0x40 : segundo);
    } else {
      bytes += byte < ' ' ? ' ' : byte < 0x80 ? utf8[i] : '?';
    }
  }
  return bytes;
}

}  // namespace

std::string DecimalMensaje(std::int64_t valor, int decimales) {
  std::int64_t divisor = 1;
  for (int i = decimales; i < 4; ++i) divisor *= 10;
  const std::int64_t magnitud = (std::max(valor, -valor) + divisor / 2) / divisor;
  std::string texto = std::to_string(magnitud);
  const auto minimo = static_cast<std::size_t>(decimales) + 1;
  if (texto.size() < minimo) texto.insert(0, minimo - texto.size(), '0');
  texto.insert(texto.size() - static_cast<std::size_t>(decimales), ".");
  return valor < 0 ? "-" + texto : texto;
}

void FicheroInvoic::Registro(std::string_view tag, std::size_t ancho,
                             std::initializer_list<Campo> campos) {
  std::string registro(ancho, ' ');
  registro.replace(0, tag.size(), tag);
  for (const auto& [columna, texto, anchoCampo] : campos) {
    const std::string bytes = Codigo1252(texto).substr(0, kMasLargo);
    const std::size_t hueco = anchoCampo > bytes.size() ? anchoCampo - bytes.size() : 0;
    const std::size_t sitio = columna - 1 + hueco;
    const std::size_t cabe = std::min(bytes.size(), ancho - sitio);
    registro.replace(sitio, cabe, bytes, 0, cabe);
  }
  bytes_ += registro + "\r\n";
}

void FicheroInvoic::Texto(std::string_view tag, std::initializer_list<std::string_view> textos) {
  constexpr std::size_t kPrimero = 13, kAncho = 70;
  std::string registro(tag);
  registro.resize(kPrimero - 1 + kAncho * textos.size(), ' ');
  registro.replace(6, 3, "AAI");
  std::size_t sitio = kPrimero - 1;
  for (const std::string_view texto : textos) {
    const std::string bytes = Codigo1252(texto).substr(0, kAncho);
    registro.replace(sitio, bytes.size(), bytes);
    sitio += kAncho;
  }
  bytes_ += registro + "\r\n";
}

}  // namespace kvraedi::demo
