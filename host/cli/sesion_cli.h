#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <iosfwd>
#include <memory>
#include <string>

#include "host/cli/al_abrir.h"
#include "host/cli/argumentos.h"
#include "host/cli/impresora_cli.h"
#include "kvraedi/conexion.h"
#include "kvraedi/empresa.h"
#include "platform/headless/headless_toolkit.h"
#include "platform/os/entorno_sistema.h"
#include "platform/suite/suite_referencia.h"

namespace kvraedi::cli {

/// Everything that a host prepares for the component: the open database, the company and the
/// adapters, installed as long as the object lives. Message boxes are written to `mensajes`.
class SesionCli {
 public:
  /// Raises Fallo(kSinFicheros) when something cannot be opened.
  SesionCli(const Argumentos& argumentos, std::ostream& mensajes);
  ~SesionCli();
  SesionCli(const SesionCli&) = delete;
  SesionCli& operator=(const SesionCli&) = delete;

  HeadlessToolkit& Pantallas() { return toolkit_; }
  Entorno& EntornoActual() { return entorno_; }
  Suite& SuiteActual() { return suite_; }
  const std::shared_ptr<Connection>& Conexion() const { return conexion_; }
  const std::shared_ptr<Empresa>& EmpresaActual() const { return empresa_; }
  /// A company parameter that is a text; "" when there is none.
  std::string Parametro(std::string_view nombre) const;
  /// Opens the screen `form` of an entry class, modally, for a user who does `pasos` on it. Raises
  /// what they raise. The session has ended then.
  template <class Entrada>
  void Usar(const std::string& form, const std::function<void(ui::Form&)>& pasos) {
    AlAbrir(toolkit_, form, pasos, [this] {
      constexpr std::int16_t kModal = 1;
      Entrada entrada;
      entrada.EmpresaKestrova(empresa_);
      entrada.ConexionKestrova(conexion_);
      entrada.Show(kModal, nullptr);
    });
    Cerrar();
  }
  /// Writes out what the statement log still holds; raises Fallo(kSinFicheros).
  void Cerrar();

 private:
  void Abrir(const Argumentos& argumentos);

  EntornoSistema entorno_;
  HeadlessToolkit toolkit_;
  std::unique_ptr<Impresora> impresora_ = NuevaImpresora();
  SuiteReferencia suite_{impresora_.get()};
  std::shared_ptr<FileWriter> registro_;
  std::shared_ptr<Connection> conexion_;
  std::shared_ptr<Empresa> empresa_;
};

}  // namespace kvraedi::cli
