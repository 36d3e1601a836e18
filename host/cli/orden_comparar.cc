#include <map>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "host/cli/fallo.h"
#include "host/cli/ordenes.h"
#include "host/cli/texto.h"
#include "kvraedi/contenido_fichero.h"
#include "kvraedi/error.h"
#include "platform/os/entorno_sistema.h"
#include "platform/suite/suite_referencia.h"

namespace kvraedi::cli {
namespace {

/// A file's values by record and field, in its order: "SINCL 2, Unidades".
struct Contenido {
  FormatoFichero formato = FormatoFichero::kDesconocido;
  std::vector<std::string> claves;
  std::map<std::string, std::string, std::less<>> valores;
};

Contenido Leer(Entorno& entorno, const std::string& fichero) {
  SuiteReferencia suite;
  Contenido contenido;
  std::map<std::string, int, std::less<>> registros;
  std::int64_t linea = -1;
  std::string lugar;
  contenido.formato =
      RecorrerFichero(entorno, suite, RutaUtf8(fichero), [&](const CampoFichero& campo) {
        if (campo.nombre.empty() && campo.valor.empty()) return;  // about the record as a whole
        const std::string registro(campo.registro);
        if (campo.linea == 0) {
          lugar = registro;
        } else if (campo.linea != linea) {
          linea = campo.linea;
          lugar = registro + " " + std::to_string(++registros[registro]);
        }
        std::string clave = lugar + ", ";
        clave += campo.nombre.empty() ? "posición " + std::to_string(campo.posicion)
                                      : std::string(campo.nombre);
        const int veces = ++registros[clave];
        if (veces > 1) clave += " (" + std::to_string(veces) + ")";
        contenido.valores.emplace(clave, campo.valor);
        contenido.claves.push_back(std::move(clave));
      });
  return contenido;
}

std::string Valor(const Contenido& contenido, const std::string& clave) {
  const auto valor = contenido.valores.find(clave);
  return valor == contenido.valores.end() ? "(no está)" : "«" + valor->second + "»";
}

int Diferencias(const Contenido& a, const Contenido& b, std::ostream& salida) {
  int diferencias = 0;
  const auto decir = [&](const std::string& clave) {
    salida << clave << ": " << Valor(a, clave) << " / " << Valor(b, clave) << '\n';
    ++diferencias;
  };
  for (const std::string& clave : a.claves) {
    if (Valor(a, clave) != Valor(b, clave)) decir(clave);
  }
  for (const std::string& clave : b.claves) {
    if (a.valores.count(clave) == 0) decir(clave);
  }
  return diferencias;
}

}  // namespace

int EjecutarComparar(const Argumentos& argumentos, const Salida& salida) {
  if (argumentos.ficheros.size() != 2) throw Fallo(kUsoErroneo, "hay que dar dos ficheros");
  EntornoSistema entorno(argumentos.entorno);
  try {
    const Contenido a = Leer(entorno, argumentos.ficheros[0]);
    const Contenido b = Leer(entorno, argumentos.ficheros[1]);
    if (a.formato != b.formato || a.formato == FormatoFichero::kDesconocido) {
      throw Fallo(kRechazado, "los ficheros no son del mismo formato: " +
                                  std::string(NombreFormato(a.formato)) + " y " +
                                  std::string(NombreFormato(b.formato)));
    }
    const int diferencias = Diferencias(a, b, salida.resultado);
    salida.resultado << "Diferencias: " << diferencias << '\n';
    return diferencias == 0 ? kHecho : kRechazado;
  } catch (const Error& error) {
    throw Fallo(kSinFicheros, error.Description());
  }
}

}  // namespace kvraedi::cli
