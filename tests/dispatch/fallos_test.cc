#include <gtest/gtest.h>

#include <fstream>

#include "dispatch/frmEnvioFactura.h"
#include "tests/apoyo/pantalla_envio.h"
#include "tests/apoyo/puertos_con_fallos.h"

namespace kvraedi {
namespace {

/// A whole visit of the screen in which one call of one port fails: whatever it is, the user is
/// told and finds the screen at rest, and the next visit does everything.
class FallosTest : public PantallaEnvio {
 protected:
  void SetUp() override {
    PantallaEnvio::SetUp();
    InsertarFactura(1);
    std::ofstream(carpeta / "a.pdf") << "%PDF";
    empresaRota = std::make_shared<EmpresaConFallos>(empresa);
    filas = std::make_shared<ConexionDeFilasConFallos>(base);
    clase->EmpresaKestrova(empresaRota);
    clase->ConexionKestrova(filas);
    InstalarAdaptadores({.entorno = &entorno, .toolkit = &pantalla, .suite = &suiteRota});
    clase.emplace();
  }
  void TearDown() override {
    clase.reset();
    InstalarAdaptadores({});  // before the wrapper of the toolkit ends
    PantallaEnvio::TearDown();
  }

  void Anexar(ui::Form& form) const {
    dynamic_cast<ui::TextBox&>(*form.Find("txtRuta")).Type((carpeta / "a.pdf").string());
    dynamic_cast<ui::TextBox&>(*form.Find("txtDescripcion")).Type("A");
    for (const char* boton : {"cmdAnexar", "cmdSalir"}) {
      dynamic_cast<ui::Button&>(*form.Find(boton)).Press();
    }
  }
  /// Lists, attaches and sends; what cannot be done is left out, as a person would.
  void Visitar() {
    clase->Show(0, nullptr);
    Control<ui::Picker>("txtCliente").Type("100");
    Listar();
    toolkit.OnShow("frmAnexosFactura", [this](ui::Form& form) { Anexar(form); });
    Lista().MoveTo(1);
    Control<ui::Button>("cmdAnexar").Press();
    Lista().Click(1, kSeleccion);
    Enviar();
    ASSERT_EQ(Lista().Cols(), kColumnasFactura);
    Control<ui::Button>("cmdCancelar").Press();
  }
  /// Visits until a fault is no longer reached; gives back how many were.
  int Barrer(Fallo& fallo, const std::string& aviso) {
    for (int k = 1;; ++k) {
      SCOPED_TRACE(aviso + " " + std::to_string(k));
      base->Run("DELETE FROM EDI_Envio_Facturas; DELETE FROM EDI_Anexos");
      const std::size_t avisos = toolkit.Messages().size();
      fallo.FallarEn(k);
      try {
        Visitar();
      } catch (const Error& error) {
        EXPECT_EQ(error.Description(), aviso);
      }
      const bool disparado = fallo.Disparado();
      fallo.FallarEn(0);
      if (!disparado) {
        EXPECT_EQ(Contar("SELECT COUNT(*) FROM EDI_Envio_Facturas"), 1);
        EXPECT_EQ(Contar("SELECT COUNT(*) FROM EDI_Anexos"), 1);
        return k - 1;
      }
      EXPECT_EQ(toolkit.CurrentPointer(), ui::Pointer::kDefault);
      const ui::Form* const mensaje = toolkit.OpenForm("frmMsg");
      EXPECT_FALSE(mensaje != nullptr && mensaje->Visible());
      EXPECT_EQ(toolkit.OpenForm("frmAnexosFactura"), nullptr);
      const bool dicho = std::any_of(
          toolkit.Messages().begin() + static_cast<std::ptrdiff_t>(avisos),
          toolkit.Messages().end(), [&](const auto& caja) { return caja.text.ends_with(aviso); });
      EXPECT_TRUE(dicho || &fallo == &pantalla.fallo);
      if (ui::Form* form = toolkit.OpenForm("frmEnvioFactura")) form->Unload();
    }
  }

  SuiteConFallos suiteRota{suite};
  ToolkitConFallos pantalla{toolkit};
  std::shared_ptr<EmpresaConFallos> empresaRota;
  std::shared_ptr<ConexionDeFilasConFallos> filas;
};

TEST_F(FallosTest, EachCallOfEachPort) {
  EXPECT_GT(Barrer(suiteRota.fallo, "Suite averiada"), 1);
  EXPECT_GT(Barrer(empresaRota->fallo, "Empresa averiada"), 8);
  EXPECT_GT(Barrer(pantalla.fallo, "Pantalla averiada"), 10);
  EXPECT_GT(Barrer(filas->fallo, "Conexión perdida"), 100);
}

}  // namespace
}  // namespace kvraedi
