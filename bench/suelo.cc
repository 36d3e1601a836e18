#include "bench/suelo.h"

#include <stdexcept>

#include "platform/sqlite/sqlite_connection.h"

namespace kvraedi::bench {

BaseSuelo::BaseSuelo(const std::filesystem::path& ruta) {
  if (sqlite3_open(ruta.c_str(), &base_) != SQLITE_OK) throw std::runtime_error("open");
  RegisterDialect(base_);
  sqlite3_exec(base_, "PRAGMA synchronous=FULL; PRAGMA cache_size=-65536", nullptr, nullptr,
               nullptr);
}

BaseSuelo::~BaseSuelo() { sqlite3_close(base_); }

void BaseSuelo::Ejecutar(const char* sql) const {
  if (sqlite3_exec(base_, sql, nullptr, nullptr, nullptr) != SQLITE_OK) {
    throw std::runtime_error(sqlite3_errmsg(base_));
  }
}

SentenciaSuelo::SentenciaSuelo(const BaseSuelo& base, std::string_view sql) : base_(base.Handle()) {
  if (sqlite3_prepare_v2(base_, sql.data(), static_cast<int>(sql.size()), &sentencia_, nullptr) !=
      SQLITE_OK) {
    throw std::runtime_error(sqlite3_errmsg(base_));
  }
}

SentenciaSuelo::~SentenciaSuelo() { sqlite3_finalize(sentencia_); }

void SentenciaSuelo::Poner(std::initializer_list<int> valores) {
  int sitio = 0;
  for (const int valor : valores) sqlite3_bind_int(sentencia_, ++sitio, valor);
}

void SentenciaSuelo::PonerTexto(int sitio, std::string_view texto) {
  sqlite3_bind_text(sentencia_, sitio, texto.data(), static_cast<int>(texto.size()),
                    SQLITE_TRANSIENT);
}

bool SentenciaSuelo::Paso() {
  const int resultado = sqlite3_step(sentencia_);
  if (resultado == SQLITE_ROW) return true;
  sqlite3_reset(sentencia_);
  if (resultado != SQLITE_DONE) throw std::runtime_error(sqlite3_errmsg(base_));
  return false;
}

std::string_view SentenciaSuelo::Texto(int columna) const {
  const auto* const texto = sqlite3_column_text(sentencia_, columna);
  return {reinterpret_cast<const char*>(texto),
          static_cast<std::size_t>(sqlite3_column_bytes(sentencia_, columna))};
}

std::vector<std::string> SentenciaSuelo::Filas() {
  std::vector<std::string> filas;
  while (Paso()) {
    std::string fila;
    CopiarFila(fila);
    filas.push_back(std::move(fila));
  }
  return filas;
}

void SentenciaSuelo::CopiarFila(std::string& destino) const {
  const int columnas = sqlite3_column_count(sentencia_);
  for (int i = 0; i < columnas; ++i) {
    const auto* const texto = sqlite3_column_text(sentencia_, i);
    if (texto != nullptr) {
      destino.append(reinterpret_cast<const char*>(texto),
                     static_cast<std::size_t>(sqlite3_column_bytes(sentencia_, i)));
    }
    destino += '\0';
  }
}

}  // namespace kvraedi::bench
