#pragma once

#include <benchmark/benchmark.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "platform/headless/headless_toolkit.h"
#include "platform/os/entorno_sistema.h"
#include "platform/sqlite/sqlite_connection.h"
#include "platform/suite/suite_referencia.h"

namespace kvraedi::bench {

/// Where data and files stand: $KVRAEDI_BENCH_DIR, else the memory file system, else the system's
/// folder for temporary files.
std::filesystem::path CarpetaBench();

/// A private copy of a database with its folder of sent files; removed afterwards.
class Copia {
 public:
  explicit Copia(const std::filesystem::path& base);
  ~Copia();
  Copia(const Copia&) = delete;
  Copia& operator=(const Copia&) = delete;

  std::filesystem::path Base() const { return carpeta_ / "kvraedi.db"; }
  std::filesystem::path Envios() const { return carpeta_ / "Envios"; }

 private:
  std::filesystem::path carpeta_;
};

/// A host over a database: adapters installed, session of company 1 set.
class Puesto {
 public:
  explicit Puesto(const std::filesystem::path& base);
  Puesto(std::shared_ptr<Connection> conexion, const std::filesystem::path& carpeta);
  ~Puesto();
  Puesto(const Puesto&) = delete;
  Puesto& operator=(const Puesto&) = delete;

  HeadlessToolkit toolkit;

 private:
  EntornoSistema entorno_;
  SuiteReferencia suite_;
};

/// Times one run of the body, and notes the processor time that this process took for it and the
/// highest memory that it has taken.
void Medir(benchmark::State& state, const std::function<void()>& cuerpo);

/// Names the two sides of a comparison: "NAME/propio" and "NAME/suelo".
void Registrar(const std::string& nombre, std::function<void(benchmark::State&)> propio,
               std::function<void(benchmark::State&)> suelo);

void RegistrarFacturas();
void RegistrarInvoic();
void RegistrarFacturae();
void RegistrarCoacsu();
void RegistrarDesadv();
void RegistrarOrders();
void RegistrarPedidos();
void RegistrarRecibidas();
void RegistrarOdbc();

}  // namespace kvraedi::bench
