#include "facturae/certificado.h"

#include "frame/fila.h"
#include "frame/sesion.h"
#include "frame/sql.h"

namespace kvraedi::facturae {

Certificado ElegirCertificado(std::int16_t serie) {
  const auto rs =
      ConexionActual().Open(Sql("SELECT rutaCertificado, contraseñaCertificado"
                                " FROM Series"
                                " WHERE Cod_Empresa = ",
                                EmpresaActual().CodigoEmpresa(), "   AND Codigo =", serie));
  if (!rs->Eof()) {
    auto ruta = rs->GetOrEmpty<std::string>("rutaCertificado");
    if (!ruta.empty())
      return {std::move(ruta), Fila(*rs).Get<std::string>("contraseñaCertificado")};
  }
  return {ParametroTexto("EDI_PathCertificadoDigital"),
          ParametroTexto("EDI_PasswordCertificadoDigital")};
}

}  // namespace kvraedi::facturae
