#include <gtest/gtest.h>

#include <fstream>
#include <optional>

#include "kvraedi/frmclsFacturacionRecepcion.h"
#include "reception/frmRecepcionFactura.h"
#include "tests/apoyo/escenario.h"
#include "tests/apoyo/puertos_con_fallos.h"
#include "tests/seres/invoic_recibido.h"

namespace kvraedi {
namespace {

using Celdas = std::vector<std::string>;

class RecepcionTest : public Escenario {
 protected:
  void SetUp() override {
    Escenario::SetUp();
    base->Run(R"(
INSERT INTO SGD_USUARIOS VALUES (7, 'Ana Ñíguez');
INSERT INTO SGD_USUARIOS VALUES (8, 'Luis');
INSERT INTO Proveedores (Cod_Empresa, Codigo, Nombre) VALUES (1, 3, 'Quesos O''Hara');
INSERT INTO Proveedores (Cod_Empresa, Codigo, Nombre) VALUES (2, 4, 'De otra empresa'))");
    Insertar("M'1", "0012-A", "10/01/2024", 3, "0", "'primera'", "uno.txt");
    Insertar("M2", "15", "05/01/2024", 3, "8", "NULL", "../../fuera.txt");
    Insertar("M3", "16", "11/01/2024", 4, "9", "''", "tres.txt");
    Insertar("", "17", "12/01/2024", 3, "0", "NULL", "uno.txt");
    base->Execute(
        "INSERT INTO EDI_Recepcion_Facturas (IdentificadorMsg, Cod_Empresa, Cod_Ejercicio,"
        " Documento, Fecha) VALUES ('otra', 2, 2024, '99', '10/01/2024')");
    std::filesystem::create_directories(carpeta / "Recepción" / "2024");
    for (const char* fichero : {"Recepción/2024/uno.txt", "fuera.txt"}) {
      std::ofstream(carpeta / fichero, std::ios::binary) << Fichero({Sincc(), Sincl("1")});
    }
    clase.emplace();
    clase->EmpresaKestrova(empresa);
    clase->Show(0, nullptr);
  }
  void TearDown() override {
    clase.reset();
    Escenario::TearDown();
  }

  void Insertar(const std::string& mensaje, const char* documento, const char* fecha, int proveedor,
                const char* usuario, const char* observ, const char* fichero) {
    std::string id;
    for (const char c : mensaje) id.append(c == '\'' ? 2U : 1U, c);
    base->Execute("INSERT INTO EDI_Recepcion_Facturas VALUES ('" + id + "', 1, 2024, " +
                  std::to_string(proveedor) + ", '" + documento + "', '" + fecha + "', 1234.5, " +
                  usuario + ", " + observ + ", 2, 1, '" + fichero + "', NULL)");
  }

  template <class C>
  C& Control(std::string_view nombre) {
    return dynamic_cast<C&>(*toolkit.OpenForm("frmRecepcionFactura")->Find(nombre));
  }
  ui::Grid& Lista() { return Control<ui::Grid>("vsDocs"); }
  void Pulsar(const char* boton) { Control<ui::Button>(boton).Press(); }
  void Listar(const char* desde = "01/01/2024", const char* hasta = "31/12/2024") {
    Control<ui::DateBox>("txtFechaI").Type(desde);
    Control<ui::DateBox>("txtFechaF").Type(hasta);
    Control<ui::DateBox>("txtFechaF").PressEnter();
  }
  std::string Fila(int fila) {
    std::string texto;
    for (int columna = 0; columna < Lista().Cols(); ++columna) {
      texto.append(Lista().Cell(fila, columna)).append("|");
    }
    return texto;
  }
  std::string EnBase(const char* campo, const char* mensaje = "M''1") {
    return base
        ->Open("SELECT " + std::string(campo) +
               " FROM EDI_Recepcion_Facturas WHERE IdentificadorMsg = '" + mensaje + "'")
        ->GetOrEmpty<std::string>(0);
  }
  /// Opens the comment editor of the current row for a user.
  void Comentar(const std::function<void(ui::Form&, ui::TextArea&)>& usuario) {
    toolkit.OnShow("frmEditor_Comentarios", [&](ui::Form& form) {
      usuario(form, dynamic_cast<ui::TextArea&>(*form.Find("txtComent")));
    });
    Pulsar("cmdObservaciones");
  }
  std::string UltimoAviso() const {
    if (toolkit.Messages().empty()) return "";
    const auto& aviso = toolkit.Messages().back();
    return aviso.title + "|" + aviso.text + "|" + std::to_string(static_cast<int>(aviso.icon));
  }

