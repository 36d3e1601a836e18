#include "bench/suelo_coacsu.h"

#include <fcntl.h>
#include <unistd.h>

#include <stdexcept>

#include "bench/datos.h"

namespace kvraedi::bench {
namespace {

constexpr std::string_view kResumen =
    "SELECT c.Cta_Bancaria, f.FormaPago, f.ImporteB, (f.Dto1 + f.Dto2), f.Impuestos, f.Total,"
    " MIN(af.Fecha), MAX(af.Fecha), f.Ent_Nombre, f.Ent_Direccion, f.Ent_Localidad,"
    " f.Ent_Provincia, f.Ent_Cp, f.Ent_Pais, f.Ent_Nif, f.Ent_Telefono, f.Ent_Fax, f.Ent_Contacto"
    " FROM Albaranes_F af LEFT JOIN Facturas f ON f.Cod_Ejercicio = af.Cod_Ejercicio"
    " AND f.Cod_Empresa = af.Cod_Empresa AND f.Serie = af.Serie AND f.Codigo = af.Factura_Codigo"
    " AND f.Fecha = af.Fecha INNER JOIN Clientes c ON f.Cliente = c.Codigo"
    " LEFT JOIN Albaranes_F_Impuestos afi ON af.Cod_Ejercicio = afi.Cod_Ejercicio"
    " AND af.Cod_Empresa = afi.Cod_Empresa AND af.Serie = afi.Serie AND af.Codigo = afi.Codigo"
    " WHERE f.TipoFactura = 2 AND c.Codigo = ?1 AND f.Fecha BETWEEN ?2 AND ?3"
    " GROUP BY Cta_Bancaria, f.FormaPago, f.ImporteB, (f.Dto1 + f.Dto2), f.Impuestos, f.Total,"
    " f.Ent_Nombre, f.Ent_Direccion, f.Ent_Localidad, f.Ent_Provincia, f.Ent_Cp, f.Ent_Pais,"
    " f.Ent_Nif, f.Ent_Telefono, f.Ent_Fax, f.Ent_Contacto";

constexpr std::string_view kLineas =
    "SELECT af.Codigo, af.Fecha, afl.Precio, afl.PvpBase, af.Ent_Nombre, af.Ent_Direccion,"
    " af.Ent_Localidad, af.Ent_Provincia, af.Ent_Cp, af.Ent_Pais, af.Ent_Nif"
    " FROM Facturas f LEFT JOIN Albaranes_F af ON f.Cod_Ejercicio = af.Cod_Ejercicio"
    " AND f.Cod_Empresa = af.Cod_Empresa AND f.Serie = af.Serie AND f.Codigo = af.Factura_Codigo"
    " AND f.Fecha = af.Fecha LEFT JOIN Albaranes_F_Lineas afl"
    " ON af.Cod_Ejercicio = afl.Cod_Ejercicio AND af.Cod_Empresa = afl.Cod_Empresa"
    " AND af.Serie = afl.Serie AND af.Codigo = afl.Codigo INNER JOIN Clientes c"
    " ON f.Cliente = c.Codigo WHERE afl.Cod_Articulo <> -1 AND f.TipoFactura = 2"
    " AND c.Codigo = ?1 AND f.Fecha BETWEEN ?2 AND ?3";

// Records with their line ends.
constexpr std::size_t kBytesRectl = 136;
constexpr std::size_t kBytesCabecera = 367 + 364 + 597 + 119;
constexpr std::size_t kBytesPorLinea = 80 + 472 + 32;
constexpr std::size_t kBloque = std::size_t{64} * 1024;

void Comprobar(bool bien) {
  if (!bien) throw std::runtime_error("file operation of the floor failed");
}

void PonerSeleccion(SentenciaSuelo& sentencia) {
  sentencia.Poner({kCliente});
  sentencia.PonerTexto(2, kDesde);
  sentencia.PonerTexto(3, kHasta);
}

}  // namespace

SueloCoacsu::SueloCoacsu(const BaseSuelo& base) : resumen_(base, kResumen), lineas_(base, kLineas) {
  bloque_.reserve(2 * kBloque);
}

void SueloCoacsu::Generar(const std::filesystem::path& fichero) {
  PonerSeleccion(resumen_);
  fichero_ = ::open(fichero.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0644);
  Comprobar(fichero_ >= 0);
  Anadir(kBytesRectl);
  while (resumen_.Paso()) Mensaje();
  Vaciar();
  Comprobar(::close(fichero_) == 0);
}

void SueloCoacsu::Mensaje() {
  fila_.clear();
  resumen_.CopiarFila(fila_);
  Anadir(kBytesCabecera);
  PonerSeleccion(lineas_);
  while (lineas_.Paso()) {
    fila_.clear();
    lineas_.CopiarFila(fila_);
    Anadir(kBytesPorLinea);
  }
}

void SueloCoacsu::Anadir(std::size_t bytes) {
  bloque_.append(bytes, ' ');
  if (bloque_.size() >= kBloque) Vaciar();
}

void SueloCoacsu::Vaciar() {
  const auto bytes = static_cast<ssize_t>(bloque_.size());
  Comprobar(::write(fichero_, bloque_.data(), bloque_.size()) == bytes);
  bloque_.clear();
}

}  // namespace kvraedi::bench
