#include "platform/suite/fuente_terceros.h"

#include <array>
#include <utility>

#include "platform/suite/frmBuscar.h"
#include "platform/suite/texto_sql.h"

namespace kvraedi::suite {
namespace {

constexpr std::array<ui::GridColumn, 4> kColumnas = {{
    {"Código", 900, ui::Alignment::kRight},
    {"Nombre", 4200},
    {"NIF", 1400},
    {"Localidad", 2200},
}};

}  // namespace

FuenteTerceros::FuenteTerceros(const FicheroTerceros& fichero, std::shared_ptr<Connection> conexion,
                               std::shared_ptr<Empresa> empresa)
    : fichero_(fichero), conexion_(std::move(conexion)), empresa_(std::move(empresa)) {}

std::string FuenteTerceros::Filas() const {
  return " FROM " + std::string(fichero_.tabla) +
         " WHERE Cod_Empresa = " + std::to_string(((*empresa_).*fichero_.empresa)());
}

ui::PickerValue FuenteTerceros::Resolve(std::string_view typed) {
  typed = Recortar(typed);
  const auto codigo = Entero(typed);
  ui::PickerValue value;
  value.text = codigo ? std::to_string(*codigo) : std::string(typed);
  if (!codigo) return value;
  value.codes = {*codigo};
  const auto rs = conexion_->Open("SELECT Nombre" + Filas() + " AND Codigo = " + value.text);
  if (rs->Eof()) return value;
  value.valid = true;
  value.description = rs->GetOrEmpty<std::string>(0);
  return value;
}

std::unique_ptr<Recordset> FuenteTerceros::Buscar(std::string_view texto) const {
  texto = Recortar(texto);
  std::string condition = Contiene("Nombre", texto);
  if (const auto codigo = Entero(texto)) condition += " OR Codigo = " + std::to_string(*codigo);
  return conexion_->Open("SELECT TOP 200 Codigo, Nombre, Nif, Localidad" + Filas() + " AND (" +
                         condition + ") ORDER BY Nombre, Codigo");
}

std::optional<std::string> FuenteTerceros::Search(std::string_view typed, ui::Form& owner) {
  const auto form =
      std::make_shared<frmBuscar>(std::string(fichero_.titulo), kColumnas,
                                  [this](std::string_view texto) { return Buscar(texto); });
  const auto chosen = form->Elegir(typed, owner);
  if (chosen.empty()) return std::nullopt;
  return chosen[0];
}

}  // namespace kvraedi::suite
