#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <iterator>
#include <limits>

#include "kvraedi/clsDesadv.h"
#include "orders/tablas_desadv.h"
#include "tests/apoyo/escenario.h"

namespace kvraedi {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kInicio = "DESADV_D_96A_UN_EAN005\r\n";
constexpr std::string_view kCabecera =
    "BGM|4711|351|9\r\nRFF|ON|88|20260510\r\nNADDP|8430000000055\r\n";

constexpr std::string_view kTemporales =
    "SELECT COUNT(*) FROM sqlite_temp_master WHERE name LIKE '%Albaran%'";

class Desadv : public Escenario {
 protected:
  void SetUp() override {
    Escenario::SetUp();
    base->Run(Guion("orders/almacenes_desadv.sql"));
    for (const char* nombre : {"", "Rx", "OK", "Error"}) fs::create_directory(raiz / nombre);
    Escribir("OrmoPCCom.ini", "[OrmoPCCom]\r\nProveedorCentralizado=12\r\n");
  }

  void Escribir(const fs::path& fichero, std::string_view bytes) const {
    std::ofstream(raiz / fichero, std::ios::binary) << bytes;
  }
  std::string Leer(const fs::path& fichero) const {
    std::ifstream entrada(raiz / fichero, std::ios::binary);
    return {std::istreambuf_iterator<char>(entrada), {}};
  }
  /// The folders in which the file is, "Rx OK Error" at most.
  std::string Donde(const fs::path& nombre) const {
    std::string donde;
    for (const char* en : {"Rx", "OK", "Error"}) {
      if (fs::is_regular_file(raiz / en / nombre))
        donde += donde.empty() ? en : " " + std::string(en);
    }
    return donde;
  }
  /// Puts a file of these bytes into Rx, takes it in and tells where it is.
  std::string Insertar(std::string_view bytes) {
    Escribir("Rx/a.dat", bytes);
    clsDesadv().Insertar("a.dat");
    EXPECT_TRUE(toolkit.Messages().empty());
    EXPECT_EQ(Contar("SELECT COUNT(*) FROM Compras_Mini") > 0, Donde("a.dat") == "OK");
    return Donde("a.dat");
  }
  std::string InsertarRegistros(std::string_view registros) {
    return Insertar(std::string(kInicio) + std::string(registros));
  }
  /// Forgets earlier runs.
  void Limpiar() const {
    base->Execute("DELETE FROM Compras_Mini");
    base->Execute("DELETE FROM Compras_Mini_Lineas");
    for (const char* fichero : {"OrmoPCCOM.log", "Rx/a.dat", "OK/a.dat", "Error/a.dat"}) {
      fs::remove(raiz / fichero);
    }
  }
  std::string Log() const { return Leer("OrmoPCCOM.log"); }
  bool LogDice(std::string_view texto) const { return Log().find(texto) != std::string::npos; }

  /// The rows of a query, fields joined by "|", rows by blanks.
  std::string Filas(std::string_view sql, int campos) const {
    std::string filas;
    for (const auto rs = base->Open(sql); !rs->Eof(); rs->MoveNext()) {
      if (!filas.empty()) filas += ' ';
      for (int i = 0; i < campos; ++i) {
        if (i > 0) filas += '|';
        filas += rs->GetOrEmpty<std::string>(i);
      }
    }
    return filas;
  }
  std::string Lineas() const {
    return Filas(
        "SELECT Codigo, Num_Linea, Cod_Articulo, Unidades, Lote_Caducidad, Lote_Numero"
        " FROM Compras_Mini_Lineas ORDER BY Codigo, Num_Linea",
        6);
  }

