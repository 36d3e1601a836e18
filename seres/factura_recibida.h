#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "kvraedi/entorno.h"
#include "kvraedi/valor.h"

namespace kvraedi {

/// What stands above the lines of a received invoice. Codes are those of the message.
struct CabeceraRecibida {
  bool esFactura = false;  ///< the transmission says that it carries an INVOIC message
  std::string tipoDocumento;
  std::string numero;
  std::string funcion;
  std::string fecha;  ///< "dd/mm/20yy" as it stands in the file, not checked
  /// The amounts hold nothing until they are read.
  std::optional<Currency> neto;
  std::optional<Currency> base;
  std::optional<Currency> impuestos;
  std::optional<Currency> total;
  std::string gln;
  std::string nombre;
  std::string nif;
  std::string direccion;
  std::string localidad;
  std::string cp;
  std::string observaciones;  ///< paragraphs with CR LF between two of them
};

/// A line of the invoice: an article, or a text alone.
struct LineaRecibida {
  bool texto = false;  ///< only `descripcion` counts
  std::string articulo;
  std::string descripcion;
  Currency unidades;
  Currency precioNeto;
  Currency precioBruto;
  Currency importe;
};

/// A discount or charge of the invoice or of a line.
struct DescuentoRecibido {
  std::string numero;
  bool cargo = false;  ///< a charge, not a discount
  Currency porcentaje;
  Currency importe;
  std::string calificador;  ///< code of the message
};

/// Takes what is read, record by record. The objects are used again for the next record.
class ReceptorFactura {
 public:
  virtual ~ReceptorFactura() = default;
  virtual void Linea(const LineaRecibida& linea) = 0;
  virtual void Descuento(const DescuentoRecibido& descuento) = 0;
  /// A discount of the line taken last; there is one.
  virtual void DescuentoLinea(const DescuentoRecibido& descuento) = 0;
};

/// Reads a received INVOIC file of one-byte characters to its end; records of other tags are passed
/// over. Raises `Error` with the file's name, line and record at the first record that cannot be
/// read: cut off, a field that should be a number and is none, a discount before any line; and at
/// the end when there was no invoice header. What was read until then has been given to `cabecera`
/// and `receptor`. Neither the file nor its lines are kept in memory.
void LeerFacturaRecibida(std::unique_ptr<FileReader> fichero, std::string_view nombre,
                         CabeceraRecibida& cabecera, ReceptorFactura& receptor);

/// Names of the codes of a message; a code without a name stands for itself.
std::string_view NombreTipoDocumento(std::string_view codigo);
std::string_view NombreFuncion(std::string_view codigo);
std::string_view NombreCalificador(std::string_view codigo);

}  // namespace kvraedi
