#include "platform/suite/filas_informe.h"

#include <algorithm>

#include "kvraedi/error.h"
#include "platform/suite/texto_sql.h"

namespace kvraedi::suite {
namespace {

std::string Columna(std::string_view nombre) { return "[" + std::string(nombre) + "]"; }

/// Names one behind the other.
class ListaSql {
 public:
  void Sumar(std::string_view entrada, std::string_view separador, std::string_view trozo) {
    texto_ += texto_.empty() ? entrada : separador;
    texto_ += trozo;
  }
  const std::string& Texto() const { return texto_; }

 private:
  std::string texto_;
};

/// The conditions, or nothing when no row can fulfil them.
std::optional<std::string> Condiciones(const TablaInforme& tabla, const FiltrosInforme& filtros,
                                       const FilaInforme* exterior) {
  ListaSql lista;
  const auto sumar = [&](std::string_view columna, std::string_view valor) {
    lista.Sumar(" WHERE ", " AND ", Columna(columna) + " = " + Literal(valor));
  };
  for (const auto& [nombre, valor] : filtros) {
    if (exterior != nullptr) break;
    for (const CampoInforme& campo : tabla.campos) {
      if (!campo.calculo && MismoNombre(campo.nombre, nombre)) sumar(campo.nombre, valor);
    }
  }
  for (const EnlaceInforme& enlace : tabla.enlaces) {
    const auto& valor = exterior->Texto(enlace.exterior);
    if (!valor) return std::nullopt;
    sumar(enlace.columna, *valor);
  }
  return lista.Texto();
}

std::string Sentencia(const TablaInforme& tabla, const std::string& origen,
                      const std::string& condiciones) {
  ListaSql columnas;
  for (const CampoInforme& campo : tabla.campos) {
    if (!campo.calculo) columnas.Sumar("SELECT ", ", ", Columna(campo.nombre));
  }
  ListaSql orden;
  for (const std::string& campo : tabla.orden) orden.Sumar(" ORDER BY ", ", ", Columna(campo));
  return columnas.Texto() + " FROM " + origen + condiciones + orden.Texto();
}

}  // namespace

const std::optional<std::string>& FilaInforme::Texto(const std::string& nombre) const {
  const auto hallado = textos_.find(nombre);
  if (hallado != textos_.end()) return hallado->second;
  if (exterior_ != nullptr) return exterior_->Texto(nombre);
  throw Error(kErrorItemNotFound, "Informe", "no existe el campo «" + nombre + "» que enlaza");
}

std::string NombreSql(std::string_view ubicacion) {
  constexpr std::ptrdiff_t kMasPuntos = 2;
  const auto puntos = std::count(ubicacion.begin(), ubicacion.end(), '.');
  if (puntos > kMasPuntos || ubicacion.find_first_of("[]") != std::string_view::npos ||
      ubicacion.empty() || ubicacion.back() == '.') {
    throw Error(kErrorItemNotFound, "Informe",
                "«" + std::string(ubicacion) + "» no es el lugar de una tabla");
  }
  ListaSql nombre;
  while (!ubicacion.empty()) {
    const std::size_t fin = std::min(ubicacion.find('.'), ubicacion.size());
    if (fin > 0) nombre.Sumar("", ".", Columna(ubicacion.substr(0, fin)));
    ubicacion.remove_prefix(std::min(fin + 1, ubicacion.size()));
  }
  return nombre.Texto();
}

std::vector<FilaInforme> LeerFilas(Connection& conexion, const TablaInforme& tabla,
                                   const std::string& origen, const FiltrosInforme& filtros,
                                   const FilaInforme* exterior) {
  std::vector<FilaInforme> filas;
  const auto condiciones = Condiciones(tabla, filtros, exterior);
  if (!condiciones) return filas;
  const auto rs = conexion.Open(Sentencia(tabla, origen, *condiciones));
  for (; !rs->Eof(); rs->MoveNext()) {
    FilaInforme fila(exterior);
    int columna = 0;
    for (const CampoInforme& campo : tabla.campos) {
      if (campo.calculo) continue;
      fila.Poner(campo.nombre,
                 rs->IsNull(columna) ? std::nullopt : std::optional(rs->Get<std::string>(columna)));
      ++columna;
    }
    filas.push_back(std::move(fila));
  }
  return filas;
}

}  // namespace kvraedi::suite