  fs::path raiz = carpeta / "Recepción";
};

TEST_F(Desadv, EachDeliveryNoteBecomesAPurchase) {
  EXPECT_EQ(InsertarRegistros("BGM|A'1|351|9\r\n"
                              "RFF|ON|88|20260510\r\n"
                              "NADDP|8430000000055\r\n"
                              "XYZ|lo que sea\r\n"
                              "LIN|101\r\n"
                              "QTYLIN|12|2.5|KGM\r\n"
                              "PCILIN|36E|20261231||||||Lote 'Ñ'\r\n"
                              "LIN|102\r\n"
                              "QTYLIN|12|3|PCE\r\n"
                              "QTYLIN|59|24|PCE\r\n"
                              "PCILIN|36E|20261301||||||L2\r\n"
                              "LIN|101\r\n"
                              "QTYLIN|12|1,25|KGM\r\n"
                              "BGM|4712|351|9\r\n"
                              "RFF|ON|89|20250102\r\n"
                              "NADDP|8430000000055\r\n"
                              "LIN|0103\r\n"
                              "QTYLIN|61|4|PCE"),
            "OK");
  EXPECT_EQ(Filas("SELECT Cod_Ejercicio, Codigo, Cod_Proveedor, Cod_Almacen, Fecha, Documento,"
                  " Cod_Usuario FROM Compras_Mini ORDER BY ID",
                  7),
            "2026|1|12|5|2024-03-01|A'1|7 2025|1|12|5|2024-03-01|4712|7");
  EXPECT_EQ(Filas("SELECT Cod_Ejercicio, Num_Linea, Cod_Articulo, Unidades, Lote_Caducidad,"
                  " Lote_Numero FROM Compras_Mini_Lineas ORDER BY Cod_Ejercicio DESC, Num_Linea",
                  6),
            "2026|1|102|72|1900-01-01|L2 2026|2|101|3.75|2026-12-31|Lote '\u00c3\u2018' "
            "2025|1|103|-8|1900-01-01|");
}

TEST_F(Desadv, QuantityRules) {
  const struct {
    const char* registros;
    const char* unidades;
  } casos[] = {
      {"QTYLIN|12|2.5|KGM", "2.5"},
      {"QTYLIN|61|3|KGM", "-6"},
      {"QTYLIN|61|-3|KGM", "6"},
      {"QTYLIN|59|3|KGM", "0"},
      {"QTYLIN|12|3|PCE", "0"},
      {"QTYLIN|59|24|PCE", "0"},
      {"QTYLIN|12|3|PCE\nQTYLIN|59|24|PCE", "72"},
      {"QTYLIN|12|1,5|PCE\nQTYLIN|59|2.25|PCE", "3.375"},
      {"QTYLIN|12|2|PCE\nQTYLIN|12|5|PCE\nQTYLIN|59|10|PCE\nQTYLIN|59|1|PCE", "55"},
      {"QTYLIN|12|-1|PCE\nQTYLIN|59|0|PCE", "0"},
      {"QTYLIN|12|0.0001|PCE\nQTYLIN|59|0.0001|PCE", "0"},
      {"QTYLIN|12|1000|PCE\nQTYLIN|59|+0.00125|PCE", "1.25"},
      {"QTYLIN|61|2|PCE", "-4"},
      {"QTYLIN|61|0,33335|KGM", "-0.6667"},
      {"QTYLIN|12|7.|KGM\nQTYLIN|61|-.5|KGM\nQTYLIN|61|+003|KGM\nQTYLIN|61| |KGM", "2"},
      {"QTYLIN|12|7|LTR\nQTYLIN|99|siete|KGM\nQTYLIN|12|7|kgm\nQTYLIN|12|7", "0"},
      {"QTYLIN|12| +2,25 |KGM\nQTYLIN|12||KGM\nQTYLIN|12|.5|KGM", "2.75"},
      {"QTYLIN|12|99999999999.9999|KGM\nQTYLIN|61|1|KGM", "99999999997.9999"},
      {"QTYLIN|12|10|KGM\nLIN|102\nQTYLIN|12|5|KGM\nLIN|101\nQTYLIN|61|1|KGM", "8"},
  };
  for (const auto& caso : casos) {
    Limpiar();
    // What comes before the first article is ignored.
    const std::string registros = "QTYLIN|12|1000|KGM\n" + std::string(kCabecera) +
                                  "QTYLIN|12|1000|KGM\nPCILIN||20261231\nLIN|101\n" +
                                  caso.registros;
    EXPECT_EQ(InsertarRegistros(registros), "OK") << caso.registros << "\n" << Log();
    EXPECT_EQ(Filas("SELECT Unidades FROM Compras_Mini_Lineas WHERE Cod_Articulo = 101", 1),
              caso.unidades)
        << caso.registros;
  }
}

TEST_F(Desadv, RefusedFilesSayWhyAndLeaveNothing) {
  const std::string nota(kCabecera);
  const std::string linea = nota + "LIN|101\r\n";
  const struct {
    std::string registros;
    const char* motivo;
  } casos[] = {
      {"LIN|101\n" + linea, "Tablas de Pedidos Incongruentes"},
      {linea + "BGM|4711", "línea 6, registro BGM, campo 1: se esperaba un albarán que no esté ya"},
      {"BGM|a\xF1\nBGM|A\xD1 ", "a.dat, línea 3, registro BGM, campo 1"},
      {"BGM| |351", "se esperaba un número de albarán"},
      {"BGM|123456789012345678", "línea 2, registro BGM: Los datos de cadena"},
      {"BGM|1\nNADDP|" + std::string(36, '8'), "registro NADDP: Los datos de cadena"},
      {"BGM|1\nRFF|ON|1|20261301", "línea 3, registro RFF, campo 3: se esperaba una fecha"},
      {nota + "LIN|A1", "registro LIN, campo 1: se esperaba un código de artículo"},
      {nota + "LIN|8412345678901", "se esperaba un código de artículo"},
      {linea + "QTYLIN|12|1); DROP TABLE Articulos --|KGM",
       "a.dat, línea 6, registro QTYLIN, campo 2: se esperaba un número"},
      {linea + "QTYLIN|12|1e400|KGM", "campo 2: se esperaba un número"},
      {linea + "QTYLIN|61|" + std::string(39, '9') + "|PCE", "campo 2: se esperaba un número"},
      {linea + "QTYLIN|61|99999999999999999999|PCE", "línea 6, registro QTYLIN: "},
      {linea + "QTYLIN|12|99999999999|PCE\nQTYLIN|59|99999999|PCE", "línea 7"},
      {linea + "QTYLIN|61|900000000000000|KGM", "esbordamiento"},
      {nota, "Tablas de Pedidos Incongruentes"},
      {"BGM|1\nNADDP|8430000000055\nLIN|101", "El albarán 1 no tiene fecha."},
      {"BGM|1\nRFF|||", "línea 3, registro RFF, campo 3: se esperaba una fecha"},
      {"BGM|1\nRFF|||20790607", "del 01/01/1900 al 06/06/2079"},
      {"BGM|1\nNADDP| |", "línea 3, registro NADDP, campo 1: se esperaba un GLN"},
      {"BGM|1\nRFF|ON|1|20260510\nNADDP|999\nLIN|101",
       "El GLN de Almacén no se encuentran en el sistema."},
      {"BGM|1\nRFF|ON|1|20260510\nLIN|101", "GLN de almacén desconocido: "},
      {"BGM|1\nRFF|ON|1|20260510\nNADDP|8430000000066\nLIN|101", "más de un almacén"},
      // The first note is good: it goes with the second.
      {linea + "BGM|2\nRFF|ON|1|20260510\nNADDP|999\nLIN|101", "GLN de almacén desconocido: 999"},
  };
  for (const auto& caso : casos) {
    Limpiar();
    EXPECT_EQ(InsertarRegistros(caso.registros), "Error") << caso.registros;
    EXPECT_TRUE(LogDice(caso.motivo)) << caso.motivo << "\n" << Log();
    EXPECT_TRUE(LogDice("\tInsertar\tError: "));
    EXPECT_EQ(Contar(kTemporales), 0);
  }
  EXPECT_EQ(Contar("SELECT COUNT(*) FROM Articulos"), 4);
}

TEST_F(Desadv, TheFirstLineDecides) {
  const std::string binario("\0\x01\xff\r\n|\0|", 8);
  const std::string resto = std::string(kCabecera) + "LIN|101";
  for (const std::string& bytes :
       {std::string(), binario, "\r\n" + std::string(kInicio) + resto, std::string(20 << 20, 'x'),
        std::string("ORDERS_D_96A_UN_EAN008\r\n"), "DESADV_D_96A_UN_EAN005|\r\n" + resto}) {
    Limpiar();
    EXPECT_EQ(Insertar(bytes), "Error") << bytes.substr(0, 40);
    EXPECT_EQ(Leer("Error/a.dat"), bytes);
    EXPECT_TRUE(
        LogDice("No coincide la línea inicio de fichero con el tipo predefinido, se mueve a "
                "la carpeta Error: a.dat"));
    EXPECT_TRUE(LogDice("Error: Error de inicio de fichero"));
  }
  for (const char* inicio : {"  DESADV_D_93A_UN_EAN004  \r\n", "DESADV_D_96A_UN_EAN005\n"}) {
    Limpiar();
    EXPECT_EQ(Insertar(inicio + resto), "OK") << inicio;
  }
}

TEST_F(Desadv, StrangeFilesAreTaken) {
  const std::string cola = std::string(kCabecera) + "LIN|101\nQTYLIN|12|1|KGM\n";
  std::string campos = "PCILIN|36E|20261231||||||" + std::string(60, 'L');
  for (int i = 0; i < 1'000'000; ++i) campos += "|x";
  for (const std::string& registros :
       {std::string(10 << 20, 'x') + "\n" + cola, "RFF|ON|1|20250101\nNADDP|7\n" + cola,
        "XXX|" + std::string(10 << 20, '\'') + "\n" + cola, cola + campos,
        cola + "||||\n|\n\n\r\nLINX|7\nlin|7\n" + std::string("LI\0N|7", 6)}) {
    Limpiar();
    EXPECT_EQ(InsertarRegistros(registros), "OK") << Log();
    EXPECT_EQ(Filas("SELECT Cod_Articulo, Unidades FROM Compras_Mini_Lineas", 2), "101|1");
  }
  EXPECT_EQ(Filas("SELECT Documento FROM Compras_Mini", 1), "4711");
}

TEST_F(Desadv, LinesOfUnknownArticlesAreLogged) {
  EXPECT_EQ(InsertarRegistros(std::string(kCabecera) +
                              "LIN|999\nQTYLIN|12|1|KGM\nLIN|\nQTYLIN|12|2|KGM\nLIN|103\n"),
            "OK");
  EXPECT_EQ(Lineas(), "1|1|103|0|1900-01-01|");
  EXPECT_TRUE(LogDice(
      "CrearComprasMini\tLínea omitida, el artículo no existe. Albarán: 4711, artículo: 999"));
  EXPECT_TRUE(LogDice("artículo: \r\n"));
}

TEST_F(Desadv, OnlyNamesOfFilesInRxAreTaken) {
  const std::string bueno = std::string(kInicio) + std::string(kCabecera) + "LIN|101";
  Escribir("fuera.dat", bueno);
  Escribir("Rx/a\\b.dat", bueno);
  for (const std::string& nombre :
       {std::string(), std::string("."), std::string(".."), std::string("../fuera.dat"),
        (raiz / "fuera.dat").string(), std::string("a\\b.dat"), std::string("a.dat\0", 6),
        std::string("no_esta.dat")}) {
    clsDesadv().Insertar(nombre);
  }
  EXPECT_EQ(Contar("SELECT COUNT(*) FROM Compras_Mini"), 0);
  EXPECT_EQ(Leer("fuera.dat"), bueno);
  EXPECT_EQ(Donde("a\\b.dat"), "Rx");
  EXPECT_TRUE(fs::is_empty(raiz / "OK") && fs::is_empty(raiz / "Error"));
  EXPECT_TRUE(LogDice("Error: El nombre de fichero \"../fuera.dat\" no es válido"));
  EXPECT_TRUE(LogDice("no_esta.dat"));

  const std::string largo(101, 'a');
  Escribir("Rx/" + largo, bueno);
  clsDesadv().Insertar(largo);
  EXPECT_EQ(Donde(largo), "Error");

  Escribir("Rx/a'b ñ.dat", bueno);
  clsDesadv().Insertar("a'b ñ.dat");
  EXPECT_EQ(Donde("a'b ñ.dat"), "OK");
}

TEST_F(Desadv, TheLogTellsTheRun) {
  Escribir("OrmoPCCOM.log", "2024-01-01 00:00:00\t0\tInsertar\tvieja\r\n");
  EXPECT_EQ(InsertarRegistros(std::string(kCabecera) + "LIN|101"), "OK");
  std::string esperado;
  for (const char* entrada : {"Insertar\tInicio de ejecución fichero: a.dat",
                              "ProcesarFicheros\tInicio de ejecución fichero: a.dat",
                              "ProcesarFicheros\tInicio Lectura Fichero: a.dat",
                              "CrearComprasMini\tInicio Creación CompraMini",
                              "Insertar\tMoviendo Fichero a carpeta OK: a.dat",
                              "Insertar\tEliminando Fichero de la carpeta Rx: a.dat"}) {
    esperado += "2024-03-01 09:08:07\t0\t" + std::string(entrada) + "\r\n";
  }
  EXPECT_EQ(Log(), esperado);
}

TEST_F(Desadv, TheSupplierComesFromTheSettings) {
  for (const char* ajustes :
       {"", "[OrmoPCCom]\nProveedorCentralizado=0", "[Otra]\nProveedorCentralizado=3",
        "[OrmoPCCom]\nProveedorCentralizado=3 o 4"}) {
    Limpiar();
    Escribir("OrmoPCCom.ini", ajustes);
    EXPECT_EQ(InsertarRegistros(std::string(kCabecera) + "LIN|101"), "Error");
    EXPECT_TRUE(LogDice("Error: El Proveedor Centralizado no está configurado")) << Log();
  }
}

TEST_F(Desadv, NothingIsDoneWithoutWhatARunNeeds) {
  const std::string bueno = std::string(kInicio) + std::string(kCabecera) + "LIN|101";
  const std::function<void()> quitar[] = {
      [&] { PropiedadesSesion().ConexionKestrova(nullptr); },
      [&] { PropiedadesSesion().EmpresaKestrova(nullptr); },
      [&] {
        PropiedadesSesion().ConexionKestrova(conexion);
        base->Execute("DELETE FROM Empresas_Parametros WHERE Nombre = 'EDI_PathFichRecibir'");
        PropiedadesSesion().EmpresaKestrova(
            std::make_shared<EmpresaDePrueba>(*base, std::int16_t{1}, carpeta.Ruta()));
      },
      [&] {
        PropiedadesSesion().EmpresaKestrova(empresa);
        InstalarAdaptadores({.entorno = &entorno, .toolkit = &toolkit});
      },
      [&] { InstalarAdaptadores({}); },
  };
  for (const auto& sin : quitar) {
    sin();
    EXPECT_EQ(Insertar(bueno), "Rx");
  }
  EXPECT_EQ(Log(), "");
}

TEST(TablasDesadv, NamesOfEveryTickCount) {
  EXPECT_EQ(desadv::Tablas(815).lineas, "#EDI_Albaran_Lineas815");
  EXPECT_EQ(desadv::Tablas(-815).cabecera, "#EDI_Albaran815");
  EXPECT_EQ(desadv::Tablas(std::numeric_limits<std::int32_t>::min()).cabecera,
            "#EDI_Albaran2147483648");
}

/// A run of two notes that meets one fault; whatever it is, the file is in one place, purchases
/// exist exactly when that place is OK, and a second run without the fault ends well.
class DesadvConFallos : public Desadv {
 protected:
  void Probar(const std::string& fallo) {
    EXPECT_EQ(Contar(kTemporales), 0) << fallo;
    EXPECT_EQ(Donde("a.dat").find(' '), std::string::npos) << fallo << ": " << Donde("a.dat");
    ASSERT_NE(Donde("a.dat"), "") << fallo;
    EXPECT_EQ(Contar("SELECT COUNT(*) FROM Compras_Mini"), Donde("a.dat") == "OK" ? 2 : 0) << fallo;
    EXPECT_EQ(Leer(Donde("a.dat") + "/a.dat"), kBytes) << fallo;
    Limpiar();
    Escribir("Rx/a.dat", kBytes);
    clsDesadv().Insertar("a.dat");
    EXPECT_EQ(Donde("a.dat"), "OK") << fallo;
    EXPECT_EQ(Contar("SELECT COUNT(*) FROM Compras_Mini"), 2) << fallo;
  }

