#pragma once

#include <cstdint>
#include <string>

#include "kvraedi/export.h"
#include "kvraedi/sesion.h"

namespace kvraedi {

/// Writes one supplier order into the file that the supplier's ordering platform takes.
class KVRAEDI_API clsPedidosProvEmision : public PropiedadesSesionOdbc {
 public:
  /// Numbers of the errors that Exportar raises on its own: 0x80040000 and 1 to 3.
  enum : std::int32_t {
    kErrorSinPlataforma = -2147221503,  ///< the supplier has no platform or no message type
    kErrorPlataforma = -2147221502,     ///< the supplier's platform is none that takes orders
    kErrorSinPedido = -2147221501,      ///< no such order, or one without lines
  };

  /// The order to export, of the session's company; 0 at first.
  std::int32_t Codigo_Pedido() const { return codigoPedido_; }
  void Codigo_Pedido(std::int32_t codigo) { codigoPedido_ = codigo; }

  /// Writes the order into the file of that full name (UTF-8), made or replaced, in the layout of
  /// the supplier's platform. A message type of platform 4 other than 1 and 2 writes nothing.
  ///
  /// Every failure, also of the database or of the file, is raised as `Error` with its own number
  /// and the text "(reason) clsPedidosProvEmision.Exportar". A file that was partly written stays.
  void Exportar(const std::string& strFilePath);

 private:
  std::int32_t codigoPedido_ = 0;
};

}  // namespace kvraedi
