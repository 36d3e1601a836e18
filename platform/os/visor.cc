#include "platform/os/visor.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <string>

#include "platform/os/error_sistema.h"
#include "platform/os/ficheros.h"

namespace kvraedi::os {
namespace {

constexpr int kNoArrancado = 127;

void CallarFlujos() {
  const int nulo = ::open("/dev/null", O_RDWR);
  for (const int flujo : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) ::dup2(nulo, flujo);
}

/// The middle process: leaves the program to the system, so that nobody has to wait for it, and
/// tells by `aviso` why it could not be started.
[[noreturn]] void Arrancar(char* const* orden, int aviso) {
  ::setsid();
  const pid_t programa = ::fork();
  if (programa == 0) {
    CallarFlujos();
    ::execvp(orden[0], orden);
  }
  if (programa <= 0) {
    const int codigo = errno;
    static_cast<void>(!::write(aviso, &codigo, sizeof codigo));
    ::_exit(kNoArrancado);
  }
  ::_exit(0);
}

/// 0 once the program runs, or the number of the error that kept it from it.
int Lanzar(char* const* orden) {
  std::array<int, 2> tubo{};
  if (::pipe2(tubo.data(), O_CLOEXEC) != 0) return errno;
  const pid_t intermedio = ::fork();
  const int codigoFork = errno;
  if (intermedio == 0) Arrancar(orden, tubo[1]);
  ::close(tubo[1]);
  int codigo = 0;
  if (intermedio < 0) {
    codigo = codigoFork;
  } else {
    while (::read(tubo[0], &codigo, sizeof codigo) < 0 && errno == EINTR) {
    }
    while (::waitpid(intermedio, nullptr, 0) < 0 && errno == EINTR) {
    }
  }
  ::close(tubo[0]);
  return codigo;
}

}  // namespace

void AbrirConSuPrograma(const std::filesystem::path& fichero) {
  if (!ExisteFichero(fichero)) FalloSistema("No se puede abrir", fichero, ENOENT);
  std::string programa = "xdg-open";
  std::string ruta = std::filesystem::absolute(fichero).string();
  const std::array<char*, 3> orden = {programa.data(), ruta.data(), nullptr};
  if (const int codigo = Lanzar(orden.data()); codigo != 0) {
    FalloSistema("No se puede arrancar el programa", programa, codigo);
  }
}

}  // namespace kvraedi::os
