#include "frame/formato.h"
#include "frame/numero.h"
#include "frame/registro.h"
#include "seres/escritores_invoic.h"
#include "seres/registros_invoic.h"

namespace kvraedi::invoic {
namespace {

constexpr std::int64_t kLineaDeTexto = -1;

/// Places of the line query's fields, looked up once for all lines.
struct Columnas {
  explicit Columnas(const Recordset& lineas)
      : numero(lineas.Field("Num_Linea")),
        articulo(lineas.Field("Cod_Articulo")),
        descripcion(lineas.Field("Descripcion")),
        unidades(lineas.Field("Unidades")),
        precio(lineas.Field("Precio")),
        precioBruto(lineas.Field("PrecioG")),
        porcentaje(lineas.Field("PDescuento")),
        descuento(lineas.Field("Descuento")),
        impuesto(lineas.Field("Impuesto")),
        bultos(lineas.Field("Bultos")) {}

  int numero, articulo, descripcion, unidades, precio, precioBruto, porcentaje, descuento, impuesto,
      bultos;
};

void EscribirSincl(const Mensaje& mensaje, const Recordset& lineas, const Columnas& columna) {
  const auto unidades = lineas.Get<Currency>(columna.unidades);
  const auto precio = lineas.Get<Currency>(columna.precio);
  const auto neto =
      Redondear(ImporteConDescuento(precio, unidades, lineas.Get<Currency>(columna.porcentaje)), 3);
  const auto numero = Currency::FromInteger(lineas.Get<std::int32_t>(columna.numero));

  Registro registro(kSincl);
  registro.Texto(kSincl["Tag"], "SINCL");
  registro.Numero(kSincl["Linea"], NumeroMensaje(numero, "000000"));
  registro.Numero(kSincl["Articulo"], std::to_string(lineas.Get<std::int64_t>(columna.articulo)));
  registro.Texto(kSincl["Descripcion"], lineas.GetOrEmpty<std::string_view>(columna.descripcion));
  registro.Texto(kSincl["Clase"], "M");
  registro.Numero(kSincl["Unidades"], NumeroMensaje(unidades, "0.000"));
  registro.Numero(kSincl["Neto"], NumeroMensaje(neto, "0.000"));
  registro.Numero(kSincl["Precio"], NumeroMensaje(precio, "0.0000"));
  registro.Numero(kSincl["PrecioBruto"],
                  NumeroMensaje(lineas.Get<Currency>(columna.precioBruto), "0.0000"));
  if (mensaje.empresa.AplicaIGIC()) {
    const auto codigo = lineas.Get<std::int16_t>(columna.impuesto);
    registro.Texto(kSincl["Impuesto"], "IGI");
    registro.Numero(kSincl["TasaImpuesto"],
                    NumeroMensaje(mensaje.empresa.PorcentajeImpuesto(codigo), "0.00"));
  }
  registro.Numero(kSincl["Bultos"], lineas.Get<std::string_view>(columna.bultos));
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

}  // namespace

void EscribirLineas(const Mensaje& mensaje) {
  const auto lineas =
      mensaje.conexion.Open(ConsultaLineas(mensaje.clave, mensaje.empresa.EmpresaClientes()));
  const Columnas columna(*lineas);
  for (; !lineas->Eof(); lineas->MoveNext()) {
    if (lineas->Get<std::int64_t>(columna.articulo) == kLineaDeTexto) {
      EscribirTextoLibre(mensaje.fichero, "SINCU",
                         lineas->GetOrEmpty<std::string_view>(columna.descripcion));
      continue;
    }
    EscribirSincl(mensaje, *lineas, columna);
    if (lineas->GetOrEmpty<Currency>(columna.descuento) > Currency()) {
      EscribirSince(mensaje, lineas->Get<Currency>(columna.porcentaje));
    }
  }
}

}  // namespace kvraedi::invoic
