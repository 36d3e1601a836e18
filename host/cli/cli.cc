#include "host/cli/cli.h"

#include <exception>
#include <ostream>

#include "host/cli/analizador.h"
#include "host/cli/fallo.h"

namespace kvraedi::cli {
namespace {

int Ejecutar(const std::vector<std::string>& args, const Salida& salida) {
  const Peticion peticion = Analizar(args);
  if (peticion.orden != nullptr) {
    return peticion.orden->ejecutar(peticion.argumentos, salida);
  }
  salida.resultado << peticion.texto;
  return kHecho;
}

}  // namespace

int RunCli(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
  int codigo = kRechazado;
  try {
    codigo = Ejecutar(args, {out, err});
  } catch (const Fallo& fallo) {
    err << "kvraedi: " << fallo.what() << '\n';
    if (fallo.Codigo() == kUsoErroneo) err << "Pruebe «kvraedi --ayuda».\n";
    codigo = fallo.Codigo();
  } catch (const std::exception& error) {
    err << "kvraedi: " << error.what() << '\n';
  }
  out.flush();
  if (!out) {
    err << "kvraedi: no se puede escribir la salida\n";
    if (codigo == kHecho) codigo = kSinFicheros;
  }
  err.flush();
  return codigo;
}

}  // namespace kvraedi::cli
