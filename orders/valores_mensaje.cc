#include "orders/valores_mensaje.h"

#include <algorithm>

#include "frame/formato.h"
#include "frame/sesion.h"
#include "kvraedi/error.h"

namespace kvraedi {

std::filesystem::path RaizEnvios() {
  auto raiz = ParametroRuta("EDI_PathFichEnvios");
  if (raiz.empty()) {
    throw Error(kErrorFile, "kvraedi", "No se ha definido la ruta para los ficheros EDI de envío");
  }
  return raiz;
}

std::string GlnMensaje(std::string_view gln) {
  constexpr std::size_t kAncho = 35;
  std::string texto(gln);
  texto.erase(std::remove(texto.begin(), texto.end(), '.'), texto.end());
  return std::string(PrimerosCaracteres(texto, kAncho));
}

std::string FechaMensaje(const Recordset& rs, std::string_view campo) {
  return rs.IsNull(campo) ? "" : FormatearFecha(rs.Get<FechaHora>(campo), "yyyymmdd");
}

std::string NumeroPositivo(double valor) { return valor > 0 ? TextoDe(valor) : ""; }

std::string CodigoConCeros(std::int32_t codigo, std::size_t cifras) {
  return FormatearNumero(Currency::FromInteger(codigo), std::string(cifras, '0'));
}

std::string_view TextoCortado(const Recordset& rs, std::string_view campo, std::size_t caracteres) {
  return PrimerosCaracteres(rs.GetOrEmpty<std::string_view>(campo), caracteres);
}

}  // namespace kvraedi
