#include "platform/os/procesos.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "platform/os/error_sistema.h"

namespace kvraedi::os {
namespace {

constexpr std::string_view kVariablePerfil = "userprofile=";

/// The variables of this process with another profile folder.
std::vector<std::string> VariablesCon(const std::filesystem::path& perfil) {
  std::vector<std::string> variables;
  for (char* const* variable = environ; *variable != nullptr; ++variable) {
    if (!std::string_view(*variable).starts_with(kVariablePerfil))
      variables.emplace_back(*variable);
  }
  variables.push_back(std::string(kVariablePerfil) + perfil.string());
  return variables;
}

/// What the started program does not take over from this one: open ends and blocked signals.
class Preparacion {
 public:
  Preparacion() {
    ::posix_spawn_file_actions_init(&ficheros_);
    ::posix_spawnattr_init(&atributos_);
    ::posix_spawn_file_actions_addopen(&ficheros_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    ::posix_spawn_file_actions_addopen(&ficheros_, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    sigset_t ninguna;
    sigemptyset(&ninguna);
    sigset_t normales = ninguna;
    for (const int senal : {SIGINT, SIGQUIT, SIGTERM, SIGPIPE}) sigaddset(&normales, senal);
    ::posix_spawnattr_setsigmask(&atributos_, &ninguna);
    ::posix_spawnattr_setsigdefault(&atributos_, &normales);
    ::posix_spawnattr_setflags(&atributos_, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
  }
  ~Preparacion() {
    ::posix_spawn_file_actions_destroy(&ficheros_);
    ::posix_spawnattr_destroy(&atributos_);
  }
  Preparacion(const Preparacion&) = delete;
  Preparacion& operator=(const Preparacion&) = delete;

  /// Gives back the error number, 0 for none.
  int Lanzar(pid_t& proceso, const char* programa, char* const* argumentos,
             char* const* variables) {
    return ::posix_spawn(&proceso, programa, &ficheros_, &atributos_, argumentos, variables);
  }

 private:
  posix_spawn_file_actions_t ficheros_{};
  posix_spawnattr_t atributos_{};
};

/// A signal that this process ignores for a while.
class SenalIgnorada {
 public:
  explicit SenalIgnorada(int senal) : senal_(senal) {
    struct sigaction ignorar {};
    ignorar.sa_handler = SIG_IGN;
    ::sigaction(senal_, &ignorar, &anterior_);
  }
  ~SenalIgnorada() { ::sigaction(senal_, &anterior_, nullptr); }
  SenalIgnorada(const SenalIgnorada&) = delete;
  SenalIgnorada& operator=(const SenalIgnorada&) = delete;

 private:
  int senal_;
  struct sigaction anterior_ {};
};

}  // namespace

std::int64_t IniciarPrograma(const std::filesystem::path& programa,
                             const std::filesystem::path& perfil) {
  std::string nombre = programa.string();
  char* const argumentos[] = {nombre.data(), nullptr};
  std::vector<std::string> variables = VariablesCon(perfil);
  std::vector<char*> punteros;
  punteros.reserve(variables.size() + 1);
  for (std::string& variable : variables) punteros.push_back(variable.data());
  punteros.push_back(nullptr);

  pid_t proceso = 0;
  const int fallo = Preparacion().Lanzar(proceso, programa.c_str(), argumentos, punteros.data());
  if (fallo != 0) FalloSistema("No se puede iniciar el programa", programa, fallo);
  return proceso;
}

void EsperarPrograma(std::int64_t proceso) {
  // Other values would stand for groups of processes.
  if (proceso <= 0 || proceso > std::numeric_limits<pid_t>::max()) return;
  const SenalIgnorada interrupcion(SIGINT);
  const SenalIgnorada salida(SIGQUIT);
  while (::waitpid(static_cast<pid_t>(proceso), nullptr, 0) < 0 && errno == EINTR) {
  }
}

}  // namespace kvraedi::os
