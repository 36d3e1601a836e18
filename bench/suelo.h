#pragma once

#include <sqlite3.h>

#include <filesystem>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace kvraedi::bench {

/// The bare library: a handle with the dialect's collations, nothing between it and the program.
class BaseSuelo {
 public:
  explicit BaseSuelo(const std::filesystem::path& ruta);
  ~BaseSuelo();
  BaseSuelo(const BaseSuelo&) = delete;
  BaseSuelo& operator=(const BaseSuelo&) = delete;
  sqlite3* Handle() const { return base_; }
  void Ejecutar(const char* sql) const;

 private:
  sqlite3* base_ = nullptr;
};

/// A prepared statement, used again with other values.
class SentenciaSuelo {
 public:
  SentenciaSuelo(const BaseSuelo& base, std::string_view sql);
  ~SentenciaSuelo();
  SentenciaSuelo(const SentenciaSuelo&) = delete;
  SentenciaSuelo& operator=(const SentenciaSuelo&) = delete;

  void Poner(std::initializer_list<int> valores);
  void PonerTexto(int sitio, std::string_view texto);
  void PonerReal(int sitio, double valor) { sqlite3_bind_double(sentencia_, sitio, valor); }
  /// True while there is a row; at the end the statement is ready for the next use.
  bool Paso();
  void Reiniciar() { sqlite3_reset(sentencia_); }
  /// A column of the row, as text and as a number.
  std::string_view Texto(int columna) const;
  double Real(int columna) const { return sqlite3_column_double(sentencia_, columna); }
  /// Appends the texts of all columns of the row.
  void CopiarFila(std::string& destino) const;
  /// The rows that are left, each with the texts of all its columns.
  std::vector<std::string> Filas();

 private:
  sqlite3* base_;
  sqlite3_stmt* sentencia_ = nullptr;
};

}  // namespace kvraedi::bench
