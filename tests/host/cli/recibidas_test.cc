#include "tests/host/cli/con_demo.h"

namespace kvraedi::cli {
namespace {

class Recibidas : public ConDemo {
 protected:
  Ejecucion Recibida(const char* orden, Palabras args = {}) const {
    args.insert(args.begin(),
                {"recibidas", orden, "--desde", "01/01/2025", "--hasta", "31/12/2026"});
    return Ejecutar(args);
  }
  Ejecucion Una(const char* orden, const std::string& mensaje, Palabras args = {}) const {
    args.insert(args.begin(), {"--mensaje", mensaje});
    return Recibida(orden, args);
  }
  std::vector<Objeto> Lista(Palabras args = {}) const {
    args.emplace_back("--json");
    const Ejecucion lista = Recibida("listar", args);
    EXPECT_EQ(lista.codigo, 0) << lista.mensajes;
    return LeerJson(lista.resultado);
  }
  /// The row with that comment, or the first that is neither approved nor commented.
  Objeto Fila(const std::string& observaciones = {}) const {
    for (Objeto& fila : Lista()) {
      const bool libre = !observaciones.empty() || fila.at("usuario").empty();
      if (fila.at("observaciones") == observaciones && libre) return fila;
    }
    throw std::runtime_error("no row with the comment " + observaciones);
  }
};

TEST_F(Recibidas, AreListedApprovedAndCommented) {
  const std::size_t todas = Lista().size();
  EXPECT_GT(todas, 50U);
  const std::size_t deUno = Lista({"--proveedor", "3"}).size();
  EXPECT_TRUE(deUno > 0 && deUno < todas);

  const std::string mensaje = Fila().at("mensaje");
  const Ejecucion visar = Una("visar", mensaje);
  EXPECT_EQ(visar.codigo, 0) << visar.mensajes;
  EXPECT_NE(visar.resultado.find(", visada por Ana Quintana\n"), std::string::npos);
  EXPECT_NE(Una("visar", mensaje).resultado.find(", visada ya por "), std::string::npos);
  const Ejecucion comentar = Una("comentar", mensaje, {"--texto", "l'año"});
  EXPECT_EQ(comentar.codigo, 0) << comentar.mensajes;
  const Objeto fila = Fila("L´AÑO");
  EXPECT_EQ(fila.at("mensaje"), mensaje);
  EXPECT_EQ(fila.at("usuario_nombre"), "Ana Quintana");
  EXPECT_EQ(Una("visar", "NADA").codigo, 1);
  EXPECT_EQ(Recibida("visar").codigo, 2);
}

TEST_F(Recibidas, GoodOnesAreShownWholeAndSpoiltOnesSayWhy) {
  const Ejecucion buena = Una("ver", Lista().front().at("mensaje"));
  EXPECT_EQ(buena.codigo, 0) << buena.mensajes;
  for (const char* texto : {"Mensaje: FACTURA\n", "Tipo: COMERCIAL\n", "Descuentos generales\n",
                            "PRONTO PAGO", "Observaciones: Mercancía entregada según albarán."}) {
    EXPECT_NE(buena.resultado.find(texto), std::string::npos) << texto;
  }
  const struct {
    const char *observaciones, *aviso, *vista;
  } casos[] = {
      {"DEMO: EL FICHERO NO ESTÁ", "Error al visualizar la factura", ""},
      {"DEMO: EL FICHERO ESTÁ VACÍO", "no contiene ninguna factura", "Número: \n"},
      {"DEMO: EL FICHERO ESTÁ CORTADO", "está cortado", "Mensaje: FACTURA\n"},
      {"DEMO: UN IMPORTE NO ES UN NÚMERO", "el campo Unidades no es un número", "FACTURA\n"},
      {"DEMO: UN DESCUENTO ANTES DE TODA LÍNEA", "no hay ninguna línea", "FACTURA\n"},
      {"DEMO: EL FICHERO ESTÁ EN UTF-16", "no contiene ninguna factura", "Número: \n"},
      {"DEMO: EL NOMBRE LLEVA FUERA DE LA CARPETA", "Error al visualizar la factura", ""},
      {"DEMO: PLATAFORMA DESCONOCIDA", "un tipo de plataforma EDI conocida", ""},
      {"DEMO: TIPO DE MENSAJE DESCONOCIDO", "un tipo de mensaje EDI conocido", ""},
  };
  for (const auto& [observaciones, aviso, vista] : casos) {
    const Ejecucion ver = Una("ver", Fila(observaciones).at("mensaje"));
    EXPECT_EQ(ver.codigo, 1) << observaciones;
    EXPECT_TRUE(ver.Dice(aviso)) << ver.mensajes;
    EXPECT_NE(ver.resultado.find(vista), std::string::npos) << ver.resultado;
  }
  EXPECT_EQ(Una("ver", Fila("DEMO: FACTURAE, QUE EL VISOR NO LEE").at("mensaje")).codigo, 0);
}

TEST_F(Recibidas, AnyFileCanBeLookedInto) {
  std::filesystem::path fichero;
  for (const auto& entrada : std::filesystem::directory_iterator(Demo() / "Recepcion" / "2025")) {
    fichero = std::max(fichero, entrada.path());
  }
  const Ejecucion ver = Ejecutar({"ver", fichero.string()});
  EXPECT_EQ(ver.codigo, 0) << ver.mensajes;
  EXPECT_NE(ver.resultado.find("\n     1  RECTL  TipoMensaje       7-12      INVOIC\n"),
            std::string::npos)
      << ver.resultado.substr(0, 200);
  EXPECT_EQ(Ejecutar({"ver", (carpeta / "nada.txt").string()}).codigo, 3);
  EXPECT_EQ(Ejecutar({"ver"}).codigo, 2);
}

TEST_F(Recibidas, ARangeThatIsNoneIsRefused) {
  const struct {
    const char *desde, *hasta, *aviso;
  } casos[] = {{"abc", "31/12/2026", "fecha inicial válida"},
               {"01/01/2026", "31/02/2026", "no «31/02/2026»"},
               {"02/01/2026", "01/01/2026", "no puede ser mayor"}};
  for (const auto& [desde, hasta, aviso] : casos) {
    const Ejecucion lista = Ejecutar({"recibidas", "listar", "--desde", desde, "--hasta", hasta});
    EXPECT_EQ(lista.codigo, 1) << aviso;
    EXPECT_TRUE(lista.Dice(aviso)) << lista.mensajes;
    EXPECT_EQ(lista.resultado, "");
  }
}

TEST_F(Recibidas, PendingFilesAreListed) {
  const Ejecucion lista = Ejecutar({"pendientes", "listar", "--json"});
  ASSERT_EQ(lista.codigo, 0) << lista.mensajes;
  const auto filas = LeerJson(lista.resultado);
  EXPECT_EQ(filas.size(), 10U);
  EXPECT_EQ(filas.front().at("fecha_recepcion"), "20/11/2026 17:45:10");
  EXPECT_NE(Ejecutar({"pendientes", "listar"}).resultado.find("Viveros El Drago S.L."),
            std::string::npos);
}

}  // namespace
}  // namespace kvraedi::cli
