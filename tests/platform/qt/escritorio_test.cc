#include <QAbstractButton>
#include <QApplication>
#include <QImage>
#include <QTest>
#include <QTimer>

#include "host/desktop/desktop.h"
#include "tests/apoyo/escenario.h"

namespace kvraedi::desktop {
namespace {

/// What the user does once the application runs.
std::function<void()>& AlEmpezar() {
  static std::function<void()> pasos;
  return pasos;
}

void Empieza() {
  if (AlEmpezar()) QTimer::singleShot(0, qApp, AlEmpezar());
}

Q_COREAPP_STARTUP_FUNCTION(Empieza)

QWidget* Ventana(const char* nombre) {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->objectName() == nombre && window->isVisible()) return window;
  }
  return nullptr;
}

class EscritorioTest : public Escenario {
 protected:
  void SetUp() override {
    Escenario::SetUp();
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    for (int codigo = 1; codigo <= 3; ++codigo) InsertarFactura(codigo);
  }
  void TearDown() override {
    AlEmpezar() = nullptr;
    Escenario::TearDown();
  }
  DesktopSession Sesion(std::optional<Pictures> pictures = {}) {
    return {conexion, empresa, {}, entorno, suite, std::move(pictures)};
  }
};

TEST_F(EscritorioTest, AbreLaListaYSale) {
  bool abierta = false;
  AlEmpezar() = [&] {
    const auto pulsa = [](const char* boton) {
      QTest::mouseClick(Ventana("frmPrincipal")->findChild<QAbstractButton*>(boton),
                        Qt::LeftButton);
    };
    pulsa("cmdFacturasEmitidas");
    abierta = Ventana("frmEnvioFactura") != nullptr;
    pulsa("cmdSalir");
  };
  EXPECT_EQ(RunDesktop(Sesion()), 0);
  EXPECT_TRUE(abierta);
}

TEST_F(EscritorioTest, GuardaLasImagenesSinEscribirEnLaBase) {
  const auto carpetaImagenes = carpeta / "imágenes";
  std::filesystem::create_directory(carpetaImagenes);
  EXPECT_EQ(RunDesktop(Sesion(Pictures{carpetaImagenes, "01/01/2024", "31/12/2024"})), 0);
  for (const char* nombre :
       {"principal", "facturas_emitidas_aviso", "facturas_emitidas", "facturas_emitidas_seleccion",
        "anexos", "centros", "centros_datos", "recibidas", "pendientes"}) {
    const auto fichero = carpetaImagenes / (std::string(nombre) + ".png");
    EXPECT_FALSE(QImage(QString::fromStdString(fichero.string())).isNull()) << nombre;
  }
  EXPECT_FALSE(std::filesystem::exists(carpetaImagenes / "error.png"));
  EXPECT_EQ(Contar("SELECT COUNT(*) FROM EDI_Envio_Facturas"), 0);
}

TEST_F(EscritorioTest, LoQueFallaSeDice) {
  EXPECT_THROW(RunDesktop(Sesion(Pictures{carpeta / "no está", "01/01/2024", "31/12/2024"})),
               Error);
  EXPECT_THROW(RunDesktop(Sesion(Pictures{carpeta.Ruta(), "31/12/2024", "01/01/2024"})), Error);
}

}  // namespace
}  // namespace kvraedi::desktop
