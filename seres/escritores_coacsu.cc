#include "seres/escritores_coacsu.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "frame/fila.h"
#include "frame/formato.h"
#include "seres/campos_consulta.h"
#include "seres/registros_coacsu.h"
#include "seres/registros_invoic.h"

namespace kvraedi::coacsu {
namespace {

constexpr std::string_view kFecha = "yyyymmdd";

constexpr auto kParte = std::to_array<CampoConsulta>({{kScoap["Nombre"], "Nombre"},
                                                      {kScoap["Direccion"], "Direccion"},
                                                      {kScoap["Localidad"], "Localidad"},
                                                      {kScoap["Provincia"], "Provincia"},
                                                      {kScoap["Cp"], "Cp"},
                                                      {kScoap["Pais"], "Pais"},
                                                      {kScoap["Nif"], "Nif"},
                                                      {kScoap["Contacto"], "Contacto"},
                                                      {kScoap["Nombre2"], "Nombre"},
                                                      {kScoap["Telefono"], "Telefono"},
                                                      {kScoap["Fax"], "Fax"}});

constexpr auto kEntrega = std::to_array<CampoConsulta>({{kScoaq["Nombre"], "Nombre"},
                                                        {kScoaq["Direccion"], "Direccion"},
                                                        {kScoaq["Localidad"], "Localidad"},
                                                        {kScoaq["Provincia"], "Provincia"},
                                                        {kScoaq["Cp"], "Cp"},
                                                        {kScoaq["Pais"], "Pais"},
                                                        {kScoaq["Nif"], "Nif"}});

/// Forms of payment of the suite, from one code to another, and the message's code for them.
struct MedioPago {
  std::int16_t desde;
  std::int16_t hasta;
  std::string_view codigo;
};
constexpr auto kMediosPago = std::to_array<MedioPago>(
    {{0, 4, "60"}, {5, 5, "20"}, {6, 6, "42"}, {10, 11, "42"}, {20, 20, "42"}, {30, 30, "10"}});

std::optional<std::string_view> CodigoMedioPago(const Fila& resumen) {
  if (resumen.IsNull("FormaPago")) return std::nullopt;
  const auto forma = resumen.Get<std::int16_t>("FormaPago");
  const auto* const medio =
      std::find_if(kMediosPago.begin(), kMediosPago.end(), [&](const MedioPago& candidato) {
        return forma >= candidato.desde && forma <= candidato.hasta;
      });
  if (medio == kMediosPago.end()) return std::nullopt;
  return medio->codigo;
}

template <class Columna>
std::string Importe(const Fila& fila, Columna columna, char decimal) {
  return FormatearNumero(fila.Get<Currency>(columna), "0.000", decimal);
}

template <class Columna>
std::string Dia(const Fila& fila, Columna columna) {
  return FormatearFecha(fila.Get<FechaHora>(columna), kFecha);
}

void EscribirScoac(EscritorTexto& fichero, const Fila& resumen, const FechaHora& hoy) {
  Registro registro(kScoac);
  registro.Texto(kScoac["Tag"], "SCOAC");
  registro.Texto(kScoac["Clase"], "49E");
  registro.Texto(kScoac["Relacion"], "RELFAC");
  registro.Texto(kScoac["Hoy"], FormatearFecha(hoy, kFecha));
  registro.Texto(kScoac["FechaInicio"], Dia(resumen, "FechaInicio"));
  registro.Texto(kScoac["FechaFin"], Dia(resumen, "FechaFin"));
  registro.Texto(kScoac["Divisa"], "EUR");
  registro.Texto(kScoac["CuentaBancaria"], resumen.GetOrEmpty<std::string_view>("Cta_Bancaria"));
  registro.Numero(kScoac["Bruto"], Importe(resumen, "ImporteB", '.'));
  registro.Numero(kScoac["Descuento"], Importe(resumen, "Dto", '.'));
  registro.Numero(kScoac["Impuestos"], Importe(resumen, "Impuestos", '.'));
  registro.Numero(kScoac["Total"], Importe(resumen, "Total", '.'));
  if (const auto medio = CodigoMedioPago(resumen)) {
    registro.Texto(kScoac["MedioPago"], *medio);
  } else {
    // The platform expects the record without the field, not with a blank one.
    registro.Quitar(kScoac["MedioPago"]);
  }
  fichero.Linea(registro.Linea());
}

void EscribirScoat(EscritorTexto& fichero) {
  Registro registro(kScoat);
  registro.Texto(kScoat["Tag"], "SCOAT");
  registro.Texto(kScoat["Calificador"], "AAI");
  fichero.Linea(registro.Linea());
}

void EscribirScoap(EscritorTexto& fichero, const Fila& resumen) {
  Registro registro(kScoap);
  registro.Texto(kScoap["Tag"], "SCOAP");
  registro.Texto(kScoap["Calificador"], "IV");
  registro.Texto(kScoap["Agencia"], "EAN");
  CopiarCampos(registro, resumen.Registros(), kParte);
  fichero.Linea(registro.Linea());
}

void EscribirScoad(EscritorTexto& fichero, const Fila& resumen) {
  Registro registro(kScoad);
  registro.Texto(kScoad["Tag"], "SCOAD");
  registro.Texto(kScoad["Clase"], "131");
  registro.Numero(kScoad["Descuento"], Importe(resumen, "Dto", ','));
  for (const Campo& impuesto : {kScoad["Impuesto1"], kScoad["Impuesto2"], kScoad["Impuesto3"]}) {
    registro.Texto(impuesto, "VAT");
  }
  fichero.Linea(registro.Linea());
}

/// The three records of a delivery line, written anew for every row: the places of the columns and
/// the fields that never change are set once.
class Albaran {
 public:
  explicit Albaran(const Recordset& lineas);
  void Escribir(EscritorTexto& fichero);

