#include "frame/formato.h"
#include "frame/numero.h"
#include "frame/registro.h"
#include "seres/escritores_invoic.h"
#include "seres/registros_invoic.h"

namespace kvraedi::invoic {
namespace {

constexpr std::int64_t kLineaDeTexto = -1;

enum Columna : std::size_t {
  kNumero,
  kArticulo,
  kDescripcion,
  kUnidades,
  kPrecio,
  kPrecioBruto,
  kPorcentaje,
  kDescuento,
  kImpuesto,
  kBultos
};

constexpr std::string_view kColumnas[] = {"Num_Linea", "Cod_Articulo", "Descripcion", "Unidades",
                                          "Precio",    "PrecioG",      "PDescuento",  "Descuento",
                                          "Impuesto",  "Bultos"};

/// The text of a number as it is stored, with no more decimals than its field has room for.
std::string_view SinDecimalesDeMas(std::string_view numero, const Campo& campo) {
  const auto punto = numero.find('.');
  if (numero.size() <= campo.ancho || punto == std::string_view::npos || punto > campo.ancho) {
    return numero;
  }
  numero = numero.substr(0, campo.ancho);
  return numero.ends_with('.') ? numero.substr(0, punto) : numero;
}

void EscribirSincl(const Mensaje& mensaje, const Fila& linea) {
  const auto unidades = linea.Get<Currency>(kUnidades);
  const auto precio = linea.Get<Currency>(kPrecio);
  const auto neto =
      Redondear(ImporteConDescuento(precio, unidades, linea.Get<Currency>(kPorcentaje)), 3);
  const auto numero = Currency::FromInteger(linea.Get<std::int32_t>(kNumero));

  Registro registro(kSincl);
  registro.Texto(kSincl["Tag"], "SINCL");
  registro.Numero(kSincl["Linea"], NumeroMensaje(numero, "000000"));
  registro.Numero(kSincl["Articulo"], std::to_string(linea.Get<std::int64_t>(kArticulo)));
  registro.Texto(kSincl["Descripcion"], linea.GetOrEmpty<std::string_view>(kDescripcion));
  registro.Texto(kSincl["Clase"], "M");
  registro.Numero(kSincl["Unidades"], NumeroMensaje(unidades, "0.000"));
  registro.Numero(kSincl["Neto"], NumeroMensaje(neto, "0.000"));
  registro.Numero(kSincl["Precio"], NumeroMensaje(precio, "0.0000"));
  registro.Numero(kSincl["PrecioBruto"],
                  NumeroMensaje(linea.Get<Currency>(kPrecioBruto), "0.0000"));
  if (mensaje.empresa.AplicaIGIC()) {
    const auto codigo = linea.Get<std::int16_t>(kImpuesto);
    registro.Texto(kSincl["Impuesto"], "IGI");
    registro.Numero(kSincl["TasaImpuesto"],
                    NumeroMensaje(mensaje.empresa.PorcentajeImpuesto(codigo), "0.00"));
  }
  registro.Numero(kSincl["Bultos"],
                  SinDecimalesDeMas(linea.Get<std::string_view>(kBultos), kSincl["Bultos"]));
  mensaje.fichero.Linea(registro.Linea());
}

void EscribirSince(const Mensaje& mensaje, Currency porcentaje) {
  Registro registro(kSince);
  registro.Texto(kSince["Tag"], "SINCE");
  registro.Texto(kSince["Numero"], "1");
  registro.Texto(kSince["Indicador"], "A");
  registro.Texto(kSince["Secuencia"], "1");
  registro.Numero(kSince["Porcentaje"], NumeroMensaje(porcentaje, "0.0000"));
  mensaje.fichero.Linea(registro.Linea());
}

void EscribirLinea(const Mensaje& mensaje, const Fila& linea) {
  if (linea.Get<std::int64_t>(kArticulo) == kLineaDeTexto) {
    EscribirTextoLibre(mensaje.fichero, "SINCU", linea.GetOrEmpty<std::string_view>(kDescripcion));
    return;
  }
  EscribirSincl(mensaje, linea);
  if (linea.GetOrEmpty<Currency>(kDescuento) > Currency()) {
    EscribirSince(mensaje, linea.Get<Currency>(kPorcentaje));
  }
}

}  // namespace

void EscribirLineas(const Mensaje& mensaje) {
  const auto lineas =
      mensaje.conexion.Open(ConsultaLineas(mensaje.clave, mensaje.empresa.EmpresaClientes()));
  const Fila linea(*lineas, kColumnas);
  for (; !lineas->Eof(); lineas->MoveNext()) {
    ConLugar([&] { return "línea " + linea.GetOrEmpty<std::string>(kNumero); },
             [&] { EscribirLinea(mensaje, linea); });
  }
}

}  // namespace kvraedi::invoic
