#include <fstream>
#include <stdexcept>

#include "bench/puesto.h"
#include "bench/suelo_recibidas.h"
#include "frame/formato.h"
#include "frame/sql.h"
#include "host/demo/esquema.h"
#include "host/demo/fichero_invoic.h"
#include "kvraedi/frmclsFacturacionRecepcion.h"
#include "seres/frmVisorFactura.h"

namespace kvraedi::bench {
namespace {

namespace fs = std::filesystem;

constexpr int kRecibidas = 100000;

void Comprobar(benchmark::State& state, std::size_t filas, int esperadas) {
  state.counters["filas"] = static_cast<double>(filas);
  if (filas != static_cast<std::size_t>(esperadas)) throw std::runtime_error("rows are missing");
}

/// An INVOIC file of so many lines, one in three with a discount. Made once.
fs::path PrepararFichero(int lineas) {
  const fs::path fichero = CarpetaBench() / ("recibida_" + std::to_string(lineas) + ".txt");
  if (fs::exists(fichero)) return fichero;
  demo::FicheroInvoic invoic;
  invoic.Registro("RECTL", 134, {{7, "INVOIC"}});
  invoic.Registro("SINCC", 370, {{7, "380"}, {13, "1"}, {30, "9"}, {36, "21260315"}});
  for (int i = 1; i <= lineas; ++i) {
    invoic.Registro("SINCL", 523,
                    {{7, std::to_string(i), 6},
                     {13, std::to_string(100000 + i)},
                     {28, "Queso curado de la montaña " + std::to_string(i % 100)},
                     {139, std::to_string(i % 48 + 1) + ".000", 16},
                     {209, std::to_string(i % 900) + ".250", 18},
                     {227, "12.3456", 16},
                     {243, "13.5000", 16}});
    if (i % 3 == 0) {
      invoic.Registro("SINCE", 149, {{7, "1", 2}, {9, "A"}, {13, "5.0000", 9}, {74, "TD"}});
    }
  }
  const fs::path parcial = fichero.string() + ".parcial";
  std::ofstream(parcial, std::ios::binary) << invoic.Bytes();
  fs::rename(parcial, fichero);
  return fichero;
}

/// A database with kRecibidas received invoices. Made once.
fs::path PrepararRecibidas() {
  const fs::path base = CarpetaBench() / "recibidas.db";
  if (fs::exists(base)) return base;
  const fs::path parcial = base.string() + ".parcial";
  fs::remove(parcial);
  {
    SqliteConnection conexion(parcial.string(), {.create = true, .durability = Durability::kNone});
    conexion.BeginTrans();
    for (const auto esquema : {demo::kEsquema, demo::kEsquemaPedidos, demo::kEsquemaRecepcion}) {
      conexion.Run(esquema);
    }
    conexion.Execute(
        "INSERT INTO Empresas (Codigo, Nombre_1, Emp_Articulos, Emp_Clientes, Emp_Proveedores)"
        " VALUES (1, 'Uno', 1, 1, 1)");
    conexion.Execute("INSERT INTO SGD_USUARIOS VALUES (1, 'Ana Quintana')");
    for (int codigo = 1; codigo <= 12; ++codigo) {
      conexion.Execute(Sql("INSERT INTO Proveedores (Cod_Empresa, Codigo, Nombre) VALUES (1, ",
                           codigo, ", 'Suministros del Atlántico número ", codigo, "')"));
    }
    const FechaHora primera{2025, 1, 1, 0, 0, 0};
    for (int i = 1; i <= kRecibidas; ++i) {
      const std::string fecha = FormatearFecha(primera.PlusSeconds(i % 700 * 86400), "yyyymmdd");
      conexion.Execute(Sql("INSERT INTO EDI_Recepcion_Facturas VALUES ('MSG", i, "', 1, 2025, ",
                           i % 12 + 1, ", '", 100000 + i * 7919 % kRecibidas, "', '", fecha, "', ",
                           i, ".25, ", i % 2, ", 'CONFORME', 2, 1, 'INVOIC", i, ".txt', NULL)"));
    }
    conexion.CommitTrans();
  }
  fs::rename(parcial, base);
  return base;
}

/// Both sides must have made the same cells.
void CompararCeldas(const ui::Grid& grid, const std::vector<std::string>& filas) {
  for (int fila = 1; fila < grid.Rows(); ++fila) {
    std::string celdas;
    for (int columna = 0; columna < grid.Cols(); ++columna) {
      celdas.append(grid.Cell(fila, columna)) += '\0';
    }
    if (celdas != filas[static_cast<std::size_t>(fila) - 1]) {
      throw std::runtime_error("row " + std::to_string(fila) + " differs from the floor's");
    }
  }
}

void Ver(benchmark::State& state, int lineas) {
  const fs::path fichero = PrepararFichero(lineas);
  const Puesto puesto(PrepararRecibidas());
  const auto visor = std::make_shared<frmVisorFactura>();
  visor->Fichero(fichero);
  visor->Plataforma(2);
  visor->TipoMensaje(1);
  Medir(state, [&] { visor->Show(); });
  const auto& grid = dynamic_cast<const ui::Grid&>(*visor->Find("vsLineas"));
  Comprobar(state, static_cast<std::size_t>(grid.Rows()) - 1, lineas);
  CompararCeldas(grid, VerSuelo(fichero));
  visor->Unload();
}

void VerDesnudo(benchmark::State& state, int lineas) {
  const fs::path fichero = PrepararFichero(lineas);
  std::vector<std::string> filas;
  Medir(state, [&] { filas = VerSuelo(fichero); });
  Comprobar(state, filas.size(), lineas);
}

void Listar(benchmark::State& state) {
  Puesto puesto(PrepararRecibidas());
  frmclsFacturacionRecepcion clase;
  clase.Show(0, nullptr);
  ui::Form& form = *puesto.toolkit.OpenForm("frmRecepcionFactura");
  dynamic_cast<ui::DateBox&>(*form.Find("txtFechaI")).Type("01/01/2025");
  auto& hasta = dynamic_cast<ui::DateBox&>(*form.Find("txtFechaF"));
  hasta.Type("31/12/2026");
  Medir(state, [&] { hasta.PressEnter(); });
  const auto& grid = dynamic_cast<const ui::Grid&>(*form.Find("vsDocs"));
  Comprobar(state, static_cast<std::size_t>(grid.Rows()) - 1, kRecibidas);
}

void ListarDesnudo(benchmark::State& state) {
  const BaseSuelo base(PrepararRecibidas());
  std::vector<std::string> filas;
  Medir(state, [&] { filas = RecibidasSuelo(base); });
  Comprobar(state, filas.size(), kRecibidas);
}

}  // namespace

void RegistrarRecibidas() {
  for (const int lineas : {10000, 100000}) {
    Registrar(
        "visor_" + std::to_string(lineas),
        [lineas](benchmark::State& state) { Ver(state, lineas); },
        [lineas](benchmark::State& state) { VerDesnudo(state, lineas); });
  }
  Registrar("recibidas_" + std::to_string(kRecibidas), Listar, ListarDesnudo);
}

}  // namespace kvraedi::bench
