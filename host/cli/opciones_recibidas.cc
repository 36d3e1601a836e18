#include "host/cli/argumentos.h"
#include "host/cli/valores.h"

namespace kvraedi::cli {
namespace {

constexpr Opcion kDesde = {"--desde", "FECHA", "Primera fecha, dd/mm/aaaa (obligatoria)",
                           [](Argumentos& a, const std::string& v) { a.desde = v; }, true};
constexpr Opcion kHasta = {"--hasta", "FECHA", "Última fecha, dd/mm/aaaa (obligatoria)",
                           [](Argumentos& a, const std::string& v) { a.hasta = v; }, true};
constexpr Opcion kMensaje = {
    "--mensaje", "ID", "Identificador del mensaje, como lo da «recibidas listar» (obligatoria)",
    [](Argumentos& a, const std::string& v) { a.recibida.mensaje = NoVacio(v); }, true};
constexpr Opcion kJson = {"--json", "", "Da la lista en JSON, con los textos de sus columnas",
                          [](Argumentos& a, const std::string& /*v*/) { a.json = true; }};

constexpr Opcion kListar[] = {
    kDesde,
    kHasta,
    {"--proveedor", "N", "Sólo las de este proveedor",
     [](Argumentos& a, const std::string& v) {
       a.recibida.proveedor = EnteroDesde<std::int32_t>(v, 1);
     }},
    kJson,
};

constexpr Opcion kUna[] = {kDesde, kHasta, kMensaje};

constexpr Opcion kComentar[] = {
    kDesde,
    kHasta,
    kMensaje,
    {"--texto", "TEXTO", "El comentario (obligatoria)",
     [](Argumentos& a, const std::string& v) { a.recibida.texto = v; }, true},
};

constexpr Opcion kImprimir[] = {
    kDesde,
    kHasta,
    kMensaje,
    {"--pdf", "FICHERO", "La imprime en un fichero PDF, no en la impresora",
     [](Argumentos& a, const std::string& v) { a.recibida.pdf = NoVacio(v); }},
};

constexpr Opcion kPendientes[] = {kJson};

void PonerFichero(Argumentos& a, const std::string& v) { a.ficheros.push_back(NoVacio(v)); }

constexpr Opcion kVer[] = {
    {"FICHERO", "FICHERO ...", "Ficheros que el componente escribe o lee (obligatorio)",
     PonerFichero, true, true},
    {"--enmascarar", "", "Oculta nombres, direcciones, NIF, cuentas y textos libres",
     [](Argumentos& a, const std::string& /*v*/) { a.enmascarar = true; }},
    {"--json", "", "Lo da en JSON", [](Argumentos& a, const std::string& /*v*/) { a.json = true; }},
};

constexpr Opcion kComparar[] = {
    {"FICHERO", "A B", "Los dos ficheros (obligatorio)", PonerFichero, true, true},
};

}  // namespace

std::span<const Opcion> OpcionesComparar() { return kComparar; }
std::span<const Opcion> OpcionesRecibidasListar() { return kListar; }
std::span<const Opcion> OpcionesRecibidasUna() { return kUna; }
std::span<const Opcion> OpcionesRecibidasComentar() { return kComentar; }
std::span<const Opcion> OpcionesRecibidasImprimir() { return kImprimir; }
std::span<const Opcion> OpcionesPendientesListar() { return kPendientes; }
std::span<const Opcion> OpcionesVer() { return kVer; }

}  // namespace kvraedi::cli
