#pragma once

#include <string>

#include "frame/lector_texto.h"
#include "inspeccion/secuencia.h"
#include "kvraedi/contenido_fichero.h"

namespace kvraedi::inspeccion {

/// A text file of records on its way to whom it is told. The reader stands on the first line.
class Lectura {
 public:
  Lectura(LectorTexto& lector, const ReceptorCampos& recibir, std::span<const ReglaRegistro> reglas)
      : lector_(lector), recibir_(recibir), secuencia_(reglas) {}

  /// Begins the record of the reader's line: what is wrong with it as a whole is told.
  void Empezar(std::string tag);
  /// Tells something about the record.
  void Reparar(std::string_view reparo) { Decir({}, 0, 0, {}, reparo); }
  void Decir(std::string_view nombre, std::size_t posicion, std::size_t ancho,
             std::string_view valor, std::string_view reparo);
  /// At the end of the file.
  void Terminar() { DecirFaltas(); }

  std::string_view Tag() const { return tag_; }

 private:
  void DecirFaltas();

  LectorTexto& lector_;
  const ReceptorCampos& recibir_;
  Secuencia secuencia_;
  std::string tag_;
};

/// The reader stands on the first line; every line is told up to the end of the file.
void RecorrerInvoic(LectorTexto& lector, const ReceptorCampos& recibir);
void RecorrerCoacsu(LectorTexto& lector, const ReceptorCampos& recibir);
/// Messages between bars and supplier orders between tabulators.
void RecorrerBarras(FormatoFichero formato, LectorTexto& lector, const ReceptorCampos& recibir);

/// The format that a first line tells, in the file's bytes.
FormatoFichero FormatoDeLinea(std::string_view linea);

/// Every element of the document with a text.
void RecorrerFacturae(const DocumentoXml& documento, const ReceptorCampos& recibir);

}  // namespace kvraedi::inspeccion
