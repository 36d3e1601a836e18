#include "facturae/frmCentrosAdm.h"

#include <array>
#include <vector>

#include "frame/accion.h"
#include "frame/avisos.h"
#include "frame/numero.h"
#include "frame/sesion.h"
#include "frame/sql.h"

namespace kvraedi {
namespace {

using ui::Alignment;

constexpr std::array<ui::GridColumn, kColumnasCentro> kColumnas = {{
    {"Código", 1000},
    {"Nombre", 4000},
    {"Dirección", 4000},
    {"CP", 600, Alignment::kRight},
    {"Localidad", 1500},
    {"Provincia", 1500},
    {"", 0, Alignment::kLeft, true},
    {"País", 1100},
    {"Descripcion", 1000},
}};

/// The cells of a centre's row. A null country is an empty cell, as in the list.
using Celdas = std::array<std::string, kColumnasCentro>;

Celdas CeldasDe(const CentroAdministrativo& centro) {
  return {centro.codigo,
          centro.nombre,
          centro.direccion,
          centro.codigoPostal,
          centro.localidad,
          centro.provincia,
          std::to_string(centro.codPais),
          centro.pais,
          centro.descripcion};
}

Celdas CeldasDe(const Recordset& rs) {
  const auto texto = [&](std::string_view campo) { return rs.GetOrEmpty<std::string>(campo); };
  return {texto("Codigo"),       texto("Nombre"),    texto("Direccion"),
          texto("CodigoPostal"), texto("Localidad"), texto("Provincia"),
          texto("Cod_Pais"),     texto("Pais"),      texto("Descripcion")};
}

bool Existe(const CentroAdministrativo& centro) {
  const auto rs = ConexionActual().Open(Sql(
      " SELECT TOP 1 * FROM EDI_Centros_Administrativos WHERE Codigo = ", SqlTexto{centro.codigo},
      " OR Nombre = ", SqlTexto{centro.nombre}));
  return !rs->Eof();
}

std::string Insertar(const CentroAdministrativo& c) {
  return Sql(
      "INSERT INTO EDI_Centros_Administrativos (Codigo, Nombre, Direccion, CodigoPostal, "
      "Localidad, Provincia, Cod_Pais, Descripcion)  VALUES (",
      SqlTexto{c.codigo}, ",", SqlTexto{c.nombre}, ",", SqlTexto{c.direccion}, ",",
      SqlTexto{c.codigoPostal}, ",", SqlTexto{c.localidad}, ",", SqlTexto{c.provincia}, ",",
      c.codPais, ",", SqlTexto{c.descripcion}, ")");
}

std::string Actualizar(const CentroAdministrativo& c, std::string_view codigo) {
  return Sql(
      "UPDATE EDI_Centros_Administrativos "
      " SET Codigo=",
      SqlTexto{c.codigo}, ", Nombre =", SqlTexto{c.nombre}, ", Direccion = ", SqlTexto{c.direccion},
      ", CodigoPostal = ", SqlTexto{c.codigoPostal}, ", Localidad = ", SqlTexto{c.localidad},
      ", Provincia = ", SqlTexto{c.provincia}, ", Cod_Pais = ", c.codPais,
      ", Descripcion = ", SqlTexto{c.descripcion}, " WHERE Codigo=", SqlTexto{codigo});
}

bool ConfirmarEliminacion() {
  return ui::CurrentToolkit().Show({"¿Está seguro que desea eliminar el elemento actual?",
                                    "¡ Atención !", ui::Icon::kQuestion, ui::Buttons::kYesNo,
                                    ui::Answer::kNo}) == ui::Answer::kYes;
}

/// What the user accepts in the edit dialog; nothing when it was cancelled.
std::optional<CentroAdministrativo> Pedir(const std::optional<CentroAdministrativo>& inicial,
                                          ui::Form& owner) {
  const auto dialogo = std::make_shared<frmCentrosAdm_Datos>(inicial);
  dialogo->Show(ui::ShowMode::kModal, &owner);
  const CentroAdministrativo& centro = dialogo->Centro();
  if (centro.codigo.empty() || centro.nombre.empty()) return std::nullopt;
  return centro;
}

}  // namespace

frmCentrosAdm::frmCentrosAdm() : Form("frmCentrosAdm", "Centros Administrativos") {
  SetLayout(ui::Column(
      {vsCentros, ui::Row({cmdAgregar, cmdModificar, cmdEliminar, ui::Space(), cmdSalir})}));
  cmdAgregar.onClick = [this] {
    Accion("frmCentrosAdm:cmdAgregar_Click", [&] { cmdAgregar_Click(); });
  };
  cmdModificar.onClick = [this] {
    Accion("frmCentrosAdm:cmdModificar_Click", [&] { cmdModificar_Click(); });
  };
  cmdEliminar.onClick = [this] {
    Accion("frmCentrosAdm:cmdEliminar_Click", [&] { cmdEliminar_Click(); });
  };
  cmdSalir.onClick = [this] { Unload(); };
}

void frmCentrosAdm::OnLoad() {
  vsCentros.SetColumns(kColumnas);
  PermitirCambios();
  Accion("frmCentrosAdm:Load", [&] { Cargar(); });
}

void frmCentrosAdm::Cargar() {
  const auto rs = ConexionActual().Open(
      "SELECT ca.*, p.Nombre AS Pais FROM EDI_Centros_Administrativos ca "
      " LEFT JOIN PAISES p ON p.Cod_Pais = ca.Cod_Pais "
      " ORDER BY ca.Nombre");
  // The list changes only when all its rows could be read.
  std::vector<Celdas> filas;
  for (; !rs->Eof(); rs->MoveNext()) filas.push_back(CeldasDe(*rs));
  const ui::RedrawPause pause(vsCentros);
  vsCentros.Reset();
  for (const Celdas& fila : filas) {
    vsCentros.AddRow(std::vector<std::string_view>(fila.begin(), fila.end()));
  }
  PermitirCambios();
}

void frmCentrosAdm::PermitirCambios() {
  const bool hay = vsCentros.Rows() > 1;
  cmdModificar.SetEnabled(hay);
  cmdEliminar.SetEnabled(hay);
}

CentroAdministrativo frmCentrosAdm::CentroDe(int fila) const {
  const auto texto = [&](int columna) { return std::string(vsCentros.Cell(fila, columna)); };
  const std::string codPais = texto(kCentroCodPais);
  return {texto(kCentroCodigo),
          texto(kCentroNombre),
          texto(kCentroDireccion),
          texto(kCentroCodigoPostal),
          texto(kCentroLocalidad),
          texto(kCentroProvincia),
          codPais.empty() ? std::int16_t{0} : Entero<std::int16_t>(codPais),
          texto(kCentroPais),
          texto(kCentroDescripcion)};
}

void frmCentrosAdm::cmdAgregar_Click() {
  const auto centro = Pedir(std::nullopt, *this);
  if (!centro) return;
  if (Existe(*centro)) {
    Avisar("El elemento especificado ya existe.", "¡ Operación no permitida !",
           ui::Icon::kExclamation);
    return;
  }
  ConexionActual().Execute(Insertar(*centro));
  Cargar();
  vsCentros.SetRow(vsCentros.Rows() - 1);
}

void frmCentrosAdm::cmdModificar_Click() {
  const int fila = vsCentros.Row();
  if (fila == 0) return;
  const std::string codigo(vsCentros.Cell(fila, kCentroCodigo));
  const auto centro = Pedir(CentroDe(fila), *this);
  if (!centro) return;
  ConexionActual().Execute(Actualizar(*centro, codigo));
  const Celdas celdas = CeldasDe(*centro);
  for (int columna = 0; columna < kColumnasCentro; ++columna) {
    vsCentros.SetCell(fila, columna, celdas[static_cast<std::size_t>(columna)]);
  }
}

void frmCentrosAdm::cmdEliminar_Click() {
  const int fila = vsCentros.Row();
  if (fila == 0 || !ConfirmarEliminacion()) return;
  ConexionActual().Execute(Sql("DELETE FROM EDI_Centros_Administrativos WHERE Codigo=",
                               SqlTexto{vsCentros.Cell(fila, kCentroCodigo)}));
  vsCentros.RemoveRow(fila);
  PermitirCambios();
}

}  // namespace kvraedi
