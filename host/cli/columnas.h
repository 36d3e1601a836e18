#pragma once

namespace kvraedi::cli {

/// Columns of the invoice list vsDocs.
enum Columna : int {
  kSeleccion,
  kGenerada,
  kSerie,
  kFactura,
  kFecha,
  kCliente,
  kClienteNombre,
  kAlmacen,
  kAlmacenNombre,
  kImporte,
  kTipoDoc,
  kNoEnviar,
  kEjercicio,
  kAnexos,
  kTipo,
  kTipoNum,
  kAlmacenFt,
  kCajaFt,
  kFechaFt,
  kCodigoFt,
  kColumnas
};

}  // namespace kvraedi::cli
