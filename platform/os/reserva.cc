#include "platform/os/reserva.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <thread>
#include <utility>

#include "platform/os/error_sistema.h"
#include "platform/os/ficheros.h"

namespace kvraedi::os {
namespace {

namespace fs = std::filesystem;

constexpr mode_t kModo = 0666;
constexpr std::chrono::milliseconds kPausa{20};

class Reserva : public FileHold {
 public:
  /// Of an open file that is locked.
  Reserva(fs::path ruta, int fd) : ruta_(std::move(ruta)), fd_(fd) {}
  /// Removed while it is locked: who has opened it meanwhile finds that it is no longer the file of
  /// that name.
  ~Reserva() override {
    if (!queda_) ::unlink(ruta_.c_str());
    ::close(fd_);
  }
  Reserva(const Reserva&) = delete;
  Reserva& operator=(const Reserva&) = delete;

  std::string Text() const override { return anterior_; }
  void Append(std::string_view text) override {
    Escribir(text);
    if (::fsync(fd_) != 0) FalloSistema("No se puede guardar en el disco", ruta_, errno);
    SincronizarCarpetaDe(ruta_);
  }
  void Leave() override { queda_ = true; }

  void Empezar(std::string_view quien) {
    anterior_ = LeerFichero(ruta_);
    if (anterior_.empty()) Escribir(quien);
    queda_ = false;
  }

 private:
  void Escribir(std::string_view texto) const {
    if (::write(fd_, texto.data(), texto.size()) == static_cast<ssize_t>(texto.size())) return;
    FalloSistema("No se puede escribir en", ruta_, errno);
  }

  fs::path ruta_;
  int fd_;
  std::string anterior_;
  bool queda_ = true;
};

bool EnSuSitio(int fd, const fs::path& ruta) {
  struct stat abierto {};
  struct stat sitio {};
  return ::fstat(fd, &abierto) == 0 && ::stat(ruta.c_str(), &sitio) == 0 &&
         abierto.st_dev == sitio.st_dev && abierto.st_ino == sitio.st_ino;
}

/// Null when another has it.
std::unique_ptr<Reserva> Intentar(const fs::path& ruta) {
  for (;;) {
    // A program that is started meanwhile takes the lock over: when this one is killed, what it was
    // waiting for still goes on.
    const int fd = ::open(ruta.c_str(), O_WRONLY | O_APPEND | O_CREAT, kModo);
    if (fd < 0) FalloSistema("No se puede crear el fichero", ruta, errno);
    ::fchmod(fd, kModo);  // another user takes over what a program left that was killed
    const int fallo = ::flock(fd, LOCK_EX | LOCK_NB) == 0 ? 0 : errno;
    if (fallo == 0 && EnSuSitio(fd, ruta)) return std::make_unique<Reserva>(ruta, fd);
    ::close(fd);
    if (fallo == EWOULDBLOCK) return nullptr;
    if (fallo != 0) FalloSistema("No se puede reservar", ruta, fallo);
  }
}

}  // namespace

std::unique_ptr<FileHold> Reservar(const fs::path& ruta, std::string_view quien,
                                   std::chrono::milliseconds espera) {
  const auto limite = std::chrono::steady_clock::now() + espera;
  auto reserva = Intentar(ruta);
  while (!reserva && std::chrono::steady_clock::now() < limite) {
    std::this_thread::sleep_for(kPausa);
    reserva = Intentar(ruta);
  }
  if (reserva) reserva->Empezar(quien);
  return reserva;
}

}  // namespace kvraedi::os
