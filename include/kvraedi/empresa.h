#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "kvraedi/export.h"
#include "kvraedi/valor.h"

namespace kvraedi {

/// The suite's company object, as far as the component uses it; the host supplies it. Members stand
/// in the order in which the suite declares them. Any of them may raise `Error`.
class KVRAEDI_API Empresa {
 public:
  virtual ~Empresa();

  /// Code of the current company: `Cod_Empresa` of documents, `Empresas.Codigo`.
  virtual std::int16_t CodigoEmpresa() const = 0;
  /// Codes of the companies whose article, customer and supplier files the current one uses.
  virtual std::int16_t EmpresaArticulos() const = 0;
  virtual std::int16_t EmpresaClientes() const = 0;
  virtual std::int16_t EmpresaProveedores() const = 0;
  /// True when the company's invoices carry IGIC, false when it is treated as exempt.
  virtual bool AplicaIGIC() const = 0;
  /// Installation folder of the suite; report files lie under it.
  virtual std::string RutaAplicacion() const = 0;
  /// Rate in percent of a tax code.
  virtual Currency PorcentajeImpuesto(std::int16_t codigo) const = 0;
  /// Company parameter by name ("EDI_PathFichEnvios", "EDI_GLNEmpresa", ...); an unknown one is
  /// null.
  virtual Valor Parametro(std::string_view nombre) const = 0;
};

/// Passes every call on: the base of company objects that log, change an answer or fail on purpose.
class KVRAEDI_API EmpresaWrapper : public Empresa {
 public:
  explicit EmpresaWrapper(std::shared_ptr<Empresa> target) : target_(std::move(target)) {}

  std::int16_t CodigoEmpresa() const override { return target_->CodigoEmpresa(); }
  std::int16_t EmpresaArticulos() const override { return target_->EmpresaArticulos(); }
  std::int16_t EmpresaClientes() const override { return target_->EmpresaClientes(); }
  std::int16_t EmpresaProveedores() const override { return target_->EmpresaProveedores(); }
  bool AplicaIGIC() const override { return target_->AplicaIGIC(); }
  std::string RutaAplicacion() const override { return target_->RutaAplicacion(); }
  Currency PorcentajeImpuesto(std::int16_t codigo) const override {
    return target_->PorcentajeImpuesto(codigo);
  }
  Valor Parametro(std::string_view nombre) const override { return target_->Parametro(nombre); }

 private:
  std::shared_ptr<Empresa> target_;
};

}  // namespace kvraedi
