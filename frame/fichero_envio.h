#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "frame/escritor_texto.h"
#include "frame/ruta.h"
#include "kvraedi/entorno.h"

namespace kvraedi {

/// A message file on its way out. It is written in a work folder, then copied beside its final
/// name; the last step, after everything that can fail has been done, is a rename. What has not
/// been published when the object goes is removed.
class FicheroEnvio {
 public:
  /// Makes the file's name from a file stamp.
  using NombrePorSello = std::function<std::string(const FechaHora& sello)>;

  /// Creates the file, empty, in the folder Temp of `raiz`; it goes to the folder `carpeta` beside
  /// that. Both must exist. A name that is in use in any folder of `raiz`, by this program or
  /// another, is passed over: who collects the files may put them together.
  FicheroEnvio(Entorno& entorno, const std::filesystem::path& raiz, const std::string& carpeta,
               const NombrePorSello& nombrar);
  ~FicheroEnvio();
  FicheroEnvio(const FicheroEnvio&) = delete;
  FicheroEnvio& operator=(const FicheroEnvio&) = delete;

  std::string Nombre() const { return TextoRuta(final_.filename()); }
  EscritorTexto& Texto() { return *escritor_; }
  /// Closes the file, copies it to the destination under a name of its own and takes it out of the
  /// work folder.
  void Preparar();
  /// Gives the copy its final name. When that fails the copy stays, and the error says where.
  void Publicar();

 private:
  explicit FicheroEnvio(Entorno& entorno) : entorno_(entorno) {}
  bool Crear(const std::filesystem::path& raiz);
  void Retirar(std::filesystem::path& fichero) noexcept;

  Entorno& entorno_;
  std::filesystem::path trabajo_;  // each path is empty when there is no such file
  std::filesystem::path copia_;
  std::filesystem::path final_;
  std::unique_ptr<EscritorTexto> escritor_;
};

/// Ends what an interruption left of the file `nombre` that was on its way to `carpeta`: when its
/// sending is recorded it gets its name, else it goes.
void ConcluirEnvio(Entorno& entorno, const std::filesystem::path& raiz, const std::string& carpeta,
                   const std::string& nombre, bool registrado);

}  // namespace kvraedi
