#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "kvraedi/conexion.h"
#include "kvraedi/entorno.h"
#include "kvraedi/ficheros_recibidos.h"
#include "kvraedi/valor.h"

namespace kvraedi {

/// An entry of the ledger.
struct Recibido {
  std::string fichero;
  FechaHora hora;
  std::string terminal;
  std::int32_t documentos = 0;

  /// "leyo.dat, leído el 02/01/2026 10:20:30 en CAJA2 (documentos: 3)".
  std::string Texto() const;
};

/// The ledger of the files that were taken in, kept in the table EDI_Ficheros_Recibidos. In a
/// database without that table it knows nothing and keeps nothing. Operations raise `Error`.
class LibroRecibidos {
 public:
  LibroRecibidos(Connection& conexion, Entorno& entorno, TipoRecibido tipo);

  bool Existe() const { return existe_; }
  /// What is noted of a file of the same content, unless it may be taken in once more.
  std::optional<Recibido> Buscar(const std::filesystem::path& fichero);
  /// Notes the file that was asked for last, in the transaction that takes it in.
  void Anotar(const std::string& nombre, std::int32_t documentos);
  /// Lets the content of the file that was asked for last be taken in once more.
  void Permitir();

 private:
  std::string Contenido() const;

  Connection& conexion_;
  Entorno& entorno_;
  TipoRecibido tipo_;
  bool existe_;
  FileDigest huella_;
};

}  // namespace kvraedi
