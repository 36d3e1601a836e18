#include "platform/suite/pedido_cliente_suite.h"

#include <utility>

#include "kvraedi/error.h"
#include "platform/suite/texto_sql.h"

namespace kvraedi::suite {
namespace {

std::string LiteralFecha(const FechaHora& fecha) {
  return fecha == FechaHora() ? "NULL" : Literal(fecha);
}

}  // namespace

PedidoClienteSuite::PedidoClienteSuite(std::shared_ptr<Connection> conexion,
                                       std::shared_ptr<Empresa> empresa)
    : conexion_(std::move(conexion)), empresa_(std::move(empresa)) {}

std::int32_t PedidoClienteSuite::NuevoCodigo(std::int16_t ejercicio) {
  ejercicio_ = ejercicio;
  const auto rs = conexion_->Open(
      "SELECT ISNULL(MAX(Codigo), 0) + 1 AS Codigo FROM Pedidos_Clientes WHERE Cod_Empresa = " +
      std::to_string(empresa_->CodigoEmpresa()) +
      " AND Cod_Ejercicio = " + std::to_string(ejercicio_));
  return rs->Get<std::int32_t>("Codigo");
}

void PedidoClienteSuite::Guardar() {
  if (codigo_ < 1) throw Error(kErrorItemNotFound, "PedidoCliente", "El pedido no tiene código.");
  conexion_->Execute(
      "INSERT INTO Pedidos_Clientes (Cod_Empresa, Cod_Ejercicio, Codigo, Cod_Almacen, Cod_Cliente,"
      " Fecha, Fecha_Entrega, Fecha_EntregaFin, Usuario, Ent_Nombre, Ent_Nombre_2, Ent_Direccion,"
      " Ent_CP, Ent_Localidad, EDI_ID) VALUES (" +
      std::to_string(empresa_->CodigoEmpresa()) + ", " + std::to_string(ejercicio_) + ", " +
      std::to_string(codigo_) + ", " + std::to_string(almacen_) + ", " + std::to_string(cliente_) +
      ", " + LiteralFecha(fecha_) + ", " + LiteralFecha(fechaEntrega_) + ", " +
      LiteralFecha(fechaEntregaFin_) + ", " + std::to_string(usuario_) + ", " + Literal(nombre_) +
      ", " + Literal(nombre2_) + ", " + Literal(direccion_) + ", " + std::to_string(cp_) + ", " +
      Literal(localidad_) + ", 0)");
}

}  // namespace kvraedi::suite
