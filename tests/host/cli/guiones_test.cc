#include <algorithm>
#include <fstream>
#include <iomanip>

#include "platform/sqlite/sqlite_connection.h"
#include "tests/apoyo/guion.h"
#include "tests/host/cli/con_demo.h"

namespace kvraedi::cli {
namespace {

namespace fs = std::filesystem;

/// Plays a script of `guiones/`, which says what people type and what they then see. Its lines:
///
///     $ order argument "with blanks"...   ends with exit code 0; `$1 …` with 1
///     > text    stands in the result, after what the lines before it named
///     = line    the result consists of these lines
///     - text    does not stand in the result
///     ! text    stands in the messages
///     @ carpeta FOLDER, @ borrar FILE, @ copiar FILE FOLDER, @ escribir FILE TEXT, @ sql STATEMENT
///     @ existe FILE [TEXT in it], @ falta FILE or anything in that folder
///
/// An order without a `!` gives no messages, and one that fails without a `>` or `=` no result. The
/// first line says how many invoices the demo database has: `demo 120`; without it there is none.
/// `{demo}` is the demo's folder, `{aqui}` the one above it.
class Guiones : public testing::TestWithParam<std::string> {
 protected:
  std::string Sustituir(std::string texto) const {
    for (const auto& [nombre, ruta] : {std::pair{"{demo}", Demo()}, {"{aqui}", carpeta.Ruta()}}) {
      for (std::size_t i; (i = texto.find(nombre)) != std::string::npos;) {
        texto.replace(i, std::string_view(nombre).size(), ruta.string());
      }
    }
    return texto;
  }
  fs::path Demo() const { return carpeta / "señales de año"; }
  std::string Base() const { return (Demo() / "kvraedi.db").string(); }

  static Palabras Partir(const std::string& texto) {
    std::istringstream entrada(texto);
    Palabras palabras;
    for (std::string palabra; entrada >> std::quoted(palabra);) palabras.push_back(palabra);
    return palabras;
  }
  /// Tells when an order said something that no line of the script expected.
  void Acabar() {
    if (!ejecucion) return;
    const bool callado = ejecucion->codigo != 0 && visto == 0;
    if (callado || !exacto.empty()) {
      EXPECT_EQ(ejecucion->resultado, exacto) << "of the order before";
    }
    if (!avisa) {
      EXPECT_EQ(ejecucion->mensajes, "") << "of the order before";
    }
    ejecucion.reset();
  }
  void Ordenar(const std::string& linea) {
    Acabar();
    Palabras args = Partir(linea.substr(linea.starts_with("$ ") ? 1 : 2));
    const bool conBase = fs::exists(Base()) && std::ranges::find(args, "--conexion") == args.end();
    if (conBase && args != Palabras{} && args[0] != "demo") {
      args.insert(args.end(), {"--conexion", "sqlite:" + Base()});
    }
    ejecucion.emplace(args);
    EXPECT_EQ(ejecucion->codigo, linea[1] == ' ' ? 0 : linea[1] - '0')
        << ejecucion->mensajes << ejecucion->resultado;
    visto = 0;
    avisa = false;
    exacto.clear();
  }
  void Mirar(char signo, const std::string& texto) {
    if (signo == '=') {
      exacto += texto + "\n";
    } else if (signo == '-') {
      EXPECT_EQ(ejecucion->resultado.find(texto), std::string::npos);
    } else if (signo == '!') {
      avisa = true;
      EXPECT_TRUE(ejecucion->Dice(texto)) << ejecucion->mensajes;
    } else if (const auto donde = ejecucion->resultado.find(texto, visto);
               donde != std::string::npos) {
      visto = donde + texto.size();
    } else {
      ADD_FAILURE() << ejecucion->resultado;
    }
  }
  void Preparar(const std::string& texto) const {
    Palabras palabras = Partir(texto);
    palabras.resize(3);
    const std::string& orden = palabras[0];
    const fs::path ruta = palabras[1];
    if (orden == "sql") {
      SqliteConnection(Base()).Run(texto.substr(4));
    } else if (orden == "carpeta") {
      fs::create_directory(ruta);
    } else if (orden == "escribir") {
      std::ofstream(ruta) << palabras[2];
    } else if (orden == "copiar") {
      fs::copy(ruta, palabras[2]);
    } else if (orden == "borrar") {
      EXPECT_TRUE(fs::remove(ruta));
    } else if (orden == "existe") {
      EXPECT_NE(Contenido(ruta).find(palabras[2]), std::string::npos);
    } else {
      ASSERT_EQ(orden, "falta");
      EXPECT_FALSE(fs::exists(ruta) && (fs::is_regular_file(ruta) || !fs::is_empty(ruta)));
    }
  }

  CarpetaTemporal carpeta;
  std::optional<Ejecucion> ejecucion;
  std::size_t visto = 0;
  bool avisa = false;
  std::string exacto;
};

TEST_P(Guiones, SayWhatTheyAreToSay) {
  std::istringstream lineas(Guion("host/cli/guiones/" + GetParam() + ".txt"));
  int numero = 0;
  for (std::string linea; std::getline(lineas, linea);) {
    const testing::ScopedTrace traza("", ++numero, linea);
    linea = Sustituir(linea);
    if (linea.empty() || linea[0] == '#') continue;
    if (linea.starts_with("demo ")) {
      ASSERT_EQ(
          Ejecucion({"demo", "--carpeta", Demo().string(), "--facturas", linea.substr(5)}).codigo,
          0);
    } else if (linea[0] == '$') {
      Ordenar(linea);
    } else if (linea[0] == '@') {
      Preparar(linea.substr(2));
    } else {
      Mirar(linea[0], linea.substr(2));
    }
  }
  Acabar();
}

INSTANTIATE_TEST_SUITE_P(, Guiones,
                         testing::Values("anexos", "centros", "compras", "desadv", "facturas",
                                         "pedidos", "recibidas", "uso"),
                         [](const auto& caso) { return caso.param; });

TEST(Salida, OneThatFailsIsReported) {
  std::ostringstream out;
  std::ostringstream err;
  out.setstate(std::ios::badbit);
  EXPECT_EQ(RunCli({"--version"}, out, err), 3);
  EXPECT_NE(err.str().find("no se puede escribir la salida"), std::string::npos);
}

}  // namespace
}  // namespace kvraedi::cli
