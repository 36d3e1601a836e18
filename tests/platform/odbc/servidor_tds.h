#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

namespace kvraedi::odbc {

/// The stand-in server of the wire protocol on a loopback port of its own, with an empty database;
/// it ends with the object. What does not start raises std::runtime_error.
class ServidorTds {
 public:
  explicit ServidorTds(const std::vector<std::string>& opciones = {});
  ~ServidorTds();
  ServidorTds(const ServidorTds&) = delete;
  ServidorTds& operator=(const ServidorTds&) = delete;

  /// For the driver of FreeTDS.
  std::string Cadena() const;
  /// What the server was told, a line of JSON each.
  std::string Registro() const;
  void Parar();

 private:
  std::filesystem::path carpeta_;
  pid_t proceso_ = -1;
  std::string puerto_;
};

}  // namespace kvraedi::odbc
