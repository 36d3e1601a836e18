#include "host/demo/informes.h"

#include <fstream>

#include "platform/os/entorno_sistema.h"
#include "platform/suite/suite_referencia.h"
#include "tests/apoyo/fallos.h"
#include "tests/apoyo/guion.h"
#include "tests/platform/os/carpeta_temporal.h"
#include "tests/platform/suite/base_suite.h"

namespace kvraedi {
namespace {

/// Keeps the document and gives a few bytes for it.
class ImpresoraDePrueba : public Impresora {
 public:
  std::string Pdf(const DocumentoImprimible& documento) override {
    ultimo = documento;
    return "%PDF de prueba";
  }
  void Imprimir(const DocumentoImprimible& documento) override { ultimo = documento; }
  DocumentoImprimible ultimo;
};

class InformesTest : public BaseSuite {
 protected:
  InformesTest() {
    std::filesystem::create_directory(carpeta / "Rpt");
    demo::CrearInformes(carpeta / "Rpt");
    db->Run(Guion("platform/suite/cabeceras.sql"));
  }

  std::unique_ptr<Informe> Abrir(const std::string& texto) {
    std::ofstream(carpeta / "Prueba.rpt") << texto;
    return suite.AbrirInforme(entorno, db, carpeta / "Prueba.rpt");
  }
  void InsertarFactura() { db->Run(Guion("platform/suite/factura.sql")); }
  DatosImpresionFactura Datos() {
    return {.serie = 3, .ejercicio = 2024, .codigo = 12, .ficheroPdf = carpeta / "f.pdf"};
  }

