#include "platform/os/ficheros.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include "kvraedi/error.h"
#include "platform/os/error_sistema.h"

namespace kvraedi::os {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kBloque = std::size_t{64} * 1024;
constexpr mode_t kModoFichero = 0666;
constexpr mode_t kModoPrivado = 0600;
constexpr mode_t kModoCarpeta = 0777;

/// An open file: every failure names its path.
class Descriptor {
 public:
  Descriptor(fs::path ruta, int opciones, std::string_view operacion, mode_t modo = kModoFichero)
      : ruta_(std::move(ruta)), fd_(::open(ruta_.c_str(), opciones | O_CLOEXEC, modo)) {
    if (fd_ < 0) FalloSistema(operacion, ruta_, errno);
  }
  ~Descriptor() {
    if (fd_ >= 0) ::close(fd_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  struct stat Estado() const {
    struct stat estado {};
    if (::fstat(fd_, &estado) != 0) FalloSistema("No se puede leer", ruta_, errno);
    return estado;
  }

  /// Bytes read, 0 at the end.
  std::size_t Leer(char* destino, std::size_t tamano) {
    for (;;) {
      const ssize_t leidos = ::read(fd_, destino, tamano);
      if (leidos >= 0) return static_cast<std::size_t>(leidos);
      if (errno != EINTR) FalloSistema("No se puede leer", ruta_, errno);
    }
  }

  void Escribir(std::string_view bytes) {
    while (!bytes.empty()) {
      const ssize_t escritos = ::write(fd_, bytes.data(), bytes.size());
      if (escritos > 0) {
        bytes.remove_prefix(static_cast<std::size_t>(escritos));
      } else if (escritos == 0 || errno != EINTR) {
        FalloSistema("No se puede escribir en", ruta_, escritos == 0 ? ENOSPC : errno);
      }
    }
  }

  void Acortar(off_t longitud) {
    if (::ftruncate(fd_, longitud) != 0) FalloSistema("No se puede escribir en", ruta_, errno);
  }

  void Sincronizar() {
    if (::fsync(fd_) != 0) FalloSistema("No se puede guardar en el disco", ruta_, errno);
  }

  void Cerrar() {
    const int fd = std::exchange(fd_, -1);
    // An interrupted close has closed the file all the same.
    if (fd >= 0 && ::close(fd) != 0 && errno != EINTR) {
      FalloSistema("No se puede cerrar", ruta_, errno);
    }
  }

 private:
  fs::path ruta_;
  int fd_;
};

class EscritorPosix : public FileWriter {
 public:
  /// `modo` says what becomes of what is there: O_TRUNC, O_APPEND or O_EXCL.
  explicit EscritorPosix(const fs::path& ruta, int modo, mode_t permisos = kModoFichero)
      : fichero_(ruta, O_WRONLY | O_CREAT | modo, "No se puede crear el fichero", permisos) {}

  void Write(std::string_view bytes) override { fichero_.Escribir(bytes); }
  void Close() override { fichero_.Cerrar(); }

 private:
  Descriptor fichero_;
};

/// Opens a plain file to be read: a pipe or a device could keep its reader for ever.
class Lectura : public Descriptor {
 public:
  explicit Lectura(const fs::path& ruta)
      : Descriptor(ruta, O_RDONLY | O_NONBLOCK, "No se puede leer"), estado_(Estado()) {
    if (S_ISDIR(estado_.st_mode)) FalloSistema("No se puede leer", ruta, EISDIR);
    if (!S_ISREG(estado_.st_mode)) FalloSistema("No se puede leer", ruta, ESPIPE);
  }
  const struct stat& Abierto() const { return estado_; }

 private:
  struct stat estado_;
};

class LectorPosix : public FileReader {
 public:
  explicit LectorPosix(const fs::path& ruta) : fichero_(ruta) {}
  std::size_t Read(std::span<char> block) override {
    return fichero_.Leer(block.data(), block.size());
  }

 private:
  Lectura fichero_;
};

char Minuscula(char letra) {
  return letra >= 'A' && letra <= 'Z' ? static_cast<char>(letra - 'A' + 'a') : letra;
}

bool TerminaEn(std::string_view texto, std::string_view final) {
  return texto.size() >= final.size() &&
         std::equal(final.begin(), final.end(),
                    texto.end() - static_cast<std::ptrdiff_t>(final.size()),
                    [](char a, char b) { return Minuscula(a) == Minuscula(b); });
}

/// Removes a half-made file unless it was kept. Devices are never removed.
class FicheroParcial {
 public:
  FicheroParcial(const fs::path& ruta, bool regular) : ruta_(ruta), borrar_(regular) {}
  ~FicheroParcial() {
    if (borrar_) ::unlink(ruta_.c_str());
  }
  FicheroParcial(const FicheroParcial&) = delete;
  FicheroParcial& operator=(const FicheroParcial&) = delete;
  void Conservar() { borrar_ = false; }

 private:
  const fs::path& ruta_;
  bool borrar_;
};

/// Mode bits of a path; nothing there is 0.
mode_t ModoDe(const fs::path& ruta) {
  struct stat estado {};
  if (::stat(ruta.c_str(), &estado) == 0) return estado.st_mode;
  if (errno != ENOENT && errno != ENOTDIR) FalloSistema("No se puede consultar", ruta, errno);
  return 0;
}

bool MismoFichero(const struct stat& uno, const fs::path& ruta) {
  struct stat otro {};
  return ::stat(ruta.c_str(), &otro) == 0 && uno.st_dev == otro.st_dev && uno.st_ino == otro.st_ino;
}

/// Names of the entries of a folder that are wanted, in order.
template <class Querida>
std::vector<std::string> Listar(const fs::path& carpeta, Querida querida) {
  std::vector<std::string> nombres;
  std::error_code fallo;
  fs::directory_iterator entrada(carpeta, fallo);
  for (; !fallo && entrada != fs::directory_iterator(); entrada.increment(fallo)) {
    if (querida(entrada->path())) nombres.push_back(entrada->path().filename().string());
  }
  if (fallo) FalloSistema("No se puede leer la carpeta", carpeta, fallo.value());
  std::sort(nombres.begin(), nombres.end());
  return nombres;
}

}  // namespace

bool ExisteCarpeta(const fs::path& ruta) { return S_ISDIR(ModoDe(ruta)); }

bool ExisteFichero(const fs::path& ruta) {
  const mode_t modo = ModoDe(ruta);
  return modo != 0 && !S_ISDIR(modo);
}

std::int64_t TamanoFichero(const fs::path& ruta) {
  struct stat estado {};
  if (::stat(ruta.c_str(), &estado) == 0) return estado.st_size;
  if (errno != ENOENT && errno != ENOTDIR) FalloSistema("No se puede consultar", ruta, errno);
  return 0;
}

void CrearCarpeta(const fs::path& ruta) {
  if (::mkdir(ruta.c_str(), kModoCarpeta) == 0) return;
  const int codigo = errno;
  if (codigo == EEXIST && ExisteCarpeta(ruta)) return;
  FalloSistema("No se puede crear la carpeta", ruta, codigo);
}

std::unique_ptr<FileWriter> CrearFichero(const fs::path& ruta) {
  return std::make_unique<EscritorPosix>(ruta, O_TRUNC);
}

std::unique_ptr<FileWriter> CrearFicheroPrivado(const fs::path& ruta) {
  return std::make_unique<EscritorPosix>(ruta, O_EXCL, kModoPrivado);
}

std::unique_ptr<FileWriter> CrearSiNoExiste(const fs::path& ruta) {
  // Whoever makes the file owns the name; it is opened a second time to be written.
  const int fd = ::open(ruta.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kModoFichero);
  if (fd < 0 && errno == EEXIST) return nullptr;
  if (fd < 0) FalloSistema("No se puede crear el fichero", ruta, errno);
  ::close(fd);
  return std::make_unique<EscritorPosix>(ruta, O_APPEND);
}

std::string LeerFichero(const fs::path& ruta) {
  Lectura fichero(ruta);
  // One byte more than the file holds, so that its end is met without growing.
  std::string bytes(static_cast<std::size_t>(fichero.Abierto().st_size) + 1, '\0');
  std::size_t total = 0;
  while (const std::size_t leidos = fichero.Leer(bytes.data() + total, bytes.size() - total)) {
    total += leidos;
    if (total == bytes.size()) bytes.resize(total + kBloque);
  }
  bytes.resize(total);
  return bytes;
}

std::unique_ptr<FileReader> AbrirParaLeer(const fs::path& ruta) {
  return std::make_unique<LectorPosix>(ruta);
}

std::vector<std::string> ListarFicheros(const fs::path& carpeta, std::string_view final) {
  return Listar(carpeta, [&](const fs::path& entrada) {
    return TerminaEn(entrada.filename().string(), final) && S_ISREG(ModoDe(entrada));
  });
}

std::vector<std::string> ListarCarpetas(const fs::path& carpeta) {
  return Listar(carpeta, ExisteCarpeta);
}

std::unique_ptr<FileWriter> AbrirAlFinal(const fs::path& ruta) {
  return std::make_unique<EscritorPosix>(ruta, O_APPEND);
}

void CopiarFichero(const fs::path& origen, const fs::path& destino) {
  Lectura desde(origen);
  // Emptying the destination would lose the source.
  if (MismoFichero(desde.Abierto(), destino)) {
    FalloSistema("No se puede copiar sobre sí mismo", origen, EINVAL);
  }

  Descriptor hasta(destino, O_WRONLY | O_CREAT | O_TRUNC, "No se puede crear el fichero");
  FicheroParcial parcial(destino, S_ISREG(hasta.Estado().st_mode));
  std::array<char, kBloque> bloque;
  while (const std::size_t leidos = desde.Leer(bloque.data(), bloque.size())) {
    hasta.Escribir({bloque.data(), leidos});
  }
  hasta.Sincronizar();
  hasta.Cerrar();
  parcial.Conservar();
}

void RenombrarFichero(const fs::path& origen, const fs::path& destino) {
  if (::rename(origen.c_str(), destino.c_str()) != 0) {
    FalloSistema("No se puede cambiar el nombre de", origen, errno);
  }
  SincronizarCarpetaDe(destino);
}

void BorrarFichero(const fs::path& ruta) {
  if (::unlink(ruta.c_str()) != 0) FalloSistema("No se puede borrar", ruta, errno);
}

void AcortarFichero(const fs::path& ruta, std::int64_t longitud) {
  Descriptor fichero(ruta, O_WRONLY, "No se puede abrir");
  if (fichero.Estado().st_size > longitud) fichero.Acortar(longitud);
  fichero.Sincronizar();
  fichero.Cerrar();
}

void SincronizarCarpetaDe(const fs::path& ruta) {
  const fs::path carpeta = ruta.has_parent_path() ? ruta.parent_path() : fs::path(".");
  const int fd = ::open(carpeta.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (fd < 0) return;
  ::fsync(fd);
  ::close(fd);
}

}  // namespace kvraedi::os
