#include "bench/puesto.h"

#include <sys/resource.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <utility>

#include "kvraedi/adaptadores.h"
#include "kvraedi/sesion.h"
#include "platform/suite/empresa_suite.h"

namespace kvraedi::bench {

namespace fs = std::filesystem;

namespace {

/// The processor time, the system's own included.
double Milisegundos(const rusage& uso) {
  const auto tiempo = [](const timeval& de) {
    return static_cast<double>(de.tv_sec) * 1e3 + static_cast<double>(de.tv_usec) / 1e3;
  };
  return tiempo(uso.ru_utime) + tiempo(uso.ru_stime);
}

}  // namespace

fs::path CarpetaBench() {
  const char* const elegida = std::getenv("KVRAEDI_BENCH_DIR");
  fs::path carpeta = elegida != nullptr             ? fs::path(elegida)
                     : fs::is_directory("/dev/shm") ? fs::path("/dev/shm") / "kvraedi-bench"
                                                    : fs::temp_directory_path() / "kvraedi-bench";
  fs::create_directories(carpeta);
  return carpeta;
}

Copia::Copia(const fs::path& base)
    : carpeta_(CarpetaBench() / ("copia-" + std::to_string(::getpid()))) {
  fs::remove_all(carpeta_);
  fs::create_directories(Envios());
  fs::copy_file(base, Base());
}

Copia::~Copia() {
  std::error_code ignorado;
  fs::remove_all(carpeta_, ignorado);
}

Puesto::Puesto(const fs::path& base)
    : Puesto(std::make_shared<SqliteConnection>(base.string()), base.parent_path()) {}

Puesto::Puesto(std::shared_ptr<Connection> conexion, const fs::path& carpeta)
    : entorno_({.unidad = carpeta}) {
  InstalarAdaptadores({.entorno = &entorno_, .toolkit = &toolkit, .suite = &suite_});
  PropiedadesSesion sesion;
  sesion.EmpresaKestrova(std::make_shared<EmpresaSuite>(*conexion, std::int16_t{1}, carpeta));
  sesion.ConexionKestrova(std::move(conexion));
}

Puesto::~Puesto() {
  if (ui::Form* form = toolkit.OpenForm("frmMsg")) form->Unload();
  PropiedadesSesion sesion;
  sesion.EmpresaKestrova(nullptr);
  sesion.ConexionKestrova(nullptr);
  InstalarAdaptadores({});
}

void Medir(benchmark::State& state, const std::function<void()>& cuerpo) {
  using Reloj = std::chrono::steady_clock;
  rusage antes{};
  rusage uso{};
  for (auto iteracion : state) {
    ::getrusage(RUSAGE_SELF, &antes);
    const auto inicio = Reloj::now();
    cuerpo();
    state.SetIterationTime(std::chrono::duration<double>(Reloj::now() - inicio).count());
    ::getrusage(RUSAGE_SELF, &uso);
  }
  state.counters["cpu_ms"] = Milisegundos(uso) - Milisegundos(antes);
  state.counters["rss_mb"] = static_cast<double>(uso.ru_maxrss) / 1024.0;
}

void Registrar(const std::string& nombre, std::function<void(benchmark::State&)> propio,
               std::function<void(benchmark::State&)> suelo) {
  for (auto& [lado, funcion] :
       {std::pair{"/propio", std::move(propio)}, {"/suelo", std::move(suelo)}}) {
    benchmark::RegisterBenchmark((nombre + lado).c_str(), funcion)
        ->UseManualTime()
        ->Iterations(1)
        ->Unit(benchmark::kMillisecond);
  }
}

}  // namespace kvraedi::bench
