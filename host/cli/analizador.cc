#include "host/cli/analizador.h"

#include <CLI/CLI.hpp>
#include <map>
#include <utility>

#include "host/cli/fallo.h"

namespace kvraedi::cli {
namespace {

constexpr const char* kDescripcion =
    "KVRAEDI: intercambio electrónico de documentos de Kestrova, desde la línea de órdenes.";
constexpr const char* kPie =
    "Las opciones comunes valen delante y detrás de la orden.\n"
    "Códigos de salida: 0, hecho; 1, el componente no lo admitió o falló; 2, línea de órdenes\n"
    "errónea; 3, no se puede abrir la base de datos o un fichero, o no se puede escribir.";
constexpr const char* kPieOrden = "Valen además las opciones comunes: véase «kvraedi --ayuda».";

constexpr std::size_t kAnchoNombres = 31;

/// The parser of the library, loaded with the tables of commands and options.
class Analizador {
 public:
  Analizador() {
    app_.option_defaults()->group("Opciones");
    app_.set_help_flag("-h,--ayuda,--help", "Muestra esta ayuda");
    app_.set_version_flag("--version", "kvraedi " KVRAEDI_VERSION, "Muestra la versión");
    app_.get_formatter()->column_width(kAnchoNombres);
    app_.get_formatter()->label("Usage", "Uso");
    app_.get_formatter()->label("OPTIONS", "OPCIONES");
    app_.get_formatter()->label("SUBCOMMAND", "ORDEN");
    app_.footer(kPie);
    Preparar(app_);
    Poner(app_, OpcionesComunes(), "Opciones comunes");
    for (const Orden& orden : Ordenes()) {
      CLI::App* const sub =
          Padre(orden)->add_subcommand(std::string(orden.nombre), std::string(orden.descripcion));
      Preparar(*sub);
      sub->footer(kPieOrden);
      if (orden.opciones != nullptr) Poner(*sub, orden.opciones(), "Opciones");
      ordenes_[sub] = &orden;
    }
  }

  Peticion Leer(const std::vector<std::string>& palabras) {
    try {
      app_.parse(std::vector<std::string>(palabras.rbegin(), palabras.rend()));
    } catch (const CLI::CallForHelp&) {
      peticion_.texto = app_.help();
      return peticion_;
    } catch (const CLI::CallForVersion& version) {
      peticion_.texto = std::string(version.what()) + "\n";
      return peticion_;
    } catch (const CLI::ArgumentMismatch& error) {
      // The library's text begins with the option's name.
      const std::string texto = error.what();
      throw Fallo(kUsoErroneo, texto.substr(0, texto.find(':')) + ": falta su valor");
    } catch (const CLI::ParseError& error) {
      throw Fallo(kUsoErroneo, std::string("no se entiende: ") + error.what());
    }
    Comprobar();
    return peticion_;
  }

 private:
  static void Preparar(CLI::App& app) {
    app.group("Órdenes");
    app.get_help_ptr()->group("Opciones");
    app.fallthrough();
    app.allow_extras();
    app.require_subcommand(0, 1);
  }

  CLI::App* Padre(const Orden& orden) {
    if (orden.grupo.empty()) return &app_;
    CLI::App*& grupo = grupos_[orden.grupo];
    if (grupo == nullptr) {
      grupo = app_.add_subcommand(std::string(orden.grupo),
                                  "Órdenes sobre " + std::string(orden.grupo));
      Preparar(*grupo);
      grupo->footer(kPieOrden);
    }
    return grupo;
  }

  void Poner(CLI::App& app, std::span<const Opcion> opciones, const char* titulo) {
    for (const Opcion& opcion : opciones) {
      CLI::Option* const puesta =
          *opcion.valor == '\0' ? PonerMarca(app, opcion) : PonerValor(app, opcion);
      puesta->group(titulo);
      if (opcion.obligatoria) obligatorias_.push_back({&app, &opcion, puesta});
    }
  }

  CLI::Option* PonerMarca(CLI::App& app, const Opcion& opcion) {
    return app.add_flag_callback(
        opcion.nombre, [this, &opcion] { opcion.aplicar(peticion_.argumentos, {}); }, opcion.ayuda);
  }

  CLI::Option* PonerValor(CLI::App& app, const Opcion& opcion) {
    CLI::Option* const puesta = app.add_option_function<std::vector<std::string>>(
        opcion.nombre,
        [this, &opcion](const std::vector<std::string>& valores) { Aplicar(opcion, valores); },
        opcion.ayuda);
    puesta->option_text(opcion.valor);
    // Repetitions are let through, to be reported in our own words.
    puesta->expected(1, -1)->allow_extra_args(opcion.varias);
    return puesta;
  }

  void Aplicar(const Opcion& opcion, const std::vector<std::string>& valores) {
    const std::string nombre = opcion.nombre;
    if (valores.size() > 1 && !opcion.varias) {
      throw Fallo(kUsoErroneo, nombre + ": se ha dado más de una vez");
    }
    for (const std::string& valor : valores) {
      // The library takes the next word for the value, even when it is an option.
      if (valor.starts_with("--")) throw Fallo(kUsoErroneo, nombre + ": falta su valor");
      try {
        opcion.aplicar(peticion_.argumentos, valor);
      } catch (const Fallo& fallo) {
        throw Fallo(fallo.Codigo(), nombre + ": " + fallo.what());
      }
    }
  }

  void Comprobar() {
    const auto sobrantes = app_.remaining(true);
    if (!sobrantes.empty()) {
      throw Fallo(kUsoErroneo, "no se entiende «" + sobrantes.front() + "»");
    }
    const CLI::App* elegida = &app_;
    while (!elegida->get_subcommands().empty()) elegida = elegida->get_subcommands().front();
    const auto orden = ordenes_.find(elegida);
    if (orden == ordenes_.end()) throw Fallo(kUsoErroneo, "falta la orden");
    for (const auto& [app, opcion, puesta] : obligatorias_) {
      if (app == elegida && puesta->count() == 0) {
        throw Fallo(kUsoErroneo, "falta la opción " + std::string(opcion->nombre));
      }
    }
    peticion_.orden = orden->second;
  }

  struct Obligatoria {
    const CLI::App* app;
    const Opcion* opcion;
    const CLI::Option* puesta;
  };

  CLI::App app_{kDescripcion, "kvraedi"};
  std::map<std::string_view, CLI::App*> grupos_;
  std::map<const CLI::App*, const Orden*> ordenes_;
  std::vector<Obligatoria> obligatorias_;
  Peticion peticion_;
};

}  // namespace

Peticion Analizar(const std::vector<std::string>& palabras) { return Analizador().Leer(palabras); }

}  // namespace kvraedi::cli
