#include "host/demo/factura_proveedor.h"

#include "host/demo/datos.h"
#include "host/demo/fichero_invoic.h"

namespace kvraedi::demo {
namespace {

constexpr std::int64_t kEscala = 10000;
constexpr std::int64_t kIgic = 7;
constexpr std::int32_t kLarga = 71;  // the invoice with many lines
constexpr std::int32_t kAbono = 70;  // the credit note
constexpr int kLineasLarga = 140;

std::int64_t ACentimos(std::int64_t valor) { return (valor + (valor < 0 ? -50 : 50)) / 100 * 100; }

std::string DosCifras(int valor) { return (valor < 10 ? "0" : "") + std::to_string(valor); }

std::string D8(const FechaHora& fecha) {
  return "21" + DosCifras(fecha.year % 100) + DosCifras(fecha.month) + DosCifras(fecha.day);
}

class Redactor {
 public:
  Redactor(const ProveedorMensaje& proveedor, std::int32_t numero, const FechaHora& fecha,
           Azar& azar)
      : proveedor_(proveedor), numero_(numero), fecha_(fecha), azar_(azar) {}

  FacturaProveedor Redactar() {
    const int lineas = numero_ == kLarga ? kLineasLarga : static_cast<int>(azar_.Entre(2, 9));
    for (int i = 1; i <= lineas; ++i) Linea(i);
    if (numero_ % 6 == 1) lineas_.Texto("SINCU", {"Envases a devolver en la próxima entrega."});
    const std::int64_t descuento = numero_ % 4 == 1 ? ACentimos(neto_ * 2 / 100) : 0;
    const std::int64_t base = neto_ - descuento;
    const std::int64_t impuestos = ACentimos(base * kIgic / 100);
    Cabecera(base, impuestos);
    Partes();
    Textos();
    if (descuento != 0) Descuentos();
    std::string bytes = cabecera_.Bytes() + lineas_.Bytes();
    FicheroInvoic final;
    final.Registro("SINCI", 56,
                   {{7, "1"},
                    {9, "IGI"},
                    {15, "7.00", 6},
                    {21, DecimalMensaje(impuestos, 3), 18},
                    {39, DecimalMensaje(base, 3), 18}});
    return {proveedor_.codigo, Documento(), Currency::FromUnits(base + impuestos),
            bytes + final.Bytes()};
  }

 private:
  std::string Documento() const {
    const std::string numero = std::to_string(fecha_.year % 100 * 100000 + numero_);
    return numero_ % 3 == 0 ? "FV-" + numero : numero;
  }

  void Cabecera(std::int64_t base, std::int64_t impuestos) {
    cabecera_.Registro("RECTL", 134,
                       {{7, "INVOIC"},
                        {13, proveedor_.gln},
                        {48, "8437000111115"},
                        {83, "DEMO" + std::to_string(numero_)},
                        {123, D8(fecha_) + "0930"}});
    cabecera_.Registro("SINCC", 370,
                       {{7, numero_ == kAbono ? "381" : "380"},
                        {13, Documento()},
                        {30, numero_ % 10 == 4 ? "31" : "9"},
                        {36, D8(fecha_)},
                        {160, "EUR"},
                        {174, DecimalMensaje(neto_, 3), 18},
                        {192, DecimalMensaje(base, 3), 18},
                        {210, DecimalMensaje(bruto_, 3), 18},
                        {228, DecimalMensaje(impuestos, 3), 18},
                        {246, DecimalMensaje(base + impuestos, 3), 18}});
  }

  void Partes() {
    for (const char* calificador : {"SU", "SCO"}) {
      cabecera_.Registro("SINCP", 773,
                         {{7, calificador},
                          {10, proveedor_.gln},
                          {27, "9"},
                          {30, proveedor_.nombre},
                          {205, proveedor_.direccion},
                          {345, proveedor_.localidad},
                          {389, proveedor_.cp},
                          {398, "ES"},
                          {401, proveedor_.nif}});
    }
    cabecera_.Registro("SINCP", 773, {{7, "BY"}, {10, "8437000111115"}, {30, "Kestrova Islas"}});
  }

  void Textos() {
    if (numero_ % 4 <= 1) {
      cabecera_.Texto("SINCT",
                      {"Mercancía entregada según albarán.", "Plazo de reclamación: 7 días."});
    }
    if (numero_ % 8 == 0) {
      cabecera_.Texto("SINCT",
                      {"Los envases retornables se abonan al recibirlos en nuestro almacén"});
    }
  }

  void Descuentos() {
    cabecera_.Registro("SINCD", 139,
                       {{7, "1", 2}, {9, "A"}, {10, "1"}, {13, "2.0000", 9}, {74, "EAB"}});
    cabecera_.Registro("SINCD", 139,
                       {{7, "2", 2}, {9, "C"}, {10, "2"}, {22, "0.000", 18}, {74, "FC"}});
  }

  void Linea(int i) {
    const ArticuloDemo& articulo = azar_.Elegir(kArticulos);
    const std::int64_t unidades = azar_.Entre(1, 48) * (numero_ == kAbono ? -1 : 1);
    const std::int64_t dto = azar_.UnaDe(3) ? azar_.Entre(1, 6) * 5 : 0;
    const std::int64_t precio = articulo.precio * (100 - dto) / 100;
    const std::int64_t importe = ACentimos(precio * unidades);
    neto_ += importe;
    bruto_ += ACentimos(articulo.precio * unidades);
    lineas_.Registro("SINCL", 523,
                     {{7, std::to_string(i), 6},
                      {13, std::to_string(articulo.codigo)},
                      {28, std::string(articulo.descripcion)},
                      {63, "M"},
                      {139, DecimalMensaje(unidades * kEscala, 3), 16},
                      {209, DecimalMensaje(importe, 3), 18},
                      {227, DecimalMensaje(precio, 4), 16},
                      {243, DecimalMensaje(articulo.precio, 4), 16}});
    if (dto == 0) return;
    lineas_.Registro(
        "SINCE", 149,
        {{7, "1", 2}, {9, "A"}, {10, "1"}, {13, DecimalMensaje(dto * kEscala, 4), 9}, {74, "TD"}});
    if (i % 4 != 0) return;
    lineas_.Registro("SINCE", 149,
                     {{7, "2", 2}, {9, "C"}, {10, "2"}, {22, "1.500", 18}, {74, "PC"}});
  }

  const ProveedorMensaje& proveedor_;
  const std::int32_t numero_;
  const FechaHora fecha_;
  Azar& azar_;
  FicheroInvoic cabecera_;
  FicheroInvoic lineas_;
  std::int64_t neto_ = 0;
  std::int64_t bruto_ = 0;
};

}  // namespace

FacturaProveedor InventarFactura(const ProveedorMensaje& proveedor, std::int32_t numero,
                                 const FechaHora& fecha, Azar& azar) {
  return Redactor(proveedor, numero, fecha, azar).Redactar();
}

}  // namespace kvraedi::demo
