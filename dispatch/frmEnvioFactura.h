#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string_view>

#include "dispatch/comprobacion_envio.h"
#include "dispatch/consulta_facturas.h"
#include "dispatch/rechazo_fila.h"
#include "kvraedi/conexion.h"
#include "kvraedi/ui/form.h"

namespace kvraedi {

/// Columns of the invoice grid; the ones without a header are hidden keys.
enum ColumnaFactura : int {
  kSeleccion,
  kGenerada,
  kSerie,
  kFactura,
  kFecha,
  kCliente,
  kClienteNombre,
  kAlmacen,
  kAlmacenNombre,
  kImporte,
  kTipoDoc,
  kNoEnviar,
  kEjercicio,
  kAnexos,
  kTipo,
  kTipoNum,
  kAlmacenFT,
  kCajaFT,
  kFechaFT,
  kCodigoFT,
  kColumnasFactura
};

/// The list of issued invoices and ticket invoices: filters, selection, exclusion, sending and
/// exporting.
class frmEnvioFactura : public ui::Form {
 public:
  frmEnvioFactura();

  /// Checks the filters and fills the grid; tells the user what is wrong with them otherwise.
  void Cargar();

 protected:
  void OnLoad() override;

 private:
  void Escuchar();
  void Disponer();

  // Filters
  bool FiltroValido();
  FiltroFacturas Filtro();

  // Grid
  void Llenar(Recordset& facturas);
  void vsDocs_Click(int fila, int columna);
  void AlternarSeleccion(int fila);
  void AlternarExclusion(int fila);
  void chkSelelecion_vsDocs_Click();

  // What sending and exporting ask for first: the user is told what is missing
  std::optional<ConfiguracionEnvio> EnvioComprobado();
  bool FiltroDeEnvioValido();
  bool HaySeleccion() const;

  // Sending: true when everything was sent
  void cmdAceptar_Click();
  bool EnviarInvoic();
  bool EnviarFacturaE();
  bool EnviarMarcadas(Canal canal, const std::function<bool(int fila)>& enviar,
                      std::string_view fallo, std::string_view exito);
  bool EnviarCoacsu();

  // Exporting
  void cmdExportar_Click();
  bool RevisionConfirmada();
  std::filesystem::path PedirCarpeta();
  bool ExportarMarcadas(const std::filesystem::path& carpeta);
  bool ExportarFila(int fila, const std::filesystem::path& carpeta, std::string& rechazos);

  // Attachments
  void cmdAnexar_Click();

  bool cargado_ = false;

  ui::Label lblCliente{*this, "lblCliente", "Cliente:"};
  ui::Picker txtCliente{*this, "txtCliente"};
  ui::Label lblCadena{*this, "lblCadena", "Cadena:"};
  ui::Picker txtCadena{*this, "txtCadena"};
  ui::Label lblFechaI{*this, "lblFechaI", "Fecha Inicial:"};
  ui::DateBox txtFechaI{*this, "txtFechaI"};
  ui::Label lblFechaF{*this, "lblFechaF", "Fecha Final:"};
  ui::DateBox txtFechaF{*this, "txtFechaF"};
  ui::Label lblEstado{*this, "lblEstado", "Estado:"};
  ui::ComboBox cboEstado{*this, "cboEstado"};
  ui::Label lblTipo{*this, "lblTipo", "Tipo:"};
  ui::ComboBox cboTipo{*this, "cboTipo"};
  ui::Label lblPlataformaEDI{*this, "lblPlataformaEDI", "Plataforma EDI:"};
  ui::Label lblPlataforma{*this, "lblPlataforma"};
  ui::Label lblNumRevision{*this, "lblNumRevision", "Num. Revisión:"};
  ui::NumericBox txtNumRevision{*this, "txtNumRevision"};
  ui::CheckBox chkSelelecion_vsDocs{*this, "chkSelelecion_vsDocs", "Seleccionar todas"};
  ui::Grid vsDocs{*this, "vsDocs"};
  ui::Button cmdAceptar{*this, "cmdAceptar", "&Trasmitir"};
  ui::Button cmdExportar{*this, "cmdExportar", "&Exportar"};
  ui::Button cmdAnexar{*this, "cmdAnexar", "&Anexar"};
  ui::Button cmdCancelar{*this, "cmdCancelar", "&Cancelar"};
};

}  // namespace kvraedi
