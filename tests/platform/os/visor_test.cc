#include <gtest/gtest.h>
#include <sys/stat.h>

#include <chrono>
#include <thread>

#include "platform/os/entorno_sistema.h"
#include "tests/apoyo/fallos.h"
#include "tests/platform/os/carpeta_temporal.h"

namespace kvraedi {
namespace {

namespace fs = std::filesystem;

/// An xdg-open of our own on the path, which takes a second to say what it was asked for.
class Visor : public testing::Test {
 protected:
  void SetUp() override {
    std::ofstream(carpeta / "xdg-open") << "#!/bin/sh\n/bin/sleep 1\n"
                                           "printf '%s|%s' \"$#\" \"$1\" > \"$0.tmp\"\n"
                                           "/bin/mv \"$0.tmp\" \"$0.dicho\"\n";
    ::chmod((carpeta / "xdg-open").c_str(), S_IRWXU);
    ::setenv("PATH", carpeta.Ruta().c_str(), 1);
  }
  void TearDown() override { ::setenv("PATH", antes.c_str(), 1); }

  std::string antes = std::getenv("PATH");
  CarpetaTemporal carpeta;
  EntornoSistema entorno;
};

TEST_F(Visor, GetsThePathAsItIsAndIsNotWaitedFor) {
  const auto fichero = carpeta / "$(touch mal); 'año' -x.pdf";
  std::ofstream(fichero) << "%PDF";
  const auto inicio = std::chrono::steady_clock::now();
  entorno.OpenWithDefaultProgram(fichero);
  EXPECT_LT(std::chrono::steady_clock::now() - inicio, std::chrono::milliseconds(900));
  const auto dicho = carpeta / "xdg-open.dicho";
  for (int i = 0; i < 200 && !fs::exists(dicho); ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
  }
  EXPECT_EQ(Contenido(dicho), "1|" + fichero.string());
  EXPECT_FALSE(fs::exists("mal"));
}

TEST_F(Visor, WhatIsNotThereIsReported) {
  const auto error = [&](const fs::path& fichero) {
    return ErrorDe([&] { entorno.OpenWithDefaultProgram(fichero); });
  };
  const fs::path falta = carpeta / "nada.pdf";
  EXPECT_EQ(error(falta), "No se puede abrir «" + falta.string() + "»: no existe");
  const fs::path programa = carpeta / "xdg-open";
  fs::remove(programa);
  std::ofstream(carpeta / "hay.pdf") << "%PDF";
  EXPECT_EQ(error(carpeta / "hay.pdf"), "No se puede arrancar el programa «xdg-open»: no existe");
}

}  // namespace
}  // namespace kvraedi
