#include "orders/tablas_desadv.h"

#include <cstdlib>

#include "frame/sql.h"

namespace kvraedi::desadv {
namespace {

// The most negative tick count has no positive counterpart of its own width.
std::string Sufijo(std::int32_t tickCount) {
  return std::to_string(std::abs(static_cast<std::int64_t>(tickCount)));
}

}  // namespace

Tablas::Tablas(std::int32_t tickCount)
    : cabecera("#EDI_Albaran" + Sufijo(tickCount)),
      lineas("#EDI_Albaran_Lineas" + Sufijo(tickCount)) {}

void Tablas::Crear(Connection& conexion) const {
  conexion.Execute(Sql("CREATE TABLE ", cabecera,
                       " (Fichero [varchar](100),"
                       " Doc_Num [varchar](17),"
                       " Fecha [smalldatetime],"
                       " GLN_Almacen [varchar](35),"
                       " Hora [smalldatetime],"
                       " ID [int] IDENTITY(1,1))"));
  conexion.Execute(Sql("CREATE TABLE ", lineas,
                       " (Fichero [varchar](100),"
                       " Doc_Num [varchar](17),"
                       " Cod_Articulo [varchar](17),"
                       " Unidades [money] NOT NULL DEFAULT ((0)),"
                       " Hora [smalldatetime],"
                       " LoteNro [varchar](50) NOT NULL DEFAULT (''),"
                       " LoteCaducidad [smalldatetime] NOT NULL DEFAULT (''),"
                       " ID [int] IDENTITY(1,1))"));
}

void Tablas::Borrar(Connection& conexion) const {
  conexion.Execute(Sql("DROP TABLE ", cabecera));
  conexion.Execute(Sql("DROP TABLE ", lineas));
}

}  // namespace kvraedi::desadv
