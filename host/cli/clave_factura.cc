#include "host/cli/clave_factura.h"

#include <vector>

#include "host/cli/columnas.h"
#include "host/cli/numeros.h"

namespace kvraedi::cli {
namespace {

constexpr std::string_view kPrefijoTicket = "FT:";

std::vector<std::string_view> Partir(std::string_view texto) {
  std::vector<std::string_view> piezas;
  for (;;) {
    const std::size_t barra = texto.find('/');
    piezas.push_back(texto.substr(0, barra));
    if (barra == std::string_view::npos) return piezas;
    texto.remove_prefix(barra + 1);
  }
}

bool Vale(const ui::Grid& lista, int fila, Columna columna, std::int64_t numero) {
  return Entero<std::int64_t>(lista.Cell(fila, columna)) == numero;
}

}  // namespace

std::optional<ClaveFactura::Directa> ClaveFactura::LeerDirecta(std::string_view texto) {
  constexpr std::size_t kSinTipo = 3, kConTipo = 4;
  const auto piezas = Partir(texto);
  if (piezas.size() != kSinTipo && piezas.size() != kConTipo) return std::nullopt;
  std::vector<std::int64_t> numeros;
  for (const auto pieza : piezas) {
    const auto numero = Entero<std::int64_t>(pieza);
    if (!numero) return std::nullopt;
    numeros.push_back(*numero);
  }
  Directa clave{numeros[0], numeros[1], numeros[2], std::nullopt};
  if (numeros.size() == kConTipo) clave.tipoDoc = numeros[3];
  return clave;
}

std::optional<ClaveFactura::Ticket> ClaveFactura::LeerTicket(std::string_view texto) {
  // The date has slashes of its own: it is what stands between the second and the last.
  const std::size_t primera = texto.find('/');
  const std::size_t segunda = texto.find('/', primera + 1);
  const std::size_t ultima = texto.rfind('/');
  if (primera == std::string_view::npos || segunda == std::string_view::npos ||
      ultima <= segunda + 1) {
    return std::nullopt;
  }
  const auto almacen = Entero<std::int64_t>(texto.substr(0, primera));
  const auto caja = Entero<std::int64_t>(texto.substr(primera + 1, segunda - primera - 1));
  const auto fecha = FechaHora::Parse(texto.substr(segunda + 1, ultima - segunda - 1));
  const auto numero = Entero<std::int64_t>(texto.substr(ultima + 1));
  if (!almacen || !caja || !fecha || !numero) return std::nullopt;
  return Ticket{*almacen, *caja, *fecha, *numero};
}

std::optional<ClaveFactura> ClaveFactura::Leer(std::string_view texto) {
  ClaveFactura clave;
  clave.texto_ = texto;
  if (texto.starts_with(kPrefijoTicket)) {
    const auto ticket = LeerTicket(texto.substr(kPrefijoTicket.size()));
    if (!ticket) return std::nullopt;
    clave.clave_ = *ticket;
  } else {
    const auto directa = LeerDirecta(texto);
    if (!directa) return std::nullopt;
    clave.clave_ = *directa;
  }
  return clave;
}

std::string ClaveFactura::De(const ui::Grid& lista, int fila) {
  const auto unir = [&](std::string texto, std::initializer_list<Columna> columnas) {
    for (const Columna columna : columnas) {
      texto += lista.Cell(fila, columna);
      texto += '/';
    }
    texto.pop_back();
    return texto;
  };
  if (lista.IsSet(fila, kTipoNum)) {
    return unir(std::string(kPrefijoTicket), {kAlmacenFt, kCajaFt, kFechaFt, kCodigoFt});
  }
  return unir({}, {kEjercicio, kSerie, kFactura, kTipoDoc});
}

bool ClaveFactura::Coincide(const ui::Grid& lista, int fila) const {
  const bool esTicket = lista.IsSet(fila, kTipoNum);
  if (const auto* const ticket = std::get_if<Ticket>(&clave_)) {
    return esTicket && Vale(lista, fila, kCodigoFt, ticket->numero) &&
           Vale(lista, fila, kAlmacenFt, ticket->almacen) &&
           Vale(lista, fila, kCajaFt, ticket->caja) &&
           FechaHora::Parse(lista.Cell(fila, kFechaFt)) == ticket->fecha;
  }
  const auto& directa = std::get<Directa>(clave_);
  return !esTicket && Vale(lista, fila, kFactura, directa.numero) &&
         Vale(lista, fila, kSerie, directa.serie) &&
         Vale(lista, fila, kEjercicio, directa.ejercicio) &&
         (!directa.tipoDoc || Vale(lista, fila, kTipoDoc, *directa.tipoDoc));
}

}  // namespace kvraedi::cli
