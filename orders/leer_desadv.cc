#include "orders/leer_desadv.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <string_view>

#include "frame/formato.h"
#include "frame/recortar.h"
#include "frame/sql.h"

namespace kvraedi::desadv {
namespace {

constexpr std::size_t kAnchoLote = 50;
constexpr std::size_t kCantidad = 2;  // the field of QTYLIN

bool SonCifras(std::string_view texto) {
  return std::all_of(texto.begin(), texto.end(), [](char c) { return c >= '0' && c <= '9'; });
}

bool CabeEn32Bits(std::string_view cifras) {
  std::int32_t valor = 0;
  return std::from_chars(cifras.data(), cifras.data() + cifras.size(), valor).ec == std::errc{};
}

std::string Caducidad(std::string_view texto) {
  constexpr std::size_t kLargo = 8;
  const auto fecha =
      texto.size() == kLargo && SonCifras(texto) ? DiaUsable(texto) : std::optional<FechaHora>();
  return fecha ? FormatearFecha(*fecha, "dd/mm/yyyy") : "01/01/1900";
}

/// What a quantity does to the units of its line.
enum class Efecto : std::uint8_t { kSumar, kRestarDoble, kBultos, kSumarPorBultos };

struct ReglaCantidad {
  std::string_view unidad;
  std::string_view calificador;
  Efecto efecto;
};

constexpr ReglaCantidad kReglas[] = {
    {"KGM", "12", Efecto::kSumar},       {"KGM", "61", Efecto::kRestarDoble},
    {"PCE", "12", Efecto::kBultos},      {"PCE", "59", Efecto::kSumarPorBultos},
    {"PCE", "61", Efecto::kRestarDoble},
};

class Lectura {
 public:
  Lectura(LectorBarras& lector, const std::string& fichero, const Tablas& tablas,
          Connection& conexion, Entorno& entorno)
      : lector_(lector),
        fichero_(fichero),
        tablas_(tablas),
        conexion_(conexion),
        entorno_(entorno) {}

  void Leer() {
    while (lector_.Siguiente()) {
      for (const auto& [etiqueta, tratar] : kRegistros) {
        if (lector_.Etiqueta() == etiqueta) (this->*tratar)();
      }
    }
  }

 private:
  struct Registro {
    std::string_view etiqueta;
    void (Lectura::*tratar)();
  };
  static const std::array<Registro, 6> kRegistros;

  void Bgm();
  void Rff();
  void NadDp();
  void Lin();
  void QtyLin();
  void PciLin();

  std::string Ahora() const { return FechaTexto(entorno_.Now()); }
  /// Runs a statement; what refuses it is told with the record's place.
  template <class... Piezas>
  std::int64_t Ejecutar(const Piezas&... piezas) {
    try {
      return conexion_.Execute(Sql(piezas...));
    } catch (const Error& error) {
      throw Error(error.Number(), error.Source(), lector_.Lugar() + ": " + error.Description());
    }
  }
  std::string Unidades(std::string_view cantidad) const;
  void PonerUnidades(std::string_view signo, std::string_view cantidad, std::string_view final);

  LectorBarras& lector_;
  const std::string& fichero_;
  const Tablas& tablas_;
  Connection& conexion_;
  Entorno& entorno_;

