#include "frame/fichero_envio.h"

#include <gtest/gtest.h>

#include <fstream>

#include "platform/os/entorno_sistema.h"
#include "tests/platform/os/carpeta_temporal.h"

namespace kvraedi {
namespace {

namespace fs = std::filesystem;

class FicheroEnvioTest : public testing::Test {
 protected:
  void SetUp() override {
    fs::create_directory(raiz / "Temp");
    fs::create_directory(raiz / "2023");
    fs::create_directory(raiz / "2024");
  }

  int Ficheros(const char* carpeta) const {
    return static_cast<int>(std::distance(fs::directory_iterator(raiz / carpeta), {}));
  }

  CarpetaTemporal raiz;
};

TEST_F(FicheroEnvioTest, ANameThatAnotherProgramIsUsingIsPassedOver) {
  EntornoSistema reloj;
  const auto nombrar = [](const FechaHora& sello) { return sello.ToIso() + ".txt"; };
  const auto otro = [&](const char* carpeta, const std::string& nombre) {
    std::ofstream((raiz / carpeta) / nombre) << "ajeno";
    return nombre;
  };
  FicheroEnvio primero(reloj, raiz.Ruta(), "2024", nombrar);
  const FechaHora sello = FechaHora::Parse(primero.Nombre().substr(0, 19)).value();
  const std::string enTemp = otro("Temp", nombrar(sello.PlusSeconds(1)));
  const std::string enCopia = otro("2023", nombrar(sello.PlusSeconds(2)) + ".parcial");
  const std::string enFinal = otro("2024", nombrar(sello.PlusSeconds(3)));
  {
    FicheroEnvio segundo(reloj, raiz.Ruta(), "2024", nombrar);
    EXPECT_EQ(segundo.Nombre(), nombrar(sello.PlusSeconds(4)));
    EXPECT_EQ(Ficheros("Temp"), 3);
  }
  EXPECT_EQ(Contenido(raiz / ("Temp/" + enTemp)), "ajeno");
  EXPECT_EQ(Contenido(raiz / ("2023/" + enCopia)), "ajeno");
  EXPECT_EQ(Contenido(raiz / ("2024/" + enFinal)), "ajeno");
}

}  // namespace
}  // namespace kvraedi
