#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <functional>

#include "kvraedi/error.h"
#include "platform/os/entorno_sistema.h"
#include "tests/platform/os/carpeta_temporal.h"

namespace kvraedi {
namespace {

namespace fs = std::filesystem;

void Poner(Entorno& entorno, const fs::path& fichero, std::string_view bytes) {
  const auto escritor = entorno.Create(fichero);
  escritor->Write(bytes);
  escritor->Close();
}

/// The description of the error that the action raises; "" when it raises none.
std::string Fallo(const std::function<void()>& accion) {
  try {
    accion();
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), kErrorFile);
    return error.Description();
  }
  return {};
}

class Ficheros : public testing::Test {
 protected:
  CarpetaTemporal carpeta;
  EntornoSistema entorno;
};

TEST_F(Ficheros, WritesManyBlocksAndEmptiesAnOldFile) {
  const auto fichero = carpeta / "señal de año.txt";
  std::string esperado;
  const auto escritor = entorno.Create(fichero);
  for (int i = 0; i < 20000; ++i) {
    const std::string linea = "línea " + std::to_string(i) + std::string("\0\r\n", 3);
    escritor->Write(linea);
    esperado += linea;
  }
  escritor->Close();
  escritor->Close();
  EXPECT_EQ(Contenido(fichero), esperado);
  Poner(entorno, fichero, "x");
  EXPECT_EQ(Contenido(fichero), "x");
}

TEST_F(Ficheros, AWriterThatIsDroppedStillHandsItsBytesOver) {
  entorno.Create(carpeta / "a")->Write("abc");
  EXPECT_EQ(Contenido(carpeta / "a"), "abc");
}

TEST_F(Ficheros, TellsFoldersFromFiles) {
  entorno.MakeFolder(carpeta / "Año 2024");
  entorno.MakeFolder(carpeta / "Año 2024");
  Poner(entorno, carpeta / "f", "");
  EXPECT_TRUE(entorno.FolderExists(carpeta / "Año 2024"));
  EXPECT_FALSE(entorno.FileExists(carpeta / "Año 2024"));
  EXPECT_TRUE(entorno.FileExists(carpeta / "f"));
  EXPECT_FALSE(entorno.FolderExists(carpeta / "f"));
  EXPECT_FALSE(entorno.FileExists(carpeta / "nada"));
  EXPECT_FALSE(entorno.FolderExists(carpeta / "f" / "debajo"));
  EXPECT_FALSE(entorno.FolderExists(""));
}

TEST_F(Ficheros, CopiesOverALongerFileAndRenamesOverAnother) {
  const std::string bytes(200001, 'q');
  Poner(entorno, carpeta / "origen", bytes);
  Poner(entorno, carpeta / "copia", std::string(300000, 'z'));
  entorno.Copy(carpeta / "origen", carpeta / "copia");
  EXPECT_EQ(Contenido(carpeta / "copia"), bytes);
  Poner(entorno, carpeta / "final", "viejo");
  entorno.Rename(carpeta / "copia", carpeta / "final");
  EXPECT_EQ(Contenido(carpeta / "final"), bytes);
  EXPECT_FALSE(entorno.FileExists(carpeta / "copia"));
  entorno.Delete(carpeta / "final");
  EXPECT_FALSE(entorno.FileExists(carpeta / "final"));
}

TEST_F(Ficheros, FailuresNameThePathAndTheReason) {
  Poner(entorno, carpeta / "fichero", "1");
  entorno.MakeFolder(carpeta / "sub");
  const struct {
    std::function<void()> accion;
    std::string ruta;
    std::string motivo;
  } casos[] = {
      {[&] { entorno.MakeFolder(carpeta / "no está" / "x"); }, "no está/x", "no existe"},
      {[&] { entorno.MakeFolder(carpeta / "fichero"); }, "fichero", "ya existe"},
      {[&] { entorno.MakeFolder(carpeta / "fichero" / "x"); }, "fichero/x", "no es una carpeta"},
      {[&] { entorno.Create(carpeta / "sub"); }, "sub", "es una carpeta"},
      {[&] { entorno.Create(carpeta / "nada" / "f"); }, "nada/f", "no existe"},
      {[&] { entorno.Create(carpeta / std::string(300, 'n')); }, "nnn", "demasiado largo"},
      {[&] { entorno.Delete(carpeta / "nada"); }, "nada", "no existe"},
      {[&] { entorno.Delete(carpeta / "sub"); }, "sub", "es una carpeta"},
      {[&] { entorno.Rename(carpeta / "nada", carpeta / "x"); }, "nada", "no existe"},
      {[&] { entorno.Copy(carpeta / "nada", carpeta / "x"); }, "nada", "no existe"},
      {[&] { entorno.Copy(carpeta / "sub", carpeta / "x"); }, "sub", "es una carpeta"},
      {[&] { entorno.Copy(carpeta / "fichero", carpeta / "sub"); }, "sub", "es una carpeta"},
      {[&] { entorno.Copy(carpeta / "fichero", carpeta / "sub/../fichero"); }, "fichero",
       "sobre sí mismo"},
  };
  for (const auto& caso : casos) {
    const std::string texto = Fallo(caso.accion);
    EXPECT_NE(texto.find(caso.ruta), std::string::npos) << texto;
    EXPECT_NE(texto.find(caso.motivo), std::string::npos) << texto;
  }
  EXPECT_FALSE(entorno.FileExists(carpeta / "x"));
  EXPECT_EQ(Contenido(carpeta / "fichero"), "1");
}

TEST_F(Ficheros, AFullDiskIsReported) {
  if (!fs::exists("/dev/full")) GTEST_SKIP() << "no /dev/full here";
  const auto fichero = entorno.Create("/dev/full");
  EXPECT_EQ(Fallo([&] { fichero->Write("x"); }),
            "No se puede escribir en «/dev/full»: disco lleno");
  EXPECT_NO_THROW(fichero->Close());
  Poner(entorno, carpeta / "f", "abc");
  EXPECT_NE(Fallo([&] { entorno.Copy(carpeta / "f", "/dev/full"); }), "");
  EXPECT_TRUE(fs::exists("/dev/full"));
}

// A process's own limit on file sizes is the one full disk that a test can make without a disk.
TEST_F(Ficheros, ACopyThatFailsLeavesNoPart) {
  Poner(entorno, carpeta / "largo", std::string(300000, 'x'));
  const auto copiarConLimite = [&] {
    ::signal(SIGXFSZ, SIG_IGN);
    const rlimit limite{100000, 100000};
    ::setrlimit(RLIMIT_FSIZE, &limite);
    const std::string texto = Fallo([&] { entorno.Copy(carpeta / "largo", carpeta / "parte"); });
    const bool queda = fs::exists(carpeta / "parte");
    std::exit(texto.find("demasiado grande") != std::string::npos && !queda ? 0 : 1);
  };
  EXPECT_EXIT(copiarConLimite(), testing::ExitedWithCode(0), "");
}

TEST_F(Ficheros, AReadOnlyFolderIsReported) {
  if (::geteuid() == 0) GTEST_SKIP() << "the administrator may write everywhere";
  ASSERT_EQ(::chmod(carpeta.Ruta().c_str(), 0555), 0);
  const std::string texto = Fallo([&] { entorno.Create(carpeta / "f"); });
  ASSERT_EQ(::chmod(carpeta.Ruta().c_str(), 0755), 0);
  EXPECT_NE(texto.find("permiso denegado"), std::string::npos) << texto;
}

}  // namespace
}  // namespace kvraedi
