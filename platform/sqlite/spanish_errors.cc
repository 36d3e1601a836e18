#include "platform/sqlite/spanish_errors.h"

#include <sqlite3.h>

#include <array>
#include <optional>

namespace kvraedi::sqlite {
namespace {

/// A message of SQLite, "%" for its names, and the Spanish one, "%1" and "%2" for the same names.
struct Message {
  std::string_view english;
  std::string_view spanish;
};

constexpr Message kMessages[] = {
    {"NOT NULL constraint failed: %.%",
     "No se puede insertar el valor NULL en la columna '%2', tabla '%1'. La columna no admite"
     " valores NULL."},
    {"UNIQUE constraint failed: index %",
     "No se puede insertar una fila de clave duplicada con el índice único %1."},
    {"UNIQUE constraint failed: %",
     "Infracción de una restricción UNIQUE o PRIMARY KEY. No se puede insertar una clave duplicada"
     " en %1."},
    {"CHECK constraint failed: %", "La instrucción está en conflicto con la restricción CHECK %1."},
    {"no such table: %", "El nombre de objeto '%1' no es válido."},
    {"no such column: %", "El nombre de columna '%1' no es válido."},
    {"table % has no column named %", "El nombre de columna '%2' no es válido."},
    {"ambiguous column name: %", "El nombre de columna '%1' es ambiguo."},
    {"no such function: %", "'%1' no es un nombre de función integrada reconocido."},
    {"wrong number of arguments to function %", "El número de argumentos de %1 no es correcto."},
    {"misuse of aggregate%", "Un agregado no puede aparecer en ese lugar de la sentencia."},
    {"near \"%\": syntax error", "Sintaxis incorrecta cerca de '%1'."},
    {"unrecognized token: \"%\"", "Sintaxis incorrecta cerca de '%1'."},
    {"incomplete input", "Sintaxis incorrecta: la sentencia no está completa."},
    {"% already exists", "Ya hay un objeto con el nombre de %1 en la base de datos."},
    {"duplicate column name: %",
     "Los nombres de columna de cada tabla deben ser únicos. El nombre de columna '%1' se ha"
     " especificado más de una vez."},
    {"no such index: %", "No se puede quitar el índice '%1', porque no existe."},
    {"no such view: %", "No se puede quitar la vista '%1', porque no existe."},
    {"no such trigger: %", "No se puede quitar el desencadenador '%1', porque no existe."},
    {"table % has % columns but %",
     "El nombre de columna o los valores especificados no corresponden a la definición de la"
     " tabla."},
    {"% values for % columns", "En la instrucción INSERT hay %1 valores para %2 columnas."},
    {"cannot UPDATE generated column \"%\"",
     "No se puede modificar la columna '%1' porque es una columna calculada."},
    {"cannot INSERT into generated column \"%\"",
     "No se puede modificar la columna '%1' porque es una columna calculada."},
    {"Cannot add a NOT NULL column%",
     "ALTER TABLE solo permite agregar columnas que puedan contener valores NULL o que tengan una"
     " definición DEFAULT."},
    {"integer overflow",
     "Error de desbordamiento aritmético al convertir expression al tipo de datos bigint."},
    {"cannot commit - no transaction is active",
     "La petición COMMIT TRANSACTION no tiene la correspondiente BEGIN TRANSACTION."},
    {"cannot rollback - no transaction is active",
     "La petición ROLLBACK TRANSACTION no tiene la correspondiente BEGIN TRANSACTION."},
    {"cannot start a transaction within a transaction", "Ya hay una transacción abierta."},
};

struct CodeMessage {
  int code;
  std::string_view spanish;
};

constexpr CodeMessage kCodes[] = {
    {SQLITE_BUSY, "Se superó el tiempo de espera de la solicitud de bloqueo."},
    {SQLITE_LOCKED, "No se puede cambiar la tabla mientras haya un conjunto de registros abierto."},
    {SQLITE_NOMEM, "No hay memoria suficiente para ejecutar la sentencia."},
    {SQLITE_READONLY, "La base de datos es de solo lectura."},
    {SQLITE_IOERR, "Error de entrada o salida en el fichero de la base de datos."},
    {SQLITE_CORRUPT, "El fichero de la base de datos está dañado."},
    {SQLITE_FULL, "No hay espacio en el disco para la base de datos."},
    {SQLITE_CANTOPEN, "No se puede abrir el fichero de la base de datos."},
    {SQLITE_TOOBIG, "El texto o dato binario es demasiado grande."},
    {SQLITE_NOTADB, "El fichero no es una base de datos."},
};

/// The names in `text`; nothing when it has not the form of `pattern`.
std::optional<std::array<std::string_view, 3>> NamesIn(std::string_view text,
                                                       std::string_view pattern) {
  std::array<std::string_view, 3> names;
  std::size_t count = 0;
  for (;;) {
    const std::size_t mark = pattern.find('%');
    const std::string_view fixed = pattern.substr(0, mark);
    if (text.substr(0, fixed.size()) != fixed) return std::nullopt;
    text.remove_prefix(fixed.size());
    if (mark == std::string_view::npos) return text.empty() ? std::optional(names) : std::nullopt;
    pattern.remove_prefix(mark + 1);
    const std::string_view next = pattern.substr(0, pattern.find('%'));
    const std::size_t end = next.empty() ? text.size() : text.find(next);
    if (end == std::string_view::npos) return std::nullopt;
    names.at(count++) = text.substr(0, end);
    text.remove_prefix(end);
  }
}

std::string Filled(std::string_view spanish, const std::array<std::string_view, 3>& names) {
  std::string text;
  for (std::size_t i = 0; i < spanish.size(); ++i) {
    if (spanish[i] == '%') {
      text += names.at(static_cast<std::size_t>(spanish[++i] - '1'));
    } else {
      text += spanish[i];
    }
  }
  return text;
}

}  // namespace

std::string SpanishError(int code, std::string_view english) {
  constexpr int kPrimary = 0xFF;
  // What our functions and a trigger's RAISE say is Spanish as it is.
  if (code == SQLITE_CONSTRAINT_FUNCTION || code == SQLITE_CONSTRAINT_TRIGGER) {
    return std::string(english);
  }
  for (const CodeMessage& known : kCodes) {
    if (known.code == (code & kPrimary)) return std::string(known.spanish);
  }
  for (const Message& known : kMessages) {
    if (const auto names = NamesIn(english, known.english)) return Filled(known.spanish, *names);
  }
  return "La base de datos integrada no ha podido ejecutar la sentencia (código " +
         std::to_string(code) + ").";
}

}  // namespace kvraedi::sqlite
