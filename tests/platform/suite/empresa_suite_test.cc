#include <string>

#include "tests/platform/suite/base_suite.h"

namespace kvraedi {
namespace {

class EmpresaSuiteTest : public BaseSuite {};

TEST_F(EmpresaSuiteTest, ReadsItsOwnRowAndNoOther) {
  const EmpresaSuite empresa(*db, 7, "/demo");
  EXPECT_EQ(empresa.CodigoEmpresa(), 7);
  EXPECT_EQ(empresa.EmpresaArticulos(), 3);
  EXPECT_EQ(empresa.EmpresaClientes(), 1);
  EXPECT_EQ(empresa.EmpresaProveedores(), 2);
  EXPECT_TRUE(empresa.AplicaIGIC());
  EXPECT_FALSE(EmpresaSuite(*db, 1, "/demo").AplicaIGIC());
  EXPECT_EQ(empresa.RutaAplicacion(), "/demo");
  EXPECT_EQ(ErrorDe([&] { EmpresaSuite(*db, 9, "/demo"); }), "No existe la empresa 9.");
  db->Close();
  EXPECT_EQ(empresa.PorcentajeImpuesto(3), Currency::FromUnits(70000)) << "needs no statement";
  EXPECT_EQ(ErrorDe([&] { empresa.PorcentajeImpuesto(5); }), "No existe el tipo de impuesto 5.");
}

TEST_F(EmpresaSuiteTest, Parameters) {
  for (const char* valores :
       {"7, 'EDI_PathFichEnvios', 'Envíos de ñ'", "7, 'EDI_PathFichRecibir', '/otra/carpeta'",
        "7, 'EDI_PathCertificadoDigital', ''", "7, 'EDI_GLNEmpresa', '0843700011111'",
        "7, 'UsuarioActual', NULL", "1, 'ODBCNombre', 'de otra empresa'"}) {
    db->Execute("INSERT INTO Empresas_Parametros (Cod_Empresa, Nombre, Valor) VALUES (" +
                std::string(valores) + ")");
  }
  const EmpresaSuite empresa(*db, 7, "/demo con blancos");
  const std::pair<const char*, Valor> casos[] = {
      {"EDI_PathFichEnvios", "/demo con blancos/Envíos de ñ"},
      {"edi_pathfichenvios", "/demo con blancos/Envíos de ñ"},
      {"EDI_PathFichRecibir", "/otra/carpeta"},
      {"EDI_PathCertificadoDigital", ""},
      {"EDI_GLNEmpresa", "0843700011111"},
      {"UsuarioActual", {}},
      {"ODBCNombre", {}},
      {"", {}}};
  for (const auto& [nombre, valor] : casos) EXPECT_EQ(empresa.Parametro(nombre), valor) << nombre;
}

}  // namespace
}  // namespace kvraedi
