#include "seres/factura_recibida.h"

#include <algorithm>
#include <array>
#include <span>
#include <utility>

#include "frame/codigo1252.h"
#include "frame/lector_texto.h"
#include "frame/numero.h"
#include "frame/recortar.h"
#include "kvraedi/error.h"
#include "seres/registros_recibidos.h"

namespace kvraedi {
namespace {

using recibida::kDescuento, recibida::kRectl, recibida::kSincc, recibida::kSincl, recibida::kSincp,
    recibida::kTexto;

/// One record of the file: fields that lie beyond its end are empty.
class RegistroRecibido {
 public:
  RegistroRecibido(std::string_view fichero, const LectorTexto& lector)
      : fichero_(fichero),
        linea_(lector.Linea()),
        tag_(Recortar(linea_.substr(0, recibida::kAnchoTag))),
        numero_(lector.Numero()) {}

  std::string_view Tag() const { return tag_; }
  std::size_t Ancho() const { return linea_.size(); }

  std::string_view Bytes(const Campo& campo) const {
    if (campo.posicion > linea_.size()) return {};
    return Recortar(linea_.substr(campo.posicion - 1, campo.ancho));
  }

  /// Without control characters: blanks stand for them.
  std::string Texto(const Campo& campo) const {
    std::string texto = Leer1252(Bytes(campo));
    for (char& c : texto) {
      if (static_cast<unsigned char>(c) < ' ') c = ' ';
    }
    return texto;
  }

  Currency Numero(const Campo& campo) const {
    const std::string_view texto = Bytes(campo);
    const auto numero = NumeroRecibido(texto);
    if (numero) return *numero;
    Rechazar(campo, (TieneFormaDeNumero(texto) ? "es demasiado grande: «" : "no es un número: «") +
                        Leer1252(texto) + "»");
  }

  [[noreturn]] void Fallar(const std::string& motivo) const {
    throw Error(kErrorFile, "LeerFacturaRecibida",
                "«" + std::string(fichero_) + "», línea " + std::to_string(numero_) +
                    ", registro " + Leer1252(tag_) + ": " + motivo);
  }

 private:
  [[noreturn]] void Rechazar(const Campo& campo, const std::string& motivo) const {
    Fallar("el campo " + std::string(campo.nombre) + " " + motivo);
  }

