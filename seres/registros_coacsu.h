#pragma once

#include "frame/registro.h"

/// The records of the COACSU summary message: fixed width, one a line. The transmission header is
/// INVOIC's. Areas that are never filled are one row without a name each.
namespace kvraedi::coacsu {

inline constexpr Disposicion kScoac({{"Tag", 1, 6},
                                     {"Clase", 7, 3},
                                     {"", 10, 17},
                                     {"Relacion", 27, 35},
                                     {"", 62, 3},
                                     {"Hoy", 65, 8},
                                     {"FechaInicio", 73, 8},
                                     {"FechaFin", 81, 8},
                                     {"", 89, 17},
                                     {"Divisa", 106, 3},
                                     {"", 109, 8},
                                     {"CuentaBancaria", 117, 35},
                                     {"", 152, 35},
                                     {"", 187, 3},
                                     {"", 190, 11},
                                     {"", 201, 17},
                                     {"", 218, 70},
                                     {"", 288, 3},
                                     {"MedioPago", 291, 3},
                                     {"Bruto", 294, 18, Der},
                                     {"Descuento", 312, 18, Der},
                                     {"Impuestos", 330, 18, Der},
                                     {"Total", 348, 18, Der}});
static_assert(kScoac.Ancho() == 365);

inline constexpr Disposicion kScoat({{"Tag", 1, 6}, {"Calificador", 7, 6}, {"", 13, 350}});
static_assert(kScoat.Ancho() == 362);

inline constexpr Disposicion kScoap({{"Tag", 1, 6},
                                     {"Calificador", 7, 3},
                                     {"", 10, 17},
                                     {"Agencia", 27, 3},
                                     {"Nombre", 30, 35},
                                     {"", 65, 140},
                                     {"Direccion", 205, 35},
                                     {"", 240, 105},
                                     {"Localidad", 345, 35},
                                     {"Provincia", 380, 9},
                                     {"Cp", 389, 9},
                                     {"Pais", 398, 3},
                                     {"Nif", 401, 35},
                                     {"", 436, 35},
                                     {"Contacto", 471, 3},
                                     {"", 474, 17},
                                     {"Nombre2", 491, 35},
                                     {"Telefono", 526, 35},
                                     {"Fax", 561, 35}});
static_assert(kScoap.Ancho() == 595);

inline constexpr Disposicion kScoad({{"Tag", 1, 6},
                                     {"Clase", 7, 3},
                                     {"Descuento", 10, 18},
                                     {"", 28, 9},
                                     {"Impuesto1", 37, 3},
                                     {"", 40, 24},
                                     {"Impuesto2", 64, 3},
                                     {"", 67, 24},
                                     {"Impuesto3", 91, 3},
                                     {"", 94, 24}});
static_assert(kScoad.Ancho() == 117);

inline constexpr Disposicion kScoal({{"Tag", 1, 6},
                                     {"Clase", 7, 3},
                                     {"Albaran", 10, 17},
                                     {"Fecha", 27, 8},
                                     {"", 35, 8},
                                     {"Precio", 43, 18, Der},
                                     {"PvpBase", 61, 18, Der}});
static_assert(kScoal.Ancho() == 78);

inline constexpr Disposicion kScoaq({{"Tag", 1, 6},
                                     {"Calificador", 7, 3},
                                     {"", 10, 17},
                                     {"Agencia", 27, 3},
                                     {"Nombre", 30, 35},
                                     {"", 65, 140},
                                     {"Direccion", 205, 35},
                                     {"", 240, 105},
                                     {"Localidad", 345, 35},
                                     {"Provincia", 380, 9},
                                     {"Cp", 389, 9},
                                     {"Pais", 398, 3},
                                     {"Nif", 401, 35},
                                     {"", 436, 35}});
static_assert(kScoaq.Ancho() == 470);

inline constexpr Disposicion kScoaa(
    {{"Tag", 1, 6}, {"Clase", 7, 3}, {"Calificador", 10, 3}, {"", 13, 18}});
static_assert(kScoaa.Ancho() == 30);

}  // namespace kvraedi::coacsu
