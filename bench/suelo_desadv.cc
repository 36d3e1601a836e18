#include "bench/suelo_desadv.h"

#include <fcntl.h>
#include <unistd.h>

#include <charconv>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace kvraedi::bench {
namespace {

constexpr const char* kTablas = R"(
CREATE TEMP TABLE Cab (Fichero varchar(100) COLLATE KVR_TEXTO, Doc_Num varchar(17) COLLATE KVR_TEXTO,
  Fecha text_smalldatetime COLLATE KVR_FECHA, GLN_Almacen varchar(35) COLLATE KVR_TEXTO,
  Hora text_smalldatetime COLLATE KVR_FECHA, ID INTEGER PRIMARY KEY AUTOINCREMENT);
CREATE TEMP TABLE Lin (Fichero varchar(100) COLLATE KVR_TEXTO, Doc_Num varchar(17) COLLATE KVR_TEXTO,
  Cod_Articulo varchar(17) COLLATE KVR_TEXTO, Unidades real_money NOT NULL DEFAULT 0,
  Hora text_smalldatetime COLLATE KVR_FECHA, LoteNro varchar(50) COLLATE KVR_TEXTO NOT NULL DEFAULT '',
  LoteCaducidad text_smalldatetime COLLATE KVR_FECHA NOT NULL DEFAULT '1900-01-01',
  ID INTEGER PRIMARY KEY AUTOINCREMENT);
CREATE INDEX temp.CabClave ON Cab (Doc_Num);
CREATE INDEX temp.LinClave ON Lin (Doc_Num, Cod_Articulo);
)";

/// Runs a statement with these texts; gives back the rows matched.
int Cambiar(const BaseSuelo& base, SentenciaSuelo& sentencia,
            std::initializer_list<std::string_view> textos) {
  int sitio = 0;
  for (const auto texto : textos) sentencia.PonerTexto(++sitio, texto);
  sentencia.Paso();
  return sqlite3_changes(base.Handle());
}

std::vector<std::string_view> Partir(std::string_view linea) {
  std::vector<std::string_view> campos;
  for (;;) {
    const auto barra = linea.find('|');
    campos.push_back(linea.substr(0, barra));
    if (barra == std::string_view::npos) return campos;
    linea.remove_prefix(barra + 1);
  }
}

void Leer(const BaseSuelo& base, const std::filesystem::path& fichero) {
  const std::string nombre = fichero.filename().string();
  const std::string ahora = "2026-05-15 10:45:30";
  SentenciaSuelo bgm(base, "INSERT INTO Cab (Fichero, Doc_Num, Hora) VALUES (?, ?, ?)");
  SentenciaSuelo rff(base, "UPDATE Cab SET Fecha = ? WHERE Doc_Num = ?");
  SentenciaSuelo nad(base, "UPDATE Cab SET GLN_Almacen = ? WHERE Doc_Num = ?");
  SentenciaSuelo tocar(base,
                       "UPDATE Lin SET Hora = Hora WHERE Fichero = ? AND Doc_Num = ?"
                       " AND Cod_Articulo = ?");
  SentenciaSuelo lin(base,
                     "INSERT INTO Lin (Fichero, Doc_Num, Cod_Articulo, Hora) VALUES (?, ?, ?, ?)");
  SentenciaSuelo qty(base,
                     "UPDATE Lin SET Unidades = Unidades + ?3 WHERE Doc_Num = ?1"
                     " AND Cod_Articulo = ?2");
  SentenciaSuelo pci(base,
                     "UPDATE Lin SET LoteNro = ?, LoteCaducidad = ? WHERE Doc_Num = ?"
                     " AND Cod_Articulo = ?");
  std::string albaran;
  std::string articulo;
  std::ifstream entrada(fichero, std::ios::binary);
  for (std::string linea; std::getline(entrada, linea);) {
    linea.pop_back();
    const auto campos = Partir(linea);
    if (campos[0] == "LIN") {
      articulo = campos[1];
      if (Cambiar(base, tocar, {nombre, albaran, articulo}) == 0) {
        Cambiar(base, lin, {nombre, albaran, articulo, ahora});
      }
    } else if (campos[0] == "QTYLIN") {
      double cantidad = 0;
      std::from_chars(campos[2].data(), campos[2].data() + campos[2].size(), cantidad);
      qty.PonerReal(3, cantidad);
      Cambiar(base, qty, {albaran, articulo});
    } else if (campos[0] == "PCILIN") {
      Cambiar(base, pci, {campos[8], "2026-12-31", albaran, articulo});
    } else if (campos[0] == "BGM") {
      albaran = campos[1];
      Cambiar(base, bgm, {nombre, albaran, ahora});
    } else if (campos[0] == "RFF") {
      Cambiar(base, rff, {"2026-05-10", albaran});
    } else if (campos[0] == "NADDP") {
      Cambiar(base, nad, {campos[1], albaran});
    }
  }
}