 private:
  enum Columna : std::size_t { kNumero, kFechaAlbaran, kPrecio, kPvpBase };
  static constexpr std::string_view kColumnas[] = {"NumDocumento", "Fecha", "Precio", "PvpBase"};

  Fila linea_;
  std::vector<int> entrega_;
  Registro scoal_{kScoal};
  Registro scoaq_{kScoaq};
  Registro scoaa_{kScoaa};
};

Albaran::Albaran(const Recordset& lineas)
    : linea_(lineas, kColumnas), entrega_(Columnas(lineas, kEntrega)) {
  scoal_.Texto(kScoal["Tag"], "SCOAL");
  scoal_.Texto(kScoal["Clase"], "351");
  scoaq_.Texto(kScoaq["Tag"], "SCOAQ");
  scoaq_.Texto(kScoaq["Calificador"], "IV");
  scoaq_.Texto(kScoaq["Agencia"], "9");
  scoaa_.Texto(kScoaa["Tag"], "SCOAA");
  scoaa_.Texto(kScoaa["Clase"], "1");
  scoaa_.Texto(kScoaa["Calificador"], "165");
}

void Albaran::Escribir(EscritorTexto& fichero) {
  scoal_.Numero(kScoal["Albaran"], linea_.Get<std::string_view>(kNumero));
  scoal_.Texto(kScoal["Fecha"], Dia(linea_, kFechaAlbaran));
  scoal_.Numero(kScoal["Precio"], Importe(linea_, kPrecio, ','));
  scoal_.Numero(kScoal["PvpBase"], Importe(linea_, kPvpBase, ','));
  CopiarCampos(scoaq_, linea_.Registros(), kEntrega, entrega_);
  for (const Registro* registro : {&scoal_, &scoaq_, &scoaa_}) fichero.Linea(registro->Linea());
}

}  // namespace

void EscribirRectl(EscritorTexto& fichero, const FechaHora& momento) {
  Registro registro(invoic::kRectl);
  registro.Texto(invoic::kRectl["Tag"], "RECTL");
  registro.Texto(invoic::kRectl["TipoMensaje"], "COACSU");
  registro.Texto(invoic::kRectl["Momento"], FormatearFecha(momento, "21yymmddhhnn"));
  fichero.Linea(registro.Linea());
}

void EscribirCabecera(EscritorTexto& fichero, const Recordset& fila, const FechaHora& hoy) {
  const Fila resumen(fila);
  EscribirScoac(fichero, resumen, hoy);
  EscribirScoat(fichero);
  EscribirScoap(fichero, resumen);
  EscribirScoad(fichero, resumen);
}

void EscribirAlbaranes(EscritorTexto& fichero, Recordset& lineas) {
  Albaran albaran(lineas);
  for (std::int64_t numero = 1; !lineas.Eof(); ++numero, lineas.MoveNext()) {
    ConLugar([&] { return "albarán " + std::to_string(numero); },
             [&] { albaran.Escribir(fichero); });
  }
}

}  // namespace kvraedi::coacsu