  std::string_view fichero_;
  std::string_view linea_;
  std::string_view tag_;
  std::int64_t numero_;
};

/// The texts of several fields, one behind the other.
std::string Unir(const RegistroRecibido& registro, std::span<const Campo> campos,
                 std::string_view separador) {
  std::string texto;
  for (const Campo& campo : campos) {
    if (&campo != campos.data()) texto += separador;
    texto += registro.Texto(campo);
  }
  return texto;
}

constexpr auto kNombre =
    std::to_array<Campo>({kSincp["Nombre1"], kSincp["Nombre2"], kSincp["Nombre3"],
                          kSincp["Nombre4"], kSincp["Nombre5"]});
constexpr auto kDireccion = std::to_array<Campo>(
    {kSincp["Direccion1"], kSincp["Direccion2"], kSincp["Direccion3"], kSincp["Direccion4"]});
constexpr auto kTextos = std::to_array<Campo>(
    {kTexto["Texto1"], kTexto["Texto2"], kTexto["Texto3"], kTexto["Texto4"], kTexto["Texto5"]});

std::string TextoLibre(const RegistroRecibido& registro) {
  std::string texto = Unir(registro, kTextos, " ");
  texto.erase(texto.find_last_not_of(' ') + 1);
  return texto;
}

/// Where the records of a file go.
struct Lectura {
  CabeceraRecibida& cabecera;
  ReceptorFactura& receptor;
  LineaRecibida linea;
  DescuentoRecibido descuento;
  bool hayCabecera = false;
  bool hayLineas = false;
};

void LeerRectl(const RegistroRecibido& registro, Lectura& lectura) {
  if (registro.Bytes(kRectl["TipoMensaje"]) == "INVOIC") lectura.cabecera.esFactura = true;
}

void LeerSincc(const RegistroRecibido& registro, Lectura& lectura) {
  CabeceraRecibida& cabecera = lectura.cabecera;
  lectura.hayCabecera = true;
  cabecera.tipoDocumento = registro.Texto(kSincc["TipoDocumento"]);
  cabecera.numero = registro.Texto(kSincc["Numero"]);
  cabecera.funcion = registro.Texto(kSincc["Funcion"]);
  const std::string dia = registro.Texto(kSincc["Dia"]);
  if (!dia.empty()) {
    cabecera.fecha =
        dia + "/" + registro.Texto(kSincc["Mes"]) + "/20" + registro.Texto(kSincc["Año"]);
  }
  cabecera.neto = registro.Numero(kSincc["NetoLineas"]);
  cabecera.base = registro.Numero(kSincc["Base"]);
  cabecera.impuestos = registro.Numero(kSincc["Impuestos"]);
  cabecera.total = registro.Numero(kSincc["Total"]);
}

void LeerSincp(const RegistroRecibido& registro, Lectura& lectura) {
  if (registro.Bytes(kSincp["Calificador"]) != "SCO") return;
  CabeceraRecibida& cabecera = lectura.cabecera;
  cabecera.gln = registro.Texto(kSincp["Gln"]);
  cabecera.nombre = Unir(registro, kNombre, "");
  cabecera.nif = registro.Texto(kSincp["Nif"]);
  cabecera.direccion = Unir(registro, kDireccion, "");
  cabecera.localidad = registro.Texto(kSincp["Localidad"]);
  cabecera.cp = registro.Texto(kSincp["Cp"]);
}

void LeerSinct(const RegistroRecibido& registro, Lectura& lectura) {
  std::string& observaciones = lectura.cabecera.observaciones;
  if (!observaciones.empty()) observaciones += "\r\n";
  observaciones += TextoLibre(registro);
}

const DescuentoRecibido& LeerDescuento(const RegistroRecibido& registro, Lectura& lectura) {
  DescuentoRecibido& descuento = lectura.descuento;
  descuento.numero = registro.Texto(kDescuento["Numero"]);
  descuento.cargo = registro.Bytes(kDescuento["Indicador"]) != "A";
  descuento.porcentaje = registro.Numero(kDescuento["Porcentaje"]);
  descuento.importe = registro.Numero(kDescuento["Importe"]);
  descuento.calificador = registro.Texto(kDescuento["Calificador"]);
  return descuento;
}

void LeerSincd(const RegistroRecibido& registro, Lectura& lectura) {
  lectura.receptor.Descuento(LeerDescuento(registro, lectura));
}

void LeerSince(const RegistroRecibido& registro, Lectura& lectura) {
  if (!lectura.hayLineas) registro.Fallar("es un descuento de línea y no hay ninguna línea");
  registro.Numero(kDescuento["Numero"]);
  lectura.receptor.DescuentoLinea(LeerDescuento(registro, lectura));
}

void LeerSincl(const RegistroRecibido& registro, Lectura& lectura) {
  LineaRecibida& linea = lectura.linea;
  linea.texto = false;
  linea.articulo = registro.Texto(kSincl["Articulo"]);
  linea.descripcion = registro.Texto(kSincl["Descripcion"]);
  linea.unidades = registro.Numero(kSincl["Unidades"]);
  linea.precioNeto = registro.Numero(kSincl["PrecioNeto"]);
  linea.precioBruto = registro.Numero(kSincl["PrecioBruto"]);
  linea.importe = registro.Numero(kSincl["Importe"]);
  lectura.hayLineas = true;
  lectura.receptor.Linea(linea);
}

void LeerSincu(const RegistroRecibido& registro, Lectura& lectura) {
  lectura.linea.texto = true;
  lectura.linea.descripcion = TextoLibre(registro);
  lectura.hayLineas = true;
  lectura.receptor.Linea(lectura.linea);
}

void Pasar(const RegistroRecibido& /*registro*/, Lectura& /*lectura*/) {}

constexpr std::size_t Fin(const Campo& campo) { return campo.posicion - 1 + campo.ancho; }

struct ClaseRegistro {
  std::string_view tag;
  std::size_t minimo;  ///< a last line that is shorter and has no end was cut off: it ends
                       ///< before the last field that has to be there
  void (*leer)(const RegistroRecibido& registro, Lectura& lectura);
};

constexpr ClaseRegistro kClases[] = {
    {"SINCL", recibida::kFinImportesSincl, LeerSincl},
    {"SINCE", Fin(kDescuento["Porcentaje"]), LeerSince},
    {"SINCU", kTexto["Texto1"].posicion, LeerSincu},
    {"RECTL", Fin(kRectl["TipoMensaje"]), LeerRectl},
    {"SINCC", Fin(kSincc["Total"]), LeerSincc},
    {"SINCP", Fin(kSincp["Calificador"]), LeerSincp},
    {"SINCT", kTexto["Texto1"].posicion, LeerSinct},
    {"SINCV", 38, Pasar},
    {"SINCD", Fin(kDescuento["Porcentaje"]), LeerSincd},
    {"SINCI", 56, Pasar},
};

constexpr ClaseRegistro kOtro{"", 0, Pasar};

const ClaseRegistro& ClaseDe(std::string_view tag) {
  const auto* const clase = std::find_if(std::begin(kClases), std::end(kClases),
                                         [&](const ClaseRegistro& c) { return c.tag == tag; });
  return clase == std::end(kClases) ? kOtro : *clase;
}

bool EsTrozoDeTag(std::string_view texto) {
  return std::any_of(std::begin(kClases), std::end(kClases), [&](const ClaseRegistro& clase) {
    return clase.tag.size() > texto.size() && clase.tag.starts_with(texto);
  });
}

void LeerRegistro(const RegistroRecibido& registro, bool terminado, Lectura& lectura) {
  constexpr std::string_view kFinDeFichero = "\x1a";  // some programs end a text file with it
  if (registro.Tag().empty() || registro.Tag() == kFinDeFichero) return;
  const ClaseRegistro& clase = ClaseDe(registro.Tag());
  const bool entero = registro.Ancho() >= clase.minimo && !EsTrozoDeTag(registro.Tag());
  if (!terminado && !entero) registro.Fallar("el fichero está cortado");
  clase.leer(registro, lectura);
}

struct NombreCodigo {
  std::string_view codigo;
  std::string_view nombre;
};

std::string_view Nombre(std::span<const NombreCodigo> nombres, std::string_view codigo) {
  for (const NombreCodigo& nombre : nombres) {
    if (nombre.codigo == codigo) return nombre.nombre;
  }
  return codigo;
}

}  // namespace

void LeerFacturaRecibida(std::unique_ptr<FileReader> fichero, std::string_view nombre,
                         CabeceraRecibida& cabecera, ReceptorFactura& receptor) {
  LectorTexto lector(std::move(fichero));
  Lectura lectura{cabecera, receptor, {}, {}};
  while (lector.Siguiente()) {
    LeerRegistro(RegistroRecibido(nombre, lector), lector.Terminada(), lectura);
  }
  if (lectura.hayCabecera) return;
  throw Error(kErrorFile, "LeerFacturaRecibida",
              "El fichero «" + std::string(nombre) + "» no contiene ninguna factura");
}

std::string_view NombreTipoDocumento(std::string_view codigo) {
  static constexpr NombreCodigo kNombres[] = {{"325", "PRO-FORMA"},     {"380", "COMERCIAL"},
                                              {"381", "NOTA DE ABONO"}, {"383", "NOTA DE CARGO"},
                                              {"385", "CONSOLIDADA"},   {"389", "AUTO-FACTURA"}};
  return Nombre(kNombres, codigo);
}

std::string_view NombreFuncion(std::string_view codigo) {
  static constexpr NombreCodigo kNombres[] = {{"9", "ORIGINAL"},
                                              {"7", "DUPLICADO"},
                                              {"31", "COPIA"},
                                              {"5", "SUSTITUTIVA"},
                                              {"43", "TRANSMISION ADICIONAL"}};
  return Nombre(kNombres, codigo);
}

std::string_view NombreCalificador(std::string_view codigo) {
  static constexpr NombreCodigo kNombres[] = {{"EAB", "PRONTO PAGO"},
                                              {"TD", "COMERCIAL"},
                                              {"FC", "FLETES"},
                                              {"PC", "EMBALAJES"},
                                              {"SH", "MONTAJES"}};
  return Nombre(kNombres, codigo);
}

}  // namespace kvraedi
