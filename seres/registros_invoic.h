#pragma once

#include "frame/registro.h"

/// The records of the INVOIC message of the Seres platform: fixed width, one a line. Areas that no
/// invoice of this system fills are one row without a name each.
namespace kvraedi::invoic {

inline constexpr Disposicion kRectl({{"Tag", 1, 6},
                                     {"TipoMensaje", 7, 6},
                                     {"Emisor", 13, 35},
                                     {"Receptor", 48, 35},
                                     {"Identificador", 83, 40},
                                     {"Momento", 123, 12}});
static_assert(kRectl.Ancho() == 134);

inline constexpr Disposicion kSincc({{"Tag", 1, 6},
                                     {"TipoDocumento", 7, 6},
                                     {"Numero", 13, 17},
                                     {"Funcion", 30, 6},
                                     {"Fecha", 36, 8, Der},
                                     {"", 44, 16},
                                     {"", 60, 6},
                                     {"Abono", 66, 3},
                                     {"", 69, 91},
                                     {"Divisa", 160, 6},
                                     {"Vencimiento", 166, 8, Der},
                                     {"NetoLineas", 174, 18, Der},
                                     {"Base", 192, 18, Der},
                                     {"BrutoLineas", 210, 18, Der},
                                     {"Impuestos", 228, 18, Der},
                                     {"Total", 246, 18, Der},
                                     {"", 264, 18},
                                     {"Portes", 282, 18, Der},
                                     {"", 300, 18},
                                     {"", 318, 16},
                                     {"", 334, 8},
                                     {"Hora", 342, 12},
                                     {"", 354, 17}});
static_assert(kSincc.Ancho() == 370);

inline constexpr Disposicion kSincp({{"Tag", 1, 6},         {"Calificador", 7, 3},
                                     {"Gln", 10, 17},       {"Agencia", 27, 3},
                                     {"Nombre1", 30, 35},   {"Nombre2", 65, 35},
                                     {"", 100, 105},        {"Direccion", 205, 35},
                                     {"", 240, 105},        {"Localidad", 345, 35},
                                     {"Provincia", 380, 9}, {"Cp", 389, 9},
                                     {"Pais", 398, 3},      {"Nif", 401, 35},
                                     {"", 436, 35},         {"", 471, 3},
                                     {"", 474, 17},         {"Contacto", 491, 35},
                                     {"Telefono", 526, 35}, {"Fax", 561, 35},
                                     {"", 596, 35},         {"RegistroMercantil", 631, 70},
                                     {"", 701, 35},         {"", 736, 3},
                                     {"", 739, 35}});
static_assert(kSincp.Ancho() == 773);

/// SINCT and SINCU: up to five texts; the record ends after the last one that exists.
inline constexpr Disposicion kTexto({{"Tag", 1, 6},
                                     {"Calificador", 7, 6},
                                     {"Texto1", 13, 70},
                                     {"Texto2", 83, 70},
                                     {"Texto3", 153, 70},
                                     {"Texto4", 223, 70},
                                     {"Texto5", 293, 70}});
static_assert(kTexto.Ancho() == 362);

inline constexpr Disposicion kSincv(
    {{"Tag", 1, 6}, {"Secuencia", 7, 6}, {"FechaVto", 13, 8}, {"Importe", 21, 18, Der}});
static_assert(kSincv.Ancho() == 38);

inline constexpr Disposicion kSincd({{"Tag", 1, 6},
                                     {"Numero", 7, 2, Der},
                                     {"Indicador", 9, 1},
                                     {"Secuencia", 10, 3},
                                     {"Porcentaje", 13, 9, Der},
                                     {"Importe", 22, 18, Der},
                                     {"", 40, 18},
                                     {"", 58, 16},
                                     {"Calificador", 74, 6},
                                     {"", 80, 19},
                                     {"", 99, 6},
                                     {"", 105, 35}});
static_assert(kSincd.Ancho() == 139);

inline constexpr Disposicion kSincl({{"Tag", 1, 6},
                                     {"Linea", 7, 6, Der},
                                     {"Articulo", 13, 15},
                                     {"Descripcion", 28, 35},
                                     {"Clase", 63, 1},
                                     {"", 64, 75},
                                     {"Unidades", 139, 16, Der},
                                     {"", 155, 54},
                                     {"Neto", 209, 16, Der},
                                     {"Precio", 225, 16, Der},
                                     {"PrecioBruto", 241, 16, Der},
                                     {"", 257, 6},
                                     {"Impuesto", 263, 6},
                                     {"TasaImpuesto", 269, 6, Der},
                                     {"", 275, 106},
                                     {"Bultos", 381, 8, Der},
                                     {"", 389, 135}});
static_assert(kSincl.Ancho() == 523);

inline constexpr Disposicion kSince({{"Tag", 1, 6},
                                     {"Numero", 7, 2, Der},
                                     {"Indicador", 9, 1},
                                     {"Secuencia", 10, 3},
                                     {"Porcentaje", 13, 9, Der},
                                     {"", 22, 18},
                                     {"", 40, 18},
                                     {"", 58, 16},
                                     {"", 74, 6},
                                     {"", 80, 19},
                                     {"", 99, 16},
                                     {"", 115, 35}});
static_assert(kSince.Ancho() == 149);

inline constexpr Disposicion kSinci({{"Tag", 1, 6},
                                     {"Secuencia", 7, 2},
                                     {"Impuesto", 9, 6},
                                     {"Tasa", 15, 6, Der},
                                     {"Importe", 21, 18, Der},
                                     {"Base", 39, 18, Der}});
static_assert(kSinci.Ancho() == 56);

}  // namespace kvraedi::invoic
