#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

// The fields of the messages between bars: one row per field, in the order of the record. Where a
// received field goes into a staging table, its name is that of the column.
namespace kvraedi::barras {

enum class Clase : std::uint8_t { kTexto, kGln, kNumero, kEmision, kFecha };

/// A field of a record; field 0 is the tag.
struct Columna {
  std::size_t campo;
  std::string_view nombre;
  Clase clase = Clase::kTexto;
};

namespace orders {
inline constexpr Columna kOrd[] = {{1, "Doc_Num"}, {2, "Doc_Tipo"}, {3, "Doc_Funcion"}};
inline constexpr Columna kDtm[] = {
    {1, "Fecha_Emision", Clase::kEmision},
    {2, "Fecha_Ini_Entrega", Clase::kFecha},
    {3, "Fecha_Fin_Entrega", Clase::kFecha},
};
inline constexpr Columna kNadSu[] = {{1, "GLN_Proveedor"}};
/// The same as it is written: what follows is not read.
inline constexpr Columna kNadSuEscrito[] = {{1, "GLN_Proveedor"}, {2, "Cod_Proveedor"}};
inline constexpr Columna kNadBy[] = {
    {1, "GLN_Cliente", Clase::kGln}, {5, "Nombre_Cliente"}, {6, "Direccion_Cliente"},
    {7, "Localidad_Cliente"},        {8, "CP_Cliente"},     {9, "Nif_Cliente"},
};
inline constexpr Columna kNadDp[] = {
    {1, "GLN_ClienteEntrega", Clase::kGln},
    {3, "Nombre_ClienteEntrega"},
    {4, "Direccion_ClienteEntrega"},
    {5, "Localidad_ClienteEntrega"},
    {6, "CP_ClienteEntrega"},
};
inline constexpr Columna kLin[] = {{1, "Cod_Barras"}, {2, "Tipo_EAN"}, {3, "Num_Linea"}};
inline constexpr Columna kImdLin[] = {
    {1, "Desc_Calificador"}, {2, "Desc_Caracteristica"}, {3, "Desc_Cod"}, {4, "Descripcion"}};
inline constexpr Columna kQtyLin[] = {
    {1, "Cantidad_Calificador"}, {2, "Cantidad", Clase::kNumero}, {3, "Cantidad_Medida"}};
inline constexpr Columna kMoaLin[] = {{1, "Importe_Neto_Linea", Clase::kNumero}};
inline constexpr Columna kMoaRes[] = {
    {1, "Importe_Neto", Clase::kNumero},           {2, "Importe_Bruto", Clase::kNumero},
    {3, "Importe_Impuestos", Clase::kNumero},      {4, "Importe_Pagar", Clase::kNumero},
    {5, "Importe_Base_Imponible", Clase::kNumero},
};
inline constexpr Columna kCntRes[] = {
    {1, "Bultos", Clase::kNumero},           {2, "Palets", Clase::kNumero},
    {3, "Num_Articulos", Clase::kNumero},    {4, "Num_Lineas", Clase::kNumero},
    {5, "Peso_Bruto_Total", Clase::kNumero},
};
}  // namespace orders

namespace desadv {
inline constexpr Columna kBgm[] = {{1, "Doc_Num"}, {2, "Doc_Tipo"}, {3, "Doc_Funcion"}};
inline constexpr Columna kRff[] = {{1, "Calificador"}, {2, "Pedido"}, {3, "Fecha", Clase::kFecha}};
inline constexpr Columna kNadDp[] = {{1, "GLN_Almacen", Clase::kGln}};
inline constexpr Columna kLin[] = {{1, "Cod_Articulo"}};
inline constexpr Columna kQtyLin[] = {
    {1, "Calificador"}, {2, "Cantidad", Clase::kNumero}, {3, "Unidad"}};
inline constexpr Columna kPciLin[] = {
    {1, "Calificador"}, {2, "LoteCaducidad", Clase::kFecha}, {8, "LoteNro"}};
}  // namespace desadv

namespace recadv {
inline constexpr Columna kBgm[] = {{1, "Documento"}};
inline constexpr Columna kDtm[] = {{1, "Fecha", Clase::kFecha}};
inline constexpr Columna kRff[] = {{1, "Calificador"}, {2, "Pedido"}};
inline constexpr Columna kNad[] = {{1, "GLN", Clase::kGln}};
inline constexpr Columna kCps[] = {{1, "Secuencia"}};
inline constexpr Columna kLin[] = {{1, "Cod_Barras"}, {2, "Tipo_EAN"}};
inline constexpr Columna kQtyLin[] = {{1, "Cantidad", Clase::kNumero}};
inline constexpr Columna kPriLin[] = {{1, "Calificador"}, {2, "Base", Clase::kNumero}};
inline constexpr Columna kTaxLin[] = {
    {1, "Impuesto"}, {2, "Tasa", Clase::kNumero}, {3, "Importe", Clase::kNumero}};
inline constexpr Columna kCntRes[] = {{1, "Impuestos", Clase::kNumero}};
}  // namespace recadv

// Supplier orders, between tabulators: the first line of the versions' platform, then one for each
// article. Field 0 is a field as any other.
namespace pedido {
inline constexpr Columna kCabecera[] = {{0, "Version"}, {1, "Pedido"}, {2, "Consignacion"},
                                        {3, "Fecha"},   {4, "Clase"},  {5, "Marca"}};
inline constexpr Columna kLineaV4[] = {
    {0, "Referencia"}, {1, "Unidades", Clase::kNumero}, {2, "Fecha"}};
inline constexpr Columna kLineaV3[] = {{0, "Referencia"},
                                       {1, "Unidades", Clase::kNumero},
                                       {2, "Palets", Clase::kNumero},
                                       {3, "Marca1"},
                                       {4, "Marca2"},
                                       {7, "Marca3"}};
inline constexpr Columna kLineaEan[] = {
    {0, "Referencia"}, {1, "Cod_Barras"}, {2, "Unidades", Clase::kNumero}, {3, "Descripcion"}};
}  // namespace pedido

}  // namespace kvraedi::barras
