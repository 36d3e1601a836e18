# Writes the report files into a source file, so that the program needs no file at run time.
# cmake -DCARPETA=... -DSALIDA=... -P embeber_informes.cmake
file(GLOB ficheros "${CARPETA}/*.rpt")
list(SORT ficheros)
set(filas "")
foreach(fichero IN LISTS ficheros)
  get_filename_component(nombre "${fichero}" NAME)
  file(READ "${fichero}" texto)
  string(APPEND filas "    {\"${nombre}\", R\"rpt(${texto})rpt\"},\n")
endforeach()
file(WRITE "${SALIDA}" "#include \"host/demo/informes.h\"

namespace kvraedi::demo {

namespace {
constexpr InformeDemo kTabla[] = {
${filas}};
}  // namespace

const std::span<const InformeDemo> kInformes = kTabla;

}  // namespace kvraedi::demo
")
