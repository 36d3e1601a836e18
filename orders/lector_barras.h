#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "frame/lector_texto.h"
#include "kvraedi/valor.h"

namespace kvraedi {

/// A received date without its time of day; nothing when the text is blank, no date, or one that
/// the narrowest dates of the database, from 01/01/1900 to 06/06/2079, do not hold.
std::optional<FechaHora> DiaUsable(std::string_view texto);
inline constexpr std::string_view kDiaUsable = " del 01/01/1900 al 06/06/2079";

/// Reads a received message of the suite's flat-file form: one record a line, its tag first, fields
/// between "|" without quoting, in code page 1252. Field 0 is the tag.
class LectorBarras {
 public:
  /// `nombre` is what errors call the file.
  LectorBarras(std::string nombre, std::unique_ptr<FileReader> fichero);

  /// Moves on to the next record; lines with a single field are passed over.
  bool Siguiente();
  std::string_view Etiqueta() const { return campos_.front(); }
  /// How many fields the record has, the tag among them; no more than kMasCampos are told.
  std::size_t Campos() const { return campos_.size(); }
  bool Tiene(std::size_t campo) const { return campo < campos_.size(); }
  /// The field's text in UTF-8, "" when the record does not go so far. Valid until the next record.
  std::string_view Texto(std::size_t campo) const;
  /// The text, which has no control characters; otherwise raises what Rechazar raises. How long it
  /// may be the database knows.
  std::string_view TextoLimpio(std::size_t campo) const;
  /// A text that names a place or a partner: clean and not blank.
  std::string_view Gln(std::size_t campo) const;
  /// The field as a number, 0 when it is blank; raises what Rechazar raises when it is none.
  Currency Numero(std::size_t campo) const;
  /// The same as a statement takes it, with all its decimals; it may be larger than a Currency, but
  /// has no more digits than the largest number of the database.
  std::string Cifras(std::size_t campo) const;

  /// What errors call the file.
  const std::string& Nombre() const { return nombre_; }
  /// Where the record stands, for the text of an error: file, line and tag.
  std::string Lugar() const;
  /// Raises the error of this file: what is wrong, with file, line and field.
  [[noreturn]] void Rechazar(std::size_t campo, std::string_view motivo) const;

  /// Fields beyond these are not kept: no record has so many.
  static constexpr std::size_t kMasCampos = 16;

 private:
  bool LeerLinea();
  void Partir(std::string_view linea);

  std::string nombre_;
  LectorTexto lector_;
  std::string utf8_;
  std::vector<std::string_view> campos_;
};

}  // namespace kvraedi
