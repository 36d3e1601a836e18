#include <gtest/gtest.h>

#include "seres/modSeres.h"
#include "tests/seres/visor_escenario.h"

namespace kvraedi {
namespace {

using Filas = std::vector<std::string>;

class VisorFacturaTest : public VisorEscenario {};

TEST_F(VisorFacturaTest, EveryFieldComesFromItsPlace) {
  Abrir(Escribir(Fichero(
      {Rectl(), Sincc(), Esperado(773, "1 SINCP|7 SU|10 OTRO|30 No es el emisor"),
       Esperado(773,
                "1 SINCP|7 SCO|10 8411111111111|30 Uno |65 Dos|170 Cinco|205 Calle|310 4\xBA|345 "
                "G\xFC\xEDmar|389 38500|401 A1"),
       Esperado(362, "1 SINCT|13 p1|83 p2|293 p5"), Esperado(82, "1 SINCT|13 segundo"),
       "SINCV basura", "XYZ tambi\xE9n", Esperado(139, "1 SINCD|8 1|9 A|-21 2,5|74 EAB"),
       Esperado(139, "1 SINCD|8 2|9 C|-39 -3.1|74 ZZZ"), Sincl("501"), Since(), Since("99", "C"),
       Esperado(362, "1 SINCU|13 u1|83 u2"), Sincl("502", "", ""), "SINCI"})));
  EXPECT_TRUE(toolkit.Messages().empty());
  EXPECT_FALSE(visor->Cancelado());
  const struct {
    const char *nombre, *texto;
  } rotulos[] = {
      {"lblMensaje", "FACTURA"},    {"lblTipo", "COMERCIAL"},   {"lblNumero", "F-77'1"},
      {"lblFuncion", "ORIGINAL"},   {"lblFecha", "14/03/2026"}, {"lblGLN", "8411111111111"},
      {"lblNombre", "UnoDosCinco"}, {"lblNIF", "A1"},           {"lblDireccion", "Calle4º"},
      {"lblCiudad", "Güímar"},      {"lblCP", "38500"},         {"lblNeto", "1234,57"},
      {"lblBase", "1200,00"},       {"lblImpuestos", "84,00"},  {"lblTotal", "1284,00"}};
  for (const auto& [nombre, texto] : rotulos) EXPECT_EQ(Rotulo(nombre), texto) << nombre;
  EXPECT_EQ(Control<ui::TextArea>("txtObservaciones").Text(), "p1 p2   p5\r\nsegundo");

  ASSERT_EQ(Lineas().Rows(), 4);
  EXPECT_EQ(Fila(Lineas(), 0), "Linea|Código|Descripción|Cantidad|Neto|Bruto|Dto|Importe");
  EXPECT_EQ(Fila(Lineas(), 1), "1|501|Jamón D'Or|4,000|25,1234|30,5000|+|-100,01");
  EXPECT_EQ(Fila(Lineas(), 2), "2|C|u1 u2|||||");
  EXPECT_EQ(Fila(Lineas(), 3), "3|502|Jamón D'Or|0,000|25,1234|30,5000||0,00");
  const auto& descuentos = Control<ui::Grid>("vsDescuentos");
  ASSERT_EQ(descuentos.Rows(), 3);
  EXPECT_EQ(Fila(descuentos, 0), "Numero|Indicador|Dto %|Dto Imp.|Tipo");
  EXPECT_EQ(Fila(descuentos, 1), "1|(A) Descuento|2,5000|0,000|PRONTO PAGO");
  EXPECT_EQ(Fila(descuentos, 2), "2|(C) Cargo|0,0000|-3,100|ZZZ");

  EXPECT_EQ(DescuentosDe(1), (Filas{"1|(A) Descuento|5,2500|1,500|COMERCIAL",
                                    "99|(C) Cargo|5,2500|1,500|COMERCIAL"}));
  EXPECT_EQ(DescuentosDe(3), Filas()) << "a line without discounts";
}

TEST_F(VisorFacturaTest, WhatTheComponentWritesIsReadBack) {
  InsertarFactura(7,
                  "Observ = 'Primera\r\nsegunda', Dto1 = 5, TDto1 = 0,"
                  " Dto2 = 1.5, TDto2 = 1");
  base->Execute("UPDATE Facturas_Lineas SET Descuento = 5, PDescuento = 12.5 WHERE Codigo = 7");
  base->Execute(
      "INSERT INTO Facturas_Lineas (Cod_Empresa, Cod_Ejercicio, Serie, Codigo, TipoDoc, Num_Linea,"
      " Cod_Articulo, Descripcion) VALUES (1, 2024, 3, 7, 0, 2, -1, 'Sólo texto')");
  ASSERT_TRUE(INVOIC(100, 3, 7, 0, 2024));
  const auto fichero = envios / "2024" / Ficheros("2024").front();
  Abrir(fichero);
  EXPECT_TRUE(toolkit.Messages().empty());
  const struct {
    const char *nombre, *texto;
  } rotulos[] = {
      {"lblMensaje", "FACTURA"},  {"lblTipo", "COMERCIAL"},        {"lblNumero", "7"},
      {"lblFecha", "20/02/2024"}, {"lblGLN", "8411111111111"},     {"lblNombre", "O'Donnell, S.A."},
      {"lblNIF", "A28000000"},    {"lblDireccion", "Gran Vía, 2"}, {"lblCiudad", "Madrid"},
      {"lblCP", "28013"},         {"lblBase", "100,00"},           {"lblImpuestos", "7,00"},
      {"lblTotal", "107,00"}};
  for (const auto& [nombre, texto] : rotulos) EXPECT_EQ(Rotulo(nombre), texto) << nombre;
  EXPECT_EQ(Control<ui::TextArea>("txtObservaciones").Text(), "Primera segunda");
  ASSERT_EQ(Lineas().Rows(), 3);
  EXPECT_EQ(Fila(Lineas(), 1), "1|501|Queso|4,000|25,0000|30,0000|+|87,50");
  EXPECT_EQ(Fila(Lineas(), 2), "2|C|Sólo texto|||||");
  EXPECT_EQ(DescuentosDe(1), Filas{"1|(A) Descuento|12,5000|0,000|"});
  const auto& descuentos = Control<ui::Grid>("vsDescuentos");
  ASSERT_EQ(descuentos.Rows(), 3);
  EXPECT_EQ(Fila(descuentos, 1), "1|(A) Descuento|5,0000|0,000|COMERCIAL");
  EXPECT_EQ(Fila(descuentos, 2), "2|(A) Descuento|0,0000|1,500|COMERCIAL");
}

TEST_F(VisorFacturaTest, AFileThatIsSpoiltShowsWhatCouldBeRead) {
  const std::string cabeza = Fichero({Rectl(), Sincc(), Sincl("1")});
  const struct {
    std::string bytes;
    const char* aviso;
    int lineas;
    const char* total = "1284,00";
  } casos[] = {
      {"", "no contiene ninguna factura", 0, ""},
      {std::string(300, '\0'), "no contiene ninguna factura", 0, ""},
      {"\xFF\xFES\0I\0N\0C\0C\0\r\0\n\0", "no contiene ninguna factura", 0, ""},
      {Fichero({Sincl("1")}), "no contiene ninguna factura", 1, ""},
      {cabeza + Fichero({Sincl("2", "12a"), Sincl("3")}),
       "«recibida.txt», línea 4, registro SINCL: el campo Unidades no es un número: «12a»", 1},
      {cabeza + Fichero({Sincl("2", "1e5")}), "el campo Unidades no es un número: «1e5»", 1},
      {cabeza + Fichero({Sincl("2", "4", "999999999999999999")}),
       "el campo Importe es demasiado grande", 1},
      {cabeza + Fichero({Since("xx")}), "el campo Numero no es un número: «xx»", 1},
      {cabeza + Sincl("2").substr(0, 200), "línea 4, registro SINCL: el fichero está cortado", 1},
      {cabeza + "SIN", "línea 4, registro SIN: el fichero está cortado", 1},
      {Fichero({Sincc(), Since(), Sincl("1")}),
       "línea 2, registro SINCE: es un descuento de línea y no hay ninguna línea", 0},
      {Fichero({Esperado(270, "1 SINCC|7 380|-191 1..2"), Sincl("1")}),
       "registro SINCC: el campo NetoLineas no es un número: «1..2»", 0, ""},
  };
  for (const auto& caso : casos) {
    Abrir(Escribir(caso.bytes));
    ASSERT_FALSE(toolkit.Messages().empty()) << caso.aviso;
    EXPECT_EQ(toolkit.Messages().back().title, "frmVisorFactura:LeerFichero");
    EXPECT_NE(toolkit.Messages().back().text.find(caso.aviso), std::string::npos)
        << toolkit.Messages().back().text;
    EXPECT_EQ(Lineas().Rows() - 1, caso.lineas) << caso.aviso;
    EXPECT_EQ(Rotulo("lblTotal"), caso.total) << caso.aviso;
    EXPECT_TRUE(visor->Visible());
    EXPECT_FALSE(visor->Cancelado());
    visor->Unload();
  }
}

TEST_F(VisorFacturaTest, WhatOtherProgramsMayWriteIsNotSpoilt) {
  std::string sinBlancos = Sincl("1");
  sinBlancos.resize(256);
  sinBlancos.replace(224, 32, "         25.1234            30.5");
  const struct {
    const char* que;
    std::string bytes;
  } casos[] = {
      {"blanks at the end left out", Fichero({Sincc(), sinBlancos})},
      {"lines ended by LF", Sincc() + "\n" + Sincl("1") + "\n"},
      {"no end after the last line", Sincc() + "\r\n" + Sincl("1")},
      {"numbers at the left, blanks stripped",
       Fichero({Esperado(260, "1 SINCC|7 380|13 F|174 1.5|192 1|228 0.5|246 1284").substr(0, 249),
                Sincl("1"), "SINCE  1A   5.0000", "SINCD XXA   5.0000"})},
      {"a text that ends the file without a line end",
       Fichero({Sincc(), Sincl("1")}) + "SINCT AAI   Gracias"},
      {"an end-of-file mark", Fichero({Sincc(), Sincl("1")}) + "\x1a"},
      {"empty lines", Fichero({"", Sincc(), "      ", Sincl("1")})},
      {"discount numbers beyond what is counted",
       Fichero({Sincc(), Sincl("1"), Since(" 0"), Since("99"), Since("-1")})},
  };
  for (const auto& [que, bytes] : casos) {
    Abrir(Escribir(bytes));
    EXPECT_TRUE(toolkit.Messages().empty()) << que;
    EXPECT_EQ(Lineas().Rows(), 2) << que;
    EXPECT_EQ(Lineas().Cell(1, kLineaBruto), "30,5000") << que;
    visor->Unload();
  }
  EXPECT_EQ(DescuentosDe(1).size(), 3U);
}

TEST_F(VisorFacturaTest, PlatformAndMessageDecideWhetherItIsShown) {
  const auto fichero = Escribir(Fichero({Sincc(), Sincl("1")}));
  constexpr const char* kMensaje =
      "La factura electrónica no tiene asignado un tipo de mensaje EDI conocido";
  constexpr const char* kPlataforma =
      "La factura electrónica no tiene asignada un tipo de plataforma EDI conocida";
  const struct {
    std::int16_t plataforma, tipoMensaje;
    const char* aviso;
    int filas;
  } casos[] = {{2, 1, nullptr, 2},  {2, 2, nullptr, 1},     {2, 3, kMensaje, 1},
               {2, 0, kMensaje, 1}, {1, 1, nullptr, 1},     {3, 9, nullptr, 1},
               {4, 0, nullptr, 1},  {0, 1, kPlataforma, 1}, {5, 1, kPlataforma, 1}};
  for (const auto& caso : casos) {
    const std::size_t antes = toolkit.Messages().size();
    Abrir(fichero, caso.plataforma, caso.tipoMensaje);
    EXPECT_EQ(visor->Cancelado(), caso.aviso != nullptr);
    EXPECT_EQ(visor->Visible(), caso.aviso == nullptr);
    EXPECT_EQ(Lineas().Rows(), caso.filas);
    if (caso.aviso == nullptr) {
      EXPECT_EQ(toolkit.Messages().size(), antes);
    } else {
      EXPECT_EQ(toolkit.Messages().back().text, caso.aviso);
      EXPECT_EQ(toolkit.Messages().back().title, "Imposible continuar");
      EXPECT_EQ(toolkit.Messages().back().icon, ui::Icon::kInformation);
    }
    visor->Unload();
  }
}

TEST_F(VisorFacturaTest, AFileThatCannotBeOpenedIsRefusedAndOneThatFailsIsShown) {
  Abrir(carpeta / "no está.txt");
  EXPECT_TRUE(visor->Cancelado());
  EXPECT_FALSE(visor->Visible());
  EXPECT_NE(toolkit.Messages().back().text.find("no está.txt"), std::string::npos);

  std::string bytes = Fichero({Rectl(), Sincc()});
  for (int i = 0; i < 300; ++i) bytes += Fichero({Sincl("1")});
  const auto fichero = Escribir(bytes);
  entorno.fallo.FallarEn(3);  // opening and the first block go well
  Abrir(fichero);
  EXPECT_FALSE(visor->Cancelado());
  EXPECT_EQ(toolkit.Messages().back().text, "No se puede leer");
  EXPECT_EQ(Rotulo("lblNumero"), "F-77'1");
  EXPECT_GT(Lineas().Rows(), 100);
  EXPECT_LT(Lineas().Rows(), 200);
}

/// A hundred megabytes of records, made as they are read.
class FicheroEnorme : public FileReader {
 public:
  std::size_t Read(std::span<char> block) override {
    if (leido_ > std::size_t{100} * 1024 * 1024) return 0;
    for (char& c : block) c = registro_[leido_++ % registro_.size()];
    return block.size();
  }

 private:
  const std::string registro_ = Fichero({Sincc(), Esperado(38, "1 SINCV"), Sincl("1")});
  std::size_t leido_ = 0;
};

TEST(FacturaRecibida, AHugeFileIsReadWithoutBeingKept) {
  struct Contador : ReceptorFactura {
    void Linea(const LineaRecibida& /*linea*/) override { ++lineas; }
    void Descuento(const DescuentoRecibido& /*descuento*/) override {}
    void DescuentoLinea(const DescuentoRecibido& /*descuento*/) override {}
    int lineas = 0;
  } contador;
  CabeceraRecibida cabecera;
  LeerFacturaRecibida(std::make_unique<FicheroEnorme>(), "enorme", cabecera, contador);
  EXPECT_GT(contador.lineas, 100000);
}

}  // namespace
}  // namespace kvraedi
