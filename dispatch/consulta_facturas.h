#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace kvraedi {

inline constexpr std::size_t kNivelesCadena = 10;

enum class Estado { kTodos, kGeneradas, kPendientes };
enum class TipoFactura { kTodos, kDirecta, kTicket };

/// What the list of invoices is asked for. The dates go into the statement as they were typed.
struct FiltroFacturas {
  std::string fechaInicial;
  std::string fechaFinal;
  Estado estado = Estado::kTodos;
  TipoFactura tipo = TipoFactura::kTodos;
  std::int32_t cliente = 0;                              ///< 0: all
  std::array<std::int32_t, kNivelesCadena> cadena = {};  ///< code of each level, 0: all
};

/// The list of invoices and ticket invoices, one row for each; newest date first.
std::string ConsultaFacturas(const FiltroFacturas& filtro, std::int16_t empresa,
                             std::int16_t empresaClientes);

}  // namespace kvraedi
