#include <fstream>
#include <iterator>

#include "tests/host/demo/carpeta_demo.h"

namespace kvraedi {
namespace {

namespace fs = std::filesystem;

std::string Leer(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

TEST(CrearDemo, MakesTheFolders) {
  const CarpetaDemo carpeta("carpetas");
  EXPECT_EQ(carpeta.Crear(10), carpeta.Ruta() / "kvraedi.db");
  EXPECT_TRUE(fs::is_directory(carpeta.Ruta() / "Envios"));
  EXPECT_TRUE(fs::is_directory(carpeta.Ruta() / "Recepcion"));
  EXPECT_TRUE(fs::is_regular_file(carpeta.Ruta() / "Rpt" / "Factura.rpt"));
  EXPECT_EQ(std::distance(fs::directory_iterator(carpeta.Ruta()), fs::directory_iterator()), 5)
      << "nothing else stays behind";
  SqliteConnection db((carpeta.Ruta() / "kvraedi.db").string());
  EXPECT_TRUE(fs::is_regular_file(
      db.Open("SELECT rutaCertificado FROM Series WHERE Codigo = 4")->Get<std::string>(0)));
}

TEST(CrearDemo, SameSeedSameContents) {
  const CarpetaDemo carpeta("a");
  const std::string first = Leer(carpeta.Crear(120, 7));
  ASSERT_GT(first.size(), 100000U);
  EXPECT_TRUE(first == Leer(carpeta.Crear(120, 7, true)));
  EXPECT_FALSE(first == Leer(carpeta.Crear(120, 8, true)));
}

}  // namespace
}  // namespace kvraedi
