#pragma once

#include <memory>
#include <vector>

#include "kvraedi/compra_mini.h"
#include "kvraedi/conexion.h"
#include "kvraedi/empresa.h"

namespace kvraedi::suite {

/// A purchase in the tables Compras_Mini and Compras_Mini_Lineas.
class CompraMiniSuite : public CompraMini {
 public:
  CompraMiniSuite(std::shared_ptr<Connection> conexion, std::shared_ptr<Empresa> empresa);
  void PonerCabecera(const CabeceraCompraMini& cabecera) override;
  std::int32_t NuevoCodigo() override;
  void AgregarLinea(const LineaCompraMini& linea) override;
  void Guardar() override;

 private:
  std::string Clave() const;

  std::shared_ptr<Connection> conexion_;
  std::shared_ptr<Empresa> empresa_;
  CabeceraCompraMini cabecera_;
  std::int32_t codigo_ = 0;
  std::vector<LineaCompraMini> lineas_;
};

}  // namespace kvraedi::suite
