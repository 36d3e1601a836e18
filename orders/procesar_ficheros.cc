#include "orders/procesar_ficheros.h"

#include <array>
#include <exception>
#include <string>
#include <string_view>

#include "frame/puertos.h"
#include "frame/ruta.h"
#include "frame/sesion.h"
#include "frame/transaccion.h"
#include "orders/bitacora.h"
#include "orders/interrumpidos.h"
#include "orders/leer_pedidos.h"
#include "orders/libro_recibidos.h"

namespace kvraedi {
namespace {

constexpr std::string_view kRutina = "ProcesarFicheros";

/// Reads no more than the beginning: what is no ORDERS message may be of any size and have no line
/// ends.
bool EsOrders(Entorno& entorno, const std::filesystem::path& fichero) {
  std::array<char, std::size_t{4} * 1024> bloque{};
  const std::string_view leido(bloque.data(), entorno.OpenForReading(fichero)->Read(bloque));
  const auto fin = leido.find('\n');
  if (fin == std::string_view::npos && leido.size() == bloque.size()) return false;
  std::string_view linea = leido.substr(0, fin);
  if (linea.ends_with('\r')) linea.remove_suffix(1);
  return EsInicioOrders(linea);
}

/// A file that goes from Temp to OK: the copy comes before it is taken out. Until it is confirmed
/// it stays beside its place, and unless it is, it is brought back.
class Traslado {
 public:
  Traslado(Entorno& entorno, Bitacora& log, const std::filesystem::path& carpeta,
           const std::string& nombre)
      : entorno_(entorno),
        log_(log),
        nombre_(nombre),
        origen_(carpeta / "Temp" / RutaDe(nombre)),
        leido_(RutaLeido(origen_)),
        destino_(carpeta / "OK" / RutaDe(nombre)) {}
  ~Traslado() {
    if (copiado_) Deshacer();
  }
  Traslado(const Traslado&) = delete;
  Traslado& operator=(const Traslado&) = delete;

  void Copiar() {
    entorno_.Copy(origen_, destino_);
    copiado_ = true;
  }
  void Sacar() { entorno_.Rename(origen_, leido_); }
  void Confirmar() {
    copiado_ = false;
    entorno_.Delete(leido_);
  }

 private:
  void Deshacer() noexcept {
    try {
      if (!entorno_.FileExists(origen_)) entorno_.Rename(leido_, origen_);
      entorno_.Delete(destino_);
    } catch (const std::exception& error) {
      log_.AnotarFallo("El fichero no se ha leído y hay una copia en la carpeta OK: " + nombre_ +
                       ": " + error.what());
    }
  }

  Entorno& entorno_;
  Bitacora& log_;
  const std::string& nombre_;
  std::filesystem::path origen_;
  std::filesystem::path leido_;
  std::filesystem::path destino_;
  bool copiado_ = false;
};

class Proceso {
 public:
  explicit Proceso(const std::filesystem::path& carpeta)
      : carpeta_(carpeta),
        entorno_(EntornoActual()),
        conexion_(ConexionActual()),
        libro_(conexion_, entorno_, TipoRecibido::kOrders),
        log_(entorno_, carpeta / "Log" / "ProcesarFicheros.log", kRutina) {}

  void Ejecutar() {
    try {
      Procesar();
    } catch (const std::exception& error) {
      log_.AnotarFallo(std::string("Error: ") + error.what());
      throw;
    }
  }

 private:
  void Procesar();
  void Tomar(const std::string& nombre);
  void Apartar(const std::string& nombre, const std::string& motivo);
  void Leer(const std::string& nombre);
  std::filesystem::path EnTemp(const std::string& nombre) const {
    return carpeta_ / "Temp" / RutaDe(nombre);
  }

  const std::filesystem::path& carpeta_;
  Entorno& entorno_;
  Connection& conexion_;
  LibroRecibidos libro_;
  Bitacora log_;
};

void Proceso::Procesar() {
  const auto nombres = entorno_.ListFiles(carpeta_ / "Temp", ".dat");
  if (nombres.empty()) return;
  for (const std::string& nombre : nombres) {
    if (!entorno_.FileExists(EnTemp(nombre))) continue;  // somebody else has taken it
    Tomar(nombre);
  }
  log_.DescartarAntiguas();
}

void Proceso::Tomar(const std::string& nombre) {
  if (!EsOrders(entorno_, EnTemp(nombre))) {
    Apartar(nombre, "No coincide la línea inicio de fichero con el tipo predefinido");
  } else if (const auto antes = libro_.Buscar(EnTemp(nombre))) {
    Apartar(nombre, "El contenido es el de " + antes->Texto());
  } else {
    Leer(nombre);
  }
}

void Proceso::Apartar(const std::string& nombre, const std::string& motivo) {
  log_.Anotar(motivo + ", se mueve a la carpeta Error: " + nombre);
  entorno_.Copy(EnTemp(nombre), carpeta_ / "Error" / RutaDe(nombre));
  log_.Anotar("Eliminando Fichero de la carpeta Temp: " + nombre);
  entorno_.Delete(EnTemp(nombre));
}

void Proceso::Leer(const std::string& nombre) {
  Transaccion transaccion(conexion_);
  log_.Anotar("Inicio Lectura Fichero: " + nombre);
  {
    LectorBarras lector(nombre, entorno_.OpenForReading(EnTemp(nombre)));
    libro_.Anotar(nombre, LeerPedidos(lector, nombre, conexion_, entorno_));
  }
  log_.Anotar("Fin Lectura Fichero: " + nombre);
  log_.Anotar("Moviendo Fichero a carpeta OK: " + nombre);
  // Brought back before the transaction is rolled back: should the program die between the two, the
  // file is read again.
  Traslado traslado(entorno_, log_, carpeta_, nombre);
  traslado.Copiar();
  log_.Anotar("Eliminando Fichero de la carpeta Temp: " + nombre);
  traslado.Sacar();
  transaccion.Confirmar();
  traslado.Confirmar();
}

}  // namespace

void ProcesarFicheros(const std::filesystem::path& carpeta) { Proceso(carpeta).Ejecutar(); }

}  // namespace kvraedi