void CrearCompras(const BaseSuelo& base) {
  SentenciaSuelo incongruentes(base,
                               "SELECT COUNT(*) FROM Cab alb FULL OUTER JOIN Lin lin"
                               " ON lin.Doc_Num = alb.Doc_Num"
                               " WHERE alb.Doc_Num IS NULL OR lin.Doc_Num IS NULL");
  if (!incongruentes.Paso() || incongruentes.Real(0) != 0) throw std::runtime_error("staging");
  incongruentes.Reiniciar();
  SentenciaSuelo desconocidos(base,
                              "SELECT lin.Doc_Num, lin.Cod_Articulo FROM Lin lin LEFT JOIN"
                              " Articulos a ON a.Cod_Empresa = 1 AND a.Codigo = lin.Cod_Articulo"
                              " WHERE a.Codigo IS NULL");
  if (desconocidos.Paso()) throw std::runtime_error("articles");
  SentenciaSuelo albaranes(base,
                           "SELECT alb.Doc_Num, alb.Fecha, ifnull(alm.Codigo, 0) FROM Cab alb"
                           " LEFT JOIN Almacenes alm ON alm.Cod_Empresa = 1"
                           " AND alm.EDI_GLN = alb.GLN_Almacen");
  SentenciaSuelo codigo(base,
                        "SELECT ifnull(MAX(Codigo), 0) + 1 FROM Compras_Mini"
                        " WHERE Cod_Empresa = 1 AND Cod_Ejercicio = 2026");
  SentenciaSuelo compra(base,
                        "INSERT INTO Compras_Mini (Cod_Empresa, Cod_Ejercicio, Codigo,"
                        " Cod_Proveedor, Cod_Almacen, Fecha, Documento, Cod_Usuario)"
                        " VALUES (1, 2026, ?, 12, 1, '2026-05-15', ?, 1)");
  SentenciaSuelo lineas(base,
                        "SELECT lin.* FROM Lin lin INNER JOIN Articulos a ON a.Cod_Empresa = 1"
                        " AND a.Codigo = lin.Cod_Articulo WHERE lin.Doc_Num = ?"
                        " ORDER BY a.Descripcion");
  SentenciaSuelo linea(base,
                       "INSERT INTO Compras_Mini_Lineas (Cod_Empresa, Cod_Ejercicio, Codigo,"
                       " Num_Linea, Cod_Articulo, Unidades, Lote_Caducidad, Lote_Numero)"
                       " VALUES (1, 2026, ?, ?, ?, ?, ?, ?)");
  while (albaranes.Paso()) {
    codigo.Paso();
    const int numero = static_cast<int>(codigo.Real(0));
    codigo.Reiniciar();
    compra.Poner({numero});
    compra.PonerTexto(2, albaranes.Texto(0));
    compra.Paso();
    lineas.PonerTexto(1, albaranes.Texto(0));
    for (int i = 1; lineas.Paso(); ++i) {
      linea.Poner({numero, i, static_cast<int>(lineas.Real(2))});
      linea.PonerReal(4, lineas.Real(3));
      linea.PonerTexto(5, lineas.Texto(6));
      linea.PonerTexto(6, lineas.Texto(5));
      linea.Paso();
    }
  }
}

void Mover(const std::filesystem::path& fichero, const std::filesystem::path& destino) {
  std::filesystem::copy_file(fichero, destino, std::filesystem::copy_options::overwrite_existing);
  const int fd = ::open(destino.c_str(), O_RDONLY);
  ::fsync(fd);
  ::close(fd);
  std::filesystem::remove(fichero);
}

}  // namespace

void InsertarDesadvSuelo(const BaseSuelo& base, const std::filesystem::path& fichero,
                         const std::filesystem::path& destino) {
  base.Ejecutar("BEGIN IMMEDIATE");
  base.Ejecutar(kTablas);
  Leer(base, fichero);
  CrearCompras(base);
  Mover(fichero, destino);
  base.Ejecutar("DROP TABLE Cab; DROP TABLE Lin; COMMIT");
}

}  // namespace kvraedi::bench
