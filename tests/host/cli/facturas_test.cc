#include <algorithm>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>

#include "platform/sqlite/sqlite_connection.h"
#include "tests/host/cli/con_demo.h"

namespace kvraedi::cli {
namespace {

namespace fs = std::filesystem;

constexpr const char* kInvoic = "1";         // a customer served by INVOIC
constexpr const char* kFacturae = "30";      // one served by Facturae
constexpr const char* kSinCanal = "50";      // one without a channel
constexpr const char* kDesconocido = "987";  // no customer at all
constexpr const char* kGrande = "40123";     // INVOIC, but beyond 16 bits

std::vector<std::string> Sentencias(const std::string& registro) {
  std::vector<std::string> sentencias;
  std::size_t inicio = 0;
  for (std::size_t fin = registro.find('\0'); fin != std::string::npos;
       fin = registro.find('\0', inicio)) {
    sentencias.push_back(registro.substr(inicio, fin - inicio));
    inicio = fin + 1;
  }
  EXPECT_EQ(inicio, registro.size()) << "the last statement is not ended";
  return sentencias;
}

class Facturas : public ConDemo {
 protected:
  Facturas() : ConDemo(120) {}

  fs::path Envios() const { return Demo() / "Envios"; }

  Ejecucion Listar(const Palabras& mas = {}) const {
    return Ejecutar({"facturas", "listar", "--desde", "01/01/2000", "--hasta", "31/12/2099"}, mas);
  }
  std::vector<Objeto> Lista(Palabras mas = {}) const {
    mas.push_back("--json");
    const Ejecucion ejecucion = Listar(mas);
    EXPECT_EQ(ejecucion.codigo, 0) << ejecucion.mensajes;
    return LeerJson(ejecucion.resultado);
  }
  Ejecucion Enviar(const std::string& cliente, const Palabras& mas) const {
    return Ejecutar({"facturas", "enviar", "--cliente", cliente, "--desde", "01/01/2000", "--hasta",
                     "31/12/2099"},
                    mas);
  }
  /// Direct invoices of a customer that wait to be sent.
  std::vector<Objeto> Pendientes(const std::string& cliente) const {
    auto lista = Lista({"--cliente", cliente, "--estado", "pendientes", "--tipo", "directa"});
    std::erase_if(lista, [](const Objeto& fila) { return fila.at("no_enviar") == "1"; });
    return lista;
  }
  static std::string Clave(const Objeto& fila) {
    return fila.at("ejercicio") + "/" + fila.at("serie") + "/" + fila.at("factura") + "/" +
           fila.at("tipo_doc");
  }
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

TEST_F(Facturas, FiltersPartTheList) {
  for (const std::string& dicho : {Base().string(), std::string("INVOIC")}) {
    EXPECT_NE(creacion.resultado.find(dicho), std::string::npos) << creacion.resultado;
  }
  const auto todas = Lista();
  EXPECT_GT(todas.size(), 50U);
  std::set<std::string> tipos;
  for (const auto& fila : todas) {
    EXPECT_EQ(fila.size(), 20U);
    tipos.insert(fila.at("tipo"));
  }
  EXPECT_EQ(tipos, (std::set<std::string>{"FD", "FT"}));
  EXPECT_EQ(Lista({"--tipo", "directa"}).size() + Lista({"--tipo", "ticket"}).size(), todas.size());
  const auto delCliente = Lista({"--cliente", kInvoic});
  EXPECT_FALSE(delCliente.empty());
  for (const auto& fila : delCliente) EXPECT_EQ(fila.at("cliente"), kInvoic);
  for (const auto& fila : Lista({"--estado", "pendientes"})) EXPECT_EQ(fila.at("generada"), "");
  const auto cadena = Lista({"--cadena", "1"});
  EXPECT_LT(cadena.size(), todas.size());
  EXPECT_FALSE(cadena.empty());
  EXPECT_NE(Lista({"--empresa", "2"}).size(), todas.size());
}

TEST_F(Facturas, TheLogHoldsEveryStatementAndTheListIsLoadedOnce) {
  const std::string registro = (carpeta / "registro de año.sql").string();
  std::ofstream(registro) << "viejo";
  const Palabras filtros[] = {{}, {"--estado", "generadas"}, {"--tipo", "ticket"}};
  for (Palabras filtro : filtros) {
    filtro.insert(filtro.end(), {"--registro-sql", registro});
    EXPECT_EQ(Listar(filtro).codigo, 0);
    const auto sentencias = Sentencias(Contenido(registro));
    EXPECT_EQ(std::count_if(sentencias.begin(), sentencias.end(),
                            [](const std::string& sql) {
                              return sql.find("BETWEEN '01/01/2000' AND '31/12/2099'") !=
                                     std::string::npos;
                            }),
              1);
  }
}

TEST_F(Facturas, SendsEverythingThatWaits) {
  const auto pendientes = Pendientes(kInvoic);
  ASSERT_FALSE(pendientes.empty());
  const std::int64_t antes = Enviadas();
  const auto tickets = Lista({"--cliente", kInvoic, "--tipo", "ticket"}).size();
  const Ejecucion envio = Enviar(kInvoic, {"--todas"});
  EXPECT_TRUE(envio.Dice("[información] ¡ Atención !: El/los fichero/s INVOIC")) << envio.mensajes;
  EXPECT_EQ(envio.codigo, 0);
  EXPECT_NE(envio.resultado.find(Envios().string()), std::string::npos);
  for (const auto& fila : pendientes) {
    EXPECT_NE(envio.resultado.find("  " + Clave(fila) + "\n"), std::string::npos);
  }
  EXPECT_TRUE(FicherosEn(Envios() / "Temp").empty());
  EXPECT_GE(FicherosEn(Envios()).size(), pendientes.size());
  EXPECT_LE(FicherosEn(Envios()).size(), pendientes.size() + tickets);
  EXPECT_GE(Enviadas() - antes, static_cast<std::int64_t>(pendientes.size()));
  EXPECT_TRUE(Pendientes(kInvoic).empty());
}

TEST_F(Facturas, NothingIsSentWhenOneOfTheNamedIsMissingOrExcluded) {
  const std::string buena = Clave(Pendientes(kInvoic).front());
  const auto lista = Lista({"--tipo", "directa"});
  const auto excluida = std::find_if(
      lista.begin(), lista.end(), [](const Objeto& fila) { return fila.at("no_enviar") == "1"; });
  ASSERT_NE(excluida, lista.end());
  const std::int64_t antes = Enviadas();
  const Ejecucion falta = Enviar(kInvoic, {"--factura", buena, "1999/1/1"});
  EXPECT_EQ(falta.codigo, 1);
  EXPECT_TRUE(falta.Dice("1999/1/1 no está en la lista"));
  const Ejecucion fuera = Enviar(excluida->at("cliente"), {"--factura", Clave(*excluida)});
  EXPECT_EQ(fuera.codigo, 1);
  EXPECT_TRUE(fuera.Dice(Clave(*excluida) + " está excluida"));
  EXPECT_EQ(Enviadas(), antes);
  EXPECT_TRUE(FicherosEn(Envios()).empty());
}

TEST_F(Facturas, RefusalsOfTheComponentEndWithOne) {
  const auto fechas = [&](const char* desde, const char* hasta) {
    return Ejecutar({"facturas", "listar", "--desde", desde, "--hasta", hasta, "--estado",
                     "pendientes", "--tipo", "directa"});
  };
  const struct {
    Ejecucion ejecucion;
    const char* mensaje;
  } casos[] = {
      {Enviar(kDesconocido, {"--todas"}),
       "[información] ¡ Atención !: Se esperaba código de cliente."},
      {Enviar(kDesconocido, {"--factura", "2024/1/1"}), "Se esperaba código de cliente."},
      {Enviar(kSinCanal, {"--todas"}),
       "[exclamación] ¡ Atención !: Debe definir el tipo de envío para el cliente seleccionado"},
      {Enviar(kGrande, {"--todas"}), "Desbordamiento"},
      {Ejecutar({"facturas", "enviar", "--cliente", kInvoic, "--desde", "01/01/1990", "--hasta",
                 "02/01/1990", "--todas"}),
       "[exclamación] ¡ Atención !: Debe seleccionar al menos una factura"},
      {fechas("31/02/2024", "31/12/2024"), "¡Atención!: Debe indicar una Fecha Válida\n"},
      {fechas("", "31/12/2024"), "Debe indicar una Fecha Inicial Válida"},
      {fechas("01/02/2024", "01/01/2024"),
       "[información] ¡Atención!: La Fecha Inicial no puede ser mayor a la Fecha Final\n"},
  };
  for (const auto& caso : casos) {
    EXPECT_EQ(caso.ejecucion.codigo, 1) << caso.mensaje;
    EXPECT_TRUE(caso.ejecucion.Dice(caso.mensaje)) << caso.ejecucion.mensajes;
  }
  EXPECT_TRUE(FicherosEn(Envios()).empty());
}

TEST_F(Facturas, AFixedClockAndSeedMakeTheSameFile) {
  const fs::path copia = carpeta / "copia";
  fs::copy(Demo(), copia, fs::copy_options::recursive);
  const std::string clave = Clave(Pendientes(kInvoic).front());
  const Palabras fijos = {"--factura",    clave, "--ahora",    "2024-05-06T07:08:09",
                          "--semilla-id", "9",   "--terminal", "T1"};
  ASSERT_EQ(Enviar(kInvoic, fijos).codigo, 0);
  const auto ficheros = FicherosEn(Envios());
  ASSERT_EQ(ficheros.size(), 1U);
  EXPECT_EQ(ficheros[0].filename(), "INVOIC20240506070809.txt");
  const std::string primero = Contenido(Envios() / ficheros[0]);
  fs::remove_all(Demo());
  fs::rename(copia, Demo());
  ASSERT_EQ(Enviar(kInvoic, fijos).codigo, 0);
  ASSERT_EQ(FicherosEn(Envios()), ficheros);
  EXPECT_EQ(Contenido(Envios() / ficheros[0]), primero);
  EXPECT_NE(primero, "");
}

TEST_F(Facturas, WhatCannotBeOpenedEndsWithThree) {
  const std::string fichero = Base().string();
  const struct {
    Ejecucion ejecucion;
    const char* mensaje;
  } casos[] = {
      {Ejecucion({"facturas", "listar", "--desde", "1", "--hasta", "2", "--conexion",
                  "sqlite:" + (carpeta / "nada.db").string()}),
       "no existe la base de datos"},
      {Listar({"--empresa", "99"}), "No existe la empresa 99"},
      {Listar({"--registro-sql", (carpeta / "nada" / "r.sql").string()}), "r.sql»: no existe"},
      {Ejecucion({"demo", "--carpeta", (fs::path(fichero) / "dentro").string()}), "kvraedi.db"},
      {Ejecucion({"demo", "--carpeta", Demo().string()}), "kvraedi.db"},
  };
  for (const auto& caso : casos) {
    EXPECT_EQ(caso.ejecucion.codigo, 3) << caso.mensaje;
    EXPECT_TRUE(caso.ejecucion.Dice(caso.mensaje)) << caso.ejecucion.mensajes;
  }
  EXPECT_FALSE(fs::exists(carpeta / "nada.db"));
  std::ofstream(carpeta / "texto.db") << "esto no es una base de datos, sino un texto cualquiera";
  EXPECT_EQ(Ejecucion({"facturas", "listar", "--desde", "1", "--hasta", "2", "--conexion",
                       "sqlite:" + (carpeta / "texto.db").string()})
                .codigo,
            3);
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
  const auto exportar = [&](const std::string& cliente, const Palabras& mas) {
    return Ejecutar({"facturas", "exportar", "--cliente", cliente, "--desde", "01/01/2000",
                     "--hasta", "31/12/2099", "--perfil", carpeta.Ruta().string()},
                    mas);
  };
  const auto pendientes = Pendientes(kFacturae);
  ASSERT_GE(pendientes.size(), 2U);
  const std::string clave = Clave(pendientes[0]);
  const Palabras sitio = {"--carpeta", destino.string()};
  const auto con = [&](Palabras palabras) {
    palabras.insert(palabras.end(), sitio.begin(), sitio.end());
    return palabras;
  };
  EXPECT_TRUE(exportar(kFacturae, con({"--todas"})).Dice("No existe la ruta especificada"));
  fs::create_directory(destino);
  const struct {
    const char* cliente;
    Palabras mas;
    int codigo;
    const char* mensaje;
  } rechazos[] = {
      {kFacturae, {"--todas"}, 2, "falta la opción --carpeta"},
      {kFacturae, con({}), 2, "hay que dar --todas o --factura"},
      {kFacturae, con({"--todas", "--revision", "32768"}), 2, "--revision: se esperaba"},
      {kInvoic, con({"--todas"}), 1, "Debe definir el tipo de plataforma de envío"},
      {kFacturae, con({"--factura", "1999/1/1"}), 1, "1999/1/1 no está en la lista"},
  };
  for (const auto& rechazo : rechazos) {
    const Ejecucion ejecucion = exportar(rechazo.cliente, rechazo.mas);
    EXPECT_EQ(ejecucion.codigo, rechazo.codigo) << rechazo.mensaje;
    EXPECT_TRUE(ejecucion.Dice(rechazo.mensaje)) << ejecucion.mensajes;
  }
  EXPECT_TRUE(FicherosEn(destino).empty());

  const std::int64_t antes = Enviadas();
  for (const char* revision : {"0", "3"}) {  // the second export replaces the files of the first
    const Ejecucion hecho = exportar(kFacturae, con({"--factura", clave, "--revision", revision}));
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
