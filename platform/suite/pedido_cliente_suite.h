#pragma once

#include <memory>
#include <string>

#include "kvraedi/conexion.h"
#include "kvraedi/empresa.h"
#include "kvraedi/pedido_cliente.h"

namespace kvraedi::suite {

/// A customer order in the table Pedidos_Clientes. Its lines come into Pedidos_Clientes_Lineas by a
/// trigger of the database, which knows the order by its EDI_ID of 0.
class PedidoClienteSuite : public PedidoCliente {
 public:
  PedidoClienteSuite(std::shared_ptr<Connection> conexion, std::shared_ptr<Empresa> empresa);
  void Almacen(std::int16_t almacen) override { almacen_ = almacen; }
  std::int32_t NuevoCodigo(std::int16_t ejercicio) override;
  void Codigo(std::int32_t codigo) override { codigo_ = codigo; }
  void Cliente(std::int32_t cliente) override { cliente_ = cliente; }
  void FechaPedido(const FechaHora& fecha) override { fecha_ = fecha; }
  void FechaEntrega(const FechaHora& fecha) override { fechaEntrega_ = fecha; }
  void FechaEntregaFin(const FechaHora& fecha) override { fechaEntregaFin_ = fecha; }
  void Usuario(std::int16_t usuario) override { usuario_ = usuario; }
  void EntregaNombre(std::string_view nombre) override { nombre_ = nombre; }
  void EntregaNombre2(std::string_view nombre) override { nombre2_ = nombre; }
  void EntregaDireccion(std::string_view direccion) override { direccion_ = direccion; }
  void EntregaCodigoPostal(std::int32_t codigo) override { cp_ = codigo; }
  void EntregaLocalidad(std::string_view localidad) override { localidad_ = localidad; }
  void Guardar() override;

 private:
  std::shared_ptr<Connection> conexion_;
  std::shared_ptr<Empresa> empresa_;
  std::int16_t almacen_ = 0;
  std::int16_t ejercicio_ = 0;
  std::int32_t codigo_ = 0;
  std::int32_t cliente_ = 0;
  FechaHora fecha_;
  FechaHora fechaEntrega_;
  FechaHora fechaEntregaFin_;
  std::int16_t usuario_ = 0;
  std::string nombre_;
  std::string nombre2_;
  std::string direccion_;
  std::int32_t cp_ = 0;
  std::string localidad_;
};

}  // namespace kvraedi::suite
