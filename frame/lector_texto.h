#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "kvraedi/entorno.h"

namespace kvraedi {

/// Reads a text file line by line; it holds one block and one line in memory. A line ends in CR LF
/// or LF, the last one also at the end of the file.
class LectorTexto {
 public:
  explicit LectorTexto(std::unique_ptr<FileReader> fichero);

  /// Moves on to the next line; false when there is none. Raises kErrorFile, also for a line longer
  /// than kMasLarga.
  bool Siguiente();
  /// The line without its end, in the file's bytes; valid until the next call.
  std::string_view Linea() const { return linea_; }
  /// Number of the line, from 1.
  std::int64_t Numero() const { return numero_; }

  /// False when the file ended without an end for this line.
  bool Terminada() const { return terminada_; }

  static constexpr std::size_t kMasLarga = std::size_t{64} * 1024 * 1024;

 private:
  bool Llenar();

  std::unique_ptr<FileReader> fichero_;
  std::vector<char> bloque_;
  std::string_view pendiente_;  // what of the block has not been read
  std::string partida_;         // a line that began in an earlier block
  std::string_view linea_;
  std::int64_t numero_ = 0;
  bool terminada_ = false;
};

}  // namespace kvraedi
