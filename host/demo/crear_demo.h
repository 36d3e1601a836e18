#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "kvraedi/conexion.h"

namespace kvraedi::demo {

inline constexpr std::int32_t kMaximoFacturas = 2'000'000;

struct OpcionesDemo {
  std::filesystem::path carpeta;
  std::int32_t facturas = 400;  ///< invoices of both companies; ticket invoices are a tenth more
  std::uint64_t semilla = 1;
  bool sobrescribir = false;  ///< replaces a database that is already there
  /// Stands before the database that is filled, where there is one.
  std::function<std::shared_ptr<Connection>(std::shared_ptr<Connection>)> envolver;
};

/// Told from time to time how many documents of how many are made.
using Progreso = std::function<void(std::int32_t hechos, std::int32_t total)>;

/// Creates the demo: the folder, the database kvraedi.db in it and the folders Envios/, Recepcion/
/// and Rpt/, which holds the report files. The same options give the same contents. The database
/// appears under its name when it is complete. Gives back the database's path; raises `Error` when
/// one is there already, when the number of invoices is out of range or when the system refuses.
std::filesystem::path CrearDemo(const OpcionesDemo& opciones, const Progreso& progreso = {});

/// The same in an open database of SQL Server that has no tables; it raises `Error` when it has.
/// `carpeta` holds the folders and files alone, and the database says where it is. Everything is
/// made in one transaction.
void CrearDemoEn(Connection& conexion, const OpcionesDemo& opciones, const Progreso& progreso = {});

/// A customer of the demo and what waits to be sent to it.
struct ResumenCliente {
  std::string canal;  ///< platform and message, "" without channel
  std::int32_t codigo = 0;
  std::string nombre;
  std::int64_t pendientes = 0;  ///< invoices of the company without a sending, not excluded
};

/// The customers of a company's customer file, by channel and code; `porCanal` of each channel at
/// most.
std::vector<ResumenCliente> ResumirDemo(Connection& conexion, std::int16_t empresa,
                                        std::size_t porCanal = 12);

}  // namespace kvraedi::demo
