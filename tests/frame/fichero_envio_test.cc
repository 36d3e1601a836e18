#include "frame/fichero_envio.h"

#include <gtest/gtest.h>

#include <fstream>

#include "platform/os/entorno_sistema.h"
#include "tests/apoyo/fallos.h"
#include "tests/platform/os/carpeta_temporal.h"

namespace kvraedi {
namespace {

namespace fs = std::filesystem;

class FicheroEnvioTest : public testing::Test {
 protected:
  void SetUp() override {
    fs::create_directory(raiz / "Temp");
    fs::create_directory(raiz / "2024");
  }

  void Enviar() {
    FicheroEnvio fichero(entorno, raiz / "Temp", raiz / "2024",
                         [](const FechaHora&) { return "año.txt"; });
    fichero.Texto().Linea("uno");
    fichero.Texto().Linea(std::string(100000, 'x'));
    fichero.Preparar();
    fichero.Publicar();
  }

  int Ficheros(const char* carpeta) const {
    return static_cast<int>(std::distance(fs::directory_iterator(raiz / carpeta), {}));
  }

  CarpetaTemporal raiz;
  EntornoSistema sistema;
  EntornoConFallos entorno{sistema};
};

TEST_F(FicheroEnvioTest, EndsUnderItsFinalNameOnly) {
  Enviar();
  EXPECT_EQ(Contenido(raiz / "2024/año.txt"), "uno\r\n" + std::string(100000, 'x') + "\r\n");
  EXPECT_EQ(Ficheros("Temp"), 0);
  EXPECT_EQ(Ficheros("2024"), 1);
}

TEST_F(FicheroEnvioTest, WhateverFailsNothingHalfWrittenStaysUnderTheFinalName) {
  Enviar();
  const int operaciones = entorno.fallo.Operaciones();
  ASSERT_GE(operaciones, 6);
  for (int k = 1; k <= operaciones; ++k) {
    fs::remove(raiz / "2024/año.txt");
    entorno.fallo.FallarEn(k);
    const bool ultimo = k == operaciones;
    try {
      Enviar();
      FAIL() << k;
    } catch (const Error& error) {
      const bool diceDonde = error.Description().find("año.txt.parcial") != std::string::npos;
      EXPECT_EQ(diceDonde, ultimo) << error.Description();
    }
    EXPECT_FALSE(fs::exists(raiz / "2024/año.txt")) << k;
    EXPECT_EQ(fs::exists(raiz / "2024/año.txt.parcial"), ultimo) << k;
    EXPECT_EQ(Ficheros("Temp"), 0) << k;
  }
}

TEST_F(FicheroEnvioTest, ANameThatAnotherProgramIsUsingIsPassedOver) {
  EntornoSistema reloj;
  const auto nombrar = [](const FechaHora& sello) { return sello.ToIso() + ".txt"; };
  const auto otro = [&](const char* carpeta, const std::string& nombre) {
    std::ofstream((raiz / carpeta) / nombre) << "ajeno";
    return nombre;
  };
  FicheroEnvio primero(reloj, raiz / "Temp", raiz / "2024", nombrar);
  const FechaHora sello = FechaHora::Parse(primero.Nombre().substr(0, 19)).value();
  const std::string enTemp = otro("Temp", nombrar(sello.PlusSeconds(1)));
  const std::string enCopia = otro("2024", nombrar(sello.PlusSeconds(2)) + ".parcial");
  const std::string enFinal = otro("2024", nombrar(sello.PlusSeconds(3)));
  {
    FicheroEnvio segundo(reloj, raiz / "Temp", raiz / "2024", nombrar);
    EXPECT_EQ(segundo.Nombre(), nombrar(sello.PlusSeconds(4)));
    EXPECT_EQ(Ficheros("Temp"), 3);
  }
  EXPECT_EQ(Contenido(raiz / ("Temp/" + enTemp)), "ajeno");
  EXPECT_EQ(Contenido(raiz / ("2024/" + enCopia)), "ajeno");
  EXPECT_EQ(Contenido(raiz / ("2024/" + enFinal)), "ajeno");
}

}  // namespace
}  // namespace kvraedi
