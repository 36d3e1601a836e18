#include "host/cli/argumentos.h"

namespace kvraedi::cli {
namespace {

template <auto campo>
void Poner(Argumentos& argumentos, const std::string& valor) {
  argumentos.centro.*campo = valor;
}

constexpr Opcion kCodigo = {"--codigo", "CODIGO", "Código del centro (obligatoria)",
                            Poner<&DatosCentro::codigo>, true};
constexpr Opcion kNombre = {"--nombre", "TEXTO", "Nombre", Poner<&DatosCentro::nombre>};
constexpr Opcion kDireccion = {"--direccion", "TEXTO", "Dirección", Poner<&DatosCentro::direccion>};
constexpr Opcion kCodigoPostal = {
    "--cp", "CP", "Código postal; pone la localidad, la provincia y el país que le corresponden",
    Poner<&DatosCentro::codigoPostal>};
constexpr Opcion kLocalidad = {"--localidad", "TEXTO", "Localidad", Poner<&DatosCentro::localidad>};
constexpr Opcion kProvincia = {"--provincia", "TEXTO", "Provincia", Poner<&DatosCentro::provincia>};
constexpr Opcion kPais = {"--pais", "NOMBRE", "Nombre del país", Poner<&DatosCentro::pais>};
constexpr Opcion kDescripcion = {"--descripcion", "TEXTO", "Descripción",
                                 Poner<&DatosCentro::descripcion>};

constexpr Opcion kListar[] = {
    {"--json", "", "Da la lista en JSON, con los textos de las 9 columnas",
     [](Argumentos& a, const std::string& /*v*/) { a.json = true; }},
};

constexpr Opcion kAnadir[] = {kCodigo,    kNombre,    kDireccion, kCodigoPostal,
                              kLocalidad, kProvincia, kPais,      kDescripcion};

constexpr Opcion kModificar[] = {
    kCodigo,
    {"--codigo-nuevo", "CODIGO", "Cambia el código", Poner<&DatosCentro::codigoNuevo>},
    kNombre,
    kDireccion,
    kCodigoPostal,
    kLocalidad,
    kProvincia,
    kPais,
    kDescripcion};

constexpr Opcion kEliminar[] = {kCodigo};

}  // namespace

std::span<const Opcion> OpcionesCentrosListar() { return kListar; }
std::span<const Opcion> OpcionesCentrosAnadir() { return kAnadir; }
std::span<const Opcion> OpcionesCentrosModificar() { return kModificar; }
std::span<const Opcion> OpcionesCentrosEliminar() { return kEliminar; }

}  // namespace kvraedi::cli
