#include "frame/base64.h"

#include <cstdint>

namespace kvraedi {
namespace {

constexpr std::string_view kAlfabeto =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::size_t kGrupo = 3;
constexpr std::size_t kCaracteres = 4;
constexpr std::size_t kBytesPorLinea = 54;  // 72 characters

/// One group of one to three bytes as four characters, the missing ones "=".
void CodificaGrupo(std::string_view grupo, std::string& texto) {
  std::uint32_t bits = 0;
  for (std::size_t i = 0; i < kGrupo; ++i) {
    bits = bits << 8U | (i < grupo.size() ? static_cast<unsigned char>(grupo[i]) : 0U);
  }
  for (std::size_t i = 0; i < kCaracteres; ++i) {
    const std::uint32_t indice = bits >> (6U * (kGrupo - i)) & 63U;
    texto += i <= grupo.size() ? kAlfabeto[indice] : '=';
  }
}

}  // namespace

std::string CodificaBase64(std::string_view bytes) {
  const std::size_t caracteres = (bytes.size() + kGrupo - 1) / kGrupo * kCaracteres;
  std::string texto;
  texto.reserve(caracteres + bytes.size() / kBytesPorLinea);
  for (std::size_t i = 0; i < bytes.size(); i += kGrupo) {
    if (i > 0 && i % kBytesPorLinea == 0) texto += '\n';
    CodificaGrupo(bytes.substr(i, kGrupo), texto);
  }
  return texto;
}

}  // namespace kvraedi
