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

TEST(CrearDemo, SizeIsTheNumberOfInvoices) {
  for (const int facturas : {0, 1, 9, 1001}) {
    const CarpetaDemo carpeta("medida");
    SqliteConnection db(carpeta.Crear(facturas).string());
    EXPECT_EQ(Contar(db, "Facturas"), facturas);
    EXPECT_EQ(Contar(db, "TPV_Tickets_Factura"), facturas / 10);
  }
}

TEST(CrearDemo, RefusesToOverwriteUnlessTold) {
  const CarpetaDemo carpeta("dos");
  const std::string before = Leer(carpeta.Crear(10));
  try {
    carpeta.Crear(20);
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.Description(),
              "Ya existe la base de datos " + (carpeta.Ruta() / "kvraedi.db").string() + ".");
  }
  EXPECT_TRUE(Leer(carpeta.Ruta() / "kvraedi.db") == before);
  SqliteConnection db(carpeta.Crear(20, 1, true).string());
  EXPECT_EQ(Contar(db, "Facturas"), 20);
}

TEST(CrearDemo, RefusesNumbersOutOfRangeAndFoldersThatCannotBeMade) {
  const CarpetaDemo carpeta("fuera");
  for (const int facturas : {-1, demo::kMaximoFacturas + 1}) {
    EXPECT_THROW(carpeta.Crear(facturas), Error);
    EXPECT_FALSE(fs::exists(carpeta.Ruta()));
  }
  fs::create_directories(carpeta.Ruta().parent_path());
  std::ofstream(carpeta.Ruta()) << "no es una carpeta";
  EXPECT_THROW(carpeta.Crear(1), Error);
}

TEST(CrearDemo, TellsItsProgressUpToTheEnd) {
  const CarpetaDemo carpeta("avance");
  std::int32_t last = 0;
  demo::CrearDemo({carpeta.Ruta(), 500}, [&](std::int32_t hechos, std::int32_t total) {
    EXPECT_GT(hechos, last);
    EXPECT_EQ(total, 550);
    last = hechos;
  });
  EXPECT_EQ(last, 550);
}

}  // namespace
}  // namespace kvraedi
