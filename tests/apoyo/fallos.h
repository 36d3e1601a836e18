#pragma once

#include <unistd.h>

#include <csignal>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "kvraedi/conexion.h"
#include "kvraedi/entorno.h"
#include "kvraedi/error.h"

namespace kvraedi {

/// Counts operations and makes the k-th of them fail (from 1; 0 never).
class Fallo {
 public:
  void FallarEn(int operacion) {
    restantes_ = operacion;
    operaciones_ = 0;
    disparado_ = false;
  }
  /// Kills the program before its k-th operation instead.
  void MorirEn(int operacion) {
    FallarEn(operacion);
    mortal_ = true;
  }
  void Paso(const char* texto) {
    ++operaciones_;
    if (restantes_ > 0 && --restantes_ == 0) {
      disparado_ = true;
      if (mortal_) ::kill(::getpid(), SIGKILL);
      throw Error(kErrorFile, "prueba", texto);
    }
  }
  bool Disparado() const { return disparado_; }
  int Operaciones() const { return operaciones_; }

 private:
  int restantes_ = 0;
  int operaciones_ = 0;
  bool disparado_ = false;
  bool mortal_ = false;
};

/// The text of the error that the action raises; "(ninguno)" when it raises none.
inline std::string ErrorDe(const std::function<void()>& accion) {
  try {
    accion();
  } catch (const Error& error) {
    return error.Description();
  }
  return "(ninguno)";
}

/// A machine whose k-th file operation fails: making, reading, writing, closing, copying, renaming,
/// deleting. What went before has really happened.
class EntornoConFallos : public EntornoWrapper {
 public:
  using EntornoWrapper::EntornoWrapper;
  Fallo fallo;

  void MakeFolder(const std::filesystem::path& folder) override {
    fallo.Paso("No queda espacio");
    EntornoWrapper::MakeFolder(folder);
  }
  std::unique_ptr<FileWriter> Create(const std::filesystem::path& file) override {
    fallo.Paso("No queda espacio");
    return std::make_unique<Escritor>(fallo, EntornoWrapper::Create(file));
  }
  std::unique_ptr<FileWriter> CreatePrivate(const std::filesystem::path& file) override {
    fallo.Paso("No queda espacio");
    return std::make_unique<Escritor>(fallo, EntornoWrapper::CreatePrivate(file));
  }
  std::string ReadFile(const std::filesystem::path& file) override {
    fallo.Paso("No se puede leer");
    return EntornoWrapper::ReadFile(file);
  }
  std::unique_ptr<FileReader> OpenForReading(const std::filesystem::path& file) override {
    fallo.Paso("No se puede leer");
    return std::make_unique<Lector>(fallo, EntornoWrapper::OpenForReading(file));
  }
  std::vector<std::string> ListFiles(const std::filesystem::path& folder,
                                     std::string_view ending) override {
    fallo.Paso("No se puede leer");
    return EntornoWrapper::ListFiles(folder, ending);
  }
  std::unique_ptr<FileWriter> CreateNew(const std::filesystem::path& file) override {
    fallo.Paso("No queda espacio");
    auto real = EntornoWrapper::CreateNew(file);
    return real ? std::make_unique<Escritor>(fallo, std::move(real)) : nullptr;
  }
  std::unique_ptr<FileWriter> Append(const std::filesystem::path& file) override {
    fallo.Paso("No queda espacio");
    return std::make_unique<Escritor>(fallo, EntornoWrapper::Append(file));
  }
  void Copy(const std::filesystem::path& from, const std::filesystem::path& to) override {
    fallo.Paso("No queda espacio");
    EntornoWrapper::Copy(from, to);
  }
  void Rename(const std::filesystem::path& from, const std::filesystem::path& to) override {
    fallo.Paso("No queda espacio");
    EntornoWrapper::Rename(from, to);
  }
  void Delete(const std::filesystem::path& file) override {
    fallo.Paso("No queda espacio");
    EntornoWrapper::Delete(file);
  }
  std::unique_ptr<FileHold> Hold(const std::filesystem::path& file,
                                 std::chrono::milliseconds wait) override {
    fallo.Paso("No queda espacio");
    auto real = EntornoWrapper::Hold(file, wait);
    return real ? std::make_unique<Reserva>(fallo, std::move(real)) : nullptr;
  }
  void Truncate(const std::filesystem::path& file, std::int64_t bytes) override {
    fallo.Paso("No queda espacio");
    EntornoWrapper::Truncate(file, bytes);
  }
  /// Only noted down when the file is there.
  void OpenWithDefaultProgram(const std::filesystem::path& file) override {
    if (!FileExists(file)) return EntornoWrapper::OpenWithDefaultProgram(file);
    abiertos.push_back(file);
  }
  std::vector<std::filesystem::path> abiertos;

  std::int64_t Start(const std::filesystem::path& program) override {
    fallo.Paso("No se puede iniciar el programa");
    return EntornoWrapper::Start(program);
  }

 private:
  class Lector : public FileReader {
   public:
    Lector(Fallo& fallo, std::unique_ptr<FileReader> real)
        : fallo_(fallo), real_(std::move(real)) {}
    std::size_t Read(std::span<char> block) override {
      fallo_.Paso("No se puede leer");
      return real_->Read(block);
    }

   private:
    Fallo& fallo_;
    std::unique_ptr<FileReader> real_;
  };

  class Reserva : public FileHold {
   public:
    Reserva(Fallo& fallo, std::unique_ptr<FileHold> real) : fallo_(fallo), real_(std::move(real)) {}
    std::string Text() const override { return real_->Text(); }
    void Append(std::string_view text) override {
      fallo_.Paso("No queda espacio");
      real_->Append(text);
    }
    void Leave() override { real_->Leave(); }

   private:
    Fallo& fallo_;
    std::unique_ptr<FileHold> real_;
  };

  class Escritor : public FileWriter {
   public:
    Escritor(Fallo& fallo, std::unique_ptr<FileWriter> real)
        : fallo_(fallo), real_(std::move(real)) {}
    void Write(std::string_view bytes) override {
      fallo_.Paso("No queda espacio");
      real_->Write(bytes);
    }
    void Close() override {
      fallo_.Paso("No queda espacio");
      real_->Close();
    }

   private:
    Fallo& fallo_;
    std::unique_ptr<FileWriter> real_;
  };
};

/// A database whose k-th statement or commit fails. It notes every statement down.
class ConexionConFallos : public ConnectionWrapper {
 public:
  using ConnectionWrapper::ConnectionWrapper;
  Fallo fallo;
  std::vector<std::string> sentencias;

  std::unique_ptr<Recordset> Open(std::string_view sql) override {
    sentencias.emplace_back(sql);
    fallo.Paso("Conexión perdida");
    return ConnectionWrapper::Open(sql);
  }
  std::int64_t Execute(std::string_view sql) override {
    sentencias.emplace_back(sql);
    fallo.Paso("Conexión perdida");
    return ConnectionWrapper::Execute(sql);
  }
  void UpdateBlob(std::string_view sql, std::string_view field,
                  std::span<const std::byte> bytes) override {
    sentencias.emplace_back(sql);
    fallo.Paso("Conexión perdida");
    ConnectionWrapper::UpdateBlob(sql, field, bytes);
  }
  /// Nothing of the transaction is kept when it fails.
  void CommitTrans() override {
    fallo.Paso("Conexión perdida");
    ConnectionWrapper::CommitTrans();
  }
};

}  // namespace kvraedi
