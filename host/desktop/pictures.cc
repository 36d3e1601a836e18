#include "host/desktop/pictures.h"

#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <exception>
#include <functional>

#include "kvraedi/error.h"

namespace kvraedi::desktop {
namespace {

template <class T>
T& Find(const ui::Form& form, const char* name) {
  auto* control = dynamic_cast<T*>(form.Find(name));
  if (control == nullptr) {
    throw Error(kErrorItemNotFound, "desktop",
                "La pantalla " + form.Name() + " no tiene el control " + name);
  }
  return *control;
}

QString PathOf(const std::filesystem::path& path) {
  return QString::fromStdU16String(path.u16string());
}

/// Answers the message boxes of the screens while it lives: takes a picture of each, then closes
/// it.
class MessageTaker {
 public:
  explicit MessageTaker(std::filesystem::path file) : file_(std::move(file)) {
    constexpr int kOften = 20;  // milliseconds
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Take(); });
    timer_.start(kOften);
  }
  std::string Text() const { return text_; }

 private:
  void Take() {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (box == nullptr) return;
    text_ = box->text().toStdString();
    box->grab().save(PathOf(file_), "PNG");
    box->reject();
  }

  std::filesystem::path file_;
  std::string text_;
  QTimer timer_;
};

/// Uses the modal screen of that name once it comes up, then closes it by its close box.
class ModalUser {
 public:
  ModalUser(QtToolkit& toolkit, std::string form, std::function<void(ui::Form&)> steps)
      : toolkit_(toolkit), form_(std::move(form)), steps_(std::move(steps)) {
    constexpr int kOften = 20;  // milliseconds
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Use(); });
    timer_.start(kOften);
  }
  /// Raises when the screen did not come up or its steps failed.
  void Check() const {
    if (error_) std::rethrow_exception(error_);
    if (timer_.isActive()) {
      throw Error(kErrorItemNotFound, "desktop", "No se ha abierto la pantalla " + form_);
    }
  }

 private:
  void Use() {
    const QWidget* window = QApplication::activeModalWidget();
    ui::Form* form = toolkit_.OpenForm(form_);
    if (form == nullptr || window == nullptr || window->objectName().toStdString() != form_) return;
    timer_.stop();
    try {
      steps_(*form);
    } catch (...) {
      error_ = std::current_exception();
    }
    form->Unload();
  }

  QtToolkit& toolkit_;
  std::string form_;
  std::function<void(ui::Form&)> steps_;
  std::exception_ptr error_;
  QTimer timer_;
};

/// The first invoice that has attachments, which only customers of Facturae get; 1 when none has.
int RowWithAttachments(const ui::Grid& invoices) {
  constexpr int kAttachments = 13;  // the column that marks them
  int row = 1;
  while (row < invoices.Rows() && invoices.Cell(row, kAttachments) != "X") ++row;
  return row < invoices.Rows() ? row : 1;
}

void TakeAttachments(QtToolkit& toolkit, ui::Form& list, const Pictures& pictures) {
  auto& invoices = Find<ui::Grid>(list, "vsDocs");
  invoices.MoveTo(RowWithAttachments(invoices));
  ModalUser user(toolkit, "frmAnexosFactura", [&](ui::Form& form) {
    Find<ui::Grid>(form, "vsDocs").SetRow(1);
    Find<ui::TextBox>(form, "txtRuta").Type("/home/ana/Documentos/contrato.pdf");
    Find<ui::TextBox>(form, "txtDescripcion").Type("Contrato de suministro");
    toolkit.SavePicture(form, pictures.folder / "anexos.png");
  });
  Find<ui::Button>(list, "cmdAnexar").Press();
  user.Check();
}

/// Presses a button of the main window that opens a screen.
ui::Form& OpenScreen(QtToolkit& toolkit, frmPrincipal& main, const char* button, const char* form) {
  Find<ui::Button>(main, button).Press();
  ui::Form* screen = toolkit.OpenForm(form);
  if (screen == nullptr) throw Error(kErrorItemNotFound, "desktop", "No se ha abierto la pantalla");
  return *screen;
}

/// The question for the folder, with the ticked invoices of a customer.
void TakeExport(QtToolkit& toolkit, ui::Form& list, const Pictures& pictures) {
  constexpr int kCustomer = 5;
  const auto& invoices = Find<ui::Grid>(list, "vsDocs");
  Find<ui::Picker>(list, "txtCliente").Type(invoices.Cell(RowWithAttachments(invoices), kCustomer));
  ModalUser user(toolkit, "frmExportar", [&](ui::Form& form) {
    Find<ui::TextBox>(form, "txtRuta").Type("/home/ana/Documentos/Facturas");
    toolkit.SavePicture(form, pictures.folder / "exportar.png");
  });
  Find<ui::Button>(list, "cmdExportar").Press();
  user.Check();
}

/// The administrative centres, and the first of them in its edit dialog.
void TakeCentres(QtToolkit& toolkit, frmPrincipal& main, const Pictures& pictures) {
  MessageTaker unexpected(pictures.folder / "error.png");
  ui::Form& list = OpenScreen(toolkit, main, "cmdCentrosAdministrativos", "frmCentrosAdm");
  auto& centres = Find<ui::Grid>(list, "vsCentros");
  if (centres.Rows() > 1) centres.Click(1, 0);
  toolkit.SavePicture(list, pictures.folder / "centros.png");
  ModalUser user(toolkit, "frmCentrosAdm_Datos", [&](ui::Form& dialog) {
    toolkit.SavePicture(dialog, pictures.folder / "centros_datos.png");
  });
  Find<ui::Button>(list, centres.Rows() > 1 ? "cmdModificar" : "cmdAgregar").Press();
  user.Check();
  list.Unload();
  if (!unexpected.Text().empty()) throw Error(kErrorFile, "desktop", unexpected.Text());
}

