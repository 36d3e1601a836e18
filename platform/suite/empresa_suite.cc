#include "platform/suite/empresa_suite.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/suite/texto_sql.h"

namespace kvraedi {
namespace {

// Parameters, in lower case, that hold the path of a folder or file.
constexpr std::array<std::string_view, 3> kRutas = {"edi_pathfichenvios", "edi_pathfichrecibir",
                                                    "edi_pathcertificadodigital"};

std::string Minusculas(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(), suite::Minuscula);
  return lower;
}

std::filesystem::path Ruta(std::string_view utf8) {
  return std::filesystem::path(std::u8string(utf8.begin(), utf8.end()));
}

std::string Utf8(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

}  // namespace

EmpresaSuite::EmpresaSuite(Connection& conexion, std::int16_t codigo,
                           std::filesystem::path carpetaBase, std::string_view baseDatos)
    : codigo_(codigo), carpetaBase_(std::move(carpetaBase)) {
  LeerEmpresa(conexion);
  LeerParametros(conexion);
  ResolverRutas();
  if (!baseDatos.empty()) parametros_["odbcbasedatos"] = baseDatos;
  LeerImpuestos(conexion);
}

void EmpresaSuite::LeerEmpresa(Connection& conexion) {
  const auto rs = conexion.Open(
      "SELECT Emp_Articulos, Emp_Clientes, Emp_Proveedores, Aplica_IGIC FROM Empresas"
      " WHERE Codigo = " +
      std::to_string(codigo_));
  if (rs->Eof()) {
    throw Error(kErrorItemNotFound, "EmpresaSuite",
                "No existe la empresa " + std::to_string(codigo_) + ".");
  }
  articulos_ = rs->Get<std::int16_t>("Emp_Articulos");
  clientes_ = rs->Get<std::int16_t>("Emp_Clientes");
  proveedores_ = rs->Get<std::int16_t>("Emp_Proveedores");
  aplicaIgic_ = rs->Get<bool>("Aplica_IGIC");
}

void EmpresaSuite::LeerParametros(Connection& conexion) {
  const auto rs =
      conexion.Open("SELECT Nombre, Valor FROM Empresas_Parametros WHERE Cod_Empresa = " +
                    std::to_string(codigo_));
  for (; !rs->Eof(); rs->MoveNext()) {
    if (rs->IsNull("Valor")) continue;
    parametros_[Minusculas(rs->Get<std::string>("Nombre"))] = rs->Get<std::string>("Valor");
  }
}

void EmpresaSuite::ResolverRutas() {
  const auto propia = parametros_.find("rutaaplicacion");
  if (propia != parametros_.end() && !propia->second.empty()) carpetaBase_ /= Ruta(propia->second);
  for (const std::string_view nombre : kRutas) {
    const auto parametro = parametros_.find(std::string(nombre));
    if (parametro == parametros_.end() || parametro->second.empty()) continue;
    parametro->second = Utf8(carpetaBase_ / Ruta(parametro->second));
  }
}

void EmpresaSuite::LeerImpuestos(Connection& conexion) {
  const auto rs = conexion.Open("SELECT Codigo, Porcentaje FROM Impuestos");
  for (; !rs->Eof(); rs->MoveNext()) {
    impuestos_[rs->Get<std::int16_t>("Codigo")] = rs->Get<Currency>("Porcentaje");
  }
}

std::string EmpresaSuite::RutaAplicacion() const { return Utf8(carpetaBase_); }

Currency EmpresaSuite::PorcentajeImpuesto(std::int16_t codigo) const {
  const auto found = impuestos_.find(codigo);
  if (found == impuestos_.end()) {
    throw Error(kErrorItemNotFound, "EmpresaSuite",
                "No existe el tipo de impuesto " + std::to_string(codigo) + ".");
  }
  return found->second;
}

Valor EmpresaSuite::Parametro(std::string_view nombre) const {
  const auto found = parametros_.find(Minusculas(nombre));
  if (found == parametros_.end()) return {};
  return found->second;
}

}  // namespace kvraedi
