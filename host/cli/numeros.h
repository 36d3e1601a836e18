#pragma once

#include <charconv>
#include <concepts>
#include <optional>
#include <string_view>

namespace kvraedi::cli {

/// The whole text as a whole number that a T can hold; nothing when it is anything else.
template <std::integral T>
std::optional<T> Entero(std::string_view texto) {
  T valor{};
  const char* const fin = texto.data() + texto.size();
  const auto leido = std::from_chars(texto.data(), fin, valor);
  if (texto.empty() || leido.ec != std::errc() || leido.ptr != fin) return std::nullopt;
  return valor;
}

}  // namespace kvraedi::cli
