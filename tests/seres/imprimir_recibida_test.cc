#include <gtest/gtest.h>

#include "kvraedi/ui/report_viewer.h"
#include "tests/seres/visor_escenario.h"

namespace kvraedi {
namespace {

/// A report that notes down what is done to it.
class InformeDePrueba : public Informe {
 public:
  InformeDePrueba(std::vector<std::string> tablas, std::unique_ptr<InformeDePrueba> dentro)
      : tablas_(std::move(tablas)), dentro_(std::move(dentro)) {}

  std::vector<std::string> Tablas() const override { return tablas_; }
  void Ubicar(std::string_view tabla, const OrigenTabla& origen) override {
    Notas().push_back(std::string(tabla) + ">" + origen.ubicacion + "|" + origen.odbcNombre + "|" +
                      origen.baseDatos + "|" + origen.usuario + "|" + origen.password);
  }
  Informe* Subinforme(std::string_view nombre) override {
    return nombre == "Empresa.rpt" ? dentro_.get() : nullptr;
  }
  void Filtrar(std::string_view campo, std::string_view valor) override {
    Notas().push_back(std::string(campo) + "=" + std::string(valor));
  }
  DocumentoImprimible Documento() override { return {.titulo = "Factura recibida"}; }

  static std::vector<std::string>& Notas() {
    static std::vector<std::string> notas;
    return notas;
  }

 private:
  std::vector<std::string> tablas_;
  std::unique_ptr<InformeDePrueba> dentro_;
};

class SuiteConInforme : public SuiteReferencia {
 public:
  std::unique_ptr<Informe> AbrirInforme(Entorno& /*entorno*/,
                                        std::shared_ptr<Connection> /*conexion*/,
                                        const std::filesystem::path& fichero) override {
    InformeDePrueba::Notas() = {fichero.string()};
    return std::make_unique<InformeDePrueba>(
        std::vector<std::string>{"Temp_EDI_Factura_Cab", "Temp_EDI_Factura_Lineas"},
        std::make_unique<InformeDePrueba>(std::vector<std::string>{"Empresas"}, nullptr));
  }
};

class ImprimirRecibidaTest : public VisorEscenario {
 protected:
  void SetUp() override {
    VisorEscenario::SetUp();
    InstalarAdaptadores({.entorno = &entorno, .toolkit = &toolkit, .suite = &suiteConInforme});
    base->Run(
        "INSERT INTO Empresas_Parametros VALUES (1, 'ODBCNombre', 'Kestrova');"
        "INSERT INTO Empresas_Parametros VALUES (1, 'ODBCBaseDatos', 'Gestion');"
        "INSERT INTO Empresas_Parametros VALUES (1, 'ODBCUsuario', 'edi');"
        "INSERT INTO Empresas_Parametros VALUES (1, 'ODBCPassword', 'secreto');"
        "INSERT INTO Temp_EDI_Factura_Cab (Terminal) VALUES ('OTRO');"
        "INSERT INTO Temp_EDI_Factura_Desc_Linea (Terminal, NumLinea) VALUES ('OTRO', 1);");
    LeerEmpresa();
    terminal = entorno.TerminalName();
  }
  /// Presses the print button; gives back the zoom of the preview, 0 when there was none.
  int Imprimir() {
    int zoom = 0;
    toolkit.OnShow("frmView", [&](ui::Form& form) {
      zoom = dynamic_cast<ui::ReportViewer&>(*form.Find("crvRep")).Zoom();
    });
    Control<ui::Button>("cmdImprimir").Press();
    return zoom;
  }
  /// The statements that wrote.
  std::vector<std::string> Escrituras() const {
    auto sentencias = conexion->sentencias;
    std::erase_if(sentencias, [](const auto& sql) { return sql.find("SELECT") != sql.npos; });
    return sentencias;
  }
  int Filas(const char* tabla) {
    return Contar("SELECT COUNT(*) FROM " + std::string(tabla) + " WHERE Terminal = '" + terminal +
                  "'");
  }

