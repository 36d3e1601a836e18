#include "host/cli/argumentos.h"

#include <array>
#include <string_view>

#include "host/cli/conexion_cli.h"
#include "host/cli/valores.h"
#include "host/demo/crear_demo.h"

namespace kvraedi::cli {
namespace {

/// What was given instead is not shown: it may hold a password.
void PonerConexion(Argumentos& argumentos, const std::string& valor) {
  if (!EsConexion(valor)) {
    throw Fallo(kUsoErroneo, "se esperaba sqlite:RUTA, odbc:CADENA u odbc:@FICHERO");
  }
  argumentos.conexion = valor;
}

void PonerAhora(Argumentos& argumentos, const std::string& valor) {
  constexpr std::string_view kForma = "AAAA-MM-DDTHH:MM:SS";
  argumentos.entorno.ahora = FechaHora::Parse(valor);
  if (valor.size() != kForma.size() || valor[10] != 'T' || !argumentos.entorno.ahora) {
    SeEsperaba(std::string(kForma), valor);
  }
}

void PonerFactura(Argumentos& argumentos, const std::string& valor) {
  auto clave = ClaveFactura::Leer(valor);
  if (!clave) {
    SeEsperaba("EJERCICIO/SERIE/NUMERO[/TIPODOC] o FT:ALMACEN/CAJA/FECHA/NUMERO", valor);
  }
  argumentos.claves.push_back(std::move(*clave));
}

constexpr Opcion kComunes[] = {
    {"--conexion", "DESTINO",
     "Base de datos: sqlite:RUTA, odbc:CADENA, u odbc:@FICHERO si la cadena está en un fichero"
     " (la de la variable KVRAEDI_CONEXION o, sin ella, sqlite:demo/kvraedi.db)",
     PonerConexion},
    {"--empresa", "N", "Código de la empresa (1)",
     [](Argumentos& a, const std::string& v) { a.empresa = EnteroDesde<std::int16_t>(v, 1); }},
    {"--registro-sql", "FICHERO",
     "Escribe en el fichero cada sentencia enviada, terminada en un byte nulo",
     [](Argumentos& a, const std::string& v) { a.registroSql = NoVacio(v); }},
    {"--ahora", "AAAA-MM-DDTHH:MM:SS", "Fija el reloj", PonerAhora},
    {"--semilla-id", "N", "Hace repetibles los identificadores de mensaje",
     [](Argumentos& a, const std::string& v) {
       a.entorno.semillaId = EnteroDesde<std::uint64_t>(v, 0);
     }},
    {"--terminal", "T", "Nombre del terminal (el de la máquina)",
     [](Argumentos& a, const std::string& v) { a.entorno.terminal = NoVacio(v); }},
    {"--unidad", "DIR", "Carpeta que hace de raíz de la unidad C: (la del usuario)",
     [](Argumentos& a, const std::string& v) { a.entorno.unidad = NoVacio(v); }},
    {"--componente", "DIR", "Carpeta del componente; el firmador está en DIR/../EDI/FacturaE",
     [](Argumentos& a, const std::string& v) { a.entorno.componente = NoVacio(v); }},
    {"--perfil", "DIR", "Carpeta de perfil, con la de trabajo Ormo/EDI (la del usuario)",
     [](Argumentos& a, const std::string& v) { a.entorno.perfil = NoVacio(v); }},
    {"--region", "es|en", "Signo decimal: coma (es) o punto (en)",
     [](Argumentos& a, const std::string& v) {
       a.entorno.region.decimal = ",."[Eleccion<2>(v, {"es", "en"})];
     }},
};

constexpr Opcion kDemo[] = {
    {"--carpeta", "DIR",
     "Carpeta donde se crea (demo); con --conexion odbc:…, sólo la de sus ficheros",
     [](Argumentos& a, const std::string& v) { a.carpeta = NoVacio(v); }},
    {"--facturas", "N", "Número de facturas (400)",
     [](Argumentos& a, const std::string& v) {
       a.numeroFacturas = EnteroEntre<std::int32_t>(v, 0, demo::kMaximoFacturas);
     }},
    {"--semilla", "S", "Semilla de los datos (1)",
     [](Argumentos& a, const std::string& v) { a.semilla = EnteroDesde<std::uint64_t>(v, 0); }},
    {"--sobrescribir", "", "Sustituye la base de datos que ya esté en la carpeta",
     [](Argumentos& a, const std::string& /*v*/) { a.sobrescribir = true; }},
};

void PonerDesde(Argumentos& a, const std::string& v) { a.desde = v; }
void PonerHasta(Argumentos& a, const std::string& v) { a.hasta = v; }
void PonerCliente(Argumentos& a, const std::string& v) {
  a.cliente = EnteroDesde<std::int32_t>(v, 1);
}

constexpr Opcion kDeCliente = {"--cliente", "N", "Cliente (obligatoria)", PonerCliente, true};
constexpr Opcion kDesde = {"--desde", "FECHA", "Primera fecha, dd/mm/aaaa (obligatoria)",
                           PonerDesde, true};
constexpr Opcion kHasta = {"--hasta", "FECHA", "Última fecha, dd/mm/aaaa (obligatoria)", PonerHasta,
                           true};
constexpr Opcion kTodas = {"--todas", "", "Todas las pendientes que no estén excluidas",
                           [](Argumentos& a, const std::string& /*v*/) { a.todas = true; }};
constexpr Opcion kTipo = {"--tipo", "todos|directa|ticket", "Sólo las de este tipo",
                          [](Argumentos& a, const std::string& v) {
                            a.tipo = Eleccion<3>(v, {"todos", "directa", "ticket"});
                          }};
constexpr Opcion kFacturas = {
    "--factura",
    "CLAVE ...",
    "EJERCICIO/SERIE/NUMERO[/TIPODOC], o FT:ALMACEN/CAJA/FECHA/NUMERO para una de ticket",
    PonerFactura,
    false,
    true};

constexpr Opcion kListar[] = {
    kDesde,
    kHasta,
    {"--cliente", "N", "Sólo las de este cliente", PonerCliente},
    {"--cadena", "TEXTO", "Sólo las de esta cadena, un código por nivel: 1/5",
     [](Argumentos& a, const std::string& v) { a.cadena = v; }},
    {"--estado", "todos|generadas|pendientes", "Sólo las de este estado",
     [](Argumentos& a, const std::string& v) {
       a.estado = Eleccion<3>(v, {"todos", "generadas", "pendientes"});
     }},
    kTipo,
    {"--json", "", "Da la lista en JSON, con los textos de las 20 columnas",
     [](Argumentos& a, const std::string& /*v*/) { a.json = true; }},
};

constexpr Opcion kDudosas = {
    "--dudosas", "reenviar|registrar",
    "Qué se hace con las que se interrumpieron y no se sabe si llegaron (nada)",
    [](Argumentos& a, const std::string& v) {
      constexpr std::array<std::string_view, 2> kOpciones = {"reenviar", "registrar"};
      a.dudosas =
          Eleccion(v, kOpciones) == 0 ? FacturasDudosas::kReenviar : FacturasDudosas::kRegistrar;
    }};

constexpr Opcion kEnviar[] = {kDeCliente, kDesde, kHasta, kTodas, kFacturas, kTipo, kDudosas};

constexpr Opcion kExportar[] = {
    kDeCliente,
    kDesde,
    kHasta,
    kTodas,
    kFacturas,
    kTipo,
    {"--carpeta", "DIR", "Carpeta, que ya existe, donde quedan los ficheros (obligatoria)",
     [](Argumentos& a, const std::string& v) { a.exportacion.carpeta = NoVacio(v); }, true},
    {"--revision", "N", "Número de revisión de la primera factura que se exporta (0)",
     [](Argumentos& a, const std::string& v) {
       a.exportacion.revision = EnteroDesde<std::int16_t>(v, 0);
     }},
};

constexpr Opcion kAnexosFactura = {
    "--factura", "CLAVE", "Factura (obligatoria), como en «facturas enviar»", PonerFactura, true};

constexpr Opcion kAnexosListar[] = {kDeCliente, kDesde, kHasta, kAnexosFactura};

constexpr Opcion kAnexosAnadir[] = {
    kDeCliente,
    kDesde,
    kHasta,
    kAnexosFactura,
    {"--fichero", "FICHERO", "Documento PDF que se anexa (obligatoria)",
     [](Argumentos& a, const std::string& v) { a.fichero = NoVacio(v); }, true},
    {"--descripcion", "TEXTO", "Descripción del documento (obligatoria)",
     [](Argumentos& a, const std::string& v) { a.descripcion = v; }, true},
};

constexpr Opcion kAnexosQuitar[] = {
    kDeCliente,
    kDesde,
    kHasta,
    kAnexosFactura,
    {"--nombre", "NOMBRE", "Nombre del fichero anexado (obligatoria)",
     [](Argumentos& a, const std::string& v) { a.nombre = NoVacio(v); }, true},
};

constexpr Opcion kPantallas[] = {
    {"--capturas", "DIR", "En vez de abrirlas, guarda sus imágenes en una carpeta que ya existe",
     [](Argumentos& a, const std::string& v) { a.capturas = NoVacio(v); }},
    {"--desde", "FECHA", "Primera fecha de la lista en las imágenes, dd/mm/aaaa", PonerDesde},
    {"--hasta", "FECHA", "Última fecha de la lista en las imágenes, dd/mm/aaaa", PonerHasta},
};

}  // namespace

std::span<const Opcion> OpcionesComunes() { return kComunes; }
std::span<const Opcion> OpcionesDemo() { return kDemo; }
std::span<const Opcion> OpcionesListar() { return kListar; }
std::span<const Opcion> OpcionesEnviar() { return kEnviar; }
std::span<const Opcion> OpcionesExportar() { return kExportar; }
std::span<const Opcion> OpcionesAnexosListar() { return kAnexosListar; }
std::span<const Opcion> OpcionesAnexosAnadir() { return kAnexosAnadir; }
std::span<const Opcion> OpcionesAnexosQuitar() { return kAnexosQuitar; }
std::span<const Opcion> OpcionesPantallas() { return kPantallas; }

}  // namespace kvraedi::cli
