#pragma once

#include <cstdint>
#include <string_view>

#include "kvraedi/export.h"
#include "kvraedi/valor.h"

namespace kvraedi {

/// A customer order of the suite that is being made, for the current company. It is handed its
/// values one by one, in this order; nothing is stored before Guardar. Its lines are not handed
/// over: the suite gives them to the order when the received order that it was made of is marked as
/// done. Texts are UTF-8. Operations raise `Error`.
class KVRAEDI_API PedidoCliente {
 public:
  virtual ~PedidoCliente();

  virtual void Almacen(std::int16_t almacen) = 0;
  /// Makes the order one of that fiscal year and tells the next number of it, which is taken once
  /// the order is stored.
  virtual std::int32_t NuevoCodigo(std::int16_t ejercicio) = 0;
  virtual void Codigo(std::int32_t codigo) = 0;
  virtual void Cliente(std::int32_t cliente) = 0;
  /// Dates without time of day; the default date stands for none.
  virtual void FechaPedido(const FechaHora& fecha) = 0;
  virtual void FechaEntrega(const FechaHora& fecha) = 0;
  virtual void FechaEntregaFin(const FechaHora& fecha) = 0;
  virtual void Usuario(std::int16_t usuario) = 0;
  /// Who the goods go to and, on a second line of the address, where.
  virtual void EntregaNombre(std::string_view nombre) = 0;
  virtual void EntregaNombre2(std::string_view nombre) = 0;
  virtual void EntregaDireccion(std::string_view direccion) = 0;
  /// 0 when there is none.
  virtual void EntregaCodigoPostal(std::int32_t codigo) = 0;
  virtual void EntregaLocalidad(std::string_view localidad) = 0;
  /// Stores the order, in the transaction that is open.
  virtual void Guardar() = 0;
};

}  // namespace kvraedi