  SuiteConInforme suiteConInforme;
  std::string terminal;
};

const std::string kFactura =
    Fichero({Rectl(), Sincc(), Esperado(773, "1 SINCP|7 SCO|10 84|30 '); DROP TABLE Facturas --"),
             Esperado(139, "1 SINCD|8 1|9 A|-21 2.5|74 EAB"), Esperado(139, "1 SINCD|7 A'"),
             Sincl("5'1"), Since(), Esperado(82, "1 SINCU|13 D'Artagnan")});

TEST_F(ImprimirRecibidaTest, TheFourTablesHoldTheTerminalsCopy) {
  Abrir(Escribir(kFactura));
  EXPECT_EQ(Imprimir(), 120);
  const std::string t = "'" + terminal + "'";
  const std::vector<std::string> esperadas = {
      "DELETE FROM Temp_EDI_Factura_Cab WHERE Terminal = " + t,
      "DELETE FROM Temp_EDI_Factura_Desc_Cab WHERE Terminal = " + t,
      "DELETE FROM Temp_EDI_Factura_Lineas WHERE Terminal = " + t,
      "DELETE FROM Temp_EDI_Factura_Desc_Linea WHERE Terminal = " + t,
      "INSERT INTO Temp_EDI_Factura_Cab (Terminal,Mensaje,Codigo,Tipo,Estado,FechaDocumento,"
      "CodigoEmisor,Nombre, NIF,Direccion,Ciudad,CP,ImporteNeto,ImporteBase,ImporteImpuesto,"
      "ImportePagar, Observaciones)  VALUES (" +
          t +
          ",'FACTURA','F-77''1','COMERCIAL','ORIGINAL','14/03/2026','84',"
          "'''); DROP TABLE Facturas --','','','','',1234.57,1200,84,1284,'')",
      "INSERT INTO Temp_EDI_Factura_Desc_Cab (Terminal, Numero, Indicador, Porcentaje, Importe, "
      "Tipo)  VALUES (" +
          t + ",1,'(A) Descuento',2.5,0,'PRONTO PAGO')",
      "INSERT INTO Temp_EDI_Factura_Desc_Cab (Terminal, Numero, Indicador, Porcentaje, Importe, "
      "Tipo)  VALUES (" +
          t + ",'A''','(C) Cargo',0,0,'')",
      "INSERT INTO Temp_EDI_Factura_Lineas (Terminal, Codigo, Descripcion, Unidades, Neto, Bruto, "
      "NetoLinea, NumLinea)  VALUES (" +
          t + ",'5''1','Jamón D''Or',4,25.1234,30.5,-100.01,1)",
      "INSERT INTO Temp_EDI_Factura_Lineas (Terminal, Codigo, Descripcion, Unidades, Neto, Bruto, "
      "NetoLinea, NumLinea)  VALUES (" +
          t + ",'C','D''Artagnan',NULL,NULL,NULL,NULL,2)",
      "INSERT INTO Temp_EDI_Factura_Desc_Linea (Terminal, NumLinea, Numero, Indicador, Porcentaje, "
      "Importe, Tipo)  VALUES (" +
          t + ",1,1,'(A) Descuento',5.25,1.5,'COMERCIAL')"};
  EXPECT_EQ(Escrituras(), esperadas);
  EXPECT_EQ(Imprimir(), 120) << "the second print replaces the first";
  EXPECT_TRUE(toolkit.Messages().empty());
  EXPECT_EQ(Filas("Temp_EDI_Factura_Cab"), 1);
  EXPECT_EQ(Filas("Temp_EDI_Factura_Lineas"), 2);
  EXPECT_EQ(Contar("SELECT COUNT(*) FROM Temp_EDI_Factura_Cab WHERE Terminal = 'OTRO'"), 1);
}

TEST_F(ImprimirRecibidaTest, TheReportReadsTheSuitesDatabaseAndThisTerminal) {
  Abrir(Escribir(kFactura));
  Imprimir();
  const std::string acceso = "|Kestrova|Gestion|edi|secreto";
  EXPECT_EQ(InformeDePrueba::Notas(),
            (std::vector<std::string>{
                (carpeta.Ruta() / "Rpt" / "EDI Factura Recibida.rpt").string(),
                "Temp_EDI_Factura_Cab>Gestion.dbo.Temp_EDI_Factura_Cab" + acceso,
                "Temp_EDI_Factura_Lineas>Gestion.dbo.Temp_EDI_Factura_Lineas" + acceso,
                "Empresas>Gestion.dbo.Empresas" + acceso, "Codigo=1", "Terminal=" + terminal}));
}

TEST_F(ImprimirRecibidaTest, AnEmptyInvoiceIsPrintedWithZeros) {
  Abrir(carpeta / "no se lee", 1);
  EXPECT_EQ(Imprimir(), 120);
  const std::string ultima = Escrituras().back();
  EXPECT_TRUE(ultima.ends_with("'','','','','','','','','','','',0,0,0,0,'')")) << ultima;
}

TEST_F(ImprimirRecibidaTest, WhateverFailsIsToldAndPrintingAgainWorks) {
  Abrir(Escribir(kFactura));
  for (int k = 1; k <= 10; ++k) {
    conexion->fallo.FallarEn(k);
    EXPECT_EQ(Imprimir(), 0) << k;
    EXPECT_EQ(toolkit.Messages().back().title, "frmVisorFactura:cmdImprimir_Click");
    EXPECT_EQ(toolkit.Messages().back().text, "Conexión perdida");
    EXPECT_FALSE(toolkit.OpenForm("frmMsg")->Visible());
    EXPECT_EQ(toolkit.CurrentPointer(), ui::Pointer::kDefault);
  }
  EXPECT_EQ(Imprimir(), 120);
  EXPECT_EQ(Filas("Temp_EDI_Factura_Lineas"), 2);
}

}  // namespace
}  // namespace kvraedi