  const std::string kBytes = std::string(kInicio) + std::string(kCabecera) +
                             "LIN|101\nQTYLIN|12|2|KGM\nPCILIN||20261231||||||L\nLIN|999\n"
                             "BGM|2\nRFF|ON|1|20260510\nNADDP|8430000000055\nLIN|102\n";
};

TEST_F(DesadvConFallos, TheKthOperation) {
  for (Fallo* fallo : {&conexion->fallo, &entorno.fallo}) {
    int k = 1;
    for (bool disparado = true; disparado; ++k) {
      Limpiar();
      Escribir("OrmoPCCOM.log", "2024-01-01 00:00:00\t0\tInsertar\tvieja\r\n");
      Escribir("Rx/a.dat", kBytes);
      fallo->FallarEn(k);
      clsDesadv().Insertar("a.dat");
      disparado = fallo->Disparado();
      fallo->FallarEn(0);
      Probar((fallo == &entorno.fallo ? "file operation " : "statement ") + std::to_string(k));
    }
    EXPECT_GT(k, 20);
  }
}

/// A database that refuses to begin or to commit.
class ConexionSinTransaccion : public ConnectionWrapper {
 public:
  ConexionSinTransaccion(std::shared_ptr<Connection> destino, bool empieza)
      : ConnectionWrapper(std::move(destino)), empieza_(empieza) {}
  void BeginTrans() override {
    if (!empieza_) throw Error(kErrorDatabase, "prueba", "Base de datos ocupada");
    ConnectionWrapper::BeginTrans();
  }
  void CommitTrans() override { throw Error(kErrorDatabase, "prueba", "Disco lleno"); }

 private:
  bool empieza_;
};

TEST_F(DesadvConFallos, TheTransaction) {
  for (const bool empieza : {false, true}) {
    Limpiar();
    Escribir("Rx/a.dat", kBytes);
    PropiedadesSesion().ConexionKestrova(std::make_shared<ConexionSinTransaccion>(base, empieza));
    clsDesadv().Insertar("a.dat");
    PropiedadesSesion().ConexionKestrova(conexion);
    EXPECT_EQ(Donde("a.dat"), "Error");
    EXPECT_TRUE(LogDice(empieza ? "Error: Disco lleno" : "Error: Base de datos ocupada")) << Log();
    Probar(empieza ? "commit" : "begin");
  }
}

}  // namespace
}  // namespace kvraedi
