#include <algorithm>
#include <fstream>

#include "platform/sqlite/sqlite_connection.h"
#include "tests/host/cli/con_demo.h"

namespace kvraedi::cli {
namespace {

namespace fs = std::filesystem;

class Facturas : public ConDemo {
 protected:
  Facturas() : ConDemo(120) {}

  fs::path Envios() const { return Demo() / "Envios"; }

  std::vector<fs::path> FicherosEn(const fs::path& raiz) const {
    std::vector<fs::path> ficheros;
    if (!fs::exists(raiz)) return ficheros;
    for (const auto& entrada : fs::recursive_directory_iterator(raiz)) {
      if (entrada.is_regular_file()) ficheros.push_back(fs::relative(entrada.path(), raiz));
    }
    std::sort(ficheros.begin(), ficheros.end());
    return ficheros;
  }
  std::int64_t Enviadas() const {
    SqliteConnection conexion(Base().string());
    return conexion.Open("SELECT COUNT(*) AS n FROM EDI_Envio_Facturas")->Get<std::int64_t>("n");
  }
};

TEST_F(Facturas, AFixedClockAndSeedMakeTheSameFile) {
  const fs::path copia = carpeta / "copia";
  fs::copy(Demo(), copia, fs::copy_options::recursive);
  const Palabras envio = {"facturas",     "enviar",     "--cliente",  "1",
                          "--desde",      "01/01/2000", "--hasta",    "31/12/2099",
                          "--factura",    "2026/4/8",   "--ahora",    "2024-05-06T07:08:09",
                          "--semilla-id", "9",          "--terminal", "T1"};
  ASSERT_EQ(Ejecutar(envio).codigo, 0);
  const auto ficheros = FicherosEn(Envios());
  ASSERT_EQ(ficheros.size(), 1U);
  EXPECT_EQ(ficheros[0].filename(), "INVOIC20240506070809.txt");
  const std::string primero = Contenido(Envios() / ficheros[0]);
  fs::remove_all(Demo());
  fs::rename(copia, Demo());
  ASSERT_EQ(Ejecutar(envio).codigo, 0);
  ASSERT_EQ(FicherosEn(Envios()), ficheros);
  EXPECT_EQ(Contenido(Envios() / ficheros[0]), primero);
  EXPECT_NE(primero, "");
}

TEST_F(Facturas, TheConnectionComesFromTheEnvironmentOrAFileAndIsNotShown) {
  const std::string cadena = "Driver=/nada/controlador.so;UID=yo;PWD=Oculta-1";
  std::ofstream(carpeta / "cadena.txt") << cadena << "\r\n";
  const auto listar = [&](const char* variable, Palabras args) {
    args.insert(args.begin(), {"facturas", "listar", "--desde", "1", "--hasta", "2"});
    setenv("KVRAEDI_CONEXION", variable, 1);
    Ejecucion ejecucion(args);
    unsetenv("KVRAEDI_CONEXION");
    return ejecucion;
  };
  const std::string otra = "sqlite:" + (carpeta / "otra.db").string();
  EXPECT_TRUE(listar(otra.c_str(), {}).Dice("otra.db"));
  EXPECT_EQ(listar("", {"--conexion", "odbc:"}).codigo, 2);
  EXPECT_TRUE(listar("", {"--conexion", "odbc:@/nada/cadena"}).Dice("/nada/cadena"));
  for (const auto& ejecucion :
       {listar("", {"--conexion", "odbc:" + cadena}), listar(("odbc:" + cadena).c_str(), {}),
        listar(cadena.c_str(), {"--conexion", "odbc:"}),
        listar("", {"--conexion", "odbc:@" + (carpeta / "cadena.txt").string()})}) {
    EXPECT_EQ(ejecucion.codigo, 3);
    EXPECT_TRUE(ejecucion.Dice("ODBC") || ejecucion.Dice("/nada/controlador.so"))
        << ejecucion.mensajes;
    EXPECT_FALSE(ejecucion.Dice("Oculta")) << ejecucion.mensajes;
  }
}

TEST_F(Facturas, AnExportLeavesItsDocumentsInTheFolder) {
  const auto firmador = fs::read_symlink("/proc/self/exe").parent_path() / "../EDI/FacturaE";
  if (!fs::exists(firmador / "FirmadorPortal")) GTEST_SKIP() << "the signer was not built";
  const fs::path destino = carpeta / "para la gestoría";
  fs::create_directory(destino);
  const std::int64_t antes = Enviadas();
  for (const char* revision : {"0", "3"}) {  // the second export replaces the files of the first
    const Ejecucion hecho =
        Ejecutar({"facturas", "exportar", "--cliente", "30", "--desde", "01/01/2000", "--hasta",
                  "31/12/2099", "--perfil", carpeta.Ruta().string(), "--carpeta", destino.string(),
                  "--factura", "2026/1/6", "--revision", revision});
    EXPECT_EQ(hecho.Dice("Número de Revisión 3 ?"), *revision == '3') << hecho.mensajes;
    const auto ficheros = FicherosEn(destino);
    const bool imprime = !hecho.Dice("Esta instalación no puede imprimir");
    EXPECT_EQ(hecho.codigo, imprime ? 0 : 1) << hecho.mensajes;
    ASSERT_EQ(ficheros.size(), imprime ? 3U : 2U);
    std::string esperado = "Ficheros exportados: " + std::to_string(ficheros.size()) + "\n";
    for (const auto& fichero : ficheros) esperado += "  " + (destino / fichero).string() + "\n";
    EXPECT_EQ(hecho.resultado, esperado);
  }
  EXPECT_EQ(Enviadas(), antes);
}

}  // namespace
}  // namespace kvraedi::cli
