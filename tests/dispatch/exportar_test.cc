#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "dispatch/frmEnvioFactura.h"
#include "facturae/documento.h"
#include "frame/fichero_provisional.h"
#include "tests/apoyo/cliente_facturae.h"
#include "tests/apoyo/pantalla_envio.h"

namespace kvraedi {
namespace {

namespace fs = std::filesystem;

constexpr const char* kExito = "¡ Atención !|Ficheros de FACTURA E exportados correctamente.|1";

std::string Fallidas(const std::string& lista) {
  return "¡ Atención !|Las siguientes Facturas han dado error al exportar: " + lista + "|1";
}

/// Notes what is printed and writes it as a small file, in one step; fails for one invoice.
class SuiteQueImprime : public SuiteReferencia {
 public:
  std::unique_ptr<ImpresionFactura> NuevaImpresionFactura(
      Entorno& entorno, std::shared_ptr<Connection> conexion,
      std::shared_ptr<Empresa> empresa) override {
    EXPECT_TRUE(conexion);
    EXPECT_TRUE(empresa);
    return std::make_unique<Impresion>(*this, entorno);
  }

  std::vector<DatosImpresionFactura> impresas;
  int averiada = 0;

 private:
  class Impresion : public ImpresionFactura {
   public:
    Impresion(SuiteQueImprime& suite, Entorno& entorno) : suite_(suite), entorno_(entorno) {}
    void Imprimir(const DatosImpresionFactura& datos) override {
      if (datos.codigo == suite_.averiada) throw Error(kErrorFile, "prueba", "Sin tinta");
      FicheroProvisional provisional(entorno_, fs::path(datos.ficheroPdf) += ".parcial");
      const auto escritor = entorno_.Create(provisional.Ruta());
      escritor->Write("%PDF");
      escritor->Close();
      provisional.Publicar(datos.ficheroPdf);
      suite_.impresas.push_back(datos);
    }

   private:
    SuiteQueImprime& suite_;
    Entorno& entorno_;
  };
};

/// Customer 100 on Facturae with invoices 1, 2 and 3, all ticked, and a signer that agrees.
class Exportar : public PantallaEnvio {
 protected:
  void SetUp() override {
    PantallaEnvio::SetUp();
    base->Run(kClienteFacturae);
    LeerEmpresa();
    InstalarAdaptadores({.entorno = &entorno, .toolkit = &toolkit, .suite = &impresora});
    for (const int codigo : {1, 2, 3}) InsertarFactura(codigo);
    fs::create_directory(destino);
    ::setenv("KVRAEDI_FIRMADOR", "responde:OK", 1);
    Control<ui::Picker>("txtCliente").Type("100");
    Marcar();
  }
  void TearDown() override {
    ::unsetenv("KVRAEDI_FIRMADOR");
    PantallaEnvio::TearDown();
  }

  void Marcar() {
    Listar();
    Control<ui::CheckBox>("chkSelelecion_vsDocs").SetValue(false);
    Control<ui::CheckBox>("chkSelelecion_vsDocs").Toggle();
  }
  /// Presses the button; the dialog gets that folder, or is closed by its close box.
  void Pulsar(const std::optional<fs::path>& ruta) {
    avisosPrevios = toolkit.Messages().size();
    elegida = ruta;
    toolkit.OnShow("frmExportar", [this](ui::Form& form) {
      ++dialogos;
      EXPECT_EQ(form.Caption(), "Exportar Documento");
      if (!elegida) return;
      dynamic_cast<ui::TextBox&>(*form.Find("txtRuta")).Type(elegida->string());
      dynamic_cast<ui::Button&>(*form.Find("cmdAceptar")).Press();
    });
    Control<ui::Button>("cmdExportar").Press();
  }
  /// The boxes of the last press.
  Celdas Avisos() const {
    Celdas textos;
    for (std::size_t i = avisosPrevios; i < toolkit.Messages().size(); ++i) {
      textos.push_back(TextoAviso(toolkit.Messages()[i]));
    }
    return textos;
  }
  Celdas Exportados() const {
    Celdas nombres;
    for (const auto& entrada : fs::directory_iterator(destino)) {
      nombres.push_back(entrada.path().filename().string());
    }
    std::sort(nombres.begin(), nombres.end());
    return nombres;
  }
  static Celdas FicherosDe(const std::vector<int>& facturas) {
    Celdas nombres;
    for (const int factura : facturas) {
      const std::string nombre = "01202400000000" + std::to_string(factura) + "00003";
      for (const char* fin : {".pdf", ".xsig", "_sinFirmar.xml"}) nombres.push_back(nombre + fin);
    }
    return nombres;
  }

