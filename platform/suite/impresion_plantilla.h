#pragma once

#include <memory>
#include <string>

#include "kvraedi/conexion.h"
#include "kvraedi/empresa.h"
#include "kvraedi/entorno.h"
#include "kvraedi/impresion.h"

namespace kvraedi::suite {

/// Prints invoices with the report "Factura.rpt" of the suite's folder of reports.
class ImpresionPlantilla : public ImpresionFactura {
 public:
  /// `entorno` and `impresora` must outlive it.
  ImpresionPlantilla(Entorno& entorno, Impresora& impresora, std::shared_ptr<Connection> conexion,
                     std::shared_ptr<Empresa> empresa);
  void Imprimir(const DatosImpresionFactura& datos) override;

 private:
  DocumentoImprimible Documento(const DatosImpresionFactura& datos) const;
  void Guardar(const std::string& pdf, const std::filesystem::path& fichero) const;

  Entorno& entorno_;
  Impresora& impresora_;
  std::shared_ptr<Connection> conexion_;
  std::shared_ptr<Empresa> empresa_;
};

}  // namespace kvraedi::suite
