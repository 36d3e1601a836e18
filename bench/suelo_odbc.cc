#include "bench/suelo_odbc.h"

#include <algorithm>
#include <stdexcept>

#include "platform/odbc/wide.h"

namespace kvraedi::bench {
namespace {

constexpr std::size_t kBloque = std::size_t{128} * 1024;  // bytes of the rows of one fetch
constexpr SQLULEN kMasFilas = 256;
constexpr SQLULEN kMasLetras = 4000;

SQLRETURN Bien(SQLRETURN codigo) {
  if (codigo != SQL_NO_DATA && !SQL_SUCCEEDED(codigo)) throw std::runtime_error("ODBC");
  return codigo;
}

/// Where the values of a column go, in the form in which a program would want them.
struct Destino {
  SQLSMALLINT tipo = SQL_C_WCHAR;
  std::size_t ancho = 0;
  std::vector<char> valores;
  std::vector<SQLLEN> largos;
};

Destino Describir(SQLHANDLE sentencia, int columna) {
  SQLSMALLINT tipo = 0, largo = 0, decimales = 0, nulos = 0;
  SQLULEN letras = 0;
  SQLWCHAR nombre[256];
  Bien(SQLDescribeColW(sentencia, static_cast<SQLUSMALLINT>(columna + 1), nombre, 256, &largo,
                       &tipo, &letras, &decimales, &nulos));
  Destino destino;
  switch (tipo) {
    case SQL_BIT:
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
    case SQL_BIGINT:
      destino.tipo = SQL_C_SBIGINT;
      destino.ancho = sizeof(SQLBIGINT);
      break;
    case SQL_TYPE_TIMESTAMP:
      destino.tipo = SQL_C_TYPE_TIMESTAMP;
      destino.ancho = sizeof(SQL_TIMESTAMP_STRUCT);
      break;
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE:
      destino.tipo = SQL_C_DOUBLE;
      destino.ancho = sizeof(SQLDOUBLE);
      break;
    default:  // texts, and decimals as texts, which are exact
      destino.ancho = (std::clamp<SQLULEN>(letras + 3, 1, kMasLetras)) * sizeof(SQLWCHAR);
  }
  return destino;
}

}  // namespace

SueloOdbc::SueloOdbc(const std::string& cadena) {
  Bien(SQLAllocHandle(SQL_HANDLE_ENV, nullptr, &entorno_));
  Bien(SQLSetEnvAttr(entorno_, SQL_ATTR_ODBC_VERSION, odbc::AsPointer(SQLULEN{SQL_OV_ODBC3}), 0));
  Bien(SQLAllocHandle(SQL_HANDLE_DBC, entorno_, &conexion_));
  auto texto = odbc::ToWide(cadena);
  Bien(SQLDriverConnectW(conexion_, nullptr, texto.data(), static_cast<SQLSMALLINT>(texto.size()),
                         nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT));
  Bien(SQLAllocHandle(SQL_HANDLE_STMT, conexion_, &sentencia_));
}

SueloOdbc::~SueloOdbc() {
  SQLFreeHandle(SQL_HANDLE_STMT, sentencia_);
  SQLDisconnect(conexion_);
  SQLFreeHandle(SQL_HANDLE_DBC, conexion_);
  SQLFreeHandle(SQL_HANDLE_ENV, entorno_);
}

std::size_t SueloOdbc::Enviar(std::vector<SQLWCHAR>& sql) {
  filas_.clear();
  Bien(SQLExecDirectW(sentencia_, sql.data(), static_cast<SQLINTEGER>(sql.size())));
  do {
    SQLSMALLINT columnas = 0;
    Bien(SQLNumResultCols(sentencia_, &columnas));
    if (columnas > 0) Leer(columnas);
  } while (Bien(SQLMoreResults(sentencia_)) != SQL_NO_DATA);
  return filas_.size();
}

void SueloOdbc::Leer(int columnas) {
  std::vector<Destino> destinos;
  std::size_t ancho = 0;
  for (int i = 0; i < columnas; ++i) {
    destinos.push_back(Describir(sentencia_, i));
    ancho += destinos.back().ancho;
  }
  const SQLULEN bloque = std::clamp<SQLULEN>(kBloque / ancho, 1, kMasFilas);
  SQLULEN leidas = 0;
  SQLSetStmtAttrW(sentencia_, SQL_ATTR_ROW_ARRAY_SIZE, odbc::AsPointer(bloque), 0);
  SQLSetStmtAttrW(sentencia_, SQL_ATTR_ROWS_FETCHED_PTR, &leidas, 0);
  SQLUSMALLINT numero = 0;
  for (Destino& destino : destinos) {
    destino.valores.resize(destino.ancho * bloque);
    destino.largos.resize(bloque);
    Bien(SQLBindCol(sentencia_, ++numero, destino.tipo, destino.valores.data(),
                    static_cast<SQLLEN>(destino.ancho), destino.largos.data()));
  }
  while (Bien(SQLFetch(sentencia_)) != SQL_NO_DATA) {
    for (std::size_t fila = 0; fila < leidas; ++fila) {
      std::string& valores = filas_.emplace_back();
      for (const Destino& destino : destinos) {
        if (destino.largos[fila] <= 0) continue;
        const auto largo = std::min(static_cast<std::size_t>(destino.largos[fila]), destino.ancho);
        valores.append(destino.valores.data() + fila * destino.ancho, largo);
      }
    }
  }
  SQLFreeStmt(sentencia_, SQL_UNBIND);
}

}  // namespace kvraedi::bench
