#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>

#include "kvraedi/conexion.h"
#include "kvraedi/empresa.h"

namespace kvraedi {

/// The company object over the suite's own tables: Empresas, Empresas_Parametros and Impuestos.
/// Everything is read once, by the constructor: a later change in the tables shows in a new object.
class EmpresaSuite : public Empresa {
 public:
  /// Raises when the company does not exist. The suite's own folder, against which parameters that
  /// hold a relative folder are resolved, is the parameter "RutaAplicacion" and, without it,
  /// `carpetaBase`. `baseDatos`, when it is not empty, stands for the parameter "ODBCBaseDatos".
  EmpresaSuite(Connection& conexion, std::int16_t codigo, std::filesystem::path carpetaBase,
               std::string_view baseDatos = {});

  std::int16_t CodigoEmpresa() const override { return codigo_; }
  std::int16_t EmpresaArticulos() const override { return articulos_; }
  std::int16_t EmpresaClientes() const override { return clientes_; }
  std::int16_t EmpresaProveedores() const override { return proveedores_; }
  bool AplicaIGIC() const override { return aplicaIgic_; }
  std::string RutaAplicacion() const override;
  /// Raises for a code that the tax table does not hold.
  Currency PorcentajeImpuesto(std::int16_t codigo) const override;
  /// Always a text; names are compared without regard to case.
  Valor Parametro(std::string_view nombre) const override;

 private:
  void LeerEmpresa(Connection& conexion);
  void LeerParametros(Connection& conexion);
  void ResolverRutas();
  void LeerImpuestos(Connection& conexion);

  std::int16_t codigo_;
  std::filesystem::path carpetaBase_;
  std::int16_t articulos_ = 0;
  std::int16_t clientes_ = 0;
  std::int16_t proveedores_ = 0;
  bool aplicaIgic_ = false;
  std::map<std::string, std::string> parametros_;  // by name in lower case
  std::map<std::int16_t, Currency> impuestos_;
};

}  // namespace kvraedi
