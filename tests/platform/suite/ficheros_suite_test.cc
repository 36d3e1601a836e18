#include <gtest/gtest.h>

#include <fstream>

#include "platform/os/entorno_sistema.h"
#include "platform/suite/suite_referencia.h"
#include "tests/apoyo/fallos.h"
#include "tests/platform/os/carpeta_temporal.h"

namespace kvraedi {
namespace {

class FicherosSuiteTest : public testing::Test {
 protected:
  std::unique_ptr<FicheroLog> Log(const char* ahora) {
    sistema = std::make_unique<EntornoSistema>(OpcionesEntorno{.ahora = FechaHora::Parse(ahora)});
    entorno = std::make_unique<EntornoConFallos>(*sistema);
    return suite.AbrirLog(*entorno, raiz / "a.log");
  }
  std::string Contenido() { return sistema->ReadFile(raiz / "a.log"); }

  CarpetaTemporal raiz;
  std::unique_ptr<EntornoSistema> sistema;
  std::unique_ptr<EntornoConFallos> entorno;
  SuiteReferencia suite;
};

TEST_F(FicherosSuiteTest, OldEntriesGoAndALaterOneIsWrittenBehindTheRest) {
  Log("2026-01-01 10:00:00")->Escribir(0, "Leer", "viejo");
  Log("2026-03-01")->Escribir(0, "Leer", "una\r\nlínea\tlarga");
  const auto log = Log("2026-03-31");
  log->Escribir(0, "Leer", "nuevo");
  log->DescartarAnteriores(*FechaHora::Parse("2026-03-01"));
  log->Escribir(1, "Mover", "último");
  EXPECT_EQ(
      "2026-03-01 00:00:00\t0\tLeer\tuna  línea larga\r\n"
      "2026-03-31 00:00:00\t0\tLeer\tnuevo\r\n"
      "2026-03-31 00:00:00\t1\tMover\túltimo\r\n",
      Contenido());
}

TEST_F(FicherosSuiteTest, AFailureWhileDiscardingLosesNoEntry) {
  Log("2026-01-01")->Escribir(0, "Leer", "viejo");
  Log("2026-03-01")->Escribir(0, "Leer", "nuevo");
  const std::string antes = Contenido();
  for (int k = 1;; ++k) {
    const auto log = Log("2026-03-01");
    entorno->fallo.FallarEn(k);
    try {
      log->DescartarAnteriores(*FechaHora::Parse("2026-02-01"));
    } catch (const Error&) {
    }
    if (!entorno->fallo.Disparado()) break;
    EXPECT_NE(std::string::npos, Contenido().find("nuevo")) << k;
    entorno->fallo.FallarEn(0);
    std::ofstream(raiz / "a.log", std::ios::binary) << antes;
  }
}

TEST_F(FicherosSuiteTest, SettingsAreFoundByNameInTheirSection) {
  sistema = std::make_unique<EntornoSistema>();
  std::ofstream(raiz / "a.ini", std::ios::binary)
      << "\xEF\xBB\xBFproveedorcentralizado=9\r\n[Otra]\r\nProveedorCentralizado=1\r\n"
         "; ProveedorCentralizado=2\r\n[ ormoPCCom ]\n;ProveedorCentralizado=3\n"
         "Vacia=\n PROVEEDORCENTRALIZADO = 12 \r\nProveedorCentralizado=4";
  const auto leer = [&](const char* fichero, const char* seccion, const char* clave) {
    return suite.LeerIni(*sistema, raiz / fichero, seccion, clave).value_or("(nada)");
  };
  EXPECT_EQ("12", leer("a.ini", "OrmoPCCom", "ProveedorCentralizado"));
  EXPECT_EQ("1", leer("a.ini", "otra", "ProveedorCentralizado"));
  EXPECT_EQ("", leer("a.ini", "OrmoPCCom", "vacia"));
  EXPECT_EQ("(nada)", leer("a.ini", "OrmoPCCom", "Falta"));
  EXPECT_EQ("(nada)", leer("a.ini", "Falta", "ProveedorCentralizado"));
  EXPECT_EQ("(nada)", leer("no.ini", "OrmoPCCom", "ProveedorCentralizado"));
}

}  // namespace
}  // namespace kvraedi
