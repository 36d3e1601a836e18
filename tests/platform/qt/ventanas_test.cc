#include <gtest/gtest.h>

#include <QApplication>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <fstream>

#include "kvraedi/adaptadores.h"
#include "tests/platform/os/carpeta_temporal.h"
#include "tests/platform/qt/frmMuestra.h"
#include "tests/platform/qt/usuario_qt.h"

namespace kvraedi::prueba {
namespace {

class Ventanas : public testing::Test {
 protected:
  Ventanas() { InstalarAdaptadores({nullptr, &usuario_.Pantallas(), nullptr}); }
  ~Ventanas() override {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    InstalarAdaptadores({});
  }
  std::shared_ptr<frmMuestra> Abre() {
    auto form = std::make_shared<frmMuestra>(diario_);
    form->Show();
    return form;
  }

  std::vector<std::string> diario_;
  UsuarioQt usuario_;
};

/// A form that ends itself, and its last reference with it, wherever it is told to.
class frmFugaz : public ui::Form {
 public:
  frmFugaz() : Form("frmFugaz", "Fugaz") {
    SetLayout(ui::Row({txtTexto, chkFin, cmdFin}));
    txtTexto.onEnter = chkFin.onClick = cmdFin.onClick = [this] { Unload(); };
    onUnload = [this] { sola.reset(); };
  }
  std::shared_ptr<frmFugaz> sola;

  ui::TextBox txtTexto{*this, "txtTexto"};
  ui::CheckBox chkFin{*this, "chkFin", "Fin"};
  ui::Button cmdFin{*this, "cmdFin", "Fin"};
};

TEST_F(Ventanas, UnFormularioMuereEnSuPropioEvento) {
  const std::vector<std::function<void(ui::Form&)>> finales = {
      [&](ui::Form& f) { usuario_.Pulsa(f, "cmdFin"); },
      [&](ui::Form& f) { usuario_.Intro(f, "cmdFin"); },
      [&](ui::Form& f) { usuario_.Pulsa(f, "chkFin"); },
      [&](ui::Form& f) { usuario_.Intro(f, "txtTexto"); },
      [&](ui::Form& f) { usuario_.Cierra(f); },
      [&](ui::Form& f) { f.Unload(); },
  };
  for (const auto& final : finales) {
    std::weak_ptr<frmFugaz> vivo;
    {
      const auto form = std::make_shared<frmFugaz>();
      form->sola = form;
      vivo = form;
      form->Show();
    }
    ASSERT_FALSE(vivo.expired());
    final(*vivo.lock());
    EXPECT_TRUE(vivo.expired());
    EXPECT_EQ(usuario_.Ventana("frmFugaz"), nullptr);
    QTest::qWait(1);
    EXPECT_TRUE(QApplication::topLevelWidgets().isEmpty());
  }
}

TEST_F(Ventanas, SoltarElFormularioQuitaSuVentana) {
  auto form = Abre();
  form->AnadirLineas(2);
  QWidget* window = UsuarioQt::Native(*form);
  form.reset();
  EXPECT_EQ(usuario_.Ventana("frmMuestra"), nullptr);
  EXPECT_FALSE(window->isVisible());
}

TEST_F(Ventanas, ModalVuelveAlOcultarseYConservaSuEstado) {
  const auto form = std::make_shared<frmElegir>();
  usuario_.AlAbrir("frmElegir", [&](ui::Form& abierto) {
    usuario_.Escribe(abierto, "txtValor", "guardado");
    abierto.Hide();
  });
  form->Show(ui::ShowMode::kModal);
  EXPECT_TRUE(form->Loaded());
  EXPECT_EQ(UsuarioQt::Native(*form), nullptr);
  std::string visto;
  usuario_.AlAbrir("frmElegir", [&](ui::Form& abierto) {
    visto = qobject_cast<QLineEdit*>(UsuarioQt::Widget(abierto, "txtValor"))->text().toStdString();
    usuario_.Cierra(abierto);
  });
  form->Show(ui::ShowMode::kModal);
  EXPECT_EQ(visto, "guardado");
  EXPECT_FALSE(form->Loaded());
}

TEST_F(Ventanas, LaVentanaSigueAlFormulario) {
  const auto form = Abre();
  QWidget* window = UsuarioQt::Native(*form);
  form->SetCaption("Otro <b>título</b>");
  form->SetWidth(15000);
  form->lblEstado.SetCaption("A & B <i>");
  form->cmdApagado.SetEnabled(true);
  form->chkTodas.SetVisible(false);
  EXPECT_EQ(window->windowTitle().toStdString(), "Otro <b>título</b>");
  EXPECT_EQ(window->width(), 1000);
  auto* label = qobject_cast<QLabel*>(UsuarioQt::Widget(*form, "lblEstado"));
  EXPECT_EQ(label->text().toStdString(), "A & B <i>");
  EXPECT_EQ(label->textFormat(), Qt::PlainText);
  EXPECT_TRUE(UsuarioQt::Widget(*form, "cmdApagado")->isEnabled());
  EXPECT_FALSE(UsuarioQt::Widget(*form, "chkTodas")->isVisible());
}

TEST_F(Ventanas, TabuladorYTeclaDeAcceso) {
  const auto form = Abre();
  QWidget* window = UsuarioQt::Native(*form);
  std::vector<std::string> orden;
  for (int veces = 0; veces < 6; ++veces) {
    orden.push_back(form->ActiveControl()->Name());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  }
  EXPECT_EQ(orden, (std::vector<std::string>{"txtNombre", "txtFecha", "txtCliente", "txtNumero",
                                             "cboClase", "chkTodas"}));
  QTest::keyClick(window, Qt::Key_C, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([&] { return !form->Loaded(); }));
}

TEST_F(Ventanas, ElPunteroNoSeAcumula) {
  ui::Toolkit& pantallas = usuario_.Pantallas();
  pantallas.SetPointer(ui::Pointer::kHourglass);
  pantallas.SetPointer(ui::Pointer::kHourglass);
  ASSERT_NE(QApplication::overrideCursor(), nullptr);
  EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
  pantallas.SetPointer(ui::Pointer::kDefault);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(Ventanas, SinPantallasElFormularioSigueVivo) {
  auto toolkit = std::make_unique<QtToolkit>();
  InstalarAdaptadores({nullptr, toolkit.get(), nullptr});
  const auto form = Abre();
  toolkit.reset();
  InstalarAdaptadores({});
  form->txtNombre.SetText("nadie mira");
  EXPECT_TRUE(form->Loaded());
}

TEST_F(Ventanas, RepintarPintaAntesDeVolver) {
  class Pintado : public QObject {
   public:
    int veces = 0;
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
      if (event->type() == QEvent::Paint) ++veces;
      return false;
    }
  } pintado;
  const auto form = Abre();
  UsuarioQt::Widget(*form, "lblEstado")->installEventFilter(&pintado);
  form->lblEstado.SetCaption("Generando, por favor espere...");
  usuario_.Pantallas().Repaint(*form);
  EXPECT_GT(pintado.veces, 0);
}

/// Opens a dialog for a user that does this with it once it is there.
template <class Abrir>
auto ConUsuario(const std::function<void(QFileDialog&)>& elige, const Abrir& abrir) {
  QTimer timer;
  QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
    auto* dialogo = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    if (dialogo != nullptr) elige(*dialogo);
  });
  timer.start(10);
  return abrir();
}

