#include "frame/numero.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "frame/recortar.h"

namespace kvraedi {
namespace {

__extension__ using Entero128 = __int128;

constexpr std::int64_t kPorCiento = 100;
constexpr std::int64_t kDecimales = 4;

/// The last of so many decimals, in units.
std::int64_t Paso(int decimales) {
  std::int64_t paso = 1;
  for (std::int64_t i = decimales; i < kDecimales; ++i) paso *= 10;
  return paso;
}

Entero128 Multiplicar(Entero128 a, Entero128 b) {
  Entero128 resultado = 0;
  if (__builtin_mul_overflow(a, b, &resultado)) ThrowOverflow();
  return resultado;
}

/// valor / divisor, half away from zero.
Entero128 Dividir(Entero128 valor, Entero128 divisor) {
  if (divisor < 0) return Dividir(-valor, -divisor);
  const Entero128 cociente = valor / divisor;
  const Entero128 resto = valor % divisor;
  if ((resto < 0 ? -resto : resto) * 2 < divisor) return cociente;
  return cociente + (valor < 0 ? -1 : 1);
}

Currency DesdeUnidades(Entero128 unidades) {
  return Currency::FromUnits(Estrechar<std::int64_t>(unidades));
}

}  // namespace

namespace {

/// The usual shape: digits with up to four decimals, few enough not to overflow. Nothing when the
/// text has another one.
std::optional<Currency> NumeroCorriente(std::string_view texto) {
  constexpr std::size_t kMasLargo = 14;
  const bool negativo = texto.starts_with('-');
  if (negativo) texto.remove_prefix(1);
  if (texto.empty() || texto.size() > kMasLargo) return std::nullopt;
  std::int64_t unidades = 0;
  std::int64_t decimales = -1;  // before the point
  for (const char c : texto) {
    if (c >= '0' && c <= '9') {
      unidades = unidades * 10 + (c - '0');
      if (decimales >= 0) ++decimales;
    } else if ((c == '.' || c == ',') && decimales < 0) {
      decimales = 0;
    } else {
      return std::nullopt;
    }
  }
  const bool completo = decimales != 0 && texto.front() >= '0';
  if (!completo || decimales > kDecimales) return std::nullopt;
  for (std::int64_t i = std::max<std::int64_t>(decimales, 0); i < kDecimales; ++i) unidades *= 10;
  return Currency::FromUnits(negativo ? -unidades : unidades);
}

}  // namespace

std::optional<Currency> NumeroRecibido(std::string_view texto) {
  texto = Recortar(texto);
  if (texto.empty()) return Currency();
  if (const auto corriente = NumeroCorriente(texto)) return corriente;
  std::string numero(texto);
  std::replace(numero.begin(), numero.end(), ',', '.');
  if (numero.find_first_not_of("+-.0123456789") != std::string::npos) return std::nullopt;
  try {
    return Currency::Parse(numero);
  } catch (const Error&) {
    return std::nullopt;
  }
}

bool TieneFormaDeNumero(std::string_view texto) {
  texto = Recortar(texto);
  if (texto.starts_with('-') || texto.starts_with('+')) texto.remove_prefix(1);
  const auto signo = texto.find_first_of(".,");
  const auto cifras = [](std::string_view parte) {
    return parte.find_first_not_of("0123456789") == std::string_view::npos;
  };
  if (signo == std::string_view::npos) return !texto.empty() && cifras(texto);
  return texto.size() > 1 && cifras(texto.substr(0, signo)) && cifras(texto.substr(signo + 1));
}

Currency ReglaDeTres(Currency a, Currency b, Currency divisor) {
  return DesdeUnidades(Dividir(Multiplicar(a.Units(), b.Units()), divisor.Units()));
}

Currency Porcentaje(Currency importe, Currency porcentaje, int decimales) {
  const std::int64_t paso = Paso(decimales);
  const Entero128 cien = Multiplicar(kPorCiento, Currency::kScale);
  const Entero128 producto = Multiplicar(importe.Units(), porcentaje.Units());
  return DesdeUnidades(Multiplicar(Dividir(producto, Multiplicar(cien, paso)), paso));
}

double RedondearAlPar(double valor, int decimales) {
  const double escala = std::pow(10.0, decimales);
  return std::nearbyint(valor * escala) / escala;
}

Currency Redondear(Currency valor, int decimales) {
  const std::int64_t paso = Paso(decimales);
  const std::int64_t resto = valor.Units() % paso;
  std::int64_t unidades = valor.Units() - resto;
  const bool arriba = (resto < 0 ? -resto : resto) * 2 >= paso;
  if (!arriba) return Currency::FromUnits(unidades);
  if (__builtin_add_overflow(unidades, resto < 0 ? -paso : paso, &unidades)) ThrowOverflow();
  return Currency::FromUnits(unidades);
}

Currency ImporteConDescuento(Currency precio, Currency unidades, Currency porcentaje) {
  const Entero128 bruto = Multiplicar(precio.Units(), unidades.Units());
  const Entero128 cien = Multiplicar(kPorCiento, Currency::kScale);
  const Entero128 neto = Multiplicar(bruto, cien - porcentaje.Units());
  return DesdeUnidades(Dividir(neto, Multiplicar(cien, Currency::kScale)));
}

}  // namespace kvraedi
