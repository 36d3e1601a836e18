#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "frame/formato.h"

namespace kvraedi {

inline constexpr Alineacion Izq = Alineacion::kIzquierda;
inline constexpr Alineacion Der = Alineacion::kDerecha;

/// A field of a fixed-width record: its place, counted from 1, and its width in characters. A field
/// without a name is never written and stays blank.
struct Campo {
  std::string_view nombre;
  std::size_t posicion;
  std::size_t ancho;
  Alineacion alineacion = Izq;
};

/// The fields of a record, one row per field. The compiler checks that each begins where the one
/// before it ends, and that a field that is named exists.
template <std::size_t N>
class Disposicion {
 public:
  consteval Disposicion(const Campo (&campos)[N]) {  // NOLINT: a table of fields is a layout
    std::size_t siguiente = 1;
    for (std::size_t i = 0; i < N; ++i) {
      if (campos[i].posicion != siguiente) throw "a gap or an overlap between two fields";
      siguiente += campos[i].ancho;
      campos_[i] = campos[i];
    }
  }

  consteval Campo operator[](std::string_view nombre) const {
    for (const Campo& campo : campos_) {
      if (campo.nombre == nombre) return campo;
    }
    throw "no field of that name";
  }

  constexpr std::span<const Campo> Campos() const { return campos_; }
  constexpr std::size_t Ancho() const { return campos_.back().posicion + campos_.back().ancho - 1; }

 private:
  std::array<Campo, N> campos_{};
};

/// One record being filled: blank at first, in code page 1252.
class Registro {
 public:
  template <std::size_t N>
  explicit Registro(const Disposicion<N>& disposicion) : linea_(disposicion.Ancho(), ' ') {}

  /// Writes a text, cut at the right when it is longer than the field.
  void Texto(const Campo& campo, std::string_view texto);
  /// Writes a number's text; raises `Error` when it does not fit, for a number is never cut.
  void Numero(const Campo& campo, std::string_view texto);
  /// The record ends after this field.
  void TerminarEn(const Campo& campo) { linea_.resize(campo.posicion - 1 + campo.ancho); }

  /// The record goes without this field; those behind it move up. The last thing done to a record.
  void Quitar(const Campo& campo) { linea_.erase(campo.posicion - 1, campo.ancho); }

  const std::string& Linea() const { return linea_; }

 private:
  std::span<char> Sitio(const Campo& campo);

  std::string linea_;
};

}  // namespace kvraedi
