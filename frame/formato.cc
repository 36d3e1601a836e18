#include "frame/formato.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "frame/codigo1252.h"
#include "frame/numero.h"
#include "frame/puertos.h"

namespace kvraedi {
namespace {

void AppendPadded(std::string& out, std::uint64_t value, std::size_t digits) {
  std::array<char, 20> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
  const auto length = static_cast<std::size_t>(end - text.data());
  if (length < digits) out.append(digits - length, '0');
  out.append(text.data(), length);
}

struct DatePiece {
  std::string_view token;
  int value;
};

}  // namespace

std::string FormatearNumero(Currency valor, std::string_view patron, char decimal) {
  const std::size_t point = patron.find('.');
  const std::string_view entera = patron.substr(0, point);
  const std::size_t enteros =
      static_cast<std::size_t>(std::count(entera.begin(), entera.end(), '0'));
  const std::size_t decimales = point == std::string_view::npos ? 0 : patron.size() - point - 1;

  const std::int64_t units = Redondear(valor, static_cast<int>(decimales)).Units();
  const std::uint64_t magnitude =
      units < 0 ? ~static_cast<std::uint64_t>(units) + 1 : static_cast<std::uint64_t>(units);
  constexpr auto kScale = static_cast<std::uint64_t>(Currency::kScale);

  std::string text(units < 0 ? "-" : "");
  AppendPadded(text, magnitude / kScale, enteros);
  if (decimales > 0) {
    text += decimal;
    std::uint64_t fraction = magnitude % kScale;
    for (std::size_t i = decimales; i < 4; ++i) fraction /= 10;
    const std::size_t exactos = std::min<std::size_t>(decimales, 4);
    AppendPadded(text, fraction, exactos);
    text.append(decimales - exactos, '0');
  }
  return text;
}

std::string FormatearFecha(const FechaHora& fecha, std::string_view patron) {
  const std::array<DatePiece, 7> pieces = {{{"yyyy", fecha.year},
                                            {"yy", fecha.year % 100},
                                            {"mm", fecha.month},
                                            {"dd", fecha.day},
                                            {"hh", fecha.hour},
                                            {"nn", fecha.minute},
                                            {"ss", fecha.second}}};
  std::string text;
  while (!patron.empty()) {
    const auto piece = std::find_if(pieces.begin(), pieces.end(), [&](const DatePiece& candidate) {
      return patron.substr(0, candidate.token.size()) == candidate.token;
    });
    if (piece == pieces.end()) {
      text += patron.front();
      patron.remove_prefix(1);
    } else {
      AppendPadded(text, static_cast<std::uint64_t>(piece->value), piece->token.size());
      patron.remove_prefix(piece->token.size());
    }
  }
  return text;
}

std::string FechaTexto(const FechaHora& fecha) {
  std::string text = FormatearFecha(fecha, "dd/mm/yyyy");
  if (fecha.HasTime()) {
    text += ' ';
    AppendPadded(text, static_cast<std::uint64_t>(fecha.hour), 1);
    text += FormatearFecha(fecha, ":nn:ss");
  }
  return text;
}

std::string NumeroTexto(Currency valor, int decimales) {
  constexpr std::string_view kPatron = "0.0000";
  const auto largo = static_cast<std::size_t>(decimales == 0 ? 1 : decimales + 2);
  return FormatearNumero(valor, kPatron.substr(0, largo), EntornoActual().Region().decimal);
}

std::optional<FechaHora> FechaEscrita(std::string_view texto) {
  constexpr std::size_t kLength = 10;
  if (texto.size() != kLength || texto[2] != '/' || texto[5] != '/') return std::nullopt;
  return FechaHora::Parse(texto);
}

namespace {

struct ValueText {
  std::string operator()(std::monostate) const { return {}; }
  std::string operator()(bool value) const { return value ? "1" : "0"; }
  std::string operator()(std::int64_t value) const { return std::to_string(value); }
  std::string operator()(double value) const {
    constexpr int kSignificantDigits = 15;
    constexpr double kSmallest = 1e-10;  // below it, and from 1e15 on, an exponent is written
    if (value == 0) return "0";          // of either sign
    std::array<char, 40> text{};
    char* const last = text.data() + text.size();
    const auto general = std::chars_format::general;
    if (std::abs(value) >= 1e-4 || std::abs(value) < kSmallest) {
      return {text.data(),
              std::to_chars(text.data(), last, value, general, kSignificantDigits).ptr};
    }
    const int zeros = -1 - static_cast<int>(std::floor(std::log10(std::abs(value))));
    std::string fixed(text.data(), std::to_chars(text.data(), last, value, std::chars_format::fixed,
                                                 kSignificantDigits + zeros)
                                       .ptr);
    fixed.erase(fixed.find_last_not_of('0') + 1);
    return fixed;
  }
  std::string operator()(Currency value) const {
    std::string text = FormatearNumero(value, "0.0000");
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.') text.pop_back();
    return text;
  }
  std::string operator()(const FechaHora& value) const { return FechaTexto(value); }
  std::string operator()(const std::string& value) const { return value; }
};

}  // namespace

std::string TextoDe(const Valor& valor) { return std::visit(ValueText{}, valor); }

std::string_view PrimerosCaracteres(std::string_view texto, std::size_t caracteres) {
  const auto continua = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; };
  std::size_t fin = 0;
  for (; fin < texto.size(); ++fin) {
    if (!continua(texto[fin]) && caracteres-- == 0) break;
  }
  return texto.substr(0, fin);
}

bool FormatearCampo(Alineacion alineacion, std::string_view texto, std::span<char> campo) {
  const auto [used, fits] = Escribir1252(texto, campo);
  std::fill(campo.begin() + static_cast<std::ptrdiff_t>(used), campo.end(), ' ');
  if (alineacion == Alineacion::kDerecha) {
    std::rotate(campo.begin(), campo.begin() + static_cast<std::ptrdiff_t>(used), campo.end());
  }
  return fits;
}

}  // namespace kvraedi
