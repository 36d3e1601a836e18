#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "kvraedi/entorno.h"

namespace kvraedi {

/// A text file of records, one a line, each ended by CR LF. Records are collected into blocks;
/// destroying the writer hands over what is still collected and drops any error.
class EscritorTexto {
 public:
  explicit EscritorTexto(std::unique_ptr<FileWriter> fichero) : fichero_(std::move(fichero)) {}
  ~EscritorTexto();
  EscritorTexto(const EscritorTexto&) = delete;
  EscritorTexto& operator=(const EscritorTexto&) = delete;

  /// Appends a record of bytes in the file's code page.
  void Linea(std::string_view registro);
  /// Hands everything over and closes the file.
  void Cerrar();

 private:
  void Vaciar();

  std::unique_ptr<FileWriter> fichero_;
  std::string pendiente_;
};

}  // namespace kvraedi
