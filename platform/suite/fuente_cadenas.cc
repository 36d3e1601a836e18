#include "platform/suite/fuente_cadenas.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <utility>

#include "platform/suite/frmBuscar.h"
#include "platform/suite/texto_sql.h"

namespace kvraedi::suite {
namespace {

constexpr std::size_t kNiveles = 10;
using Niveles = std::vector<std::int32_t>;  // code of level 1, of level 2 and so on

constexpr std::array<ui::GridColumn, 3> kColumnas = {{
    {"Nivel", 700, ui::Alignment::kRight},
    {"Código", 900, ui::Alignment::kRight},
    {"Nombre", 4200},
}};

void QuitarCerosFinales(Niveles& niveles) {
  while (!niveles.empty() && niveles.back() == 0) niveles.pop_back();
}

// Nothing when the text is not a list of up to ten level codes.
std::optional<Niveles> Leer(std::string_view typed) {
  Niveles niveles;
  for (bool more = true; more;) {
    const auto slash = typed.find('/');
    const std::string_view piece = Recortar(typed.substr(0, slash));
    const auto codigo = piece.empty() ? 0 : Entero(piece);
    if (!codigo || *codigo < 0 || *codigo > std::numeric_limits<std::int16_t>::max()) return {};
    niveles.push_back(*codigo);
    more = slash != std::string_view::npos;
    if (more) typed.remove_prefix(slash + 1);
  }
  if (niveles.size() > kNiveles) return {};
  QuitarCerosFinales(niveles);
  return niveles;
}

std::string Escribir(const Niveles& niveles) {
  std::string text;
  for (const std::int32_t codigo : niveles) {
    if (!text.empty()) text += '/';
    text += std::to_string(codigo);
  }
  return text;
}

// Condition that selects the levels that were given.
std::string Condicion(const Niveles& niveles) {
  std::string condition;
  for (std::size_t i = 0; i < niveles.size(); ++i) {
    if (niveles[i] == 0) continue;
    if (!condition.empty()) condition += " OR ";
    condition +=
        "(Nivel = " + std::to_string(i + 1) + " AND Codigo = " + std::to_string(niveles[i]) + ")";
  }
  return condition;
}

}  // namespace

FuenteCadenas::FuenteCadenas(std::shared_ptr<Connection> conexion, std::shared_ptr<Empresa> empresa)
    : conexion_(std::move(conexion)), empresa_(std::move(empresa)) {}

ui::PickerValue FuenteCadenas::Resolve(std::string_view typed) {
  typed = Recortar(typed);
  const auto niveles = Leer(typed);
  ui::PickerValue value;
  value.text = niveles ? Escribir(*niveles) : std::string(typed);
  if (!niveles || niveles->empty()) return value;
  value.codes = *niveles;
  auto missing =
      niveles->size() - static_cast<std::size_t>(std::count(niveles->begin(), niveles->end(), 0));
  const auto rs = conexion_->Open("SELECT Nombre FROM Cadenas WHERE Cod_Empresa = " +
                                  std::to_string(empresa_->EmpresaClientes()) + " AND (" +
                                  Condicion(*niveles) + ") ORDER BY Nivel");
  for (; !rs->Eof(); rs->MoveNext(), --missing) {
    if (!value.description.empty()) value.description += " / ";
    value.description += rs->GetOrEmpty<std::string>(0);
  }
  value.valid = missing == 0;
  return value;
}

std::unique_ptr<Recordset> FuenteCadenas::Buscar(std::string_view texto) const {
  texto = Recortar(texto);
  std::string condition = Contiene("Nombre", texto);
  if (const auto codigo = Entero(texto)) condition += " OR Codigo = " + std::to_string(*codigo);
  return conexion_->Open("SELECT TOP 200 Nivel, Codigo, Nombre FROM Cadenas WHERE Cod_Empresa = " +
                         std::to_string(empresa_->EmpresaClientes()) + " AND (" + condition +
                         ") ORDER BY Nivel, Codigo");
}

std::optional<std::string> FuenteCadenas::Search(std::string_view typed, ui::Form& owner) {
  const auto form = std::make_shared<frmBuscar>(
      "Buscar cadenas", kColumnas, [this](std::string_view texto) { return Buscar(texto); });
  const auto chosen = form->Elegir("", owner);
  const auto nivel = chosen.empty() ? std::nullopt : Entero(chosen[0]);
  const auto codigo = chosen.empty() ? std::nullopt : Entero(chosen[1]);
  if (!nivel || !codigo || *nivel < 1 || *nivel > static_cast<std::int32_t>(kNiveles)) return {};
  Niveles niveles = Leer(Recortar(typed)).value_or(Niveles{});
  niveles.resize(std::max(niveles.size(), static_cast<std::size_t>(*nivel)));
  niveles[static_cast<std::size_t>(*nivel - 1)] = *codigo;
  return Escribir(niveles);
}

}  // namespace kvraedi::suite
