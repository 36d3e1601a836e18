#include <gtest/gtest.h>

#include <fstream>

#include "dispatch/frmEnvioFactura.h"
#include "frame/carpeta_anexos.h"
#include "tests/apoyo/pantalla_envio.h"

namespace kvraedi {
namespace {

namespace fs = std::filesystem;

/// The list with invoices 1 and 2 in rows 1 and 2 and a ticket invoice in row 3, and what the user
/// does at the attachments of one of them.
class AnexosTest : public PantallaEnvio {
 protected:
  void SetUp() override {
    PantallaEnvio::SetUp();
    InsertarFactura(1);
    InsertarFactura(2, "Cod_Ejercicio = 2023");  // whatever its date, which cannot be read
    base->Run(
        "INSERT INTO TPV_Tickets (Cod_Empresa, Cod_Almacen, Caja, Fecha, Codigo, Total)"
        " VALUES (1, 5, 2, '10/02/2024', 77, 12.3);"
        "INSERT INTO TPV_Tickets_Factura (Cod_Empresa, Cod_Almacen, Caja, Fecha, Codigo, Cliente,"
        " Factura_Serie, Factura_Codigo, Factura_Almacen, Factura_TipoDoc, Factura_Fecha, Hora)"
        " VALUES (1, 5, 2, '10/02/2024', 77, 100, 9, 9077, 5, 0, '11/02/2024', '11/02/2024')");
    Listar();
    Lista().SetCell(2, kFecha, "¿fecha?");
    conexion->sentencias.clear();
  }

  /// The attachments screen, while it is open.
  struct Pantalla {
    ui::Form& form;
    template <class C>
    C& Control(std::string_view nombre) {
      return dynamic_cast<C&>(*form.Find(nombre));
    }
    void Pulsar(std::string_view boton) { Control<ui::Button>(boton).Press(); }
    void Anexar(const fs::path& fichero, std::string_view descripcion) {
      Control<ui::TextBox>("txtRuta").Type(fichero.string());
      Control<ui::TextBox>("txtDescripcion").Type(descripcion);
      Pulsar("cmdAnexar");
    }
    void Elegir(int fila) { Control<ui::Grid>("vsDocs").Click(fila, 0); }
    Celdas Filas() {
      Celdas filas;
      const auto& grid = Control<ui::Grid>("vsDocs");
      for (int fila = 1; fila < grid.Rows(); ++fila) {
        filas.push_back(std::string(grid.Cell(fila, 0)) + "|" + std::string(grid.Cell(fila, 1)));
      }
      return filas;
    }
  };

