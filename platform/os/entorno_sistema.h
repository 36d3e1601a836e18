#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "kvraedi/entorno.h"
#include "platform/os/identificadores.h"

namespace kvraedi {

/// What of the machine is replaced, so that a run can be repeated exactly.
struct OpcionesEntorno {
  std::optional<FechaHora> ahora;                   ///< stops the clock here
  std::optional<std::uint64_t> semillaId;           ///< makes message identifiers repeatable
  std::optional<std::string> terminal;              ///< instead of the machine's name
  std::optional<std::filesystem::path> unidad;      ///< instead of the user's profile folder
  std::optional<std::filesystem::path> componente;  ///< instead of the program's folder
  std::optional<std::filesystem::path> perfil;      ///< instead of the user's profile folder
  RegionalSettings region;
};

/// The operating system itself (POSIX). Path names are taken to be UTF-8.
class EntornoSistema : public Entorno {
 public:
  explicit EntornoSistema(OpcionesEntorno opciones = {});

  FechaHora Now() override;
  FechaHora FileStamp() override;
  std::string NewMessageId() override;
  std::string TerminalName() override;
  std::int32_t TickCount() override;
  RegionalSettings Region() override;
  std::filesystem::path ComponentFolder() override;
  std::filesystem::path DriveRoot() override;
  std::filesystem::path ProfileFolder() override;

  bool FolderExists(const std::filesystem::path& folder) override;
  bool FileExists(const std::filesystem::path& file) override;
  void MakeFolder(const std::filesystem::path& folder) override;
  std::unique_ptr<FileWriter> Create(const std::filesystem::path& file) override;
  std::unique_ptr<FileWriter> CreatePrivate(const std::filesystem::path& file) override;
  std::string ReadFile(const std::filesystem::path& file) override;
  std::unique_ptr<FileReader> OpenForReading(const std::filesystem::path& file) override;
  std::int64_t FileSize(const std::filesystem::path& file) override;
  FileDigest Digest(const std::filesystem::path& file) override;
  std::vector<std::string> ListFiles(const std::filesystem::path& folder,
                                     std::string_view ending) override;
  std::vector<std::string> ListFolders(const std::filesystem::path& folder) override;
  std::unique_ptr<FileWriter> CreateNew(const std::filesystem::path& file) override;
  std::unique_ptr<FileWriter> Append(const std::filesystem::path& file) override;
  void Copy(const std::filesystem::path& from, const std::filesystem::path& to) override;
  void Rename(const std::filesystem::path& from, const std::filesystem::path& to) override;
  void Delete(const std::filesystem::path& file) override;
  void Truncate(const std::filesystem::path& file, std::int64_t bytes) override;
  std::unique_ptr<FileHold> Hold(const std::filesystem::path& file,
                                 std::chrono::milliseconds wait) override;
  /// By means of xdg-open.
  void OpenWithDefaultProgram(const std::filesystem::path& file) override;
  std::int64_t Start(const std::filesystem::path& program) override;
  void Wait(std::int64_t process) override;

 private:
  OpcionesEntorno opciones_;
  GeneradorIdentificadores identificadores_;
  std::int64_t sellos_ = 0;  // given of a fixed clock
};

}  // namespace kvraedi
