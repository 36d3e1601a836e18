#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <utility>

#include "bench/datos.h"
#include "bench/lista.h"
#include "bench/suelo.h"
#include "bench/suelo_invoic.h"
#include "bench/suelo_odbc.h"
#include "host/demo/esquema.h"
#include "host/demo/lotes.h"
#include "orders/procesar_ficheros.h"
#include "platform/odbc/odbc_connection.h"
#include "platform/odbc/wide.h"
#include "seres/modSeres.h"
#include "tests/platform/odbc/servidor_tds.h"

// The roads over ODBC, against the tests' stand-in for a server. The floor sends the statements
// that the component sent, through the bare ODBC calls, and does nothing else.
namespace kvraedi::bench {
namespace {

namespace fs = std::filesystem;
using Opciones = std::vector<std::string>;

/// A road: what the database holds, what is there before it starts, and its work.
struct Camino {
  std::string nombre;
  void (*llenar)(Connection&);
  void (*preparar)(const fs::path& carpeta);
  void (*correr)(Puesto& puesto, const fs::path& carpeta);
  bool respuestasGuardadas = false;  // the server's own time is none of this
};

void Listar(Puesto& puesto, const fs::path& /*carpeta*/) {
  Lista lista(puesto);
  lista.Llenar();
  if (lista.Filas() != 100'000) throw std::runtime_error("the list is another");
}

void EnviarFacturas(Puesto& puesto, const fs::path& /*carpeta*/) {
  for (int codigo = 1; codigo <= kFacturas; ++codigo) {
    if (!INVOIC(kCliente, 1, codigo, 0, kEjercicio)) {
      throw std::runtime_error(puesto.toolkit.Messages().back().text);
    }
  }
}

void EscribirDiezMilLineas(const fs::path& carpeta) {
  EscribirOrders(carpeta / "ORDERS", 10'000 / kLineasPorPedido);
}

void LeerOrders(Puesto& /*puesto*/, const fs::path& carpeta) {
  ProcesarFicheros(carpeta / "ORDERS");
}

void Nada(const fs::path& /*carpeta*/) {}

/// The database of a road as the server keeps it; made once.
fs::path PrepararBase(const Camino& camino) {
  auto ruta = CarpetaBench() / (camino.nombre + ".db");
  if (fs::exists(ruta)) return ruta;
  const auto provisional = CarpetaBench() / (camino.nombre + ".nueva");
  fs::remove(provisional);
  {
    const odbc::ServidorTds servidor({"--db", provisional.string()});
    OdbcConnection conexion(servidor.Cadena());
    for (const auto script : demo::kScriptsSqlServer) demo::EjecutarScript(conexion, script);
    conexion.Execute(kMaestros);
    conexion.BeginTrans();
    demo::EnLotes lotes(conexion);
    camino.llenar(lotes);
    lotes.CommitTrans();
  }
  BaseSuelo(provisional).Ejecutar("PRAGMA wal_checkpoint(TRUNCATE)");
  fs::rename(provisional, ruta);
  return ruta;
}

/// The seconds that KVRAEDI_BENCH_ESPERA names are what a round trip takes besides.
Opciones DelServidor(const Camino& camino, const fs::path& base) {
  Opciones opciones = {"--db", base.string()};
  if (const char* const espera = std::getenv("KVRAEDI_BENCH_ESPERA")) {
    opciones.insert(opciones.end(), {"--slow", std::string(".=>") + espera});
  }
  if (camino.respuestasGuardadas) {
    const fs::path carpeta = CarpetaBench() / (camino.nombre + ".respuestas");
    fs::create_directories(carpeta);
    opciones.insert(opciones.end(), {"--keep", carpeta.string()});
  }
  return opciones;
}

/// A copy of a road's database and the server that runs on it.
struct Banco {
  explicit Banco(const Camino& camino)
      : copia(PrepararBase(camino)), servidor(DelServidor(camino, copia.Base())) {}
  fs::path Carpeta() const { return copia.Base().parent_path(); }
  /// How many requests the server has had.
  double Viajes() const {
    const std::string registro = servidor.Registro();
    double viajes = 0;
    for (const char* clase : {R"("kind": "batch")", R"("kind": "rpc")"}) {
      for (auto sitio = registro.find(clase); sitio != std::string::npos;
           sitio = registro.find(clase, sitio + 1)) {
        ++viajes;
      }
    }
    return viajes;
  }

  Copia copia;
  odbc::ServidorTds servidor;
};

/// Keeps the statements that pass, for the floor.
class Grabadora : public ConnectionWrapper {
 public:
  using ConnectionWrapper::ConnectionWrapper;
  std::unique_ptr<Recordset> Open(std::string_view sql) override {
    sentencias.emplace_back(sql);
    return Target().Open(sql);
  }
  std::int64_t Execute(std::string_view sql) override {
    sentencias.emplace_back(sql);
    return Target().Execute(sql);
  }
  void BeginTrans() override {
    sentencias.emplace_back("BEGIN TRANSACTION");
    Target().BeginTrans();
  }
  void CommitTrans() override {
    sentencias.emplace_back("COMMIT TRANSACTION");
    Target().CommitTrans();
  }

  std::vector<std::string> sentencias;
};

fs::path FicheroDeSentencias(const Camino& camino) {
  return CarpetaBench() / (camino.nombre + ".sentencias");
}

void Propio(benchmark::State& state, const Camino& camino) {
  const Banco banco(camino);
  const auto conexion =
      std::make_shared<Grabadora>(std::make_shared<OdbcConnection>(banco.servidor.Cadena()));
  Puesto puesto(conexion, banco.Carpeta());
  camino.preparar(banco.Carpeta());
  conexion->sentencias.clear();
  const double antes = banco.Viajes();
  Medir(state, [&] { camino.correr(puesto, banco.Carpeta()); });
  state.counters["viajes"] = banco.Viajes() - antes;
  std::ofstream fichero(FicheroDeSentencias(camino), std::ios::binary);
  for (const std::string& sentencia : conexion->sentencias) fichero << sentencia << '\0';
}

std::vector<std::vector<SQLWCHAR>> SentenciasGrabadas(const Camino& camino) {
  std::ifstream fichero(FicheroDeSentencias(camino), std::ios::binary);
  std::vector<std::vector<SQLWCHAR>> sentencias;
  for (std::string sentencia; std::getline(fichero, sentencia, '\0');) {
    sentencias.push_back(odbc::ToWide(sentencia));
  }
  if (sentencias.empty()) throw std::runtime_error("the other side has to run first");
  return sentencias;
}

void Suelo(benchmark::State& state, const Camino& camino) {
  const Banco banco(camino);
  auto sentencias = SentenciasGrabadas(camino);
  SueloOdbc suelo(banco.servidor.Cadena());
  FicheroSuelo fichero(banco.copia.Envios());
  const auto envio = odbc::ToWide("INSERT INTO EDI_Envio_Facturas");
  std::size_t filas = 0;
  Medir(state, [&] {
    for (auto& sentencia : sentencias) {
      const bool registra =
          std::equal(envio.begin(), envio.end(), sentencia.begin(),
                     sentencia.begin() + std::min(envio.size(), sentencia.size()));
      if (registra) fichero.Preparar();
      if (registra) fichero.Escribir(BytesDeFactura(kLineasPorFactura));
      filas += suelo.Enviar(sentencia);
      if (registra) fichero.Terminar();
    }
  });
  state.counters["filas"] = static_cast<double>(filas);
}

void Caso(const Camino& camino) {
  Registrar(
      camino.nombre, [=](benchmark::State& state) { Propio(state, camino); },
      [=](benchmark::State& state) { Suelo(state, camino); });
}

}  // namespace

void RegistrarOdbc() {
  Caso({"odbc_lista_100000", InsertarCienMilFacturas, Nada, Listar, true});
  Caso({"odbc_invoic_2000", InsertarFacturas, Nada, EnviarFacturas});
  Caso({"odbc_orders_10000_lineas", InsertarRecepcion, EscribirDiezMilLineas, LeerOrders});
}

}  // namespace kvraedi::bench
