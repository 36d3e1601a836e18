#include "host/cli/sesion_cli.h"

#include <algorithm>
#include <ostream>
#include <string_view>
#include <utility>

#include "host/cli/conexion_cli.h"
#include "host/cli/fallo.h"
#include "host/cli/registro_sql.h"
#include "kvraedi/adaptadores.h"
#include "kvraedi/error.h"
#include "kvraedi/sesion.h"
#include "platform/suite/empresa_suite.h"

namespace kvraedi::cli {
namespace {

std::string_view Nombre(ui::Icon icono) {
  switch (icono) {
    case ui::Icon::kInformation:
      return "información";
    case ui::Icon::kExclamation:
      return "exclamación";
    case ui::Icon::kCritical:
      return "crítico";
    case ui::Icon::kQuestion:
      return "pregunta";
    case ui::Icon::kNone:
      break;
  }
  return "mensaje";
}

std::string EnUnaLinea(std::string texto) {
  std::erase(texto, '\r');
  std::replace(texto.begin(), texto.end(), '\n', ' ');
  return texto;
}

}  // namespace

SesionCli::SesionCli(const Argumentos& argumentos, std::ostream& mensajes)
    : entorno_(argumentos.entorno) {
  toolkit_.onMessage = [&mensajes](const ui::MessageBox& caja) {
    mensajes << '[' << Nombre(caja.icon) << "] " << caja.title << ": " << EnUnaLinea(caja.text)
             << '\n';
  };
  try {
    Abrir(argumentos);
  } catch (const Error& error) {
    throw Fallo(kSinFicheros, error.Description());
  }
  InstalarAdaptadores({&entorno_, &toolkit_, &suite_});
}

SesionCli::~SesionCli() {
  // The component's session would keep the connection open.
  PropiedadesSesion sesion;
  sesion.EmpresaKestrova(nullptr);
  sesion.ConexionKestrova(nullptr);
  InstalarAdaptadores({});
}

void SesionCli::Abrir(const Argumentos& argumentos) {
  ConexionAbierta abierta = AbrirConexion(argumentos.conexion, entorno_);
  conexion_ = std::move(abierta.conexion);
  if (argumentos.registroSql) {
    registro_ = entorno_.Create(*argumentos.registroSql);
    conexion_ = std::make_shared<RegistroSql>(conexion_, registro_);
  }
  empresa_ = std::make_shared<EmpresaSuite>(*conexion_, argumentos.empresa, abierta.carpeta,
                                            abierta.baseDatos);
}

std::string SesionCli::Parametro(std::string_view nombre) const {
  const Valor valor = empresa_->Parametro(nombre);
  const auto* const texto = std::get_if<std::string>(&valor);
  return texto != nullptr ? *texto : std::string();
}

void SesionCli::Cerrar() {
  if (!registro_) return;
  try {
    registro_->Close();
  } catch (const Error& error) {
    throw Fallo(kSinFicheros, error.Description());
  }
}

}  // namespace kvraedi::cli
