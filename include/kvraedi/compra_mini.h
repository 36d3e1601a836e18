#pragma once

#include <cstdint>
#include <string>

#include "kvraedi/export.h"
#include "kvraedi/valor.h"

namespace kvraedi {

struct CabeceraCompraMini {
  std::int16_t ejercicio = 0;  ///< fiscal year
  std::int32_t proveedor = 0;
  std::int16_t almacen = 0;
  FechaHora fecha;        ///< without time of day
  std::string documento;  ///< the supplier's delivery note
  std::int16_t usuario = 0;
};

struct LineaCompraMini {
  std::int32_t articulo = 0;
  Currency unidades;
  FechaHora caducidad;  ///< 01/01/1900 when the lot does not expire
  std::string lote;
};

/// A purchase of the suite that is being made. Nothing is stored before Guardar. Texts are UTF-8.
/// Operations raise `Error`.
class KVRAEDI_API CompraMini {
 public:
  virtual ~CompraMini();

  virtual void PonerCabecera(const CabeceraCompraMini& cabecera) = 0;
  /// Gives the purchase the next number of its fiscal year, and tells it. The number is taken once
  /// the purchase is stored.
  virtual std::int32_t NuevoCodigo() = 0;
  virtual void AgregarLinea(const LineaCompraMini& linea) = 0;
  /// Stores the purchase with its lines, in the transaction that is open. After an error a part of
  /// it may be stored.
  virtual void Guardar() = 0;
};

}  // namespace kvraedi
