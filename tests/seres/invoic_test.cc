#include <gtest/gtest.h>

#include "seres/modSeres.h"
#include "tests/apoyo/escenario.h"
#include "tests/apoyo/registro_esperado.h"

namespace kvraedi {
namespace {

class InvoicTest : public Escenario {
 protected:
  /// Sends invoice 2024/3/`codigo` and gives back its records; each sending has a file of its own.
  std::vector<std::string> Enviar(int codigo, std::int16_t tipoDoc = 0) {
    EXPECT_TRUE(INVOIC(100, 3, codigo, tipoDoc, 2024)) << Aviso();
    EXPECT_TRUE(Ficheros("Temp").empty());
    const auto ficheros = Ficheros("2024");
    EXPECT_EQ(ficheros.size(), ++enviados);
    return Lineas(Contenido(envios / "2024" / ficheros.back()));
  }
  std::string Aviso() const {
    return toolkit.Messages().empty() ? "" : toolkit.Messages().back().text;
  }
  /// The records of a tag.
  static std::vector<std::string> Con(const std::vector<std::string>& lineas,
                                      std::string_view tag) {
    std::vector<std::string> elegidas;
    for (const auto& linea : lineas) {
      if (linea.substr(0, 6) == std::string(tag) + " ") elegidas.push_back(linea);
    }
    return elegidas;
  }
  std::size_t enviados = 0;
  static std::string Tags(const std::vector<std::string>& lineas) {
    std::string tags;
    for (const auto& linea : lineas) tags += linea.substr(0, 5) + " ";
    return tags;
  }
};

TEST_F(InvoicTest, APlainInvoiceFillsEveryRecord) {
  InsertarFactura(1234);
  base->Execute("UPDATE Facturas_Lineas SET Bultos = 12345.6789, PDescuento = 10, Descuento = 10");
  base->Execute(
      "UPDATE Facturas SET Importe_Portes = 1.5, Ent_Nombre = 'Tienda', Ent_Direccion = 'C/ Sol',"
      " Ent_Localidad = 'Getafe', Ent_Provincia = 'Comunidad de Madrid', Ent_Cp = '28901',"
      " Ent_Pais = 'ESPAÑA', Ent_Contacto = 'Ana', Ent_Telefono = '1', Ent_Fax = '2'");
  const auto lineas = Enviar(1234);
  ASSERT_EQ(Tags(lineas),
            "RECTL SINCC SINCP SINCP SINCP SINCP SINCP SINCP SINCP SINCL SINCE SINCI ");

  const std::string id = base->Open("SELECT IdentificadorMsg FROM EDI_Envio_Facturas")
                             ->Get<std::string>("IdentificadorMsg");
  EXPECT_EQ(id.size(), 36U);
  EXPECT_EQ(lineas[0], Esperado(134, "1 RECTL|7 INVOIC|13 8400000000017|48 8411111111111|83 " + id +
                                         "|123 212403010908"));
  EXPECT_EQ(lineas[1],
            Esperado(370,
                     "1 SINCC|7 380|13 1234|30 9|36 21240220|160 EUR|166 21240220|-191 90.000|-209 "
                     "100.000|-227 120.000|-245 7.000|-263 107.000|-299 1.500|342 212402201045"));
  const auto empresaEsperada = [](std::string_view calificador) {
    return Esperado(
        773, "1 SINCP|7 " + std::string(calificador) +
                 "|10 8400000000017|27 9|30 \xD1"
                 "and\xFA y C\xED"
                 "a, S.L.|65 Mayorista|205 C/ Mayor, 1|345 Las Palmas|380 Las Palma|389 35001|398 "
                 "ESP|401 B35000000|526 928000000|561 928000001|631 R.M. Las Palmas T.1 F.2");
  };
  const auto clienteEsperado = [](std::string_view calificador) {
    return Esperado(773, "1 SINCP|7 " + std::string(calificador) +
                             "|10 8411111111111|27 9|30 O'Donnell, S.A.|205 Gran V\xED"
                             "a, 2|345 Madrid|380 Madrid|389 28013|398 ES|401 A28000000|526 "
                             "910000000|561 910000001");
  };
  EXPECT_EQ(lineas[2], empresaEsperada("SU "));
  EXPECT_EQ(lineas[3], empresaEsperada("II "));
  EXPECT_EQ(lineas[4], empresaEsperada("BCO"));
  EXPECT_EQ(lineas[5],
            Esperado(773,
                     "1 SINCP|7 DP|10 8411111111111|27 9|30 Tienda|205 C/ Sol|345 Getafe|380 "
                     "Comunidad|389 28901|398 ESP|401 A28000000|491 Ana|526 1|561 2"));
  EXPECT_EQ(lineas[6], clienteEsperado("BY "));
  EXPECT_EQ(lineas[7], clienteEsperado("IV "));
  EXPECT_EQ(lineas[8], clienteEsperado("SCO"));
  EXPECT_EQ(lineas[9], Esperado(523,
                                "1 SINCL|7 000001|13 501|28 Queso|63 M|-154 4.000|-224 90.000|-240 "
                                "25.0000|-256 30.0000|263 IGI|-274 7.00|-388 12345.67"));
  EXPECT_EQ(lineas[10], Esperado(149, "1 SINCE|-8 1|9 A|10 1|-21 10.0000"));
  EXPECT_EQ(lineas[11], Esperado(56, "1 SINCI|7 1|9 IGI|-20 7.00|-38 7.000|-56 100.000"));
}

TEST_F(InvoicTest, DocumentTypeFollowsTypeAndSign) {
  const struct {
    int tipoDoc;
    const char* bruto;
    const char* tipo;
    const char* abono;
  } casos[] = {{0, "100", "380   ", "   "},
               {0, "-1", "380   ", "1A "},
               {1, "100", "381   ", "1A "},
               {2, "-0.01", "381   ", "1A "},
               {2, "0", "380   ", "   "}};
  int codigo = 1;
  for (const auto& caso : casos) {
    InsertarFactura(codigo, "ImporteB = " + std::string(caso.bruto));
    for (const char* tabla : {"Facturas", "Facturas_Lineas", "Facturas_Impuestos"}) {
      base->Execute("UPDATE " + std::string(tabla) + " SET TipoDoc = " +
                    std::to_string(caso.tipoDoc) + " WHERE Codigo = " + std::to_string(codigo));
    }
    const auto sincc = Enviar(codigo, static_cast<std::int16_t>(caso.tipoDoc))[1];
    EXPECT_EQ(sincc.substr(6, 6), caso.tipo) << caso.tipoDoc << " " << caso.bruto;
    EXPECT_EQ(sincc.substr(65, 3), caso.abono) << caso.tipoDoc << " " << caso.bruto;
    ++codigo;
  }
}

TEST_F(InvoicTest, DueDatesStandInTheirOwnRecords) {
  InsertarFactura(1);
  for (const auto* apunte : {"2, '15/04/2024', 57.005", "1, '15/03/2024', 50"}) {
    base->Execute(
        "INSERT INTO Facturas_PrevCobros (Cod_Empresa, Cod_Ejercicio, Serie, Codigo, TipoDoc, "
        "Apunte, Fecha_Vto, Importe) VALUES (1, 2024, 3, 1, 0, " +
        std::string(apunte) + ")");
  }
  const auto lineas = Enviar(1);
  EXPECT_EQ(lineas[1].substr(165, 8), "        ");
  const auto vencimientos = Con(lineas, "SINCV");
  ASSERT_EQ(vencimientos.size(), 2U);
  EXPECT_EQ(vencimientos[0], Esperado(38, "1 SINCV|7 1|13 21240315|-38 50.000"));
  EXPECT_EQ(vencimientos[1], Esperado(38, "1 SINCV|7 2|13 21240415|-38 57.005"));
}

TEST_F(InvoicTest, FreeTextsAreSplitAtReturnsAndEndAfterTheLastPiece) {
  const std::string largo(80, 'x');
  const struct {
    std::string texto;
    std::vector<std::string> piezas;
  } casos[] = {{"uno\r\ndos", {"uno", "dos"}},
               {"uno\ndos", {"unodos"}},
               {"uno\r\n", {"uno", ""}},
               {largo, {std::string(70, 'x')}},
               {"1\r2\r3\r4\r5\r6\r7", {"1", "2", "3", "4", "5"}},
               {"a\tb;c'd €", {"a b;c'd \x80"}}};
  int codigo = 1;
  for (const auto& [texto, piezas] : casos) {
    std::string valor = texto;
    for (auto i = valor.find('\''); i != std::string::npos; i = valor.find('\'', i + 2)) {
      valor.insert(i, "'");
    }
    InsertarFactura(codigo, "Observ = '" + valor + "'");
    base->Execute("UPDATE Facturas_Lineas SET Cod_Articulo = -1, Descripcion = '" + valor +
                  "' WHERE Codigo = " + std::to_string(codigo));
    std::string cola(7 + 5, ' ');
    cola.replace(0, 12, "      AAI   ");
    std::string esperado = "AAI   ";
    for (const auto& pieza : piezas) esperado += pieza + std::string(70 - pieza.size(), ' ');
    const auto lineas = Enviar(codigo);
    EXPECT_EQ(Con(lineas, "SINCT"), std::vector{"SINCT " + esperado}) << texto;
    EXPECT_EQ(Con(lineas, "SINCU"), std::vector{"SINCU " + esperado}) << texto;
    EXPECT_TRUE(Con(lineas, "SINCL").empty());
    ++codigo;
  }
}

TEST_F(InvoicTest, GeneralDiscountsKeepTheRegionalDecimalSign) {
  InsertarFactura(1, "Dto1 = 5, TDto1 = 0, Dto2 = 12.3456, TDto2 = 1");
  const auto descuentos = Con(Enviar(1), "SINCD");
  ASSERT_EQ(descuentos.size(), 2U);
  EXPECT_EQ(descuentos[0], Esperado(139, "1 SINCD|-8 1|9 A|10 1|-21 5,0000|74 TD"));
  EXPECT_EQ(descuentos[1], Esperado(139, "1 SINCD|-8 2|9 A|10 2|-39 12,346|74 TD"));
}

TEST_F(InvoicTest, ExemptWithoutIgicOrForIntraCommunityCustomers) {
  const std::string exento = Esperado(56, "1 SINCI|7 1|9 EXT|-20 000.00|-38 0.000|-56 0.000");
  InsertarFactura(1);
  empresa->igic = false;
  const auto sinIgic = Enviar(1);
  EXPECT_EQ(Con(sinIgic, "SINCI"), std::vector{exento});
  EXPECT_EQ(Con(sinIgic, "SINCL")[0].substr(262, 12), std::string(12, ' '));
  empresa->igic = true;
  InsertarFactura(2);
  base->Execute("UPDATE Clientes SET IntraCom = 1");
  const auto intra = Enviar(2);
  EXPECT_EQ(Con(intra, "SINCI"), std::vector{exento});
  EXPECT_EQ(Con(intra, "SINCL")[0].substr(262, 12), "IGI     7.00");
}

TEST_F(InvoicTest, ManyTaxesAreNumberedByCode) {
  InsertarFactura(1);
  base->Execute(
      "INSERT INTO Facturas_Impuestos (Cod_Empresa, Cod_Ejercicio, Serie, Codigo, TipoDoc, Tipo,"
      " Base, Importe) VALUES (1, 2024, 3, 1, 0, 2, -10.5, -0.315)");
  base->Execute(
      "INSERT INTO Facturas_Impuestos (Cod_Empresa, Cod_Ejercicio, Serie, Codigo, TipoDoc, Tipo,"
      " Base, Importe) VALUES (1, 2024, 3, 1, 0, 0, 1, 1)");
  const auto impuestos = Con(Enviar(1), "SINCI");
  ASSERT_EQ(impuestos.size(), 2U);
  EXPECT_EQ(impuestos[1], Esperado(56, "1 SINCI|7 2|9 IGI|-20 3.00|-38 -0.315|-56 -10.500"));
}

TEST_F(InvoicTest, ARepeatedSendingIsMarkedAndNotRecordedAgain) {
  InsertarFactura(1);
  EXPECT_EQ(Enviar(1)[1].substr(29, 6), "9     ");
  EXPECT_EQ(Contar("SELECT COUNT(*) FROM EDI_Envio_Facturas WHERE Cod_EDIPlat = 2 AND"
                   " Cod_EDITipoMsg = 1 AND EDIFichero = '" +
                   Ficheros("2024")[0] + "'"),
            1);
  EXPECT_EQ(Enviar(1)[1].substr(29, 6), "31    ");
  EXPECT_EQ(Contar("SELECT COUNT(*) FROM EDI_Envio_Facturas"), 1);
}

TEST_F(InvoicTest, WithoutARowAnEmptyFileIsFiled) {
  EXPECT_TRUE(Enviar(999).empty());
  EXPECT_EQ(Contar("SELECT COUNT(*) FROM EDI_Envio_Facturas"), 0);
}

TEST_F(InvoicTest, ARealClockNeverWritesOverAFileThatIsThere) {
  EntornoSistema real;
  InstalarAdaptadores({.entorno = &real, .toolkit = &toolkit, .suite = &suite});
  const FechaHora ahora = real.Now();
  std::filesystem::create_directories(envios / "2024");
  for (int segundos = 0; segundos < 60; ++segundos) {
    const std::string iso = ahora.PlusSeconds(segundos).ToIso() + " 00:00:00";
    std::string digitos;
    for (const char c : iso) {
      if (c >= '0' && c <= '9' && digitos.size() < 14) digitos += c;
    }
    std::ofstream(envios / "2024" / ("INVOIC" + digitos + ".txt")) << "anterior";
  }
  const auto antes = Ficheros("2024").size();
  InsertarFactura(1);
  InsertarFactura(2);
  EXPECT_TRUE(INVOIC(100, 3, 1, 0, 2024));
  EXPECT_TRUE(INVOIC(100, 3, 2, 0, 2024));
  EXPECT_EQ(Ficheros("2024").size(), antes + 2);
}

}  // namespace
}  // namespace kvraedi