  SuiteQueImprime impresora;
  fs::path destino = carpeta / "Año 'X'";
  std::optional<fs::path> elegida;
  std::size_t avisosPrevios = 0;
  int dialogos = 0;
};

TEST_F(Exportar, EveryTickedInvoiceLeavesItsDocumentsAndNoRecord) {
  Pulsar(destino);
  EXPECT_EQ(Avisos(), Celdas{kExito});
  EXPECT_EQ(Exportados(), FicherosDe({1, 2, 3}));
  EXPECT_EQ(Columna(kSeleccion), (Celdas{"0", "0", "0"}));
  EXPECT_EQ(Columna(kGenerada), (Celdas{"", "", ""}));
  EXPECT_EQ(Contar("SELECT COUNT(*) FROM EDI_Envio_Facturas"), 0);
  EXPECT_FALSE(toolkit.OpenForm("frmMsg")->Visible());
  ASSERT_EQ(impresora.impresas.size(), 3U);
  const auto& datos = impresora.impresas[1];
  EXPECT_EQ(datos.serie, 3);
  EXPECT_EQ(datos.ejercicio, 2024);
  EXPECT_EQ(datos.tipoDoc, 0);
  EXPECT_EQ(datos.codigo, 2);
  EXPECT_EQ(datos.usuario, 7);
  EXPECT_EQ(datos.ficheroPdf, destino / "01202400000000200003.pdf");
  EXPECT_EQ(facturae::IdentificadorFactura(
                1, {.ejercicio = 2024, .serie = 2, .codigo = 1234, .tipoDoc = 1}),
            "01202400000123401002");
}

TEST_F(Exportar, EachQuestionIsAskedBeforeTheNext) {
  const std::string titulo = "¡ Atención !|";
  const std::string pregunta =
      titulo + "¿Está seguro que desea exportar la factura con Número de Revisión 2 ?|4";
  const std::string falta = titulo + "Debe definir el tipo de ";
  const std::string fin = " de envío para el cliente seleccionado|2";
  const std::string ninguna = "UPDATE Clientes SET Cod_EDIPlat_Fra = 9";
  const std::string seres = "UPDATE Clientes SET Cod_EDIPlat_Fra = 2";
  const std::string otroMensaje =
      "UPDATE EDI_TipoMsg SET Cod_EDITipoMsg = 2; UPDATE Clientes SET Cod_EDITipoMsg_Fra = 2";
  constexpr auto kSi = ui::Answer::kYes;
  const struct {
    std::string cambio;
    ui::Answer respuesta;
    std::optional<fs::path> ruta;
    int dialogos;
    Celdas avisos;
  } casos[] = {
      {ninguna, kSi, destino, 0, {falta + "envío para el cliente seleccionado|2"}},
      {seres, ui::Answer::kNo, destino, 0, {pregunta}},
      {seres, kSi, {}, 1, {pregunta}},
      {seres, kSi, "", 1, {pregunta}},
      {seres, kSi, carpeta / "no", 1, {pregunta, titulo + "No existe la ruta especificada|2"}},
      {seres, kSi, destino, 1, {pregunta, falta + "plataforma" + fin}},
      {otroMensaje, kSi, destino, 1, {pregunta, falta + "mensaje" + fin}}};
  for (const auto& caso : casos) {
    base->BeginTrans();
    base->Run(caso.cambio);
    Control<ui::NumericBox>("txtNumRevision").Type("2");
    dialogos = 0;
    if (caso.avisos.front() == pregunta) toolkit.QueueAnswer(caso.respuesta);
    Pulsar(caso.ruta);
    EXPECT_EQ(Avisos(), caso.avisos);
    EXPECT_EQ(dialogos, caso.dialogos) << caso.cambio;
    base->RollbackTrans();
  }
  const auto& caja =
      *std::find_if(toolkit.Messages().begin(), toolkit.Messages().end(),
                    [](const auto& aviso) { return aviso.icon == ui::Icon::kQuestion; });
  EXPECT_EQ(caja.buttons, ui::Buttons::kYesNo);
  EXPECT_EQ(caja.preset, ui::Answer::kNo);
  EXPECT_EQ(Exportados(), Celdas());
  EXPECT_EQ(Columna(kSeleccion), (Celdas{"1", "1", "1"}));
}

TEST_F(Exportar, OnlyTheFirstInvoiceGetsTheRevision) {
  base->Execute(
      "INSERT INTO EDI_Envio_Facturas (Cod_EDIPlat, Cod_EDITipoMsg, Cod_Empresa, Cod_Ejercicio,"
      " Serie, Codigo, TipoDoc, Revision) VALUES (3, 1, 1, 2024, 3, 1, 0, 6),"
      " (3, 1, 1, 2024, 3, 2, 0, 6)");
  Marcar();
  for (const int fila : {1, 2}) Lista().Click(fila, kSeleccion);
  Control<ui::NumericBox>("txtNumRevision").Type("2");
  toolkit.QueueAnswer(ui::Answer::kYes);
  Pulsar(destino);
  EXPECT_EQ(UltimoAviso(), kExito);
  EXPECT_EQ(Control<ui::NumericBox>("txtNumRevision").Text(), "0");
  const auto numero = [&](int factura, const char* esperado) {
    const std::string xml =
        Contenido(destino / ("01202400000000" + std::to_string(factura) + "00003_sinFirmar.xml"));
    return xml.find("<InvoiceNumber>" + std::string(esperado) + "</InvoiceNumber>") !=
           std::string::npos;
  };
  EXPECT_TRUE(numero(1, "1/R2"));
  EXPECT_TRUE(numero(2, "2/R7"));
  EXPECT_TRUE(numero(3, "3"));
  EXPECT_EQ(Columna(kGenerada), (Celdas{"X", "X", ""}));
}

TEST_F(Exportar, ARevisionThatIsNoShortNumberEndsTheAction) {
  const struct {
    const char *texto, *error;
  } casos[] = {{"32768", "Desbordamiento"},
               {"999999999", "Desbordamiento"},
               {"2b", "No coinciden los tipos"}};
  for (const auto& [texto, error] : casos) {
    Control<ui::NumericBox>("txtNumRevision").SetText(texto);
    Pulsar(destino);
    EXPECT_EQ(Avisos(), Celdas{"frmEnvioFactura:cmdExportar_Click|" + std::string(error) + "|3"});
  }
  EXPECT_EQ(dialogos, 0);
  Control<ui::NumericBox>("txtNumRevision").SetText("");
  Pulsar(destino);
  EXPECT_EQ(Avisos(), Celdas{kExito});
}

TEST_F(Exportar, FailuresAreListedAndTheOthersGoOn) {
  for (const int codigo : {4, 5}) InsertarFactura(codigo);
  Marcar();
  base->Run(
      "UPDATE Facturas SET Total = NULL WHERE Codigo = 2; DELETE FROM Facturas WHERE Codigo = 4");
  impresora.averiada = 5;
  Pulsar(destino);
  const Celdas avisos = Avisos();
  ASSERT_EQ(avisos.size(), 4U);
  EXPECT_EQ(avisos[0], "modFactura_E:FACTURA_E|columna total: Uso no válido de Null|3");
  EXPECT_EQ(avisos[1], "modFactura_E:FACTURA_E|La factura no está en la base de datos|3");
  EXPECT_EQ(avisos[2], "frmEnvioFactura:cmdExportar_Click|Sin tinta|3");
  EXPECT_EQ(avisos[3], Fallidas("2\r\n4\r\n5\r\n"));
  Celdas ficheros = FicherosDe({1, 3, 5});
  ficheros.erase(ficheros.end() - 3);  // the PDF of invoice 5
  EXPECT_EQ(Exportados(), ficheros);
  EXPECT_EQ(Columna(kSeleccion), Celdas(5, "0"));
  EXPECT_FALSE(toolkit.OpenForm("frmMsg")->Visible());
}

TEST_F(Exportar, ATicketHasNoPdf) {
  base->Run(R"(
INSERT INTO TPV_Tickets (Cod_Empresa, Cod_Almacen, Caja, Fecha, Codigo, Total) VALUES (1, 5, 12, '20/02/2024', 77, 10);
INSERT INTO TPV_Tickets_Factura (Cod_Empresa, Cod_Almacen, Caja, Fecha, Codigo, Factura_Serie, Factura_Codigo, Factura_TipoDoc, Factura_Fecha, Factura_Almacen, Cliente, Hora) VALUES (1, 5, 12, '20/02/2024', 77, 9, 700, 0, '21/02/2024', 5, 100, '20/02/2024 10:00:00');
DELETE FROM Facturas;
)");
  Marcar();
  Pulsar(destino);
  EXPECT_EQ(Avisos(), Celdas{kExito});
  EXPECT_EQ(Exportados(),
            (Celdas{"0100512200224000000077.xsig", "0100512200224000000077_sinFirmar.xml"}));
}

TEST_F(Exportar, NoCellLeadsOutOfTheFolder) {
  for (const int columna : {kFactura, kSerie, kTipoDoc}) {
    Marcar();
    Lista().SetCell(1, columna, "../../1");
    Pulsar(destino);
    EXPECT_EQ(Avisos(), Celdas{"frmEnvioFactura:cmdExportar_Click|No coinciden los tipos|3"});
  }
  EXPECT_EQ(Exportados(), Celdas());
}

TEST_F(Exportar, TheFolderIsChosenFromTheProfileOn) {
  toolkit.QueueFolder(destino);
  toolkit.OnShow("frmExportar", [&](ui::Form& form) {
    const auto pulsar = [&](const char* boton) {
      dynamic_cast<ui::Button&>(*form.Find(boton)).Press();
    };
    const auto& ruta = dynamic_cast<ui::TextBox&>(*form.Find("txtRuta"));
    pulsar("cmdExaminar");
    EXPECT_EQ(ruta.Text(), destino.string());
    pulsar("cmdExaminar");  // given up: what is there stays
    EXPECT_EQ(ruta.Text(), destino.string());
    pulsar("cmdCancelar");
  });
  Control<ui::Button>("cmdExportar").Press();
  ASSERT_EQ(toolkit.FolderDialogs().size(), 2U);
  EXPECT_EQ(toolkit.FolderDialogs()[0].title, "Selecciona el Directorio");
  EXPECT_EQ(toolkit.FolderDialogs()[0].folder, perfil);
  EXPECT_TRUE(toolkit.Messages().empty());
  EXPECT_EQ(Columna(kSeleccion), (Celdas{"1", "1", "1"}));
}

/// Whatever fails: the invoice at work is listed, the others have all their files, and no file with
/// a final name is incomplete.
TEST_F(Exportar, AnyFaultCostsOneInvoiceAtMost) {
  const auto comprobar = [&](int operacion) {
    SCOPED_TRACE(operacion);
    const std::string ultimo = UltimoAviso();
    Celdas completas;
    int fallidas = 0;
    for (const int factura : {1, 2, 3}) {
      const bool listada = ultimo.find(std::to_string(factura) + "\r\n") != std::string::npos;
      fallidas += listada ? 1 : 0;
      for (const std::string& nombre : FicherosDe({factura})) {
        const fs::path fichero = destino / nombre;
        EXPECT_TRUE(listada || fs::exists(fichero)) << nombre;
        if (!fs::exists(fichero)) continue;
        const std::string texto = Contenido(fichero);
        EXPECT_TRUE(nombre.ends_with(".pdf") ? texto == "%PDF"
                                             : texto.find("</fe:Facturae>") != std::string::npos)
            << nombre;
      }
    }
    EXPECT_EQ(fallidas, 1) << ultimo;
    EXPECT_EQ(Columna(kSeleccion), (Celdas{"0", "0", "0"}));
    for (const std::string& nombre : Exportados()) EXPECT_FALSE(nombre.ends_with(".parcial"));
  };
  const auto barrer = [&](Fallo& fallo) {
    for (int operacion = 1;; ++operacion) {
      for (const auto& entrada : fs::directory_iterator(destino)) fs::remove(entrada.path());
      fs::remove_all(perfil / "Ormo");
      Marcar();
      fallo.FallarEn(operacion);
      Pulsar(destino);
      const bool disparado = fallo.Disparado();
      fallo.FallarEn(0);
      if (!disparado) return operacion;
      // The customer's configuration is read before the batch begins.
      if (dialogos > 0 && Avisos().size() > 1) comprobar(operacion);
    }
  };
  EXPECT_GT(barrer(entorno.fallo), 20);
  EXPECT_GT(barrer(conexion->fallo), 20);
}

}  // namespace
}  // namespace kvraedi