  std::string albaran_;  // the current ones, "" before the first
  std::string articulo_;
  Currency bultos_;
};

constexpr std::array<Lectura::Registro, 6> Lectura::kRegistros = {{{"BGM", &Lectura::Bgm},
                                                                   {"RFF", &Lectura::Rff},
                                                                   {"NADDP", &Lectura::NadDp},
                                                                   {"LIN", &Lectura::Lin},
                                                                   {"QTYLIN", &Lectura::QtyLin},
                                                                   {"PCILIN", &Lectura::PciLin}}};

void Lectura::Bgm() {
  albaran_ = lector_.TextoLimpio(1);
  if (Recortar(albaran_).empty()) lector_.Rechazar(1, "se esperaba un número de albarán");
  // The database alone knows which numbers it takes for equal.
  const auto iguales =
      Ejecutar("UPDATE ", tablas_.cabecera, " SET Hora = Hora WHERE Doc_Num =", SqlTexto{albaran_});
  if (iguales > 0) lector_.Rechazar(1, "se esperaba un albarán que no esté ya en el fichero");
  Ejecutar("INSERT INTO ", tablas_.cabecera, " (Fichero, Doc_Num, Hora) VALUES (",
           SqlTexto{fichero_}, ", ", SqlTexto{albaran_}, ", ", SqlTexto{Ahora()}, ")");
}

void Lectura::Rff() {
  constexpr std::size_t kFecha = 3;
  if (!lector_.Tiene(kFecha)) return;
  const auto dia = DiaUsable(lector_.Texto(kFecha));
  if (!dia) lector_.Rechazar(kFecha, std::string("se esperaba una fecha").append(kDiaUsable));
  const std::string fecha = FormatearFecha(*dia, "yyyymmdd");
  Ejecutar("UPDATE ", tablas_.cabecera, " SET Fecha =", SqlTexto{fecha},
           " WHERE Doc_Num =", SqlTexto{albaran_});
}

void Lectura::NadDp() {
  Ejecutar("UPDATE ", tablas_.cabecera, " SET GLN_Almacen = ", SqlTexto{lector_.Gln(1)},
           " WHERE Doc_Num =", SqlTexto{albaran_});
}

void Lectura::Lin() {
  const std::string_view articulo = lector_.TextoLimpio(1);
  const std::string_view cifras = Recortar(articulo);
  if (!SonCifras(cifras) || (!cifras.empty() && !CabeEn32Bits(cifras))) {
    lector_.Rechazar(1, "se esperaba un código de artículo");
  }
  articulo_ = articulo;
  const auto filas = Ejecutar(
      "UPDATE ", tablas_.lineas, " SET Hora = Hora", " WHERE Fichero = ", SqlTexto{fichero_},
      " AND Doc_Num = ", SqlTexto{albaran_}, " AND Cod_Articulo = ", SqlTexto{articulo_});
  if (filas > 0) return;
  Ejecutar("INSERT INTO ", tablas_.lineas, "(Fichero, Doc_Num, Cod_Articulo, Hora) VALUES (",
           SqlTexto{fichero_}, ", ", SqlTexto{albaran_}, ", ", SqlTexto{articulo_}, ", ",
           SqlTexto{Ahora()}, ")");
}

/// The pending packages by the quantity of each.
std::string Lectura::Unidades(std::string_view cantidad) const {
  constexpr double kMasUnidades = 9e14;
  if (cantidad.front() == '+') cantidad.remove_prefix(1);  // from_chars takes no such sign
  double porBulto = 0;
  std::from_chars(cantidad.data(), cantidad.data() + cantidad.size(), porBulto);
  const double unidades = bultos_.ToDouble() * porBulto;
  if (std::fabs(unidades) > kMasUnidades) {
    lector_.Rechazar(kCantidad, "se esperaba una cantidad menor");
  }
  return kvraedi::TextoDe(unidades);
}

void Lectura::QtyLin() {
  if (articulo_.empty()) return;
  const auto* const regla =
      std::find_if(std::begin(kReglas), std::end(kReglas), [this](const ReglaCantidad& candidata) {
        return lector_.Texto(3) == candidata.unidad && lector_.Texto(1) == candidata.calificador;
      });
  if (regla == std::end(kReglas)) return;
  const std::string cantidad = lector_.Cifras(kCantidad);
  switch (regla->efecto) {
    case Efecto::kSumar:
      return PonerUnidades("+ ", cantidad, "");
    case Efecto::kRestarDoble:
      return PonerUnidades("- (", cantidad, " * 2)");
    case Efecto::kBultos:
      bultos_ = lector_.Numero(kCantidad);
      return;
    case Efecto::kSumarPorBultos:
      return PonerUnidades("+ ", Unidades(cantidad), "");
  }
}

void Lectura::PonerUnidades(std::string_view signo, std::string_view cantidad,
                            std::string_view final) {
  Ejecutar("UPDATE ", tablas_.lineas, " SET Unidades = Unidades ", signo, cantidad, final,
           " WHERE Doc_Num =", SqlTexto{albaran_}, "   AND Cod_Articulo =", SqlTexto{articulo_});
}

void Lectura::PciLin() {
  if (articulo_.empty()) return;
  const std::string_view lote = PrimerosCaracteres(lector_.Texto(8), kAnchoLote);
  const std::string caducidad = Caducidad(lector_.Texto(2));
  Ejecutar("UPDATE ", tablas_.lineas, " SET LoteNro =", SqlTexto{lote},
           " ,LoteCaducidad =", SqlTexto{caducidad}, " WHERE Doc_Num =", SqlTexto{albaran_},
           "   AND Cod_Articulo =", SqlTexto{articulo_});
}

}  // namespace

bool EsInicio(std::string_view linea) {
  const std::string_view inicio = Recortar(linea);
  return inicio == "DESADV_D_93A_UN_EAN004" || inicio == "DESADV_D_96A_UN_EAN005";
}

void Leer(LectorBarras& lector, const std::string& fichero, const Tablas& tablas,
          Connection& conexion, Entorno& entorno) {
  Lectura(lector, fichero, tablas, conexion, entorno).Leer();
}

}  // namespace kvraedi::desadv
