#include "platform/suite/valor_informe.h"

#include <algorithm>

#include "kvraedi/error.h"
#include "platform/suite/texto_sql.h"

namespace kvraedi::suite {
namespace {

__extension__ using Entero128 = __int128;

constexpr int kDecimales = 4;

std::string Relleno(std::string digitos, std::size_t ancho) {
  if (digitos.size() < ancho) digitos.insert(0, ancho - digitos.size(), '0');
  return digitos;
}

/// The last of so many decimals, in units.
std::int64_t Paso(int decimales) {
  std::int64_t paso = 1;
  for (int i = decimales; i < kDecimales; ++i) paso *= 10;
  return paso;
}

std::string CantidadEscrita(Currency valor) {
  std::string texto = NumeroEscrito(valor, kDecimales);
  texto.erase(texto.find_last_not_of('0') + 1);
  if (texto.back() == ',') texto.pop_back();
  return texto;
}

std::string FechaEscrita(std::string_view texto) {
  const auto fecha = texto.empty() ? std::nullopt : FechaHora::Parse(texto);
  if (!fecha) return std::string(texto);
  const auto parte = [](int valor, std::size_t ancho) {
    return Relleno(std::to_string(valor), ancho);
  };
  return parte(fecha->day, 2) + '/' + parte(fecha->month, 2) + '/' + parte(fecha->year, 4);
}

/// A layout breaks lines at each of CR and LF.
std::string SinRetornos(std::string_view texto) {
  std::string limpio(texto);
  limpio.erase(std::remove(limpio.begin(), limpio.end(), '\r'), limpio.end());
  return limpio;
}

/// Whether the field has to do with numbers at all; a bank account is digits and no number.
bool PideNumero(const CampoInforme& campo) {
  return campo.formato != FormatoCampo::kTexto || campo.validez != ValidezCampo::kTodos;
}

/// The text as a number; nothing also when it is too large for one.
std::optional<Currency> NumeroQueCabe(std::string_view texto) {
  try {
    return NumeroDe(texto);
  } catch (const Error&) {
    return std::nullopt;
  }
}

bool Vale(Currency numero, ValidezCampo validez) {
  if (validez == ValidezCampo::kPositivos) return numero > Currency();
  return validez == ValidezCampo::kTodos || numero != Currency();
}

}  // namespace

std::optional<Currency> NumeroDe(std::string_view texto) {
  std::string numero(Recortar(texto));
  std::replace(numero.begin(), numero.end(), ',', '.');
  return Currency::Parse(numero);
}

Currency ProductoRebajado(Currency a, Currency b, Currency porcentaje, const CampoInforme& campo) {
  constexpr std::int64_t kCien = 100 * Currency::kScale;
  const bool fijos = campo.formato == FormatoCampo::kNumero;
  const std::int64_t paso = Paso(fijos ? campo.decimales : kDecimales);
  const std::int64_t divisor = kCien * Currency::kScale * paso;
  Entero128 unidades = static_cast<Entero128>(a.Units()) * b.Units();
  if (__builtin_mul_overflow(unidades, kCien - porcentaje.Units(), &unidades)) ThrowOverflow();
  unidades = (unidades + (unidades < 0 ? -divisor : divisor) / 2) / divisor * paso;
  if (unidades != static_cast<std::int64_t>(unidades)) ThrowOverflow();
  return Currency::FromUnits(static_cast<std::int64_t>(unidades));
}

std::string NumeroEscrito(Currency valor, int decimales) {
  const bool negativo = valor.Units() < 0;
  auto unidades = static_cast<std::uint64_t>(valor.Units());
  if (negativo) unidades = ~unidades + 1;
  const auto divisor = static_cast<std::uint64_t>(Paso(decimales));
  const auto ancho = static_cast<std::size_t>(decimales);
  std::string texto = Relleno(std::to_string((unidades + divisor / 2) / divisor), ancho + 1);
  const bool cero = texto.find_first_not_of('0') == std::string::npos;
  const std::size_t coma = texto.size() - ancho;
  if (decimales > 0) texto.insert(coma, ",");
  constexpr std::size_t kMillar = 3;
  for (std::size_t sitio = coma; sitio > kMillar; sitio -= kMillar) {
    texto.insert(sitio - kMillar, ".");
  }
  return negativo && !cero ? "-" + texto : texto;
}

std::optional<std::string> Presentar(const CampoInforme& campo, std::string_view texto) {
  if (texto.empty()) return std::nullopt;
  if (campo.formato == FormatoCampo::kFecha) return FechaEscrita(texto);
  const auto numero = PideNumero(campo) ? NumeroQueCabe(texto) : std::nullopt;
  const bool esTexto = !numero || campo.formato == FormatoCampo::kTexto;
  if (!esTexto) return Presentar(campo, *numero);
  if (numero && !Vale(*numero, campo.validez)) return std::nullopt;
  return SinRetornos(texto);
}

std::optional<std::string> Presentar(const CampoInforme& campo, Currency numero) {
  if (!Vale(numero, campo.validez)) return std::nullopt;
  if (campo.formato == FormatoCampo::kNumero) return NumeroEscrito(numero, campo.decimales);
  return CantidadEscrita(numero);
}

}  // namespace kvraedi::suite
