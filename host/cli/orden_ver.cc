#include <algorithm>
#include <iomanip>
#include <ostream>
#include <string>

#include "host/cli/fallo.h"
#include "host/cli/ordenes.h"
#include "host/cli/texto.h"
#include "kvraedi/contenido_fichero.h"
#include "kvraedi/error.h"
#include "platform/os/entorno_sistema.h"
#include "platform/suite/suite_referencia.h"

namespace kvraedi::cli {
namespace {

constexpr int kAnchoLinea = 6, kAnchoRegistro = 7, kAnchoNombre = 18, kAnchoSitio = 8;

std::string SinControles(std::string_view texto) {
  std::string limpio(texto);
  std::replace_if(
      limpio.begin(), limpio.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; },
      ' ');
  return limpio;
}

std::string Sitio(const CampoFichero& campo) {
  if (campo.ancho == 0) return campo.linea == 0 ? "" : std::to_string(campo.posicion);
  return std::to_string(campo.posicion) + "-" + std::to_string(campo.posicion + campo.ancho - 1);
}

/// One file on its way to the output.
class Muestra {
 public:
  Muestra(const Argumentos& argumentos, std::ostream& salida)
      : argumentos_(argumentos), salida_(salida) {}

  void Campo(const CampoFichero& campo) {
    const std::string valor = argumentos_.enmascarar && EsPersonal(campo.nombre)
                                  ? Enmascarado(campo.valor)
                                  : std::string(campo.valor);
    if (!campo.reparo.empty()) ++reparos_;
    argumentos_.json ? EnJson(campo, valor) : EnTabla(campo, valor);
  }
  int Reparos() const { return reparos_; }

 private:
  void EnTabla(const CampoFichero& campo, const std::string& valor) {
    if (campo.linea > 0) salida_ << std::right << std::setw(kAnchoLinea) << campo.linea << "  ";
    salida_ << std::left << std::setw(kAnchoRegistro) << SinControles(campo.registro);
    if (campo.linea == 0 && !campo.nombre.empty()) salida_ << '/';
    if (campo.posicion > 0 || !campo.nombre.empty()) {
      salida_ << std::setw(campo.linea > 0 ? kAnchoNombre : 0)
              << (campo.nombre.empty() ? "-" : campo.nombre)
              << std::setw(campo.linea > 0 ? kAnchoSitio : 0) << Sitio(campo) << "  "
              << SinControles(valor);
    }
    if (!campo.reparo.empty()) salida_ << "  <-- " << campo.reparo;
    salida_ << '\n';
  }

  void EnJson(const CampoFichero& campo, const std::string& valor) {
    salida_ << (campos_++ == 0 ? "\n" : ",\n") << "{\"linea\": " << campo.linea
            << ", \"posicion\": " << campo.posicion << ", \"ancho\": " << campo.ancho;
    for (const auto& [nombre, texto] : {std::pair{"registro", campo.registro},
                                        {"nombre", campo.nombre},
                                        {"valor", valor},
                                        {"reparo", campo.reparo}}) {
      salida_ << ", \"" << nombre << "\": ";
      EscribirTextoJson(texto, salida_);
    }
    salida_ << '}';
  }

  const Argumentos& argumentos_;
  std::ostream& salida_;
  int campos_ = 0;
  int reparos_ = 0;
};

/// Gives back whether the file is of a format that is known.
bool Mostrar(const std::string& fichero, const Argumentos& argumentos, Entorno& entorno,
             const Salida& salida) {
  SuiteReferencia suite;
  Muestra muestra(argumentos, salida.resultado);
  if (argumentos.json) {
    salida.resultado << "{\"fichero\": ";
    EscribirTextoJson(fichero, salida.resultado);
    salida.resultado << ", \"campos\": [";
  } else {
    salida.resultado << fichero << '\n';
  }
  const FormatoFichero formato = RecorrerFichero(
      entorno, suite, RutaUtf8(fichero), [&](const CampoFichero& campo) { muestra.Campo(campo); });
  if (argumentos.json) {
    salida.resultado << "], \"formato\": ";
    EscribirTextoJson(NombreFormato(formato), salida.resultado);
    salida.resultado << ", \"reparos\": " << muestra.Reparos() << '}';
  } else {
    salida.resultado << "Formato: " << NombreFormato(formato) << ", reparos: " << muestra.Reparos()
                     << '\n';
  }
  return formato != FormatoFichero::kDesconocido;
}

}  // namespace

int EjecutarVer(const Argumentos& argumentos, const Salida& salida) {
  EntornoSistema entorno(argumentos.entorno);
  bool conocidos = true;
  try {
    if (argumentos.json) salida.resultado << "[";
    for (const std::string& fichero : argumentos.ficheros) {
      if (argumentos.json) salida.resultado << (&fichero == &argumentos.ficheros[0] ? "\n" : ",\n");
      conocidos = Mostrar(fichero, argumentos, entorno, salida) && conocidos;
    }
    if (argumentos.json) salida.resultado << "\n]\n";
  } catch (const Error& error) {
    throw Fallo(kSinFicheros, error.Description());
  }
  return conocidos ? kHecho : kRechazado;
}

}  // namespace kvraedi::cli
