#include "inspeccion/reparos.h"

#include <algorithm>

#include "frame/numero.h"
#include "kvraedi/valor.h"

namespace kvraedi::inspeccion {
namespace {

bool SonCifras(std::string_view texto) {
  return std::all_of(texto.begin(), texto.end(), [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

std::string_view ReparoNumero(std::string_view valor) {
  return TieneFormaDeNumero(valor) ? "" : "no es un número";
}

std::string_view ReparoFecha(std::string_view valor) {
  constexpr std::string_view kNoEs = "no es una fecha";
  constexpr std::size_t kDia = 8, kMinuto = 12;
  if ((valor.size() != kDia && valor.size() != kMinuto) || !SonCifras(valor)) return kNoEs;
  const std::string dia = "20" + std::string(valor.substr(2, kDia - 2));
  if (!FechaHora::Parse(dia)) return kNoEs;
  return valor.substr(kDia) < "2360" ? "" : kNoEs;
}

std::string_view ReparoFechaEscrita(std::string_view valor) {
  return FechaHora::Parse(valor) ? "" : "no es una fecha";
}

std::string ReparoGln(std::string_view valor) {
  constexpr std::size_t kCifras = 13;
  if (valor.size() != kCifras || !SonCifras(valor)) return "un GLN tiene 13 cifras";
  int suma = 0;
  for (std::size_t i = 0; i + 1 < kCifras; ++i) suma += (valor[i] - '0') * (i % 2 == 0 ? 1 : 3);
  const char control = static_cast<char>('0' + (10 - suma % 10) % 10);
  if (valor.back() == control) return {};
  return std::string("la cifra de control del GLN debería ser ") + control;
}

}  // namespace kvraedi::inspeccion
