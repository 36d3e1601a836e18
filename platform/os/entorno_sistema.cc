#include "platform/os/entorno_sistema.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <system_error>
#include <utility>

#include "kvraedi/error.h"
#include "platform/os/error_sistema.h"
#include "platform/os/ficheros.h"
#include "platform/os/procesos.h"
#include "platform/os/reserva.h"
#include "platform/os/resumen.h"
#include "platform/os/visor.h"

namespace kvraedi {
namespace {

FechaHora HoraLocal() {
  const std::time_t ahora = std::time(nullptr);
  std::tm local{};
  if (::localtime_r(&ahora, &local) == nullptr) {
    os::FalloSistema("No se puede leer", "reloj del sistema", errno);
  }
  constexpr int kAnnoBase = 1900, kUltimoSegundo = 59;
  FechaHora hora;
  hora.year = static_cast<std::int16_t>(local.tm_year + kAnnoBase);
  hora.month = static_cast<std::int8_t>(local.tm_mon + 1);
  hora.day = static_cast<std::int8_t>(local.tm_mday);
  hora.hour = static_cast<std::int8_t>(local.tm_hour);
  hora.minute = static_cast<std::int8_t>(local.tm_min);
  hora.second = static_cast<std::int8_t>(std::min(local.tm_sec, kUltimoSegundo));
  return hora;
}

/// Never gives the same second twice, whichever object asks, also when the clock is set back.
FechaHora SelloSinRepetir() {
  static FechaHora ultimo;
  ultimo = std::max(HoraLocal(), ultimo.PlusSeconds(1));
  return ultimo;
}

}  // namespace

EntornoSistema::EntornoSistema(OpcionesEntorno opciones)
    : opciones_(std::move(opciones)), identificadores_(opciones_.semillaId) {}

FechaHora EntornoSistema::Now() { return opciones_.ahora ? *opciones_.ahora : HoraLocal(); }

FechaHora EntornoSistema::FileStamp() {
  if (!opciones_.ahora) return SelloSinRepetir();
  return opciones_.ahora->PlusSeconds(sellos_++);
}

std::string EntornoSistema::NewMessageId() { return identificadores_.Nuevo(); }

std::string EntornoSistema::TerminalName() {
  if (opciones_.terminal) return *opciones_.terminal;
  constexpr std::size_t kMasLargo = 256;
  std::array<char, kMasLargo + 1> nombre{};
  if (::gethostname(nombre.data(), kMasLargo) != 0) {
    os::FalloSistema("No se puede leer", "nombre de la máquina", errno);
  }
  return nombre.data();
}

std::int32_t EntornoSistema::TickCount() {
  using std::chrono::milliseconds;
  const auto desdeElArranque = std::chrono::steady_clock::now().time_since_epoch();
  const auto cuenta = std::chrono::duration_cast<milliseconds>(desdeElArranque).count();
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(cuenta));
}

RegionalSettings EntornoSistema::Region() { return opciones_.region; }

std::filesystem::path EntornoSistema::DriveRoot() {
  return opciones_.unidad ? *opciones_.unidad : ProfileFolder();
}

std::filesystem::path EntornoSistema::ProfileFolder() {
  if (opciones_.perfil) return *opciones_.perfil;
  for (const char* const variable : {"userprofile", "HOME"}) {
    const char* const perfil = std::getenv(variable);
    if (perfil != nullptr && *perfil != '\0') return perfil;
  }
  throw Error(kErrorFile, "kvraedi", "El usuario no tiene carpeta de perfil");
}

std::filesystem::path EntornoSistema::ComponentFolder() {
  if (opciones_.componente) return *opciones_.componente;
  std::error_code fallo;
  const auto programa = std::filesystem::read_symlink("/proc/self/exe", fallo);
  if (fallo) os::FalloSistema("No se puede leer", "carpeta del programa", fallo.value());
  return programa.parent_path();
}

bool EntornoSistema::FolderExists(const std::filesystem::path& folder) {
  return os::ExisteCarpeta(folder);
}

bool EntornoSistema::FileExists(const std::filesystem::path& file) {
  return os::ExisteFichero(file);
}

void EntornoSistema::MakeFolder(const std::filesystem::path& folder) { os::CrearCarpeta(folder); }

std::unique_ptr<FileWriter> EntornoSistema::Create(const std::filesystem::path& file) {
  return os::CrearFichero(file);
}

std::unique_ptr<FileWriter> EntornoSistema::CreatePrivate(const std::filesystem::path& file) {
  return os::CrearFicheroPrivado(file);
}

std::string EntornoSistema::ReadFile(const std::filesystem::path& file) {
  return os::LeerFichero(file);
}

std::unique_ptr<FileReader> EntornoSistema::OpenForReading(const std::filesystem::path& file) {
  return os::AbrirParaLeer(file);
}

std::int64_t EntornoSistema::FileSize(const std::filesystem::path& file) {
  return os::TamanoFichero(file);
}

FileDigest EntornoSistema::Digest(const std::filesystem::path& file) {
  return os::Resumir(*OpenForReading(file));
}

std::vector<std::string> EntornoSistema::ListFiles(const std::filesystem::path& folder,
                                                   std::string_view ending) {
  return os::ListarFicheros(folder, ending);
}

std::vector<std::string> EntornoSistema::ListFolders(const std::filesystem::path& folder) {
  return os::ListarCarpetas(folder);
}

std::unique_ptr<FileWriter> EntornoSistema::CreateNew(const std::filesystem::path& file) {
  return os::CrearSiNoExiste(file);
}

std::unique_ptr<FileWriter> EntornoSistema::Append(const std::filesystem::path& file) {
  return os::AbrirAlFinal(file);
}

void EntornoSistema::Copy(const std::filesystem::path& from, const std::filesystem::path& to) {
  os::CopiarFichero(from, to);
}

void EntornoSistema::Rename(const std::filesystem::path& from, const std::filesystem::path& to) {
  os::RenombrarFichero(from, to);
}

void EntornoSistema::Delete(const std::filesystem::path& file) { os::BorrarFichero(file); }

void EntornoSistema::Truncate(const std::filesystem::path& file, std::int64_t bytes) {
  os::AcortarFichero(file, bytes);
}

std::unique_ptr<FileHold> EntornoSistema::Hold(const std::filesystem::path& file,
                                               std::chrono::milliseconds wait) {
  const std::string quien =
      "terminal=" + TerminalName() + "\nproceso=" + std::to_string(::getpid()) + "\n";
  return os::Reservar(file, quien, wait);
}

void EntornoSistema::OpenWithDefaultProgram(const std::filesystem::path& file) {
  os::AbrirConSuPrograma(file);
}

std::int64_t EntornoSistema::Start(const std::filesystem::path& program) {
  return os::IniciarPrograma(program, ProfileFolder());
}

void EntornoSistema::Wait(std::int64_t process) { os::EsperarPrograma(process); }

}  // namespace kvraedi
