#include <filesystem>
#include <map>
#include <ostream>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "host/cli/al_abrir.h"
#include "host/cli/controles.h"
#include "host/cli/fallo.h"
#include "host/cli/ordenes.h"
#include "host/cli/seleccion_facturas.h"
#include "host/cli/sesion_cli.h"
#include "kvraedi/resultado_envio.h"

namespace kvraedi::cli {
namespace {

namespace fs = std::filesystem;

/// The files of a folder as they stand at a moment: when each was written last, and its size.
using Instantanea = std::map<std::string, std::pair<fs::file_time_type, std::uintmax_t>>;

Instantanea Mirar(const fs::path& carpeta) {
  Instantanea ficheros;
  std::error_code fallo;  // a folder that cannot be read is refused by the component
  for (const auto& entrada : fs::directory_iterator(carpeta, fallo)) {
    const auto fecha = entrada.last_write_time(fallo);
    if (fallo || !entrada.is_regular_file(fallo)) continue;
    ficheros[entrada.path().filename().string()] = {fecha, entrada.file_size(fallo)};
  }
  return ficheros;
}

void EscribirNuevos(const fs::path& carpeta, const Instantanea& antes, std::ostream& salida) {
  std::vector<std::string> nuevos;
  for (const auto& [nombre, estado] : Mirar(carpeta)) {
    const auto anterior = antes.find(nombre);
    if (anterior == antes.end() || anterior->second != estado) nuevos.push_back(nombre);
  }
  salida << "Ficheros exportados: " << nuevos.size() << '\n';
  for (const std::string& nombre : nuevos) salida << "  " << (carpeta / nombre).string() << '\n';
}

int Exportar(const Argumentos& argumentos, const Salida& salida, PantallaEnvio& pantalla,
             SesionCli& sesion) {
  if (!Seleccionar(argumentos, salida.mensajes, pantalla, sesion)) return kRechazado;
  const fs::path carpeta = fs::absolute(argumentos.exportacion.carpeta);
  HeadlessToolkit& pantallas = sesion.Pantallas();
  const auto elegirCarpeta = [&](ui::Form& form) {
    pantallas.QueueFolder(carpeta);
    Buscar<ui::Button>(form, "cmdExaminar").Press();
    Buscar<ui::Button>(form, "cmdAceptar").Press();
  };
  pantallas.QueueAnswer(ui::Answer::kYes);  // whoever gives a revision is sure of it
  const Instantanea antes = Mirar(carpeta);
  AlAbrir(pantallas, "frmExportar", elegirCarpeta,
          [&] { pantalla.Exportar(argumentos.exportacion.revision); });
  EscribirNuevos(carpeta, antes, salida.resultado);
  return UltimoResultadoEnvio().completo ? kHecho : kRechazado;
}

}  // namespace

int EjecutarExportar(const Argumentos& argumentos, const Salida& salida) {
  ComprobarSeleccion(argumentos);
  return UsarPantallaEnvio(argumentos, salida, [&](PantallaEnvio& pantalla, SesionCli& sesion) {
    return Exportar(argumentos, salida, pantalla, sesion);
  });
}

}  // namespace kvraedi::cli
