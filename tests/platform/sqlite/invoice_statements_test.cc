#include "dispatch/consulta_facturas.h"
#include "host/demo/esquema.h"
#include "seres/consultas_invoic.h"
#include "sqlite_fixture.h"

namespace kvraedi::sqlite {
namespace {

class PlansTest : public SqliteTest {};

/// The component's own statements, on the tables that it comes with.
TEST_F(PlansTest, ListAndInvoiceAreSearchedInIndexes) {
  for (const auto script : demo::kScriptsSqlite) db_->Run(script);
  const std::string list =
      PlanOf(ConsultaFacturas({.fechaInicial = "01/03/2024", .fechaFinal = "31/03/2024"}, 1, 1));
  const std::string invoice = PlanOf(invoic::ConsultaFactura({1, 2024, 1, 10, 0}, 1, 5));
  const std::pair<std::string, const char*> cases[] = {
      {list,
       "SEARCH f USING INDEX Facturas_IX_Facturas_Fecha (Cod_Empresa=? AND Fecha>? AND Fecha<?)"},
      {list, "SEARCH ft USING INDEX"},
      {invoice, "SEARCH kvr_fn_fe_importenetolineas_nl USING INDEX"}};
  for (const auto& [plan, step] : cases) {
    EXPECT_NE(plan.find(step), std::string::npos) << step << "\n" << plan;
  }
}

TEST_F(PlansTest, NumbersAgainstTextsUseTheCompanionIndex) {
  db_->Run(
      "CREATE TABLE EDI_PedidosClientes (Doc_Num varchar(17), GLN varchar(35), OK bit);"
      "CREATE INDEX IX_Doc ON EDI_PedidosClientes (Doc_Num)");
  db_->Execute("INSERT INTO EDI_PedidosClientes (Doc_Num) VALUES ('00004711'), ('4712')");
  EXPECT_EQ(
      db_->Execute("UPDATE EDI_PedidosClientes SET  GLN ='8412345678901' WHERE Doc_Num =4711"), 1);
  db_->Run(
      "CREATE TABLE Lineas (Doc_Num varchar(17), Cod_Barras varchar(35));"
      "CREATE INDEX IX_Doc ON Lineas (Doc_Num, Cod_Barras)");
  const std::pair<const char*, const char*> cases[] = {
      {"EDI_PedidosClientes WHERE Doc_Num =4711", "EDI_PedidosClientes_IX_Doc_numero (Doc_Num=?)"},
      {"EDI_PedidosClientes WHERE Doc_Num ='4712 '", "EDI_PedidosClientes_IX_Doc (Doc_Num=?)"},
      {"Lineas WHERE Doc_Num =4711   AND Cod_Barras ='84''1'",
       "Lineas_IX_Doc_numero (Doc_Num=? AND Cod_Barras=?)"}};
  for (const auto& [rows, index] : cases) {
    const std::string plan = PlanOf("SELECT * FROM " + std::string(rows));
    EXPECT_NE(plan.find(std::string("INDEX ") + index), std::string::npos) << plan;
  }
}

}  // namespace
}  // namespace kvraedi::sqlite
