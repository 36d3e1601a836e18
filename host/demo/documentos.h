#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/demo/azar.h"
#include "host/demo/maestros.h"
#include "host/demo/tabla.h"

namespace kvraedi::demo {

/// Deals customers in rounds: every round serves each of them once, in a new order.
class Reparto {
 public:
  Reparto(const std::vector<Cliente>& clientes, Azar& azar);
  const Cliente& Siguiente();

 private:
  std::vector<const Cliente*> orden_;
  std::size_t puesto_;
  Azar& azar_;
};

/// Date of document `i` of `n`: they run in order from 01/01/2025 to 22/11/2026.
FechaHora FechaDocumento(std::int64_t i, std::int64_t n);
/// A moment of that day between 8:00 and 20:00.
FechaHora HoraComercial(const FechaHora& fecha, Azar& azar);

/// Writes what has been sent of a document before, and its attachments.
class Envios {
 public:
  Envios(Connection& conexion, Azar& azar);

  /// `vez` counts the documents; it decides what happened to this one.
  void Factura(const Cliente& cliente, const Clave& clave, const FechaHora& hora, std::int32_t vez);
  void Ticket(const Cliente& cliente, const ClaveTicket& clave, const FechaHora& hora,
              std::int32_t vez);

 private:
  std::string Identificador(const Cliente& cliente, std::int16_t empresa, std::int32_t codigo);

  Tabla facturas_;
  Tabla tickets_;
  Tabla anexosFactura_;
  Tabla anexosTicket_;
  Azar& azar_;
};

}  // namespace kvraedi::demo
