#include "platform/suite/informe_plantilla.h"

#include <algorithm>
#include <kainjow/mustache.hpp>
#include <utility>

#include "kvraedi/error.h"
#include "platform/suite/informes.h"
#include "platform/suite/texto_sql.h"
#include "platform/suite/valor_informe.h"

namespace kvraedi::suite {
namespace {

namespace mstch = kainjow::mustache;

std::string Utf8(const std::filesystem::path& ruta) {
  const std::u8string texto = ruta.u8string();
  return {texto.begin(), texto.end()};
}

enum class Escape : std::uint8_t { kHtml, kNinguno };

std::string Rellenado(const std::string& texto, const mstch::data& datos, Escape escape) {
  mstch::mustache plantilla(texto);
  if (escape == Escape::kNinguno) {
    plantilla.set_custom_escape([](const std::string& valor) { return valor; });
  }
  std::string resultado = plantilla.is_valid() ? plantilla.render(datos) : std::string();
  if (!plantilla.is_valid()) {
    throw Error(kErrorFile, "Informe", "el cuerpo no es válido: " + plantilla.error_message());
  }
  return resultado;
}

/// Reads the tables of a report into what the library fills a template with.
class LectorDeDatos {
 public:
  LectorDeDatos(Connection& conexion, const PlantillaInforme& plantilla,
                const OrigenesInforme& origenes, const FiltrosInforme& filtros)
      : conexion_(conexion), plantilla_(plantilla), origenes_(origenes), filtros_(filtros) {}

  /// Puts the tables of that parent into `destino`, as lists of rows.
  void Leer(const std::string& padre, const FilaInforme* exterior, mstch::data& destino) const {
    for (const TablaInforme& tabla : plantilla_.tablas) {
      if (tabla.padre != padre) continue;
      mstch::list filas;
      for (const FilaInforme& fila :
           LeerFilas(conexion_, tabla, origenes_.at(tabla.tabla), filtros_, exterior)) {
        filas.push_back(Datos(tabla, fila));
      }
      destino[tabla.nombre] = mstch::data(filas);
    }
  }

 private:
  mstch::data Datos(const TablaInforme& tabla, const FilaInforme& fila) const {
    mstch::data datos;
    for (const CampoInforme& campo : tabla.campos) {
      const auto valor = campo.calculo ? Calculado(campo, fila)
                                       : Presentar(campo, fila.Texto(campo.nombre).value_or(""));
      datos[campo.nombre] = valor ? mstch::data(*valor) : mstch::data(false);
    }
    Leer(tabla.nombre, &fila, datos);
    return datos;
  }

  static std::optional<std::string> Calculado(const CampoInforme& campo, const FilaInforme& fila) {
    const auto numero = [&](const std::string& columna) {
      return NumeroDe(fila.Texto(columna).value_or(""));
    };
    const auto& [a, b, porcentaje] = *campo.calculo;
    const auto factor = numero(a);
    const auto otro = numero(b);
    const auto rebaja = porcentaje.empty() ? Currency() : numero(porcentaje);
    if (!factor || !otro || !rebaja) return std::nullopt;
    return Presentar(campo, ProductoRebajado(*factor, *otro, *rebaja, campo));
  }

  Connection& conexion_;
  const PlantillaInforme& plantilla_;
  const OrigenesInforme& origenes_;
  const FiltrosInforme& filtros_;
};

/// Runs the action and names the report's file in whatever error it raises.
template <class Accion>
auto ConNombre(const std::string& fichero, Accion&& accion) {
  try {
    return std::forward<Accion>(accion)();
  } catch (const Error& error) {
    throw Error(error.Number(), error.Source(), "Informe " + fichero + ": " + error.Description());
  }
}

PlantillaInforme Abrir(Entorno& entorno, const std::filesystem::path& fichero) {
  const std::string texto = entorno.ReadFile(fichero);
  return ConNombre(Utf8(fichero.filename()), [&] { return LeerPlantilla(texto); });
}

}  // namespace

InformePlantilla::InformePlantilla(Entorno& entorno, std::shared_ptr<Connection> conexion,
                                   const std::filesystem::path& fichero)
    : conexion_(std::move(conexion)),
      nombre_(Utf8(fichero.filename())),
      plantilla_(Abrir(entorno, fichero)) {
  for (const TablaInforme& tabla : plantilla_.tablas) {
    origenes_[tabla.tabla] = NombreSql(tabla.tabla);
  }
  for (const std::string& nombre : plantilla_.subinformes) {
    const std::filesystem::path otro(std::u8string(nombre.begin(), nombre.end()));
    if (!Abrir(entorno, fichero.parent_path() / otro).subinformes.empty()) {
      throw Error(kErrorFile, "Informe", "Informe " + nombre_ + ": " + nombre + " lleva otros");
    }
    subinformes_[nombre] =
        std::make_unique<InformePlantilla>(entorno, conexion_, fichero.parent_path() / otro);
  }
}

std::vector<std::string> InformePlantilla::Tablas() const {
  std::vector<std::string> nombres;
  for (const TablaInforme& tabla : plantilla_.tablas) {
    if (std::find(nombres.begin(), nombres.end(), tabla.tabla) == nombres.end()) {
      nombres.push_back(tabla.tabla);
    }
  }
  return nombres;
}

void InformePlantilla::Ubicar(std::string_view tabla, const OrigenTabla& origen) {
  for (auto& [nombre, sql] : origenes_) {
    if (MismoNombre(nombre, tabla)) sql = NombreSql(origen.ubicacion);
  }
}

Informe* InformePlantilla::Subinforme(std::string_view nombre) {
  for (const auto& [fichero, informe] : subinformes_) {
    if (MismoNombre(fichero, nombre)) return informe.get();
  }
  return nullptr;
}

void InformePlantilla::Filtrar(std::string_view campo, std::string_view valor) {
  filtros_.emplace_back(campo, valor);
}

DocumentoImprimible InformePlantilla::Documento() {
  return ConNombre(nombre_, [this] { return Rellenar(); });
}

DocumentoImprimible InformePlantilla::Rellenar() {
  mstch::data datos;
  LectorDeDatos(*conexion_, plantilla_, origenes_, filtros_).Leer("", nullptr, datos);
  for (const auto& [fichero, informe] : subinformes_) {
    datos[NombreDeSubinforme(fichero)] = mstch::data(informe->Documento().html);
  }
  return {Rellenado(plantilla_.titulo, datos, Escape::kNinguno),
          Rellenado(plantilla_.cuerpo, datos, Escape::kHtml),
          Rellenado(plantilla_.pie, datos, Escape::kNinguno)};
}

std::unique_ptr<Informe> AbrirInforme(Entorno& entorno, const std::shared_ptr<Connection>& conexion,
                                      const std::filesystem::path& fichero) {
  return std::make_unique<InformePlantilla>(entorno, conexion, fichero);
}

}  // namespace kvraedi::suite