void Aceptar(QFileDialog& dialogo) {
  QTest::keyClick(dialogo.findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
}
void Renunciar(QFileDialog& dialogo) { QTest::keyClick(&dialogo, Qt::Key_Escape); }

TEST_F(Ventanas, ElDialogoDeFicherosDaLoElegido) {
  const CarpetaTemporal carpeta;
  for (const char* nombre : {"el año 'x'.pdf", "nota.txt"}) std::ofstream(carpeta / nombre) << "x";
  const auto abrir = [&] {
    return usuario_.Pantallas().ChooseFile({.title = "Anexo",
                                            .filter = "Documento (*.pdf)|*.pdf|Todos|*.*;*",
                                            .folder = carpeta.Ruta(),
                                            .name = "el año 'x'.pdf"});
  };
  const auto elegido = ConUsuario(
      [&](QFileDialog& dialogo) {
        EXPECT_EQ(dialogo.windowTitle(), "Anexo");
        EXPECT_EQ(dialogo.nameFilters(), QStringList({"Documento (*.pdf)", "Todos (*.* *)"}));
        Aceptar(dialogo);
      },
      abrir);
  EXPECT_EQ(elegido, carpeta / "el año 'x'.pdf");
  EXPECT_EQ(ConUsuario(Renunciar, abrir), std::nullopt);
}

TEST_F(Ventanas, ElDialogoDeCarpetasDaLaElegida) {
  const CarpetaTemporal carpeta;
  std::filesystem::create_directory(carpeta / "año 'x'");
  const auto abrir = [&] {
    return usuario_.Pantallas().ChooseFolder({"Selecciona el Directorio", carpeta.Ruta()});
  };
  EXPECT_EQ(ConUsuario(
                [&](QFileDialog& dialogo) {
                  EXPECT_EQ(dialogo.windowTitle(), "Selecciona el Directorio");
                  EXPECT_EQ(dialogo.directory().path().toStdString(), carpeta.Ruta().string());
                  dialogo.findChild<QLineEdit*>("fileNameEdit")->setText("año 'x'");
                  Aceptar(dialogo);
                },
                abrir),
            carpeta / "año 'x'");
  EXPECT_EQ(ConUsuario(Renunciar, abrir), std::nullopt);
}

}  // namespace
}  // namespace kvraedi::prueba
