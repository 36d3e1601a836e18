#include "dispatch/frmAnexosFactura.h"

#include <array>

#include "frame/accion.h"
#include "frame/avisos.h"
#include "frame/carpeta_anexos.h"
#include "frame/formato.h"
#include "frame/marca.h"
#include "frame/puertos.h"
#include "frame/ruta.h"
#include "frame/sesion.h"

namespace kvraedi {
namespace {

enum ColumnaAnexo : int { kFichero, kDescripcion, kColumnasAnexo };

constexpr std::array<ui::GridColumn, kColumnasAnexo> kColumnas = {{
    {"Fichero", 3500},
    {"Descripción", 5000},
}};

}  // namespace

frmAnexosFactura::frmAnexosFactura(const facturae::ClaveDocumento& documento)
    : Form("frmAnexosFactura", "Anexos de Factura Electrónica"), documento_(documento) {
  Disponer();
  Escuchar();
}

void frmAnexosFactura::Disponer() {
  using ui::Aligned, ui::Column, ui::Row, ui::Space;
  SetLayout(Column({
      Aligned(
          {Row({lblRuta, txtRuta, cmdExaminar}), Row({lblDescripcion, txtDescripcion, cmdAnexar})}),
      vsDocs,
      Row({cmdEliminarAnexo, cmdVer, Space(), cmdSalir}),
  }));
}

void frmAnexosFactura::Escuchar() {
  cmdExaminar.onClick = [this] { cmdExaminar_Click(); };
  cmdAnexar.onClick = [this] { cmdAnexar_Click(); };
  cmdEliminarAnexo.onClick = [this] { cmdEliminarAnexo_Click(); };
  cmdVer.onClick = [this] { cmdVer_Click(); };
  cmdSalir.onClick = [this] { cmdSalir_Click(); };
}

void frmAnexosFactura::OnLoad() {
  vsDocs.SetColumns(kColumnas);
  Accion("frmAnexosFactura:Load", [&] {
    CarpetaAnexos(EntornoActual()).Crear();
    Cargar();
    AvisarInterrumpido();
  });
}

std::filesystem::path frmAnexosFactura::RutaMarca() const {
  return CarpetaAnexos(EntornoActual()).Ruta() /
         (facturae::IdentificadorDocumento(EmpresaActual().CodigoEmpresa(), documento_) +
          ".anexando");
}

/// A row without content that a killed program left is told each time, until it is removed.
void frmAnexosFactura::AvisarInterrumpido() {
  Entorno& entorno = EntornoActual();
  const auto ruta = RutaMarca();
  if (!entorno.FileExists(ruta)) return;
  const auto marca = entorno.Hold(ruta, {});
  if (!marca) return;
  marca->Leave();
  const Notas notas(marca->Text());
  const std::string nombre = notas["anexo"];
  if (ConexionActual().Open(ConsultaSinContenido(documento_, nombre))->Eof()) {
    entorno.Delete(ruta);
    return;
  }
  Avisar("El documento " + nombre + " se estaba anexando el " + notas["cuando"] +
             " y ha quedado sin contenido. Elimínelo y vuelva a anexarlo.",
         "¡ Atención !", ui::Icon::kExclamation);
}

void frmAnexosFactura::Cargar() {
  listaFiel_ = Accion("frmAnexosFactura:Cargar", [&] {
    const auto anexos = ConexionActual().Open(ConsultaAnexos(documento_));
    vsDocs.Reset();
    for (; !anexos->Eof(); anexos->MoveNext()) {
      const std::array<std::string_view, kColumnasAnexo> celdas = {
          anexos->GetOrEmpty<std::string_view>("NombreAnexo"),
          anexos->GetOrEmpty<std::string_view>("DescripcionAnexo")};
      vsDocs.AddRow(celdas);
    }
  });
}

void frmAnexosFactura::cmdExaminar_Click() {
  Accion("frmAnexosFactura:cmdExaminar_Click", [&] {
    const auto fichero =
        ui::CurrentToolkit().ChooseFile({.filter = "Fichero de Imagen (*.pdf)|*.pdf"});
    if (fichero) txtRuta.SetText(TextoRuta(*fichero));
  });
}

bool frmAnexosFactura::AnexoValido() {
  const auto exigir = [](std::string_view texto) {
    Avisar(texto, "¡ Atención !", ui::Icon::kExclamation);
    return false;
  };
  if (txtDescripcion.Text().empty()) return exigir("Debe rellenar la Descripción del documento");
  if (txtRuta.Text().empty()) return exigir("Debe elegir un documento a anexar");
  return true;
}

void frmAnexosFactura::cmdAnexar_Click() {
  Accion("frmAnexosFactura:cmdAnexar_Click", [&] {
    if (AnexoValido()) Anexar();
  });
}

void frmAnexosFactura::Anexar() {
  const std::string nombre = NombreDeFichero(txtRuta.Text());
  Connection& conexion = ConexionActual();
  auto marca = Reservar(EntornoActual(), RutaMarca(),
                        "Un documento de esta factura lo está anexando", kEsperaBreve);
  Anotar(*marca, {{"anexo", nombre}, {"cuando", FechaTexto(EntornoActual().Now())}});
  conexion.Execute(InsertarAnexo(documento_, nombre, txtDescripcion.Text()));
  listaFiel_ = false;
  const std::string contenido = EntornoActual().ReadFile(RutaDe(txtRuta.Text()));
  conexion.UpdateBlob(ConsultaContenido(documento_, nombre), "Stream",
                      std::as_bytes(std::span(contenido)));
  marca.reset();
  CarpetaAnexos(EntornoActual()).Guardar(nombre, contenido);
  Cargar();
}

void frmAnexosFactura::cmdEliminarAnexo_Click() {
  Accion("frmAnexosFactura:cmdEliminarAnexo_Click", [&] {
    const int fila = vsDocs.Row();
    if (fila <= 0) return;
    ConexionActual().Execute(BorrarAnexo(documento_, vsDocs.Cell(fila, kFichero)));
    listaFiel_ = false;
    Cargar();
  });
}

void frmAnexosFactura::cmdVer_Click() {
  Accion("frmAnexosFactura:cmdVer_Click", [&] {
    const int fila = vsDocs.Row();
    if (fila > 0) CarpetaAnexos(EntornoActual()).Abrir(vsDocs.Cell(fila, kFichero));
  });
}

void frmAnexosFactura::cmdSalir_Click() {
  numeroAnexos_ = vsDocs.Rows() - 1;
  salida_ = listaFiel_;
  Unload();
}

}  // namespace kvraedi
