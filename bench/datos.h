#pragma once

#include <filesystem>
#include <string>

namespace kvraedi::bench {

inline constexpr int kFacturas = 2000;
inline constexpr int kLineasPorFactura = 10;
inline constexpr int kCliente = 100;
inline constexpr int kEjercicio = 2026;

/// Codes of the invoices that have many lines, and how many.
struct FacturaLarga {
  int codigo;
  int lineas;
};
inline constexpr FacturaLarga kMil{900001, 1000};
inline constexpr FacturaLarga kDiezMil{900002, 10000};

/// A database with kFacturas invoices of kLineasPorFactura lines, numbered from 1, and the long
/// ones. Made once; a file that is there is left alone.
std::filesystem::path PrepararInvoic(const std::filesystem::path& carpeta);

/// A database with Facturae invoices of one customer, whose codes are their numbers of lines. Made
/// once.
inline constexpr int kDiezLineas = 10;
inline constexpr int kDiezMilLineas = 10000;
std::filesystem::path PrepararFacturae(const std::filesystem::path& carpeta);

/// A demo database with so many invoices, made once.
std::filesystem::path PrepararLista(const std::filesystem::path& carpeta, int facturas);

}  // namespace kvraedi::bench
