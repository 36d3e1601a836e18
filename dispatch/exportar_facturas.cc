#include "dispatch/comprobacion_envio.h"
#include "dispatch/fila_facturae.h"
#include "dispatch/frmEnvioFactura.h"
#include "dispatch/frmExportar.h"
#include "dispatch/resultado_envio.h"
#include "facturae/documento.h"
#include "frame/accion.h"
#include "frame/modMsgOp.h"
#include "frame/numero.h"
#include "frame/puertos.h"
#include "frame/ruta.h"
#include "frame/sesion.h"

namespace kvraedi {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kTitulo = "frmEnvioFactura:cmdExportar_Click";

/// Prints an invoice into a PDF file that is named after it.
void ImprimirPdf(const facturae::ClaveDocumento& factura, const fs::path& carpeta) {
  const Sesion& sesion = SesionActual();
  const std::string nombre =
      facturae::IdentificadorFactura(EmpresaActual().CodigoEmpresa(), factura) + ".pdf";
  SuiteActual()
      .NuevaImpresionFactura(EntornoActual(), sesion.conexion, sesion.empresa)
      ->Imprimir({.serie = factura.serie,
                  .ejercicio = factura.ejercicio,
                  .tipoDoc = factura.tipoDoc,
                  .codigo = factura.codigo,
                  .usuario = EnteroOCero<std::int16_t>(ParametroTexto("UsuarioActual")),
                  .ficheroPdf = carpeta / nombre});
}

}  // namespace

void frmEnvioFactura::cmdExportar_Click() {
  Accion(kTitulo, [&] {
    ResultadoEnvio& resultado = EmpezarResultadoEnvio();
    const auto configuracion = EnvioComprobado();
    if (!configuracion || !RevisionConfirmada()) return;
    const fs::path carpeta = PedirCarpeta();
    if (carpeta.empty()) return;
    if (!EntornoActual().FolderExists(carpeta)) {
      Exigir("No existe la ruta especificada");
    } else if (configuracion->plataforma != kPlataformaFacturae) {
      Exigir(kFaltaPlataforma);
    } else if (configuracion->mensaje != kMensajeFacturae) {
      Exigir(kFaltaMensaje);
    } else {
      resultado.completo = ExportarMarcadas(carpeta);
    }
  });
}

bool frmEnvioFactura::RevisionConfirmada() {
  const auto revision = EnteroOCero<std::int16_t>(txtNumRevision.Text());
  if (revision <= 0) return true;
  return ui::CurrentToolkit().Show(
             {"¿Está seguro que desea exportar la factura con Número de Revisión " +
                  std::to_string(revision) + " ?",
              std::string(kAtencion), ui::Icon::kQuestion, ui::Buttons::kYesNo, ui::Answer::kNo}) ==
         ui::Answer::kYes;
}

/// The folder that the user chose, ended by a separator; empty when there is none.
fs::path frmEnvioFactura::PedirCarpeta() {
  const auto dialogo = std::make_shared<frmExportar>();
  dialogo->Show(ui::ShowMode::kModal, this);
  if (!dialogo->Aceptado() || dialogo->Carpeta().empty()) return {};
  return RutaDe(dialogo->Carpeta()) / "";
}

/// Exports the ticked rows in the order of the list; those that fail are told at the end, and why
/// they must not be exported where that is the reason. Only the first one gets the revision number.
/// True when none failed.
bool frmEnvioFactura::ExportarMarcadas(const fs::path& carpeta) {
  EmpezarFacturaE();
  std::string fallidas;
  std::string rechazos;
  for (int fila = 1; fila < vsDocs.Rows(); ++fila) {
    if (!vsDocs.IsSet(fila, kSeleccion)) continue;
    if (!ExportarFila(fila, carpeta, rechazos)) {
      fallidas.append(vsDocs.Cell(fila, kFactura)).append("\r\n");
      MostrarProgresoFacturaE();  // the error handler has hidden it
    }
    txtNumRevision.SetText("0");
    vsDocs.SetCell(fila, kSeleccion, "0");
  }
  if (!rechazos.empty()) Exigir("No se han exportado:\r\n" + rechazos);
  if (fallidas.empty()) {
    Informar("Ficheros de FACTURA E exportados correctamente.");
  } else {
    Informar("Las siguientes Facturas han dado error al exportar: " + fallidas);
  }
  MsgOp(false, kMensajeOperacion);
  return fallidas.empty();
}

/// Makes the files of a row. When it has its document but the PDF of it fails, the user is told why
/// and the row counts as failed; so does one that must not be exported, whose reason is added.
bool frmEnvioFactura::ExportarFila(int fila, const fs::path& carpeta, std::string& rechazos) {
  const std::string rechazo = MotivoDeRechazo(vsDocs, fila, txtCliente.Code(), Canal::kFacturae);
  if (!rechazo.empty()) {
    rechazos.append(rechazo).append("\r\n");
    return false;
  }
  const auto revision = EnteroOCero<std::int16_t>(txtNumRevision.Text());
  if (!GenerarFacturaE(vsDocs, fila, true, TextoRuta(carpeta), revision)) return false;
  const facturae::ClaveDocumento clave = ClaveDeFila(vsDocs, fila);
  return clave.EsTicket() || Accion(kTitulo, [&] { ImprimirPdf(clave, carpeta); });
}

}  // namespace kvraedi
