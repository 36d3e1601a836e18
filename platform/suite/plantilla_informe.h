#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kvraedi::suite {

/// How the value of a field is written.
enum class FormatoCampo : std::uint8_t {
  kTexto,     ///< as it is
  kNumero,    ///< "1.234,50", with a fixed number of decimals
  kCantidad,  ///< "1.234,5", with the decimals that it has
  kFecha,     ///< "dd/mm/aaaa"
};

/// Which numbers of a field count as a value.
enum class ValidezCampo : std::uint8_t { kTodos, kSinCero, kPositivos };

/// An amount computed from columns of the row: the product of two, less a percentage.
struct CalculoInforme {
  std::string a;
  std::string b;
  std::string porcentaje;  ///< may be empty
};

struct CampoInforme {
  std::string nombre;
  FormatoCampo formato = FormatoCampo::kTexto;
  int decimales = 0;
  ValidezCampo validez = ValidezCampo::kTodos;
  std::optional<CalculoInforme> calculo;  ///< nothing for a column
};

/// A column of a table and the field of an enclosing row that it equals.
struct EnlaceInforme {
  std::string columna;
  std::string exterior;
};

struct TablaInforme {
  std::string nombre;  ///< in the layout
  std::string tabla;   ///< in the database
  std::string padre;   ///< the table within whose rows it is read; "" when it stands by itself
  std::vector<EnlaceInforme> enlaces;
  std::vector<std::string> orden;
  std::vector<CampoInforme> campos;
};

/// A report file: what it reads, and the layout that is filled with it. The format is described in
/// docs/informes.md.
struct PlantillaInforme {
  std::string titulo;
  std::string pie;
  std::vector<std::string> subinformes;  ///< files beside this one
  std::vector<TablaInforme> tablas;
  std::string cuerpo;  ///< HTML with fields and sections in double braces
};

/// Reads a report file. Raises `Error` with the line at fault.
PlantillaInforme LeerPlantilla(std::string_view texto);

/// The name by which a layout places a report within it: its file's name without ending.
std::string NombreDeSubinforme(std::string_view fichero);

}  // namespace kvraedi::suite