  std::optional<frmclsFacturacionRecepcion> clase;
};

TEST_F(RecepcionTest, ListsByDateTheInvoicesOfTheCompany) {
  EXPECT_EQ(Lista().Rows(), 1) << "nothing is listed until it is asked for";
  Listar();
  ASSERT_EQ(Lista().Rows(), 5);
  EXPECT_EQ(Fila(1), "15|05/01/2024|3|Quesos O'Hara|1234,50|8|Luis||M2|2|1|");
  EXPECT_EQ(Fila(2), "0012-A|10/01/2024|3|Quesos O'Hara|1234,50|||primera|M'1|2|1|");
  EXPECT_EQ(Fila(3), "16|11/01/2024|4||1234,50|9|||M3|2|1|") << "unknown supplier and user";
  Control<ui::Picker>("txtProveedor").Type("3");
  Listar();
  EXPECT_EQ(Lista().Rows(), 4);
  Control<ui::Picker>("txtProveedor").Type("0");
  Listar("01/01/2024", "05/01/2024");
  EXPECT_EQ(Lista().Rows(), 2) << "supplier 0 is no supplier";
  Listar("01/01/2023", "05/01/2023");
  EXPECT_EQ(Lista().Rows(), 1);
  Listar("31/02/2024", "01/03/2024");
  EXPECT_EQ(toolkit.Messages().back().title, "frmRecepcionFactura:Cargar");
  clase->ConexionKestrova(std::make_shared<ImportesAbsurdos>(base));
  Listar();
  EXPECT_EQ(Fila(4), "17|12/01/2024|3|Quesos O'Hara|no válido|||||2|1|") << "the others are listed";
  Listar("01'/1", "--");
  EXPECT_EQ(Contar("SELECT COUNT(*) FROM EDI_Recepcion_Facturas"), 5);
}

TEST_F(RecepcionTest, ApprovalIsWrittenOnceAndHasNoWayBack) {
  Listar();
  Lista().MoveTo(2);
  for (int k = 1; k <= 2; ++k) {
    conexion->fallo.FallarEn(k);
    Pulsar("cmdVisado");
    EXPECT_EQ(UltimoAviso(), "frmRecepcionFactura:cmdVisado_Click|Conexión perdida|3");
    EXPECT_EQ(Lista().Cell(2, kRecibidaUsuario), "") << "the grid keeps what it showed";
    EXPECT_EQ(EnBase("Cod_Usuario_Visado"), "0");
  }
  Pulsar("cmdVisado");
  EXPECT_EQ(Fila(2), "0012-A|10/01/2024|3|Quesos O'Hara|1234,50|7|Ana Ñíguez|primera|M'1|2|1|");
  EXPECT_EQ(EnBase("Cod_Usuario_Visado"), "7");
  for (const int fila : {1, 2, 3}) {  // approved already
    Lista().MoveTo(fila);
    conexion->fallo.FallarEn(1);
    Pulsar("cmdVisado");
    EXPECT_FALSE(conexion->fallo.Disparado()) << "no statement is sent";
  }
  EXPECT_EQ(EnBase("Cod_Usuario_Visado", "M3"), "9");
}

TEST_F(RecepcionTest, CommentsAreWrittenInCapitalsWithoutQuotes) {
  Listar();
  Lista().MoveTo(2);
  Comentar([](ui::Form& form, ui::TextArea& texto) {
    EXPECT_EQ(texto.Text(), "primera");
    texto.Type("primera, l'escala y la peña");
    EXPECT_EQ(texto.Text(), "primera, L'ESCALA Y LA PEÑA") << "only what is typed";
    form.PressFunctionKey(8);
    EXPECT_TRUE(form.Visible());
    form.PressFunctionKey(9);
    EXPECT_FALSE(form.Visible());
  });
  EXPECT_EQ(Lista().Cell(2, kRecibidaObservaciones), "primera, L´ESCALA Y LA PEÑA");
  EXPECT_EQ(EnBase("Observ"), "primera, L´ESCALA Y LA PEÑA");

  const auto escribir = [](const char* boton) {
    return [boton](ui::Form& form, ui::TextArea& texto) {
      texto.Type("otra");
      dynamic_cast<ui::Button&>(*form.Find(boton)).Press();
    };
  };
  Comentar(escribir("cmdCancelar"));
  Comentar([](ui::Form&, ui::TextArea& texto) { texto.Type("cerrada por su aspa"); });
  EXPECT_EQ(EnBase("Observ"), "primera, L´ESCALA Y LA PEÑA");
  conexion->fallo.FallarEn(1);
  Comentar(escribir("cmdAceptar"));
  EXPECT_EQ(UltimoAviso(), "frmRecepcionFactura:cmdObservaciones_Click|Conexión perdida|3");
  EXPECT_EQ(Lista().Cell(2, kRecibidaObservaciones), "primera, L´ESCALA Y LA PEÑA");
  Comentar(escribir("cmdAceptar"));
  EXPECT_EQ(EnBase("Observ"), "OTRA");
  EXPECT_EQ(EnBase("Observ", "M2"), "") << "other invoices keep theirs";
}

TEST_F(RecepcionTest, ViewingAsksForWhatItNeeds) {
  Listar();
  base->Execute(
      "UPDATE EDI_Recepcion_Facturas SET Cod_Proveedor = 0 WHERE IdentificadorMsg = 'M2'");
  Listar();
  Lista().MoveTo(1);
  Pulsar("cmdVisualizar");
  EXPECT_EQ(UltimoAviso(), "¡ Atención !|Se esperaba código de proveedor.|1");
  Lista().MoveTo(2);
  const struct {
    const char *desde, *hasta, *aviso, *foco;
  } casos[] = {
      {"", "31/12/2024", "¡ Atención !|Se esperaba Fecha Inicial.|2", "txtFechaI"},
      {"01/01/2024", "30/02/2024", "¡ Atención !|Se esperaba Fecha Final.|2", "txtFechaF"},
      {"02/01/2024", "01/01/2024", "¡ Atención !|Intervalo de fechas erróneo.|1", "txtFechaF"},
  };
  for (const auto& caso : casos) {
    Control<ui::DateBox>("txtFechaI").Type(caso.desde);
    Control<ui::DateBox>("txtFechaF").Type(caso.hasta);
    Pulsar("cmdVisualizar");
    EXPECT_EQ(UltimoAviso(), caso.aviso);
    EXPECT_EQ(Lista().Parent().ActiveControl()->Name(), caso.foco);
  }
}

TEST_F(RecepcionTest, TheFileOfTheRowIsShownAndNoOther) {
  Listar();
  std::string vista;
  const auto visualizar = [&](int fila) {
    vista.clear();
    toolkit.OnShow("frmVisorFactura", [&](ui::Form& form) {
      vista = dynamic_cast<ui::Label&>(*form.Find("lblNumero")).Caption();
      EXPECT_FALSE(toolkit.OpenForm("frmMsg")->Visible()) << "nothing hides the viewer";
    });
    Lista().MoveTo(fila);
    Pulsar("cmdVisualizar");
    EXPECT_FALSE(toolkit.OpenForm("frmMsg") != nullptr && toolkit.OpenForm("frmMsg")->Visible());
  };
  visualizar(2);
  EXPECT_EQ(vista, "F-77'1");
  EXPECT_TRUE(toolkit.Messages().empty());
  visualizar(4);
  EXPECT_TRUE(vista.empty() && toolkit.Messages().empty()) << "a row without identifier";

  // "../../fuera.txt" is there, but only its name counts.
  visualizar(1);
  EXPECT_EQ(vista, "");
  EXPECT_EQ(UltimoAviso(), "¡ Atención !|Error al visualizar la factura: 15|1");
  for (const char* nombre : {"'..'", "'.'", "''", "'2024\\'", "NULL", "'uno.txt/..'"}) {
    base->Execute("UPDATE EDI_Recepcion_Facturas SET EDIFichero = " + std::string(nombre) +
                  " WHERE IdentificadorMsg = 'M''1'");
    visualizar(2);
    EXPECT_EQ(vista, "") << nombre;
    EXPECT_EQ(UltimoAviso(), "¡ Atención !|Error al visualizar la factura: 12|1") << nombre;
  }
  base->Execute("UPDATE EDI_Recepcion_Facturas SET EDIFichero = 'uno.txt', Cod_EDIPlat = 9");
  Listar();
  visualizar(2);
  EXPECT_EQ(UltimoAviso(), "¡ Atención !|Error al visualizar la factura: 12|1");
  base->Execute("DELETE FROM EDI_Recepcion_Facturas");
  visualizar(2);
  EXPECT_EQ(UltimoAviso(), "¡ Atención !|Error al visualizar la factura: 12|1");
}

TEST_F(RecepcionTest, ButtonsDoNothingWithoutARow) {
  const auto sinFila = [&] {
    for (const char* boton : {"cmdVisado", "cmdObservaciones", "cmdVisualizar"}) Pulsar(boton);
  };
  sinFila();
  Listar();
  sinFila();
  EXPECT_TRUE(toolkit.Messages().empty());
  EXPECT_EQ(Contar("SELECT COUNT(*) FROM EDI_Recepcion_Facturas WHERE Cod_Usuario_Visado = 7"), 0);
}

TEST_F(RecepcionTest, TheClassReusesItsScreenAndClosesIt) {
  ui::Form* const primera = toolkit.OpenForm("frmRecepcionFactura");
  clase->Show(0, nullptr);
  EXPECT_EQ(toolkit.OpenForm("frmRecepcionFactura"), primera);
  Pulsar("cmdSalir");
  EXPECT_EQ(toolkit.OpenForm("frmRecepcionFactura"), nullptr);
  clase->Show(0, nullptr);
  EXPECT_NE(toolkit.OpenForm("frmRecepcionFactura"), nullptr);
  clase.reset();
  EXPECT_EQ(toolkit.OpenForm("frmRecepcionFactura"), nullptr);
}

}  // namespace
}  // namespace kvraedi
