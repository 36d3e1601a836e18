#include "platform/os/identificadores.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <string_view>

#include "platform/os/error_sistema.h"

namespace kvraedi {
namespace {

constexpr unsigned kBitsPorDigito = 4;
constexpr unsigned kDigitosPorPalabra = 16;

/// Sequence of Weyl steps through a mixing function: every state gives another number.
std::uint64_t Siguiente(std::uint64_t& estado) {
  estado += 0x9e3779b97f4a7c15U;
  std::uint64_t mezcla = estado;
  mezcla = (mezcla ^ (mezcla >> 30U)) * 0xbf58476d1ce4e5b9U;
  mezcla = (mezcla ^ (mezcla >> 27U)) * 0x94d049bb133111ebU;
  return mezcla ^ (mezcla >> 31U);
}

std::uint64_t DelSistema() {
  std::uint64_t valor = 0;
  if (::getentropy(&valor, sizeof valor) != 0) {
    os::FalloSistema("No se puede leer", "getentropy", errno);
  }
  return valor;
}

}  // namespace

std::uint64_t GeneradorIdentificadores::Aleatorio() {
  return estado_ ? Siguiente(*estado_) : DelSistema();
}

std::string GeneradorIdentificadores::Nuevo() {
  constexpr std::uint64_t kMascaraVersion = 0xf000, kVersion4 = 0x4000;
  constexpr std::uint64_t kMascaraVariante = std::uint64_t{3} << 62U;
  constexpr std::uint64_t kVariante = std::uint64_t{2} << 62U;
  constexpr std::string_view kDigitos = "0123456789abcdef";
  constexpr std::string_view kForma = "xxxxxxxx-xxxx-xxxx-xxxx-xxxxxxxxxxxx";

  const std::array<std::uint64_t, 2> palabras = {
      (Aleatorio() & ~kMascaraVersion) | kVersion4,
      (Aleatorio() & ~kMascaraVariante) | kVariante,
  };
  std::string texto(kForma);
  unsigned digito = 0;
  for (char& c : texto) {
    if (c == '-') continue;
    const std::uint64_t palabra = palabras.at(digito / kDigitosPorPalabra);
    const unsigned lugar = kDigitosPorPalabra - 1 - digito % kDigitosPorPalabra;
    c = kDigitos[(palabra >> (lugar * kBitsPorDigito)) & 0xfU];
    ++digito;
  }
  return texto;
}

}  // namespace kvraedi
