#pragma once

#include <stdexcept>
#include <string>

namespace kvraedi::cli {

/// What the program gives back to the system.
enum CodigoSalida : int {
  kHecho = 0,
  kRechazado = 1,    ///< the component refused or failed
  kUsoErroneo = 2,   ///< the command line is wrong
  kSinFicheros = 3,  ///< the database or a file cannot be opened or written
};

/// Ends a command; the text is for the user.
class Fallo : public std::runtime_error {
 public:
  Fallo(CodigoSalida codigo, const std::string& texto)
      : std::runtime_error(texto), codigo_(codigo) {}
  CodigoSalida Codigo() const { return codigo_; }

 private:
  CodigoSalida codigo_;
};

}  // namespace kvraedi::cli
