#include <string>

#include "tests/platform/suite/base_suite.h"

namespace kvraedi {
namespace {

class EmpresaSuiteTest : public BaseSuite {
 protected:
  void Parametro(const std::string& values) {
    db->Execute("INSERT INTO Empresas_Parametros (Cod_Empresa, Nombre, Valor) VALUES (" + values +
                ")");
  }
};

TEST_F(EmpresaSuiteTest, ReadsItsOwnRow) {
  const EmpresaSuite empresa(*db, 7, "/demo");
  EXPECT_EQ(empresa.CodigoEmpresa(), 7);
  EXPECT_EQ(empresa.EmpresaArticulos(), 3);
  EXPECT_EQ(empresa.EmpresaClientes(), 1);
  EXPECT_EQ(empresa.EmpresaProveedores(), 2);
  EXPECT_TRUE(empresa.AplicaIGIC());
  EXPECT_FALSE(EmpresaSuite(*db, 1, "/demo").AplicaIGIC());
  EXPECT_EQ(empresa.RutaAplicacion(), "/demo");
}

TEST_F(EmpresaSuiteTest, UnknownCompanyIsAnError) {
  try {
    const EmpresaSuite empresa(*db, 9, "/demo");
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.Description(), "No existe la empresa 9.");
  }
}

TEST_F(EmpresaSuiteTest, Parameters) {
  Parametro("7, 'EDI_PathFichEnvios', 'Envíos de ñ'");
  Parametro("7, 'EDI_PathFichRecibir', '/otra/carpeta'");
  Parametro("7, 'EDI_PathCertificadoDigital', ''");
  Parametro("7, 'EDI_GLNEmpresa', '0843700011111'");
  Parametro("7, 'UsuarioActual', NULL");
  Parametro("1, 'ODBCNombre', 'de otra empresa'");
  const EmpresaSuite empresa(*db, 7, "/demo con blancos");
  const struct {
    const char* nombre;
    Valor valor;
  } casos[] = {
      {"EDI_PathFichEnvios", "/demo con blancos/Envíos de ñ"},
      {"edi_pathfichenvios", "/demo con blancos/Envíos de ñ"},
      {"EDI_PathFichRecibir", "/otra/carpeta"},
      {"EDI_PathCertificadoDigital", ""},
      {"EDI_GLNEmpresa", "0843700011111"},
      {"UsuarioActual", {}},
      {"ODBCNombre", {}},
      {"", {}},
  };
  for (const auto& caso : casos)
    EXPECT_EQ(empresa.Parametro(caso.nombre), caso.valor) << caso.nombre;
}

TEST_F(EmpresaSuiteTest, ItsFolderAndTheNameOfTheDatabaseMayBeToldApart) {
  Parametro("7, 'RutaAplicacion', 'suite'");
  Parametro("7, 'EDI_PathFichEnvios', 'Envios'");
  Parametro("7, 'ODBCBaseDatos', 'la de ayer'");
  const EmpresaSuite empresa(*db, 7, "/demo", "la de hoy");
  EXPECT_EQ(empresa.RutaAplicacion(), "/demo/suite");
  EXPECT_EQ(empresa.Parametro("EDI_PathFichEnvios"), Valor("/demo/suite/Envios"));
  EXPECT_EQ(empresa.Parametro("ODBCBaseDatos"), Valor("la de hoy"));
  EXPECT_EQ(EmpresaSuite(*db, 7, "/demo").Parametro("ODBCBaseDatos"), Valor("la de ayer"));
}

TEST_F(EmpresaSuiteTest, TaxRatesNeedNoStatement) {
  const EmpresaSuite empresa(*db, 7, "/demo");
  db->Close();
  EXPECT_EQ(empresa.PorcentajeImpuesto(3), Currency::FromUnits(70000));
  EXPECT_EQ(empresa.PorcentajeImpuesto(4), Currency::FromUnits(95000));
  try {
    empresa.PorcentajeImpuesto(5);
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.Description(), "No existe el tipo de impuesto 5.");
  }
}

}  // namespace
}  // namespace kvraedi
