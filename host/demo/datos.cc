#include "host/demo/datos.h"

#include <array>

namespace kvraedi::demo {
namespace {

constexpr Regimen kIntra = Regimen::kIntracomunitario;
constexpr Regimen kExporta = Regimen::kExportacion;
constexpr Regimen kNac = Regimen::kNacional;

constexpr auto kTablaEmpresas = std::to_array<EmpresaDemo>({
    {1, "Distribuidora Kestrova Canarias S.L.", "Kestrova Islas", "B35000011", true, 4},
    {2, "Comercio Minorista Kestrova S.L.U.", "Kestrova Tiendas", "B38000022", false, 2},
});

constexpr auto kTablaParametros = std::to_array<ParametroDemo>({
    {1, "EDI_PathFichEnvios", "Envios"},
    {1, "EDI_PathFichRecibir", "Recepcion"},
    {1, "EDI_PathCertificadoDigital", "Certificados/empresa_1.pfx"},
    {1, "EDI_PasswordCertificadoDigital", "demo"},
    {1, "EDI_GLNEmpresa", "8437000111115"},
    {1, "EDI_RegistroMercantil",
     "Registro Mercantil de Las Palmas, tomo 1.234, folio 56, hoja GC-7.890, inscripción 1ª"},
    {1, "UsuarioActual", "1"},
    {1, "ODBCNombre", "Kestrova"},
    {1, "ODBCBaseDatos", "main"},  // what the embedded database calls itself
    {1, "ODBCUsuario", ""},
    {1, "ODBCPassword", ""},
    {2, "EDI_PathFichEnvios", "Envios"},
    {2, "EDI_PathFichRecibir", "Recepcion"},
    {2, "EDI_GLNEmpresa", "8437000222224"},
    {2, "EDI_RegistroMercantil", "Reg. Merc. de S/C de Tenerife, tomo 98, folio 7, hoja TF-654"},
    {2, "UsuarioActual", "1"},
    {2, "ODBCNombre", "Kestrova"},
    {2, "ODBCBaseDatos", "main"},
    {2, "ODBCUsuario", ""},
    {2, "ODBCPassword", ""},
});

constexpr auto kTablaImpuestos = std::to_array<ImpuestoDemo>({
    {0, "Exento", 0},
    {1, "IGIC tipo cero", 0},
    {2, "IGIC reducido", 30000},
    {3, "IGIC general", 70000},
    {4, "IGIC incrementado", 95000},
    {5, "IGIC especial", 150000},
});

constexpr auto kTablaPaises = std::to_array<PaisDemo>({
    {1, "España", "ES", "ESP"},
    {2, "Francia", "FR", "FRA"},
    {3, "Alemania", "DE", "DEU"},
    {4, "Portugal", "PT", "PRT"},
    {5, "Estados Unidos", "US", "USA"},
    {6, "Marruecos", "MA", "MAR"},
});

constexpr auto kTablaLugares = std::to_array<LugarDemo>({
    {"C/ León y Castillo, 245", "35005", "Las Palmas de Gran Canaria", "Las Palmas"},
    {"Avda. Ángel Guimerá, 12, 3º izda.", "38003", "Santa Cruz de Tenerife", "S/C de Tenerife"},
    {"Pol. Ind. El Goro, c/ Cañón Español, parcela 7", "35215", "Telde", "Las Palmas"},
    {"Pza. del Adelantado, 3", "38201", "San Cristóbal de La Laguna", "S/C de Tenerife"},
    {"Ctra. Gral. del Sur, km 14,5", "38500", "Güímar", "S/C de Tenerife"},
    {"C/ Peñón d'en Mig, 8", "35118", "Agüimes", "Las Palmas"},
    {"Avda. Marítima, s/n", "35500", "Arrecife", "Las Palmas"},
    {"C/ Primero de Mayo, 41", "35600", "Puerto del Rosario", "Las Palmas"},
});

constexpr auto kTablaCadenas = std::to_array<CadenaDemo>({
    {1, 1, "Grupo Atlántico"},
    {1, 2, "Cadena \"El Teide\""},
    {1, 3, "Centrales O'Higgins"},
    {1, 7, "Independientes 100%"},
    {2, 1, "Zona Norte"},
    {2, 2, "Zona Sur"},
    {2, 5, "Zona_Capital"},
    {3, 1, "Hipermercados"},
    {3, 2, "Supermercados"},
    {3, 5, "Tiendas de barrio"},
    {4, 1, "Muelle de día"},
    {5, 1, "Ruta 1"},
    {6, 1, "Tarifa A"},
    {7, 7, "Campaña de Navidad"},
    {8, 1, "Gestor 1"},
    {9, 1, "Agrupación 9"},
    {10, 3, "Subnivel último"},
});

constexpr auto kTablaMensajes = std::to_array<MensajeDemo>({
    {2, 0, "SERES"},
    {2, 1, "INVOIC"},
    {2, 2, "COACSU"},
    {2, 3, "DESADV"},
    {3, 0, "FACTURA E"},
    {3, 1, "FACTURA"},
    {3, 2, "RECTIFICATIVA"},
    {4, 0, "PROVEEDORES"},
    {4, 1, "PEDIDO V4.0"},
    {4, 2, "PEDIDO V3.0"},
    {5, 0, "OTRA PLATAFORMA"},
    {5, 1, "FACTURA"},
});

constexpr auto kTablaClientes = std::to_array<ClienteDemo>({
    // INVOIC
    {1, "Supermercados La Laguna S.L.", "B38111111", 1, kNac, 0, 2, 1, 1, 1, 2},
    {2, "Distribuciones O'Donnell e Hijos S.A.", "A35222222", 1, kNac, 0, 2, 1, 3, 2, 1},
    {3, "\"Ñandú & Cía; S.L.\"", "B35333333", 1, kNac, 0, 2, 1, 2, 1, 5},
    {4, "Hiper Teide S.A.", "A38444444", 1, kNac, 0, 2, 1, 2, 2, 1},
    {5, "Todo a 1 € S.L.", "B35555555", 1, kNac, 0, 2, 1, 7, 5, 5},
    {6, "Comercializadora Internacional de Productos Canarios del Atlántico Norte S.A.",
     "A35666666", 1, kNac, 0, 2, 1, 1, 2, 5},
    {7, "Épicerie du Marché SARL", "FR12345678901", 2, kIntra, 0, 2, 1},
    {8, "Atlantic Foods Inc.", "US98-7654321", 5, kExporta, 0, 2, 1},
    {32767, "Almacenes Frontera S.A.", "A38777777", 1, kNac, 0, 2, 1, 1},
    {40123, "Supermercados del Atlántico S.A.", "A35888888", 1, kNac, 0, 2, 1, 1, 1, 2},
    // COACSU
    {20, "Restauración Colectiva Nivaria S.A.", "A38202020", 1, kNac, 0, 2, 2, 3, 1},
    {21, "Hoteles Playa Dorada S.L.", "B35212121", 1, kNac, 0, 2, 2},
    // Facturae
    {30, "Ayuntamiento de Puerto Azul", "P3530303A", 1, kNac, 0, 3, 1},
    {31, "Universidad del Archipiélago", "Q3831313B", 1, kNac, 0, 3, 1},
    {32, "Hospital Ntra. Sra. de la Peña", "Q3532323C", 1, kNac, 0, 3, 1, 7},
    {33, "Müller & Söhne GmbH", "DE123456789", 3, kIntra, 0, 3, 1},
    // Channels that the component does not serve
    {40, "Mayoristas Reunidos S.A.", "A35404040", 1, kNac, 0, 5, 1, 3},
    {41, "Bazar El Camello S.L.", "B35414141", 1, kNac, 0, 2, 3},
    {42, "Congelados Polo Norte S.L.", "B38424242", 1, kNac, 0, 3, 2},
    {43, "Frutas Guanche S.L.", "B38434343", 1, kNac, 0, 2, 9, 7},
    // No channel
    {50, "Cafetería Árbol Bonito", "42505050X", 1},
    {51, "Ferretería Güímar S.L.", "B38515151", 1, kNac, 0, 0, 0},
    {52, "Importadora do Porto Lda", "PT501234567", 4, kIntra},
    {53, "Casablanca Import SARL", "MA00112233", 6, kExporta},
    // Private persons
    {60, "María Núñez Pérez", "43606060Y", 1, kNac, 1, 2, 1},
    {61, "José Antonio de la Peña y Muñoz", "43616161Z", 1, kNac, 1},
});

constexpr LugarDemo kCasaConsistorial{"Pza. del Ayuntamiento, 1", "35500", "Arrecife",
                                      "Las Palmas"};
constexpr LugarDemo kRectorado{"C/ Padre Herrera, s/n", "38201", "San Cristóbal de La Laguna",
                               "S/C de Tenerife"};
constexpr LugarDemo kHospital{"Avda. Marítima del Sur, s/n", "35016", "Las Palmas de Gran Canaria",
                              "Las Palmas"};

constexpr auto kTablaCentros = std::to_array<CentroDemo>({
    {"L01359001", "Intervención Municipal", kCasaConsistorial, "Oficina contable"},
    {"L01359002", "Alcaldía de Puerto Azul", kCasaConsistorial, "Órgano gestor"},
    {"L01359003", "Negociado de Compras", kCasaConsistorial, "Unidad tramitadora"},
    {"U03800010", "Servicio de Contabilidad", kRectorado, "Oficina contable"},
    {"U03800011", "Gerencia de la Universidad", kRectorado, "Órgano gestor"},
    {"U03800012",
     "Facultad de Náutica \"O'Shanahan\"",
     {"Vía Auxiliar Paso Alto, 2", "38001", "Santa Cruz de Tenerife", "S/C de Tenerife"},
     "Unidad tramitadora"},
    {"A05030001", "Dirección de Gestión Económica", kHospital, "Oficina contable"},
    {"A05030002", "Dirección Gerencia", kHospital, "Órgano gestor"},
    {"A05030003", "Servicio de Suministros", kHospital, ""},
    {"A05030004", "Farmacia hospitalaria", kHospital, "Órgano proponente"},
});

constexpr auto kTablaRoles = std::to_array<RolesDemo>({
    {30, "L01359001", "L01359002", "L01359003", ""},
    {31, "U03800010", "U03800011", "U03800012", ""},
    {32, "A05030001", "A05030002", "A05030003", "A05030004"},
});

constexpr auto kTablaArticulos = std::to_array<ArticuloDemo>({
    {1001, "Gofio de millo tostado 1 kg", 18500, 1, 10000, false},
    {1002, "Queso majorero semicurado D.O.P.", 123456, 2, 10000, true},
    {1003, "Mojo picón \"La Abuela\" 250 g", 23999, 3, 2500, false},
    {1004, "Papas arrugadas congeladas, bolsa de 2,5 kg", 31250, 2, 25000, false},
    {1005, "Plátano de Canarias", 15705, 1, 10000, true},
    {1006, "Ron miel 20º 70 cl", 89500, 4, 12000, false},
    {1007, "Vino tinto D.O. Ycoden-Daute-Isora 75 cl (caja de 6 botellas)", 412345, 3, 78000,
     false},
    {1008, "Aceite de oliva virgen extra\r\nbotella de 1 L", 79875, 2, 9500, false},
    {1009, "Bolígrafo azul, oferta a 0,35 €", 3333, 3, 100, false},
    {1010, "Tabaco de pipa O'Hara 50 g", 64321, 5, 500, false},
    {1011, "Café molido mezcla 50% natural 50% torrefacto", 34567, 2, 2500, false},
    {1012, "Almendra garrapiñada", 95001, 3, 10000, true},
    {1013, "Agua con gas 1,5 L x 6", 28505, 1, 90000, false},
    {1014, "Televisor 32'' \"smart\"", 1899900, 4, 45000, false},
    {2000000001, "Cesta de Navidad nº 1", 450000, 3, 60000, false},
});

constexpr auto kTablaApellidos = std::to_array<std::string_view>({
    "Afonso",   "Bethencourt", "Cabrera", "Déniz",   "Espino",    "Frías",
    "Güímar",   "Hernández",   "Ibáñez",  "Jiménez", "León",      "Martín",
    "Núñez",    "O'Shanahan",  "Peña",    "Quesada", "Rodríguez", "Suárez",
    "Trujillo", "Umpiérrez",   "Viña",    "Yánez",   "Zárate",
});

constexpr auto kTablaGiros = std::to_array<std::string_view>({
    "Alimentación",
    "Bodegas",
    "Comercial",
    "Distribuciones",
    "Frutas",
    "Hostelería",
    "Panificadora",
    "Pescados",
    "Supermercado",
});

constexpr auto kTablaContactos = std::to_array<std::string_view>({
    "Sra. Núñez (recepción)",
    "Jefe de almacén",
    "D. Íñigo O'Shea",
    "Muelle 4, de 7:00 a 11:30",
});

// "" is a text without contents; the generator leaves some invoices without any.
constexpr auto kTablaObservaciones = std::to_array<std::string_view>({
    "",
    "Entregar por la mañana.",
    "Pedido telefónico de D. Íñigo.\r\nAvisar antes de las 9:00.",
    "Portes pagados\r\nImporte de los envases: 12,50 €\r\nDevolver los palés vacíos",
    "Línea 1\r\nLínea 2\r\nLínea 3\r\nLínea 4\r\nLínea 5",
    "1. Mercancía revisada\r\n2. Falta un bulto\r\n3. Se repone mañana\r\n4. Firmado: O'Donnell\r\n"
    "5. Temperatura -18 ºC\r\n6. Matrícula 1234-BCD\r\n7. Observación que ya no cabe",
    "Observación de una sola línea que es mucho más larga que los setenta caracteres de su campo "
    "y por eso se corta en el fichero",
    "Con \"comillas\", 'apóstrofos', punto; y coma -- y guiones\r\n\r\nTras una línea en blanco",
});

constexpr auto kTablaTextosDeLinea = std::to_array<std::string_view>({
    "Su pedido nº 45/2026",
    "Albarán 1.234 de fecha 03/02/2026\r\nEntregado en el muelle de día",
    "Promoción: lleve 3 y pague 2 (ahorro de 1,85 €)",
    "Lote: ÑU-0017\r\nCaducidad: 31/12/2027\r\nOrigen: España",
    "Uno\r\nDos\r\nTres\r\nCuatro\r\nCinco\r\nSeis, que ya no cabe",
    "Condiciones de conservación: manténgase en lugar fresco y seco, protegido de la luz del sol "
    "y de la humedad",
});

}  // namespace

const std::span<const EmpresaDemo> kEmpresas = kTablaEmpresas;
const std::span<const ParametroDemo> kParametros = kTablaParametros;
const std::span<const ImpuestoDemo> kImpuestos = kTablaImpuestos;
const std::span<const PaisDemo> kPaises = kTablaPaises;
const std::span<const LugarDemo> kLugares = kTablaLugares;
const std::span<const CadenaDemo> kCadenas = kTablaCadenas;
const std::span<const MensajeDemo> kMensajes = kTablaMensajes;
const std::span<const ClienteDemo> kClientes = kTablaClientes;
const std::span<const CentroDemo> kCentros = kTablaCentros;
const std::span<const RolesDemo> kRoles = kTablaRoles;
const std::span<const ArticuloDemo> kArticulos = kTablaArticulos;
const std::span<const std::string_view> kApellidos = kTablaApellidos;
const std::span<const std::string_view> kGiros = kTablaGiros;
const std::span<const std::string_view> kContactos = kTablaContactos;
const std::span<const std::string_view> kObservaciones = kTablaObservaciones;
const std::span<const std::string_view> kTextosDeLinea = kTablaTextosDeLinea;

}  // namespace kvraedi::demo
