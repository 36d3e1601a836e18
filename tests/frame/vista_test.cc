#include <gtest/gtest.h>

#include "frame/clsView.h"
#include "kvraedi/adaptadores.h"
#include "kvraedi/error.h"
#include "platform/headless/headless_toolkit.h"
#include "platform/os/entorno_sistema.h"
#include "platform/suite/suite_referencia.h"
#include "tests/apoyo/fallos.h"
#include "tests/platform/os/carpeta_temporal.h"

namespace kvraedi {
namespace {

class InformeFijo : public Informe {
 public:
  explicit InformeFijo(std::string titulo) : titulo_(std::move(titulo)) {}
  std::vector<std::string> Tablas() const override { return {}; }
  void Ubicar(std::string_view /*tabla*/, const OrigenTabla& /*origen*/) override {}
  Informe* Subinforme(std::string_view /*nombre*/) override { return nullptr; }
  void Filtrar(std::string_view /*campo*/, std::string_view /*valor*/) override {}
  DocumentoImprimible Documento() override {
    if (titulo_ == "roto") ThrowTypeMismatch();
    return {titulo_, "<p>texto</p>", ""};
  }

 private:
  std::string titulo_;
};

class ImpresoraFija : public Impresora {
 public:
  std::string Pdf(const DocumentoImprimible& documento) override {
    return "PDF " + documento.titulo;
  }
  void Imprimir(const DocumentoImprimible& documento) override { impreso = documento.titulo; }
  std::string impreso;
};

class VistaTest : public testing::Test {
 protected:
  void SetUp() override {
    InstalarAdaptadores({.entorno = &entorno, .toolkit = &toolkit, .suite = &suite});
  }
  void TearDown() override {
    InstalarAdaptadores({});
    EXPECT_EQ(Form(), nullptr) << "taking the adapters back closes the preview";
  }
  void Cargar(const char* titulo, bool modal = false) {
    vista.Report(std::make_shared<InformeFijo>(titulo));
    vista.Cargar(modal, 120);
  }
  ui::Form* Form() { return toolkit.OpenForm("frmView"); }
  ui::ReportViewer& Visor() { return dynamic_cast<ui::ReportViewer&>(*Form()->Find("crvRep")); }

  CarpetaTemporal carpeta;
  EntornoSistema sistema;
  EntornoConFallos entorno{sistema};
  ImpresoraFija impresora;
  SuiteReferencia suite{&impresora};
  HeadlessToolkit toolkit;
  clsView vista;
};

TEST_F(VistaTest, ShowsTheReportUnderItsZoomWithTheUsualPointer) {
  toolkit.SetPointer(ui::Pointer::kHourglass);
  Cargar("Uno");
  EXPECT_EQ(toolkit.CurrentPointer(), ui::Pointer::kDefault);
  EXPECT_EQ(Form()->Caption(), "Vista previa: Uno");
  EXPECT_EQ(Visor().Source().html, "<p>texto</p>");
  EXPECT_EQ(Visor().Zoom(), 120);
  const auto& tools = Visor().Tools();
  EXPECT_TRUE(tools.navigation && tools.print && tools.save);
}

TEST_F(VistaTest, ModalReturnsWhenTheViewerIsClosedAndTheNextOneIsNew) {
  std::vector<std::string> vistos;
  for (const char* titulo : {"Uno", "Dos"}) {
    toolkit.OnShow("frmView", [&](ui::Form& form) {
      vistos.push_back(form.Caption());
      Visor().Close();
      EXPECT_FALSE(form.Loaded());
    });
    Cargar(titulo, true);
    EXPECT_EQ(Form(), nullptr);
  }
  EXPECT_EQ(vistos, (std::vector<std::string>{"Vista previa: Uno", "Vista previa: Dos"}));
}

TEST_F(VistaTest, AReportThatFailsLeavesNoWindow) {
  EXPECT_THROW(Cargar("roto"), Error);
  EXPECT_EQ(Form(), nullptr);
  vista.Report(nullptr);
  EXPECT_THROW(vista.Cargar(true, 100), Error);
  Cargar("Uno");
  const ui::Form* const form = Form();
  Cargar("Dos");
  EXPECT_EQ(Form(), form) << "an open preview goes over to the new report";
  EXPECT_EQ(Visor().Source().titulo, "Dos");
}

TEST_F(VistaTest, PrintsAndSavesWhatItShows) {
  Cargar("Uno");
  Visor().Print();
  EXPECT_EQ(impresora.impreso, "Uno");
  Visor().Save(carpeta / "uno.pdf");
  EXPECT_EQ(sistema.ReadFile(carpeta / "uno.pdf"), "PDF Uno");
  entorno.fallo.FallarEn(2);
  Visor().Save(carpeta / "dos.pdf");
  EXPECT_FALSE(std::filesystem::exists(carpeta / "dos.pdf"));
  ASSERT_EQ(toolkit.Messages().size(), 1U);
  EXPECT_EQ(toolkit.Messages()[0].title, "frmView:crvRep_ExportButtonClicked");
}

TEST_F(VistaTest, PagesAndZoomStayWithinTheirBounds) {
  Cargar("Uno");
  ui::ReportViewer& visor = Visor();
  visor.GoTo(2);
  EXPECT_EQ(visor.Page(), 1) << "no page is known";
  visor.PagesKnown(3);
  for (const auto& [pedida, llega] : {std::pair(2, 2), {9, 3}, {-1, 1}}) {
    visor.GoTo(pedida);
    EXPECT_EQ(visor.Page(), llega);
  }
  visor.ZoomTo(100000);
  EXPECT_EQ(visor.Zoom(), 500);
  visor.SetTools({});
  visor.Print();
  EXPECT_EQ(impresora.impreso, "") << "the toolbar has no such button";
}

}  // namespace
}  // namespace kvraedi
