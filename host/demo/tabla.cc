#include "host/demo/tabla.h"

#include <cstdlib>

namespace kvraedi::demo {
namespace {

void AppendDigits(std::string& out, std::int64_t value, std::size_t width) {
  const std::string digits = std::to_string(value);
  if (digits.size() < width) out.append(width - digits.size(), '0');
  out += digits;
}

}  // namespace

Tabla::Tabla(Connection& conexion, std::string_view nombre, std::string_view columnas)
    : conexion_(conexion) {
  sql_.append("INSERT INTO ").append(nombre).append(" (").append(columnas).append(") VALUES (");
  cabecera_ = sql_.size();
}

void Tabla::PonerEntero(std::int64_t valor) { sql_ += std::to_string(valor) + ","; }

void Tabla::Poner(Currency valor) {
  if (valor.Units() < 0) sql_ += '-';
  const std::int64_t units = std::abs(valor.Units());
  sql_ += std::to_string(units / Currency::kScale) + ".";
  AppendDigits(sql_, units % Currency::kScale, 4);
  sql_ += ',';
}

void Tabla::Poner(std::string_view texto) {
  sql_ += '\'';
  for (const char c : texto) {
    if (c == '\'') sql_ += '\'';
    sql_ += c;
  }
  sql_ += "',";
}

// The form that every database reads alike, whatever its language.
void Tabla::Poner(const FechaHora& fecha) {
  sql_ += '\'';
  AppendDigits(sql_, fecha.year, 4);
  AppendDigits(sql_, fecha.month, 2);
  AppendDigits(sql_, fecha.day, 2);
  if (fecha.HasTime()) {
    sql_ += ' ';
    AppendDigits(sql_, fecha.hour, 2);
    sql_ += ':';
    AppendDigits(sql_, fecha.minute, 2);
    sql_ += ':';
    AppendDigits(sql_, fecha.second, 2);
  }
  sql_ += "',";
}

void Tabla::Poner(std::nullptr_t) { sql_ += "NULL,"; }

void Tabla::Poner(Binario binario) {
  sql_ += "CONVERT(varbinary(MAX),";
  Poner(binario.contenido);
  sql_.back() = ')';
  sql_ += ',';
}

void Tabla::Poner(const Clave& clave) {
  PonerEntero(clave.empresa);
  PonerEntero(clave.ejercicio);
  PonerEntero(clave.serie);
  PonerEntero(clave.codigo);
  PonerEntero(clave.tipoDoc);
}

void Tabla::Poner(const ClaveTicket& clave) {
  PonerEntero(clave.empresa);
  PonerEntero(clave.almacen);
  PonerEntero(clave.caja);
  Poner(clave.fecha);
  PonerEntero(clave.codigo);
}

}  // namespace kvraedi::demo
