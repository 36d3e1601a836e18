#pragma once

#include "frame/registro.h"

/// What is read of a received INVOIC file, and where. In SINCL the amounts stand at other places
/// than those where this system writes them.
namespace kvraedi::recibida {

inline constexpr std::size_t kAnchoTag = 6;

inline constexpr Disposicion kRectl({{"Tag", 1, kAnchoTag}, {"TipoMensaje", 7, 6}});

inline constexpr Disposicion kSincc({{"Tag", 1, kAnchoTag},
                                     {"TipoDocumento", 7, 6},
                                     {"Numero", 13, 17},
                                     {"Funcion", 30, 6},
                                     {"", 36, 2},
                                     {"Año", 38, 2},
                                     {"Mes", 40, 2},
                                     {"Dia", 42, 2},
                                     {"", 44, 130},
                                     {"NetoLineas", 174, 18},
                                     {"Base", 192, 18},
                                     {"", 210, 18},
                                     {"Impuestos", 228, 18},
                                     {"Total", 246, 18}});

inline constexpr Disposicion kSincp({{"Tag", 1, kAnchoTag},
                                     {"Calificador", 7, 3},
                                     {"Gln", 10, 17},
                                     {"", 27, 3},
                                     {"Nombre1", 30, 35},
                                     {"Nombre2", 65, 35},
                                     {"Nombre3", 100, 35},
                                     {"Nombre4", 135, 35},
                                     {"Nombre5", 170, 35},
                                     {"Direccion1", 205, 35},
                                     {"Direccion2", 240, 35},
                                     {"Direccion3", 275, 35},
                                     {"Direccion4", 310, 35},
                                     {"Localidad", 345, 35},
                                     {"", 380, 9},
                                     {"Cp", 389, 9},
                                     {"", 398, 3},
                                     {"Nif", 401, 35}});

/// SINCT and SINCU.
inline constexpr Disposicion kTexto({{"Tag", 1, kAnchoTag},
                                     {"", 7, 6},
                                     {"Texto1", 13, 70},
                                     {"Texto2", 83, 70},
                                     {"Texto3", 153, 70},
                                     {"Texto4", 223, 70},
                                     {"Texto5", 293, 70}});

/// SINCD and SINCE.
inline constexpr Disposicion kDescuento({{"Tag", 1, kAnchoTag},
                                         {"Numero", 7, 2},
                                         {"Indicador", 9, 1},
                                         {"", 10, 3},
                                         {"Porcentaje", 13, 9},
                                         {"Importe", 22, 18},
                                         {"", 40, 34},
                                         {"Calificador", 74, 6}});

inline constexpr Disposicion kSincl({{"Tag", 1, kAnchoTag},
                                     {"Linea", 7, 6},
                                     {"Articulo", 13, 15},
                                     {"Descripcion", 28, 35},
                                     {"Clase", 63, 1},
                                     {"", 64, 75},
                                     {"Unidades", 139, 16},
                                     {"", 155, 54},
                                     {"Importe", 209, 18},
                                     {"PrecioNeto", 227, 16},
                                     {"PrecioBruto", 243, 16},
                                     {"", 259, 4},
                                     {"Impuesto", 263, 6},
                                     {"TasaImpuesto", 269, 6},
                                     {"", 275, 106},
                                     {"Bultos", 381, 8},
                                     {"", 389, 135}});
/// The amounts of a line may end so many columns before the fields that are read.
inline constexpr std::size_t kHolguraSincl = 2;
/// Where the last of them may end.
inline constexpr std::size_t kFinImportesSincl =
    kSincl["PrecioBruto"].posicion - 1 + kSincl["PrecioBruto"].ancho - kHolguraSincl;

}  // namespace kvraedi::recibida
