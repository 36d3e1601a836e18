#include "kvraedi/clsDesadv.h"

#include <exception>
#include <filesystem>
#include <memory>
#include <string_view>
#include <utility>

#include "frame/lector_texto.h"
#include "frame/puertos.h"
#include "frame/sesion.h"
#include "frame/transaccion.h"
#include "orders/crear_compras.h"
#include "orders/error_desadv.h"
#include "orders/fichero_desadv.h"
#include "orders/interrumpidos.h"
#include "orders/lector_barras.h"
#include "orders/leer_desadv.h"
#include "orders/libro_recibidos.h"
#include "orders/tablas_desadv.h"

namespace kvraedi {
namespace {

constexpr std::string_view kInsertar = "Insertar";
constexpr std::string_view kProcesar = "ProcesarFicheros";

/// One run over one file.
class Insercion {
 public:
  Insercion(const std::filesystem::path& raiz, const std::string& fichero)
      : entorno_(EntornoActual()),
        conexion_(ConexionActual()),
        raiz_(raiz),
        fichero_(entorno_, raiz, fichero) {}

  void Ejecutar() {
    if (!TomarTurno()) return;
    try {
      Procesar();
    } catch (const std::exception& error) {
      Fracasar(error);
      return;
    }
    Terminar();
  }

 private:
  bool TomarTurno();
  void Procesar();
  void Leer(const desadv::Tablas& tablas);
  void ComprobarInicio();
  void Fracasar(const std::exception& error);
  void Terminar();

  void Anotar(std::string_view rutina, const std::string& texto) {
    log_->Escribir(0, rutina, texto);
  }
  void AnotarFallo(const std::string& texto);
  void AbrirLog() { log_ = SuiteActual().AbrirLog(entorno_, raiz_ / "OrmoPCCOM.log"); }

  Entorno& entorno_;
  Connection& conexion_;
  std::filesystem::path raiz_;
  desadv::Fichero fichero_;
  std::unique_ptr<FicheroLog> log_;
  std::unique_ptr<FileHold> marca_;
};

/// Does something whose failure may not stop what comes after it.
template <class Cuerpo>
void Intentar(Cuerpo&& cuerpo) {
  try {
    std::forward<Cuerpo>(cuerpo)();
  } catch (const std::exception&) {
    return;
  }
}

/// When it cannot be had the file is left where it is.
bool Insercion::TomarTurno() {
  try {
    marca_ = ReservarAvisos(raiz_);
  } catch (const Error& error) {
    AnotarFallo(std::string("Error: ") + error.what());
  }
  return marca_ != nullptr;
}

void Insercion::Procesar() {
  Transaccion transaccion(conexion_);
  AbrirLog();
  Anotar(kInsertar, "Inicio de ejecución fichero: " + fichero_.Nombre());
  fichero_.ComprobarNombre();
  const desadv::Tablas tablas(entorno_.TickCount());
  tablas.Crear(conexion_);
  LibroRecibidos libro(conexion_, entorno_, TipoRecibido::kDesadv);
  if (const auto antes = libro.Buscar(fichero_.EnRx())) {
    desadv::Fallar("El contenido es el de " + antes->Texto());
  }
  Leer(tablas);
  const auto compras = desadv::CrearComprasMini(tablas, raiz_ / "OrmoPCCom.ini", *log_);
  libro.Anotar(fichero_.Nombre(), compras.albaranes);
  Anotar(kInsertar, "Moviendo Fichero a carpeta OK: " + fichero_.Nombre());
  fichero_.CopiarAOk();
  Anotar(kInsertar, "Eliminando Fichero de la carpeta Rx: " + fichero_.Nombre());
  AnotarAviso(*marca_, fichero_.Nombre(), compras.ultima);
  fichero_.SacarDeRx();
  tablas.Borrar(conexion_);
  transaccion.Confirmar();
}

void Insercion::Leer(const desadv::Tablas& tablas) {
  Anotar(kProcesar, "Inicio de ejecución fichero: " + fichero_.Nombre());
  ComprobarInicio();
  Anotar(kProcesar, "Inicio Lectura Fichero: " + fichero_.Nombre());
  LectorBarras lector(fichero_.Nombre(), entorno_.OpenForReading(fichero_.EnRx()));
  desadv::Leer(lector, fichero_.Nombre(), tablas, conexion_, entorno_);
}

void Insercion::ComprobarInicio() {
  LectorTexto lector(entorno_.OpenForReading(fichero_.EnRx()));
  if (lector.Siguiente() && desadv::EsInicio(lector.Linea())) return;
  Anotar(kProcesar,
         "No coincide la línea inicio de fichero con el tipo predefinido, se mueve a la carpeta "
         "Error: " +
             fichero_.Nombre());
  fichero_.CopiarAError();
  Anotar(kProcesar, "Eliminando Fichero de la carpeta Rx: " + fichero_.Nombre());
  fichero_.BorrarDeRx();
  desadv::Fallar("Error de inicio de fichero");
}

/// An entry that may be missing.
void Insercion::AnotarFallo(const std::string& texto) {
  Intentar([&] {
    if (!log_) AbrirLog();
    Anotar(kInsertar, texto);
  });
}

/// Nothing of the run is left in the database; the file goes to Error, wherever it is. A file that
/// was taken there already, or is not there at all, is left alone.
void Insercion::Fracasar(const std::exception& error) {
  AnotarFallo(std::string("Error: ") + error.what());
  try {
    if (!fichero_.Esta()) return;
    AnotarFallo("Moviendo Fichero a carpeta Error: " + fichero_.Nombre());
    fichero_.CopiarAError();
    AnotarFallo("Eliminando Fichero de la carpeta Rx: " + fichero_.Nombre());
    fichero_.Retirar();
  } catch (const std::exception& otro) {
    AnotarFallo(std::string("Error: ") + otro.what());
    marca_->Leave();
  }
}

/// The purchases are made: what fails from here on undoes nothing.
void Insercion::Terminar() {
  try {
    fichero_.Soltar();
  } catch (const Error&) {  // the next run knows what to do with it
    marca_->Leave();
  }
  constexpr std::int64_t kTreintaDias = std::int64_t{30} * 24 * 60 * 60;
  Intentar([&] { log_->DescartarAnteriores(entorno_.Now().PlusSeconds(-kTreintaDias)); });
}

}  // namespace

void clsDesadv::Insertar(const std::string& strFile) {
  Intentar([&] {
    const auto raiz = ParametroRuta("EDI_PathFichRecibir");
    SuiteActual();  // raises when there is none
    if (!raiz.empty()) Insercion(raiz, strFile).Ejecutar();
  });
}

}  // namespace kvraedi
