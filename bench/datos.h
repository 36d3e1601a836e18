#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "kvraedi/conexion.h"

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

/// The masters that every database here has, as one script.
extern const std::string_view kMaestros;

/// A database with kFacturas invoices of kLineasPorFactura lines, numbered from 1, and the long
/// ones. Made once; a file that is there is left alone.
std::filesystem::path PrepararInvoic(const std::filesystem::path& carpeta);
/// Its kFacturas invoices, into tables that have the masters.
void InsertarFacturas(Connection& conexion);
/// 100,000 invoices without lines.
void InsertarCienMilFacturas(Connection& conexion);

/// A database with Facturae invoices of one customer, whose codes are their numbers of lines. Made
/// once.
inline constexpr int kDiezLineas = 10;
inline constexpr int kDiezMilLineas = 10000;
std::filesystem::path PrepararFacturae(const std::filesystem::path& carpeta);

/// A database with so many summary invoices of the customer, of kAlbaranesPorFactura delivery notes
/// of one line each, all between the two dates. Made once.
inline constexpr int kAlbaranesPorFactura = 5;
inline constexpr std::string_view kDesde = "01/05/2026";
inline constexpr std::string_view kHasta = "31/05/2026";
std::filesystem::path PrepararCoacsu(const std::filesystem::path& carpeta, int facturas);

/// A database with a warehouse and kArticulos articles, numbered from 1, and the folders and
/// settings for despatch advices beside it. Made once.
inline constexpr int kArticulos = 1000;
inline constexpr std::string_view kGlnAlmacen = "8430000010017";
std::filesystem::path PrepararDesadv(const std::filesystem::path& carpeta);
/// The same, into tables that have the masters.
void InsertarRecepcion(Connection& conexion);

/// The folder of received orders, in it a file of so many orders of kLineasPorPedido lines, which
/// is still to be read.
inline constexpr int kLineasPorPedido = 50;
void EscribirOrders(const std::filesystem::path& carpeta, int pedidos);

/// A database with two supplier orders, whose codes are their numbers of lines, and kEntradas
/// receipts of store 3, numbered from 1, of 20 tax rows. Made once.
inline constexpr int kPedidoCorto = 3000;
inline constexpr int kPedidoLargo = 30000;
inline constexpr int kEntradas = 2000;
std::filesystem::path PrepararCompras(const std::filesystem::path& carpeta);

/// A demo database with so many invoices, made once.
std::filesystem::path PrepararLista(const std::filesystem::path& carpeta, int facturas);

}  // namespace kvraedi::bench