  /// Without cmdSalir among the steps the screen is closed by its close box.
  void Usar(int fila, const std::function<void(Pantalla&)>& pasos) {
    bool abierta = false;
    toolkit.OnShow("frmAnexosFactura", [&](ui::Form& form) {
      abierta = true;
      Pantalla pantalla{form};
      pasos(pantalla);
    });
    Lista().MoveTo(fila);
    Control<ui::Button>("cmdAnexar").Press();
    ASSERT_TRUE(abierta);
  }
  fs::path Escribir(const std::string& nombre, std::string_view contenido) const {
    std::ofstream(carpeta / nombre, std::ios::binary) << contenido;
    return carpeta / nombre;
  }
  /// The contents of the attachments, oldest first.
  Celdas Guardados() const {
    Celdas todos;
    for (auto rs = base->Open("SELECT Stream FROM EDI_Anexos"); !rs->Eof(); rs->MoveNext()) {
      const auto bytes = rs->Get<Bytes>(0);
      todos.emplace_back(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    }
    return todos;
  }

  fs::path docs = perfil / "Ormo" / "EDI" / "DocAnexos";
};

TEST_F(AnexosTest, AnInvoiceGetsAFileAndLosesIt) {
  const auto fichero = Escribir("contrato.pdf", "%PDF uno");
  Usar(1, [&](Pantalla& p) {
    EXPECT_EQ(p.form.Caption(), "Anexos de Factura Electrónica");
    toolkit.QueueFile(fichero);
    p.Pulsar("cmdExaminar");
    p.Pulsar("cmdExaminar");  // given up: the file chosen before stays
    p.Control<ui::TextBox>("txtDescripcion").Type("Contrato");
    p.Pulsar("cmdAnexar");
    EXPECT_EQ(p.Filas(), Celdas{"contrato.pdf|Contrato"});
    p.Pulsar("cmdSalir");
  });
  EXPECT_EQ(toolkit.FileDialogs()[0].filter, "Fichero de Imagen (*.pdf)|*.pdf");
  const std::string clave =
      " WHERE Cod_EDIPlat = 3 AND Cod_EDITipoMsg = 1    AND Cod_Empresa =1   AND Cod_Ejercicio "
      "=2024   AND Serie =3   AND Codigo =1   AND TipoDoc =0";
  const std::string lista = "SELECT NombreAnexo, DescripcionAnexo FROM EDI_Anexos " + clave;
  const std::string nombre = "   AND NombreAnexo ='contrato.pdf'";
  EXPECT_EQ(
      conexion->sentencias,
      (Celdas{lista,
              "INSERT INTO EDI_Anexos (Cod_EDIPlat,Cod_EDITipoMsg,Hora,Cod_Empresa,Cod_Ejercicio,"
              "Serie,Codigo,TipoDoc,NombreAnexo,DescripcionAnexo,Stream)  VALUES (3,1, GETDATE(), "
              "1, 2024, 3, 1, 0, 'contrato.pdf', 'Contrato',CONVERT(varbinary(MAX),''))",
              "SELECT stream FROM EDI_Anexos " + clave + nombre, lista}));
  EXPECT_EQ(Guardados(), Celdas{"%PDF uno"});
  EXPECT_EQ(Contenido(docs / "contrato.pdf"), "%PDF uno");
  EXPECT_EQ(Columna(kAnexos), (Celdas{"X", "", ""}));

  Usar(1, [](Pantalla& p) {
    p.Pulsar("cmdEliminarAnexo");  // no row is chosen
    EXPECT_EQ(p.Filas().size(), 1U);
    p.Elegir(1);
    p.Pulsar("cmdEliminarAnexo");
    EXPECT_EQ(p.Filas(), Celdas{});
    p.Pulsar("cmdSalir");
  });
  EXPECT_EQ(conexion->sentencias[5], "DELETE FROM EDI_Anexos " + clave + nombre);
  EXPECT_EQ(Columna(kAnexos), (Celdas{"", "", ""}));
  EXPECT_TRUE(fs::exists(docs / "contrato.pdf"));
  EXPECT_TRUE(toolkit.Messages().empty());
}

TEST_F(AnexosTest, ATicketInvoiceHasItsOwnKey) {
  const auto fichero = Escribir("ticket.pdf", "%PDF");
  Usar(3, [&](Pantalla& p) {
    p.Anexar(fichero, "Ticket");
    p.Elegir(1);
    p.Pulsar("cmdEliminarAnexo");
    p.Anexar(fichero, "Otra vez");
    p.Pulsar("cmdSalir");
  });
  const std::string clave =
      " WHERE Cod_EDIPlat = 3 AND Cod_EDITipoMsg = 1    AND Cod_Empresa_FT =1   AND "
      "Cod_Almacen_FT =5   AND Caja_FT =2   AND Fecha_FT ='10/02/2024'   AND Codigo_FT =77";
  EXPECT_EQ(conexion->sentencias[1],
            "INSERT INTO EDI_Anexos (Cod_EDIPlat, Cod_EDITipoMsg, Hora, Cod_Empresa_FT, "
            "Cod_Almacen_FT, Caja_FT, Fecha_FT, Codigo_FT, NombreAnexo, DescripcionAnexo, Stream) "
            " VALUES (3,1, GETDATE(), 1, 5, 2, '10/02/2024', 77, 'ticket.pdf', "
            "'Ticket',CONVERT(varbinary(MAX),''))");
  EXPECT_EQ(conexion->sentencias[2],
            "SELECT stream FROM EDI_Anexos " + clave + "   AND NombreAnexo ='ticket.pdf'");
  EXPECT_EQ(Columna(kAnexos), (Celdas{"", "", "X"}));
  EXPECT_EQ(Contar("SELECT COUNT(*) FROM EDI_Anexos WHERE Codigo_FT = 77 AND Codigo = 0"), 1);
  Usar(1, [](Pantalla& p) { EXPECT_EQ(p.Filas(), Celdas{}); });
}

TEST_F(AnexosTest, WhatIsMissingIsAskedForAndNothingIsWritten) {
  Usar(1, [&](Pantalla& p) {
    p.Anexar("", "");
    EXPECT_EQ(UltimoAviso(), "¡ Atención !|Debe rellenar la Descripción del documento|2");
    p.Anexar("", "Contrato");
    EXPECT_EQ(UltimoAviso(), "¡ Atención !|Debe elegir un documento a anexar|2");
    for (const char* ruta : {"/", "C:\\docs\\", "..", "/docs/.", "docs\\.."}) {
      p.Anexar(ruta, "Contrato");
      EXPECT_EQ(UltimoAviso(), "frmAnexosFactura:cmdAnexar_Click|«" + std::string(ruta) +
                                   "» no es el nombre de un fichero|3");
    }
  });
  EXPECT_EQ(conexion->sentencias.size(), 1U);
  EXPECT_EQ(NombreDeFichero("C:\\docs\\contrato.pdf"), "contrato.pdf");
}

TEST_F(AnexosTest, QuotesAreKept) {
  const auto fichero = Escribir("l'acord 'x''.pdf", "%PDF");
  Usar(1, [&](Pantalla& p) {
    p.Anexar(fichero, "D'Ors; '--");
    EXPECT_EQ(p.Filas(), Celdas{"l'acord 'x''.pdf|D'Ors; '--"});
    p.Elegir(1);
    p.Pulsar("cmdVer");
    p.Pulsar("cmdEliminarAnexo");
    EXPECT_EQ(p.Filas(), Celdas{});
  });
  EXPECT_EQ(entorno.abiertos, std::vector<fs::path>{docs / "l'acord 'x''.pdf"});
  EXPECT_EQ(UltimoAviso(), "");
}

TEST_F(AnexosTest, TheSameNameTwiceIsTwoRowsThatGoTogether) {
  Usar(1, [&](Pantalla& p) {
    p.Anexar(Escribir("a.pdf", "primero y largo"), "1");
    p.Anexar(Escribir("b.pdf", "b"), "2");
    p.Anexar(Escribir("a.pdf", "segundo"), "3");
    EXPECT_EQ(p.Filas(), (Celdas{"a.pdf|1", "b.pdf|2", "a.pdf|3"}));
    EXPECT_EQ(Guardados(), (Celdas{"segundo", "b", ""})) << "the first row of the name is filled";
    EXPECT_EQ(Contenido(docs / "a.pdf"), "segundo");
    p.Elegir(3);
    p.Pulsar("cmdEliminarAnexo");
    EXPECT_EQ(p.Filas(), Celdas{"b.pdf|2"});
  });
}

TEST_F(AnexosTest, OnlyTheExitButtonChangesTheList) {
  const auto fichero = Escribir("a.pdf", "a");
  Usar(2, [&](Pantalla& p) { p.Anexar(fichero, "A"); });
  EXPECT_EQ(Columna(kAnexos), (Celdas{"", "", ""}));
  Usar(2, [](Pantalla& p) { p.Pulsar("cmdSalir"); });
  EXPECT_EQ(Columna(kAnexos), (Celdas{"", "X", ""}));
  EXPECT_EQ(Contar("SELECT COUNT(*) FROM EDI_Anexos WHERE Cod_Ejercicio = 2023"), 1);
  Usar(2, [](Pantalla& p) {
    p.Elegir(1);
    p.Pulsar("cmdEliminarAnexo");
  });
  EXPECT_EQ(Columna(kAnexos), (Celdas{"", "X", ""})) << "closed by its close box";
  Lista().MoveTo(0);
  Control<ui::Button>("cmdAnexar").Press();
  Listar("01/01/1990", "02/01/1990");
  Control<ui::Button>("cmdAnexar").Press();
  EXPECT_EQ(toolkit.OpenForm("frmAnexosFactura"), nullptr);
  EXPECT_EQ(UltimoAviso(), "");
}

TEST_F(AnexosTest, AStoredNameLeadsNowhereElse) {
  Escribir("secreto.pdf", "x");
  const auto anadir = [&](const std::string& nombre) {
    base->Execute(
        "INSERT INTO EDI_Anexos (Cod_EDIPlat, Cod_EDITipoMsg, Cod_Empresa, Cod_Ejercicio, Serie,"
        " Codigo, NombreAnexo) VALUES (3, 1, 1, 2024, 3, 1, '" +
        nombre + "')");
  };
  for (const char* nombre : {"../../../../secreto.pdf", "..\\..", "no está.pdf"}) anadir(nombre);
  Usar(1, [&](Pantalla& p) {
    EXPECT_EQ(p.Filas().size(), 3U);
    for (const int fila : {1, 2, 3}) {
      p.Elegir(fila);
      p.Pulsar("cmdVer");
    }
  });
  ASSERT_EQ(toolkit.Messages().size(), 3U);
  const auto falta = [&](const std::string& nombre) {
    return "No se puede abrir «" + (docs / nombre).string() + "»: no existe";
  };
  EXPECT_EQ(toolkit.Messages()[0].text, falta("secreto.pdf"));
  EXPECT_EQ(toolkit.Messages()[1].text, "«..\\..» no es el nombre de un fichero");
  EXPECT_EQ(UltimoAviso(), "frmAnexosFactura:cmdVer_Click|" + falta("no está.pdf") + "|3");
  EXPECT_TRUE(entorno.abiertos.empty());
}

TEST_F(AnexosTest, AFileThatCannotBeReadLeavesARowWithoutContent) {
  Usar(1, [&](Pantalla& p) {
    p.Anexar(carpeta / "nada.pdf", "Nada");
    EXPECT_EQ(UltimoAviso(), "frmAnexosFactura:cmdAnexar_Click|No se puede leer «" +
                                 (carpeta / "nada.pdf").string() + "»: no existe|3");
    EXPECT_EQ(p.Filas(), Celdas{}) << "the list is not loaded again";
  });
  EXPECT_EQ(Guardados(), Celdas{""});
  EXPECT_FALSE(fs::exists(docs / "nada.pdf"));
}

TEST_F(AnexosTest, ARowThatAKilledProgramLeftIsToldUntilItIsRemoved) {
  const auto fichero = Escribir("a.pdf", "contenido");
  const auto avisado = [&] {
    const std::size_t antes = toolkit.Messages().size();
    Usar(1, [](Pantalla&) {});
    return toolkit.Messages().size() > antes &&
           UltimoAviso().starts_with(
               "¡ Atención !|El documento a.pdf se estaba anexando el 01/03/2024 ");
  };
  int vacias = 0;
  for (const bool sentencia : {false, true}) {
    for (int k = 1;; ++k) {
      SCOPED_TRACE((sentencia ? "sentencia " : "operación ") + std::to_string(k));
      if (!Matar(sentencia, k, [&] { Usar(1, [&](Pantalla& p) { p.Anexar(fichero, "A"); }); })) {
        break;
      }
      const bool vacia = Guardados() == Celdas{""};
      vacias += vacia ? 1 : 0;
      EXPECT_EQ(avisado(), vacia);
      EXPECT_EQ(avisado(), vacia) << "once more";
      base->Execute("DELETE FROM EDI_Anexos");
      EXPECT_FALSE(avisado());
      EXPECT_FALSE(fs::exists(docs / "01202400000000100003.anexando"));
    }
  }
  EXPECT_EQ(vacias, 2) << "before the file is read, before its bytes are stored";
}

TEST_F(AnexosTest, FiftyMegabytesComeBackWhole) {
  std::string contenido(std::size_t{50} << 20U, '\0');
  std::uint32_t azar = 1;
  for (char& byte : contenido) {
    azar = azar * 1664525U + 1013904223U;
    byte = static_cast<char>(azar >> 24U);
  }
  const auto fichero = Escribir("grande.pdf", contenido);
  Usar(1, [&](Pantalla& p) { p.Anexar(fichero, "Grande"); });
  EXPECT_TRUE(Guardados().front() == contenido);
  EXPECT_TRUE(Contenido(docs / "grande.pdf") == contenido);
}

/// Attaching over an older file of that name, with one thing going wrong after the other.
TEST_F(AnexosTest, EveryFailureIsToldAndKeepsTheOldFile) {
  const auto fichero = Escribir("a.pdf", "nuevo");
  bool completo = false;
  for (int k = 1; !completo; ++k) {
    for (Fallo* fallo : {&entorno.fallo, &conexion->fallo}) {
      const std::size_t avisos = toolkit.Messages().size();
      base->Execute("DELETE FROM EDI_Anexos");
      fs::create_directories(docs);
      std::ofstream(docs / "a.pdf") << "viejo";
      Usar(1, [&](Pantalla& p) {
        fallo->FallarEn(k);
        p.Anexar(fichero, "A");
      });
      const bool fallado = fallo->Disparado();
      fallo->FallarEn(0);
      if (fallo == &entorno.fallo) completo = !fallado;
      EXPECT_EQ(toolkit.Messages().size(), avisos + (fallado ? 1 : 0)) << k;
      const std::string copia = Contenido(docs / "a.pdf");
      const Celdas filas = Guardados();
      if (copia == "nuevo") {
        EXPECT_EQ(filas, Celdas{"nuevo"});
      } else {
        EXPECT_EQ(copia, "viejo");
        EXPECT_TRUE(fallado);
      }
      EXPECT_EQ(std::distance(fs::directory_iterator(docs), {}), 1) << "nothing half-written stays";
    }
    ASSERT_LT(k, 50);
  }
}

/// Removing one of two attachments, with each statement going wrong in turn and then none.
TEST_F(AnexosTest, ARemovalThatFailsIsToldAndCanBeRepeated) {
  const auto uno = Escribir("a.pdf", "a");
  const auto otro = Escribir("b.pdf", "b");
  const Celdas ambos = {"a.pdf|A", "b.pdf|B"};
  const Celdas resto = {"b.pdf|B"};
  const struct {
    std::string aviso;
    Celdas guardados, lista;
  } casos[] = {{"frmAnexosFactura:cmdEliminarAnexo_Click|Conexión perdida|3", {"a", "b"}, ambos},
               {"frmAnexosFactura:Cargar|Conexión perdida|3", {"b"}, ambos},
               {"", {"b"}, resto}};
  int sentencia = 0;
  for (const auto& caso : casos) {
    SCOPED_TRACE(++sentencia);
    base->Execute("DELETE FROM EDI_Anexos");
    Usar(1, [&](Pantalla& p) {
      p.Anexar(uno, "A");
      p.Anexar(otro, "B");
      p.Elegir(1);
      const std::size_t avisos = toolkit.Messages().size();
      entorno.fallo.FallarEn(1);
      conexion->fallo.FallarEn(sentencia);
      p.Pulsar("cmdEliminarAnexo");
      EXPECT_FALSE(entorno.fallo.Disparado()) << "no file is touched";
      entorno.fallo.FallarEn(0);
      conexion->fallo.FallarEn(0);
      EXPECT_EQ(toolkit.Messages().size() > avisos ? UltimoAviso() : "", caso.aviso);
      EXPECT_EQ(Guardados(), caso.guardados);
      EXPECT_EQ(p.Filas(), caso.lista);
      if (caso.lista == ambos) p.Pulsar("cmdEliminarAnexo");
      EXPECT_EQ(p.Filas(), resto);
      EXPECT_EQ(Guardados(), Celdas{"b"});
    });
    EXPECT_EQ(Contenido(docs / "a.pdf"), "a");
  }
}

TEST_F(AnexosTest, FoldersAndListThatFailAreTold) {
  entorno.fallo.FallarEn(3);
  Usar(1, [](Pantalla&) {});
  EXPECT_EQ(UltimoAviso(), "frmAnexosFactura:Load|No queda espacio|3");
  EXPECT_TRUE(fs::is_directory(perfil / "Ormo" / "EDI"));
  entorno.fallo.FallarEn(0);
  conexion->fallo.FallarEn(1);
  Usar(1, [](Pantalla&) {});
  EXPECT_EQ(UltimoAviso(), "frmAnexosFactura:Cargar|Conexión perdida|3");
  EXPECT_TRUE(fs::is_directory(docs));
}

}  // namespace
}  // namespace kvraedi
