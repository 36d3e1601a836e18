# Writes the scripts into a source file, so that the program needs no file at run time.
# cmake -DESQUEMA=... -DPEDIDOS=... -DRECEPCION=... -DFUNCIONES=... -DSALIDA=... -P embeber_sql.cmake
file(READ "${ESQUEMA}" esquema)
file(READ "${PEDIDOS}" pedidos)
file(READ "${RECEPCION}" recepcion)
file(READ "${FUNCIONES}" funciones)
file(WRITE "${SALIDA}" "#include \"host/demo/esquema.h\"

namespace kvraedi::demo {

const std::string_view kEsquema = R\"sql(${esquema})sql\";
const std::string_view kEsquemaPedidos = R\"sql(${pedidos})sql\";
const std::string_view kEsquemaRecepcion = R\"sql(${recepcion})sql\";
const std::string_view kFunciones = R\"sql(${funciones})sql\";

}  // namespace kvraedi::demo
")