  CarpetaTemporal carpeta;
  EntornoSistema sistema;
  EntornoConFallos entorno{sistema};
  ImpresoraDePrueba impresora;
  SuiteReferencia suite{&impresora};
};

const std::string kPlantilla = Guion("platform/suite/plantilla.rpt");

TEST_F(InformesTest, FillsItsLayoutWithFilteredLinkedAndEscapedRows) {
  const auto informe = Abrir(kPlantilla);
  EXPECT_EQ(informe->Tablas(), (std::vector<std::string>{"Cabeceras", "Lineas"}));
  EXPECT_EQ(informe->Subinforme("Empresa.rpt"), nullptr);
  informe->Filtrar("TERMINAL", "T'1");
  const DocumentoImprimible documento = informe->Documento();
  EXPECT_EQ(documento.titulo, "<b>O'Hara & \"Cía\"</b>");
  EXPECT_EQ(documento.pie, "fijo");
  EXPECT_EQ(documento.html,
            "[&lt;b&gt;O&apos;Hara &amp; &quot;Cía&quot;&lt;/b&gt;|02/03/2024|-1.234.567,35]"
            "(uno 1.234,5 3  no es un número 3.703,50)(dos -1,5 0 10%  -0,01)");
}

TEST_F(InformesTest, OnlyWhatAsksForANumberIsReadAsOne) {
  const auto informe = Abrir(
      "tabla Lineas\ncampos Texto, Nota:2, Linea:t?, Unidades, Precio, Rebaja\n"
      "campos Importe:2=Unidades*Precio-Rebaja%\n---\n"
      "{{#Lineas}}{{Texto}} {{Nota}} {{#Linea}}{{Linea}} {{/Linea}}{{Importe}};{{/Lineas}}");
  db->Execute("DELETE FROM Lineas");
  for (const char* valores : {"0, '12345678901234567890', '99999999999999999', 1, 165.21, 90.5",
                              "7, '1E30', '1E30', 2, 0.0025, 0.02"}) {
    db->Execute(std::string("INSERT INTO Lineas (Linea, Texto, Nota, Unidades, Precio, Rebaja)"
                            " VALUES (") +
                valores + ")");
  }
  EXPECT_EQ(informe->Documento().html,
            "12345678901234567890 99999999999999999 15,69;1E30 1E30 7 0,00;");
}

TEST_F(InformesTest, ReadsTablesWhereTheyArePointedAt) {
  const auto informe = Abrir(kPlantilla);
  db->Execute(
      "CREATE TABLE Otras (Terminal nvarchar(40), Numero int, Nombre nvarchar(80), Fecha"
      " datetime, Total money)");
  for (const char* lugar :
       {"main.dbo.Otras", "Gestión 2.dbo.Otras", "dbo.Otras", ".dbo.Otras", "Otras"}) {
    informe->Ubicar("cabeceras", {.ubicacion = lugar});
    EXPECT_EQ(informe->Documento().html, "") << lugar;
  }
  for (const char* lugar : {"", "a.b.c.d", "main.dbo.", "x];DROP TABLE Lineas;--"}) {
    EXPECT_NE(ErrorDe([&] { informe->Ubicar("Cabeceras", {.ubicacion = lugar}); }), "(ninguno)");
  }
  informe->Ubicar("Cabeceras", {.ubicacion = "otra_base.otro.Cabeceras"});
  EXPECT_EQ(ErrorDe([&] { informe->Documento(); }).rfind("Informe Prueba.rpt: ", 0), 0U);
}

TEST_F(InformesTest, FaultsOfAFileNameItAndItsLine) {
  const std::pair<const char*, const char*> casos[] = {
      {"tabla T\ncampos A\n", "falta la línea «---» que separa la cabecera del cuerpo"},
      {"tabla T; DROP TABLE X\n---\n", "línea 1: «T;» no es un nombre"},
      {"\ntabla T\ncampos A, B]\n---\n", "línea 3: «B]» no es un nombre"},
      {"tabla T\ncampos A:9\n---\n", "línea 2: «9» no es un formato"},
      {"tabla T en U por A\n---\n", "línea 1: la tabla «U» no está declarada"},
      {"tabla T\ncampos A, P:2=A*B\n---\n", "línea 2: el campo «B» no está delante en la tabla"},
      {"campos A\n---\n", "línea 1: falta la tabla"},
      {"subinforme ../otro.rpt\n---\n", "línea 1: un subinforme es un fichero de la misma carpeta"},
      {"color rojo\n---\n", "línea 1: «color» no es una palabra de la cabecera"},
      {"tabla T\ncampos A\n---\n{{#T}}{{B}}{{/T}}", "«B» no es un campo ni una tabla del informe"},
  };
  for (const auto& [texto, fallo] : casos) {
    EXPECT_EQ(ErrorDe([&, t = texto] { Abrir(t); }), std::string("Informe Prueba.rpt: ") + fallo);
  }
  const auto abierto = Abrir("tabla Lineas\ncampos Texto\n---\n{{#Lineas}}sin cerrar");
  EXPECT_NE(ErrorDe([&] { abierto->Documento(); }).find("el cuerpo no es válido"),
            std::string::npos);
  EXPECT_NE(
      ErrorDe([&] { suite.AbrirInforme(entorno, db, carpeta / "No está.rpt"); }).find("No está"),
      std::string::npos);
}

TEST_F(InformesTest, ReportsWithinAreFilteredByThemselves) {
  db->Run(demo::kEsquemaRecepcion);
  db->Execute(
      "INSERT INTO Temp_EDI_Factura_Cab (Terminal, Codigo, ImportePagar) VALUES"
      " ('T2', 'F-1', 12.5)");
  const auto informe =
      suite.AbrirInforme(entorno, db, carpeta / "Rpt" / "EDI Factura Recibida.rpt");
  Informe* const empresa = informe->Subinforme("empresa.rpt");
  ASSERT_NE(empresa, nullptr);
  EXPECT_EQ(empresa->Tablas(), std::vector<std::string>{"Empresas"});
  empresa->Filtrar("Codigo", "7");
  informe->Filtrar("Terminal", "T2");
  const std::string html = informe->Documento().html;
  EXPECT_NE(html.find("F-1"), std::string::npos);
  EXPECT_NE(html.find("12,50"), std::string::npos);
  EXPECT_NE(html.find("<b>Otra</b>"), std::string::npos);
  EXPECT_EQ(html.find("<b>Una</b>"), std::string::npos);
}

TEST_F(InformesTest, AnInvoiceIsPrintedWithItsOwnRowsOnly) {
  InsertarFactura();
  const auto empresa = std::make_shared<EmpresaSuite>(*db, std::int16_t{7}, carpeta.Ruta());
  const auto impresion = suite.NuevaImpresionFactura(entorno, db, empresa);
  impresion->Imprimir(Datos());
  EXPECT_EQ(sistema.ReadFile(carpeta / "f.pdf"), "%PDF de prueba");
  EXPECT_EQ(impresora.ultimo.titulo, "Factura 3/12");
  EXPECT_EQ(impresora.ultimo.pie, "Otra · NIF B35 · Factura 3/12 de 20/02/2024");
  for (const char* trozo : {"O&apos;Donnell", "Queso", ">90,00<", ">7<", "1.070,00 €"}) {
    EXPECT_NE(impresora.ultimo.html.find(trozo), std::string::npos) << trozo;
  }
  for (const char* tabla : {"Facturas", "Facturas_Lineas"}) {
    db->Execute("UPDATE " + std::string(tabla) + " SET TipoDoc = 1");
  }
  DatosImpresionFactura abono = Datos();
  abono.tipoDoc = 1;
  impresion->Imprimir(abono);
  EXPECT_EQ(impresora.ultimo.titulo, "Factura rectificativa 3/12");
  EXPECT_NE(impresora.ultimo.html.find("Queso"), std::string::npos);
  DatosImpresionFactura otra = Datos();
  otra.codigo = 13;
  EXPECT_EQ(ErrorDe([&] { impresion->Imprimir(otra); }), "No existe la factura 3/13 de 2024");
  EXPECT_EQ(ErrorDe([&] { SuiteReferencia().NuevaImpresionFactura(entorno, db, nullptr); }),
            "Esta instalación no puede imprimir");
}

TEST_F(InformesTest, APrintThatFailsLeavesWhatWasThere) {
  InsertarFactura();
  std::ofstream(carpeta / "f.pdf") << "anterior";
  const auto empresa = std::make_shared<EmpresaSuite>(*db, std::int16_t{7}, carpeta.Ruta());
  const auto impresion = suite.NuevaImpresionFactura(entorno, db, empresa);
  for (int operacion = 1;; ++operacion) {
    entorno.fallo.FallarEn(operacion);
    const std::string fallo = ErrorDe([&] { impresion->Imprimir(Datos()); });
    if (!entorno.fallo.Disparado()) break;
    ASSERT_NE(fallo, "(ninguno)") << operacion;
    EXPECT_EQ(sistema.ReadFile(carpeta / "f.pdf"), "anterior");
    EXPECT_FALSE(std::filesystem::exists(carpeta / "f.pdf.parcial")) << operacion;
  }
  EXPECT_EQ(sistema.ReadFile(carpeta / "f.pdf"), "%PDF de prueba");
}

}  // namespace
}  // namespace kvraedi