/// A received invoice, and the discounts of its first line that has some.
void TakeReceivedInvoice(QtToolkit& toolkit, ui::Form& viewer, const Pictures& pictures) {
  constexpr int kDiscount = 6;
  auto& lines = Find<ui::Grid>(viewer, "vsLineas");
  int row = 1;
  while (row < lines.Rows() && lines.Cell(row, kDiscount) != "+") ++row;
  if (row < lines.Rows()) lines.Click(row, 0);
  toolkit.SavePicture(viewer, pictures.folder / "visor_factura.png");
  {
    ModalUser user(toolkit, "frmView", [&](ui::Form& preview) {
      toolkit.SavePicture(preview, pictures.folder / "vista_previa.png");
    });
    Find<ui::Button>(viewer, "cmdImprimir").Press();
    user.Check();
  }
  if (row == lines.Rows()) return;
  ModalUser user(toolkit, "frmVisorFactura_DescLineas", [&](ui::Form& form) {
    toolkit.SavePicture(form, pictures.folder / "visor_descuentos.png");
  });
  Find<ui::Button>(viewer, "cmdDescLinea").Press();
  user.Check();
}

/// The received invoices, the comment on the first of them, and that invoice.
void TakeReception(QtToolkit& toolkit, frmPrincipal& main, const Pictures& pictures) {
  MessageTaker unexpected(pictures.folder / "error.png");
  ui::Form& list = OpenScreen(toolkit, main, "cmdFacturasRecibidas", "frmRecepcionFactura");
  Find<ui::DateBox>(list, "txtFechaI").Type(pictures.first_date);
  auto& last = Find<ui::DateBox>(list, "txtFechaF");
  last.Type(pictures.last_date);
  last.PressEnter();
  auto& invoices = Find<ui::Grid>(list, "vsDocs");
  if (invoices.Rows() > 1) invoices.Click(1, 0);
  toolkit.SavePicture(list, pictures.folder / "recibidas.png");
  if (invoices.Rows() > 1) {
    ModalUser writer(toolkit, "frmEditor_Comentarios", [&](ui::Form& editor) {
      Find<ui::TextArea>(editor, "txtComent").Type("conforme, salvo los portes:\r\n12 l'últimas");
      toolkit.SavePicture(editor, pictures.folder / "comentario.png");
    });
    Find<ui::Button>(list, "cmdObservaciones").Press();
    writer.Check();
    ModalUser reader(toolkit, "frmVisorFactura",
                     [&](ui::Form& viewer) { TakeReceivedInvoice(toolkit, viewer, pictures); });
    Find<ui::Button>(list, "cmdVisualizar").Press();
    reader.Check();
  }
  list.Unload();
  if (!unexpected.Text().empty()) throw Error(kErrorFile, "desktop", unexpected.Text());
}

void TakePending(QtToolkit& toolkit, frmPrincipal& main, const Pictures& pictures) {
  MessageTaker unexpected(pictures.folder / "error.png");
  ui::Form& list = OpenScreen(toolkit, main, "cmdPdteClasificar", "frmPdteClasificar");
  toolkit.SavePicture(list, pictures.folder / "pendientes.png");
  list.Unload();
  if (!unexpected.Text().empty()) throw Error(kErrorFile, "desktop", unexpected.Text());
}

void TakeInvoiceList(QtToolkit& toolkit, ui::Form& list, const Pictures& pictures) {
  auto& first = Find<ui::DateBox>(list, "txtFechaI");
  auto& last = Find<ui::DateBox>(list, "txtFechaF");
  {
    MessageTaker taker(pictures.folder / "facturas_emitidas_aviso.png");
    last.PressEnter();
  }
  MessageTaker unexpected(pictures.folder / "error.png");
  first.Type(pictures.first_date);
  last.Type(pictures.last_date);
  last.PressEnter();
  toolkit.SavePicture(list, pictures.folder / "facturas_emitidas.png");
  Find<ui::CheckBox>(list, "chkSelelecion_vsDocs").Toggle();
  toolkit.SavePicture(list, pictures.folder / "facturas_emitidas_seleccion.png");
  TakeAttachments(toolkit, list, pictures);
  TakeExport(toolkit, list, pictures);
  if (!unexpected.Text().empty()) throw Error(kErrorFile, "desktop", unexpected.Text());
}

}  // namespace

void TakePictures(QtToolkit& toolkit, frmPrincipal& main, const Pictures& pictures) {
  toolkit.SavePicture(main, pictures.folder / "principal.png");
  ui::Form& list = OpenScreen(toolkit, main, "cmdFacturasEmitidas", "frmEnvioFactura");
  TakeInvoiceList(toolkit, list, pictures);
  list.Unload();
  TakeCentres(toolkit, main, pictures);
  TakeReception(toolkit, main, pictures);
  TakePending(toolkit, main, pictures);
}

}  // namespace kvraedi::desktop
