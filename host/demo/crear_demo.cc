#include "host/demo/crear_demo.h"

#include <algorithm>
#include <fstream>
#include <memory>
#include <optional>
#include <system_error>
#include <utility>

#include "host/demo/azar.h"
#include "host/demo/compras.h"
#include "host/demo/esquema.h"
#include "host/demo/facturas.h"
#include "host/demo/ficheros_desadv.h"
#include "host/demo/ficheros_orders.h"
#include "host/demo/informes.h"
#include "host/demo/lotes.h"
#include "host/demo/maestros.h"
#include "host/demo/recepcion.h"
#include "host/demo/tabla.h"
#include "platform/sqlite/sqlite_connection.h"

namespace kvraedi::demo {
namespace {

namespace fs = std::filesystem;

constexpr std::int32_t kFacturasPorTicket = 10;
constexpr std::int32_t kFacturasPorClienteGenerado = 50;
constexpr std::int32_t kPasosDeProgreso = 200;

std::string Utf8(const fs::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

[[noreturn]] void Fallar(const std::string& text) { throw Error(kErrorFile, "CrearDemo", text); }

void CrearCarpeta(const fs::path& carpeta) {
  std::error_code error;
  fs::create_directories(carpeta, error);
  if (error) Fallar("No se ha podido crear la carpeta " + Utf8(carpeta) + ": " + error.message());
}

// Removes a database and what belongs to it.
void Borrar(const fs::path& base) {
  for (const char* final : {"", "-journal", "-wal", "-shm"}) {
    fs::path file = base;
    file += final;
    std::error_code error;
    fs::remove(file, error);
    if (error) Fallar("No se ha podido borrar " + Utf8(file) + ": " + error.message());
  }
}

void ComprobarNumero(const OpcionesDemo& opciones) {
  if (opciones.facturas < 0 || opciones.facturas > kMaximoFacturas) {
    Fallar("El número de facturas debe estar entre 0 y " + std::to_string(kMaximoFacturas) + ".");
  }
}

void ComprobarFichero(const OpcionesDemo& opciones, const fs::path& base) {
  std::error_code error;
  if (!opciones.sobrescribir && fs::exists(base, error)) {
    Fallar("Ya existe la base de datos " + Utf8(base) + ".");
  }
}

void ComprobarVacia(Connection& conexion) {
  const auto rs = conexion.Open("SELECT COUNT(*) AS Tablas FROM INFORMATION_SCHEMA.TABLES");
  if (rs->Get<std::int64_t>("Tablas") == 0) return;
  Fallar("La base de datos ya tiene tablas: la demostración sólo se crea en una vacía.");
}

void CrearCarpetas(const fs::path& carpeta) {
  for (const char* nombre : {"Envios", "Recepcion", "Rpt"}) CrearCarpeta(carpeta / nombre);
  CrearInformes(carpeta / "Rpt");
}

// Stand-ins: the demonstration signer does not open them. Gives back the path of that of series 4,
// whole, because the component takes the path of a series as it is.
std::string CrearCertificados(const fs::path& carpeta) {
  CrearCarpeta(carpeta);
  const fs::path serie = fs::absolute(carpeta / "serie_4.pfx");
  for (const fs::path& certificado : {carpeta / "empresa_1.pfx", serie}) {
    if (!(std::ofstream(certificado) << "Certificado de demostración, sin ningún valor\n")
             .flush()) {
      Fallar("No se ha podido escribir " + Utf8(certificado));
    }
  }
  return Utf8(serie);
}

// Passes on one step in several, so that telling costs nothing.
class Contador {
 public:
  Contador(const Progreso& progreso, std::int32_t total)
      : progreso_(progreso), total_(total), cada_(std::max(1, total / kPasosDeProgreso)) {}
  void operator()(std::int32_t hechos) const {
    if (progreso_ && (hechos % cada_ == 0 || hechos == total_)) progreso_(hechos, total_);
  }

 private:
  const Progreso& progreso_;
  std::int32_t total_;
  std::int32_t cada_;
};

void Llenar(Connection& conexion, const OpcionesDemo& opciones, const Progreso& progreso) {
  Azar azar(opciones.semilla);
  const std::int32_t tickets = opciones.facturas / kFacturasPorTicket;
  const Contador contador(progreso, opciones.facturas + tickets);
  const auto clientes =
      CrearMaestros(conexion, azar, opciones.facturas / kFacturasPorClienteGenerado,
                    CrearCertificados(opciones.carpeta / "Certificados"));
  CrearFacturas(conexion, azar, clientes, opciones.facturas, contador);
  CrearTickets(conexion, azar, clientes, tickets,
               [&](std::int32_t hechos) { contador(opciones.facturas + hechos); });
  CrearCompras(conexion, opciones.semilla);
  CrearRecepcion(conexion, opciones.carpeta / "Recepcion", opciones.semilla);
  CrearFicherosDesadv(opciones.carpeta / "Recepcion");
  CrearFicherosOrders(conexion, opciones.carpeta / "Recepcion");
}

std::string Canal(const Recordset& rs) {
  const auto plataforma = rs.Get<std::int16_t>("Plataforma");
  if (plataforma == 0) return {};
  const auto nombre = [&](std::string_view campo, std::string_view codigo) {
    const auto text = rs.GetOrEmpty<std::string>(campo);
    return text.empty() ? rs.Get<std::string>(codigo) : text;
  };
  return nombre("NombrePlat", "Plataforma") + "/" + nombre("NombreMsg", "Mensaje");
}

}  // namespace

fs::path CrearDemo(const OpcionesDemo& opciones, const Progreso& progreso) {
  fs::path base = opciones.carpeta / "kvraedi.db";
  ComprobarNumero(opciones);
  ComprobarFichero(opciones, base);
  CrearCarpetas(opciones.carpeta);
  fs::path nueva = base;
  nueva += ".nueva";
  Borrar(nueva);
  {
    SqliteOptions sqlite;
    sqlite.create = true;
    sqlite.durability = Durability::kNone;
    std::shared_ptr<Connection> conexion = std::make_shared<SqliteConnection>(Utf8(nueva), sqlite);
    if (opciones.envolver) conexion = opciones.envolver(std::move(conexion));
    conexion->BeginTrans();
    for (const auto script : kScriptsSqlite) EjecutarScript(*conexion, script);
    Llenar(*conexion, opciones, progreso);
    conexion->CommitTrans();
  }
  Borrar(base);
  std::error_code error;
  fs::rename(nueva, base, error);
  if (error) Fallar("No se ha podido crear " + Utf8(base) + ": " + error.message());
  return base;
}

void CrearDemoEn(Connection& conexion, const OpcionesDemo& opciones, const Progreso& progreso) {
  ComprobarNumero(opciones);
  ComprobarVacia(conexion);
  CrearCarpetas(opciones.carpeta);
  Transaccion transaccion(conexion);
  for (const auto script : kScriptsSqlServer) EjecutarScript(conexion, script);
  EnLotes lotes(conexion);
  Llenar(lotes, opciones, progreso);
  Tabla parametros(lotes, "Empresas_Parametros", "Cod_Empresa, Nombre, Valor");
  const std::string carpeta = Utf8(fs::absolute(opciones.carpeta));
  for (const int empresa : {1, 2}) parametros.Insertar(empresa, "RutaAplicacion", carpeta);
  lotes.Enviar();
  transaccion.Confirmar();
}

std::vector<ResumenCliente> ResumirDemo(Connection& conexion, std::int16_t empresa,
                                        std::size_t porCanal) {
  const std::string codigo = std::to_string(empresa);
  const auto rs = conexion.Open(
      "SELECT ISNULL(c.Cod_EDIPlat_Fra, 0) AS Plataforma,"
      " ISNULL(c.Cod_EDITipoMsg_Fra, 0) AS Mensaje, plat.Nombre AS NombrePlat,"
      " msg.Nombre AS NombreMsg, c.Codigo, c.Nombre, ISNULL(pend.Facturas, 0) AS Pendientes"
      " FROM Empresas e"
      " INNER JOIN Clientes c ON c.Cod_Empresa = e.Emp_Clientes"
      " LEFT JOIN EDI_Plataforma plat ON plat.Cod_EDIPlat = c.Cod_EDIPlat_Fra"
      " LEFT JOIN EDI_TipoMsg msg ON msg.Cod_EDIPlat = c.Cod_EDIPlat_Fra"
      " AND msg.Cod_EDITipoMsg = c.Cod_EDITipoMsg_Fra"
      " LEFT JOIN (SELECT f.Cliente, COUNT(*) AS Facturas FROM Facturas f"
      " WHERE f.Cod_Empresa = " +
      codigo +
      " AND f.ExcluirEDI = 0 AND NOT EXISTS (SELECT * FROM EDI_Envio_Facturas ef"
      " WHERE ef.Cod_Empresa = f.Cod_Empresa AND ef.Cod_Ejercicio = f.Cod_Ejercicio"
      " AND ef.Serie = f.Serie AND ef.Codigo = f.Codigo AND ef.TipoDoc = f.TipoDoc"
      " AND ef.Cod_EDIPlat > 0)"
      " GROUP BY f.Cliente) pend ON pend.Cliente = c.Codigo"
      " WHERE e.Codigo = " +
      codigo + " ORDER BY Plataforma, Mensaje, c.Codigo");
  std::vector<ResumenCliente> resumen;
  std::size_t enCanal = 0;
  for (; !rs->Eof(); rs->MoveNext()) {
    ResumenCliente cliente{Canal(*rs), rs->Get<std::int32_t>("Codigo"),
                           rs->Get<std::string>("Nombre"), rs->Get<std::int64_t>("Pendientes")};
    enCanal = !resumen.empty() && resumen.back().canal == cliente.canal ? enCanal + 1 : 1;
    if (enCanal <= porCanal) resumen.push_back(std::move(cliente));
  }
  return resumen;
}

}  // namespace kvraedi::demo
