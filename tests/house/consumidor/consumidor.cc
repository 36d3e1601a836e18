// A small host: it lends the component its adapters, opens a screen and closes it, and sees errors
// cross the library's border in both directions. It ends in the order that asks most of the
// component: it takes its adapters back while its toolkit lives and a screen is open.
#include <functional>
#include <iostream>
#include <memory>
#include <string>

#include "kvraedi/adaptadores.h"
#include "kvraedi/clsFacturacionEmision.h"
#include "kvraedi/ui/controls.h"
#include "platform/headless/headless_toolkit.h"
#include "platform/os/entorno_sistema.h"
#include "platform/sqlite/sqlite_connection.h"
#include "platform/suite/suite_referencia.h"

namespace {

constexpr const char* kFalloSuite = "Clientes no disponible";

class EmpresaPropia : public kvraedi::Empresa {
 public:
  std::int16_t CodigoEmpresa() const override { return 1; }
  std::int16_t EmpresaArticulos() const override { return 1; }
  std::int16_t EmpresaClientes() const override { return 1; }
  std::int16_t EmpresaProveedores() const override { return 1; }
  bool AplicaIGIC() const override { return true; }
  std::string RutaAplicacion() const override { return {}; }
  kvraedi::Currency PorcentajeImpuesto(std::int16_t /*codigo*/) const override { return {}; }
  kvraedi::Valor Parametro(std::string_view /*nombre*/) const override { return {}; }
};

/// Fails in the middle of the component's work.
class SuiteRota : public kvraedi::SuiteReferencia {
 public:
  std::unique_ptr<kvraedi::ui::PickerSource> Clientes(
      std::shared_ptr<kvraedi::Connection> /*conexion*/,
      std::shared_ptr<kvraedi::Empresa> /*empresa*/) override {
    throw kvraedi::Error(1, "consumidor", kFalloSuite);
  }
};

int faltas = 0;

void Comprobar(bool bien, const char* que) {
  std::cout << (bien ? "bien: " : "MAL: ") << que << '\n';
  if (!bien) ++faltas;
}

bool LanzaError(const std::function<void()>& accion) {
  try {
    accion();
  } catch (const kvraedi::Error& error) {
    return !error.Description().empty();
  }
  return false;
}

void AbrirYCerrar(const std::shared_ptr<kvraedi::Connection>& conexion) {
  kvraedi::EntornoSistema entorno;
  kvraedi::HeadlessToolkit toolkit;
  SuiteRota suite;
  kvraedi::InstalarAdaptadores({&entorno, &toolkit, &suite});

  bool mostrada = false;
  toolkit.OnShow("frmEnvioFactura", [&](kvraedi::ui::Form& form) {
    mostrada = form.Visible();
    form.Unload();
  });
  kvraedi::clsFacturacionEmision facturas;
  facturas.EmpresaKestrova(std::make_shared<EmpresaPropia>());
  facturas.ConexionKestrova(conexion);
  facturas.Show(1, nullptr);

  Comprobar(mostrada, "la pantalla se abre");
  Comprobar(toolkit.OpenForm("frmEnvioFactura") == nullptr, "la pantalla se cierra");
  Comprobar(toolkit.Messages().size() == 1 && toolkit.Messages().front().text == kFalloSuite,
            "un error del programa lo recoge el componente");
  facturas.ConexionKestrova(nullptr);
}

template <class Control>
Control& Buscar(const kvraedi::ui::Form& form, const char* nombre) {
  return dynamic_cast<Control&>(*form.Find(nombre));
}

void DevolverConPantallaAbierta(const std::shared_ptr<kvraedi::Connection>& conexion) {
  static kvraedi::EntornoSistema entorno;
  static kvraedi::HeadlessToolkit toolkit;  // outlives what the component holds
  static kvraedi::SuiteReferencia suite;
  kvraedi::InstalarAdaptadores({&entorno, &toolkit, &suite});
  kvraedi::clsFacturacionEmision facturas;
  facturas.EmpresaKestrova(std::make_shared<EmpresaPropia>());
  facturas.ConexionKestrova(conexion);
  facturas.Show(0, nullptr);
  auto& pantalla = *toolkit.OpenForm("frmEnvioFactura");
  for (const char* fecha : {"txtFechaI", "txtFechaF"}) {
    Buscar<kvraedi::ui::DateBox>(pantalla, fecha).Type("01012024");
  }
  Buscar<kvraedi::ui::DateBox>(pantalla, "txtFechaF").PressEnter();
  Comprobar(toolkit.OpenForm("frmMsg") != nullptr, "el mensaje de progreso tiene su ventana");

  kvraedi::InstalarAdaptadores({});
  Comprobar(toolkit.OpenForm("frmMsg") == nullptr, "y la pierde cuando se retiran los adaptadores");
  Comprobar(toolkit.OpenForm("frmEnvioFactura") != nullptr, "la pantalla sigue abierta");
  facturas.ConexionKestrova(nullptr);
}

}  // namespace

int main() {
  Comprobar(LanzaError([] { kvraedi::ui::CurrentToolkit(); }),
            "un error del componente lo recoge el programa");
  const auto conexion = std::make_shared<kvraedi::SqliteConnection>(":memory:");
  Comprobar(LanzaError([&] { conexion->Open("SELECT Codigo FROM NoExiste"); }),
            "un error de un adaptador lo recoge el programa");
  AbrirYCerrar(conexion);
  DevolverConPantallaAbierta(conexion);
  return faltas;
}
