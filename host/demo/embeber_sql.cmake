# Writes the scripts into a source file, so that the program needs no file at run time.
# cmake -DESQUEMA=... -DPEDIDOS=... -DRECEPCION=... -DLIBRO=... -DFUNCIONES=...
#   -DDISPARADORES_SQLITE=... -DDISPARADORES_SQLSERVER=... -DSALIDA=... -P embeber_sql.cmake
file(READ "${ESQUEMA}" esquema)
file(READ "${PEDIDOS}" pedidos)
file(READ "${RECEPCION}" recepcion)
file(READ "${LIBRO}" libro)
file(READ "${FUNCIONES}" funciones)
file(READ "${DISPARADORES_SQLITE}" disparadores_sqlite)
file(READ "${DISPARADORES_SQLSERVER}" disparadores_sqlserver)
file(WRITE "${SALIDA}" "#include \"host/demo/esquema.h\"

namespace kvraedi::demo {

const std::string_view kEsquema = R\"sql(${esquema})sql\";
const std::string_view kEsquemaPedidos = R\"sql(${pedidos})sql\";
const std::string_view kEsquemaRecepcion = R\"sql(${recepcion})sql\";
const std::string_view kLibroRecibidos = R\"sql(${libro})sql\";
const std::string_view kFunciones = R\"sql(${funciones})sql\";
const std::string_view kDisparadoresSqlite = R\"sql(${disparadores_sqlite})sql\";
const std::string_view kDisparadoresSqlServer = R\"sql(${disparadores_sqlserver})sql\";
const std::array<std::string_view, 6> kScriptsSqlite = {
    kEsquema, kEsquemaPedidos, kEsquemaRecepcion, kLibroRecibidos, kFunciones,
    kDisparadoresSqlite};
const std::array<std::string_view, 6> kScriptsSqlServer = {
    kEsquema, kEsquemaPedidos, kEsquemaRecepcion, kLibroRecibidos, kFunciones,
    kDisparadoresSqlServer};

}  // namespace kvraedi::demo
")
