#include "host/desktop/pictures.h"

#include <QApplication>
#include <QMessageBox>
#include <QTimer>

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
  if (!unexpected.Text().empty()) throw Error(kErrorFile, "desktop", unexpected.Text());
}

}  // namespace

void TakePictures(QtToolkit& toolkit, frmPrincipal& main, const Pictures& pictures) {
  toolkit.SavePicture(main, pictures.folder / "principal.png");
  Find<ui::Button>(main, "cmdFacturasEmitidas").Press();
  ui::Form* list = toolkit.OpenForm("frmEnvioFactura");
  if (list == nullptr) throw Error(kErrorItemNotFound, "desktop", "No se ha abierto la pantalla");
  TakeInvoiceList(toolkit, *list, pictures);
  list->Unload();
}

}  // namespace kvraedi::desktop
