#include "sqlite_fixture.h"

namespace kvraedi::sqlite {
namespace {

constexpr const char* kTables = R"(
  CREATE TABLE Facturas (Cod_Empresa smallint NOT NULL, Cod_Ejercicio smallint NOT NULL,
    Serie smallint NOT NULL, Codigo int NOT NULL, TipoDoc smallint NOT NULL, Cliente int,
    Almacen smallint, Total money, ExcluirEDI bit, Hora datetime, Fecha smalldatetime,
    PRIMARY KEY (Cod_Empresa, Cod_Ejercicio, Serie, Codigo, TipoDoc));
  CREATE INDEX IX_Fecha ON Facturas (Cod_Empresa, Fecha);
  CREATE TABLE Facturas_Lineas (Cod_Empresa smallint, Cod_Ejercicio smallint, Serie smallint,
    Codigo int, TipoDoc smallint, Num_Linea int, Cod_Articulo int, Precio money, Unidades money,
    PDescuento money);
  CREATE INDEX IX_Clave ON Facturas_Lineas (Cod_Empresa, Cod_Ejercicio, Serie, Codigo, TipoDoc);
  CREATE TABLE TPV_Tickets_Factura (Cod_Empresa smallint, Cod_Almacen smallint, Caja smallint,
    Fecha smalldatetime, Codigo int, Cliente int, Factura_Serie smallint, Factura_Codigo int,
    Factura_Almacen smallint, Factura_TipoDoc smallint, Factura_Fecha smalldatetime,
    ExcluirEDI bit, Hora datetime);
  CREATE INDEX IX_Fecha ON TPV_Tickets_Factura (Cod_Empresa, Factura_Fecha);
  CREATE TABLE TPV_Tickets (Cod_Empresa smallint, Cod_Almacen smallint, Caja smallint,
    Fecha smalldatetime, Codigo int, Total money,
    PRIMARY KEY (Cod_Empresa, Cod_Almacen, Caja, Fecha, Codigo));
  CREATE TABLE Clientes (Cod_Empresa smallint, Codigo int, Nombre varchar(50), Nif varchar(20),
    EDI_GLN varchar(13), IntraCom bit, Telefono varchar(20), Cod_Pais smallint,
    Cod_EDIPlat_Fra smallint, Cod_EDITipoMsg_Fra smallint, Cad_Nivel_3 smallint,
    PRIMARY KEY (Cod_Empresa, Codigo));
  CREATE TABLE Empresas (Codigo smallint PRIMARY KEY, Nif varchar(20));
  CREATE TABLE Almacenes (Cod_Empresa smallint, Codigo smallint, Nombre varchar(50),
    PRIMARY KEY (Cod_Empresa, Codigo));
  CREATE TABLE Paises (Cod_Pais smallint, ISOCodigo varchar(2));
  CREATE TABLE EDI_Plataforma (Cod_EDIPlat smallint, Nombre varchar(50));
  CREATE TABLE EDI_TipoMsg (Cod_EDIPlat smallint, Cod_EDITipoMsg smallint, Nombre varchar(50));
  CREATE TABLE EDI_Anexos (Cod_EDIPlat smallint, Cod_EDITipoMsg smallint, Cod_Empresa smallint,
    Cod_Ejercicio smallint, Serie smallint, Codigo int, TipoDoc smallint, Cod_Empresa_FT smallint,
    Cod_Almacen_FT smallint, Caja_FT smallint, Fecha_FT smalldatetime, Codigo_FT int);
  CREATE TABLE EDI_Envio_Facturas (Cod_EDIPlat smallint, Cod_EDITipoMsg smallint,
    IdentificadorMsg varchar(40), Cod_Empresa smallint, Cod_Ejercicio smallint, Serie smallint,
    Codigo int, TipoDoc smallint, Cod_Empresa_FT smallint, Cod_Almacen_FT smallint,
    Caja_FT smallint, Fecha_FT smalldatetime, Codigo_FT int, EDIFichero varchar(100));
  CREATE INDEX IX_Clave ON EDI_Envio_Facturas (Cod_Empresa, Cod_Ejercicio, Serie, Codigo, TipoDoc);
  GO
  CREATE FUNCTION dbo.fn_FE_ImporteNetoLineas(@x int, @Cod_Empresa smallint,
    @Cod_Ejercicio smallint, @Serie smallint, @Codigo int, @TipoDoc smallint) RETURNS money AS
  BEGIN
    RETURN (SELECT ISNULL(SUM(ROUND(l.Precio * l.Unidades
        - (l.Precio * l.Unidades * l.PDescuento) / 100, 3)), 0)
      FROM Facturas_Lineas l WHERE l.Cod_Empresa = @Cod_Empresa
        AND l.Cod_Ejercicio = @Cod_Ejercicio AND l.Serie = @Serie AND l.Codigo = @Codigo
        AND l.TipoDoc = @TipoDoc AND l.Cod_Articulo <> -1)
  END
  GO
  INSERT INTO Facturas VALUES (1, 2024, 1, 10, 0, 5, 2, 100.5, 0, '01/03/2024 09:00', '01/03/2024'),
    (1, 2024, 1, 11, 0, 5, 2, 20, 1, '31/03/2024 10:00', '31/03/2024'),
    (1, 2024, 1, 12, 0, 5, 2, 30, 0, '31/03/2024 09:00', '31/03/2024'),
    (1, 2024, 1, 13, 0, 5, 2, 30, 0, '01/04/2024', '01/04/2024'),
    (2, 2024, 1, 14, 0, 5, 2, 30, 0, '02/03/2024', '02/03/2024');
  INSERT INTO Facturas_Lineas VALUES (1, 2024, 1, 10, 0, 1, 77, 2.5, 3, 10),
    (1, 2024, 1, 10, 0, 2, 78, 1.0005, 1, 0), (1, 2024, 1, 10, 0, 3, -1, 50, 1, 0),
    (1, 2024, 1, 11, 0, 1, 77, 5, 1, 0);
  INSERT INTO TPV_Tickets_Factura VALUES (1, 2, 3, '15/03/2024', 99, 5, 4, 40, 2, 1, '16/03/2024',
    NULL, '16/03/2024 12:00');
  INSERT INTO TPV_Tickets VALUES (1, 2, 3, '15/03/2024', 99, 12.34);
  INSERT INTO Clientes VALUES (1, 5, 'Ñandú, S.L.', 'B1', '8412345678901', 0, '928', 34, 2, 1, 0);
  INSERT INTO Empresas VALUES (1, 'A1'), (2, 'A2');
  INSERT INTO Almacenes VALUES (1, 2, 'Central');
  INSERT INTO Paises VALUES (34, 'ES');
  INSERT INTO EDI_Plataforma VALUES (2, 'Seres');
  INSERT INTO EDI_TipoMsg VALUES (2, 1, 'INVOIC');
  INSERT INTO EDI_Anexos (Cod_EDIPlat, Cod_EDITipoMsg, Cod_Empresa, Cod_Ejercicio, Serie, Codigo,
    TipoDoc) VALUES (2, 1, 1, 2024, 1, 10, 0), (2, 1, 1, 2024, 1, 10, 0);
  INSERT INTO EDI_Envio_Facturas (Cod_EDIPlat, Cod_Empresa, Cod_Ejercicio, Serie, Codigo, TipoDoc)
    VALUES (2, 1, 2024, 1, 12, 0), (0, 1, 2024, 1, 11, 0);
  INSERT INTO EDI_Envio_Facturas (Cod_EDIPlat, Cod_Empresa_FT, Cod_Almacen_FT, Caja_FT, Fecha_FT,
    Codigo_FT) VALUES (2, 1, 2, 3, '15/03/2024', 99)
)";

class InvoiceStatementsTest : public SqliteTest {
 protected:
  InvoiceStatementsTest() { db_->Run(kTables); }

  static constexpr const char* kCommonColumns =
      " c.EDI_GLN AS Cli_EDI_GLN, c.IntraCom, c.Nombre AS Cli_Nombre, c.Nif AS Cli_Nif,"
      " ISNULL(ef.Cod_EDIPlat, 0) AS EDI_Tx,"
      " alm.Nombre AS Alm_Nombre, plat.Nombre AS nombrePlat, msg.Nombre AS nombreMsg,";
  static constexpr const char* kCommonJoins =
      " LEFT JOIN Paises p ON c.Cod_Pais = p.Cod_Pais"
      " LEFT JOIN EDI_Plataforma plat ON plat.Cod_EDIPlat = c.Cod_EDIPlat_Fra"
      " LEFT JOIN EDI_TipoMsg msg ON msg.Cod_EDIPlat = c.Cod_EDIPlat_Fra"
      " AND msg.Cod_EDITipoMsg = c.Cod_EDITipoMsg_Fra"
      " LEFT JOIN EDI_Anexos anex ON anex.Cod_EDIPlat = c.Cod_EDIPlat_Fra"
      " AND anex.Cod_EDITipoMsg = c.Cod_EDITipoMsg_Fra  AND ";

  static std::string InvoiceHalf(const std::string& state_join, const std::string& pending) {
    return std::string(
               " SELECT DISTINCT 0 AS Tipo, f.Serie, f.Codigo, f.Cliente, f.Almacen,"
               " f.Total,f.TipoDoc,f.ExcluirEDI,f.Cod_Ejercicio, f.Hora,f.fecha,") +
           kCommonColumns +
           " 0 AS Cod_Empresa_FT, 0 AS Cod_Almacen_FT, 0 AS Caja_FT, '' AS Fecha_FT,"
           " 0 AS Codigo_FT, COUNT(anex.Serie) anexos FROM Facturas f"
           " INNER JOIN Clientes c ON c.Cod_Empresa =1 AND f.Cliente = c.Codigo"
           " INNER JOIN Empresas e ON e.Codigo = f.Cod_Empresa"
           " INNER JOIN Almacenes alm ON alm.Cod_Empresa = f.Cod_Empresa"
           " AND alm.Codigo = f.Almacen" +
           kCommonJoins +
           "anex.Cod_Empresa = f.Cod_Empresa AND anex.Cod_Ejercicio =f.Cod_Ejercicio"
           " AND anex.Serie =f.Serie AND anex.Codigo =f.Codigo AND anex.TipoDoc =f.TipoDoc " +
           state_join +
           " ON f.Cod_Empresa = ef.Cod_Empresa AND f.Cod_Ejercicio = ef.Cod_Ejercicio"
           " AND f.Serie = ef.Serie AND f.Codigo = ef.Codigo AND f.TipoDoc = ef.TipoDoc"
           " WHERE f.Cod_Empresa =1 AND f.Fecha BETWEEN '01/03/2024' AND '31/03/2024'" +
           pending +
           " AND c.Codigo = 5"
           " GROUP BY f.Serie, f.Codigo, f.Cliente, f.Almacen,f.Total,f.TipoDoc,f.ExcluirEDI,"
           "f.Cod_Ejercicio,f.fecha,f.Hora,  c.EDI_GLN, c.IntraCom, c.Nombre , c.Nif,"
           " ISNULL(p.ISOCodigo, ''), c.Telefono ,  ISNULL(ef.Cod_EDIPlat, 0), alm.Nombre ,"
           " plat.Nombre, msg.Nombre";
  }

  static std::string TicketHalf(const std::string& state_join, const std::string& pending) {
    return std::string(
               " SELECT DISTINCT 1 AS Tipo, ft.Factura_Serie AS Serie,"
               " ft.Factura_Codigo AS Codigo,"
               " ft.Cliente, ft.Factura_Almacen AS Almacen, ticket.Total,"
               "ft.Factura_TipoDoc AS TipoDoc,"
               "ISNULL(ft.ExcluirEDI,0) AS ExcluirEDI, 0 AS Cod_Ejercicio, ft.Hora,"
               " ft.Factura_Fecha AS fecha,") +
           kCommonColumns +
           " ft.Cod_Empresa AS Cod_Empresa_FT, ft.Cod_Almacen AS Cod_Almacen_FT,"
           " ft.Caja AS Caja_FT,"
           " ft.Fecha AS Fecha_FT, ft.Codigo AS Codigo_FT, COUNT(anex.Serie) anexos"
           " FROM TPV_Tickets_Factura ft"
           " INNER JOIN Clientes c ON c.Cod_Empresa =1 AND ft.Cliente = c.Codigo"
           " INNER JOIN TPV_Tickets ticket ON ticket.Cod_Empresa = ft.Cod_Empresa"
           " AND ticket.Cod_Almacen = ft.Cod_Almacen AND ticket.Caja = ft.Caja"
           " AND ticket.Fecha = ft.Fecha AND ticket.Codigo = ft.Codigo"
           " INNER JOIN Empresas e ON e.Codigo = ft.Cod_Empresa"
           " INNER JOIN Almacenes alm ON alm.Cod_Empresa = ft.Cod_Empresa"
           " AND alm.Codigo = ft.Cod_Almacen" +
           kCommonJoins +
           "anex.Cod_Empresa_FT = ft.Cod_Empresa AND anex.Cod_Almacen_FT =ft.Cod_Almacen"
           " AND anex.Caja_FT =ft.Caja AND anex.Fecha_FT =ft.Fecha AND anex.Codigo_FT =ft.Codigo " +
           state_join +
           " ON ft.Cod_Empresa = ef.Cod_Empresa_FT AND ft.Cod_Almacen = ef.Cod_Almacen_FT"
           " AND ft.Caja = ef.Caja_FT AND ft.Fecha = ef.Fecha_FT AND ft.Codigo = ef.Codigo_FT"
           " WHERE ft.Cod_Empresa =1 AND ft.Factura_Fecha BETWEEN '01/03/2024' AND '31/03/2024'" +
           pending +
           " AND c.Codigo = 5"
           " GROUP BY ft.Factura_Serie, ft.Factura_Codigo, ft.Cliente, ft.Factura_Almacen,"
           "ticket.Total,ft.Factura_TipoDoc,ft.ExcluirEDI,ft.Factura_Fecha,ft.Hora,  c.EDI_GLN,"
           " c.IntraCom, c.Nombre , c.Nif, ISNULL(p.ISOCodigo, ''), c.Telefono ,  e.Nif ,"
           " ISNULL(ef.Cod_EDIPlat, 0), alm.Nombre , plat.Nombre, msg.Nombre, ft.Cod_Empresa,"
           " ft.Cod_Almacen, ft.Caja, ft.Fecha, ft.Codigo";
  }

  static std::string List(const std::string& type_filter, const std::string& state_join,
                          const std::string& pending) {
    return "SELECT Tipo, Serie, Codigo, Cliente, Almacen, Total, TipoDoc, ExcluirEDI,"
           " Cod_Ejercicio, Hora, fecha, Cli_EDI_GLN, IntraCom, Cli_Nombre, Cli_Nif, EDI_Tx,"
           " Alm_Nombre, nombrePlat, nombreMsg,"
           " Cod_Empresa_FT, Cod_Almacen_FT, Caja_FT, Fecha_FT, Codigo_FT, anexos FROM(" +
           InvoiceHalf(state_join, pending) + " UNION " + TicketHalf(state_join, pending) + ")T" +
           type_filter + " ORDER BY T.Fecha DESC, T.Serie, T.Codigo, T.TipoDoc, T.Hora";
  }

  /// Number, sent, excluded and attachments of each listed document.
  std::string Listed(const std::string& sql) {
    std::string all;
    for (auto rows = db_->Open(sql); !rows->Eof(); rows->MoveNext()) {
      if (!all.empty()) all += ' ';
      all += rows->Get<std::string>("Codigo");
      if (rows->Get<std::int32_t>("EDI_Tx") > 0) all += 'G';
      if (rows->Get<bool>("ExcluirEDI")) all += 'E';
      if (rows->Get<std::int32_t>("Anexos") > 0) all += 'A';
    }
    return all;
  }

  static constexpr const char* kLeft = " LEFT JOIN EDI_Envio_Facturas ef";
  static constexpr const char* kInner = " INNER JOIN EDI_Envio_Facturas ef";
  static constexpr const char* kPending = " AND ISNULL(ef.Cod_EDIPlat,0) = 0";
};

TEST_F(InvoiceStatementsTest, TheListFollowsItsFilters) {
  struct Case {
    const char* type_filter;
    const char* state_join;
    const char* pending;
    const char* listed;
  };
  for (const Case& c : std::vector<Case>{{"", kLeft, "", "11E 12G 40G 10A"},
                                         {" WHERE Tipo = 0", kLeft, "", "11E 12G 10A"},
                                         {" WHERE Tipo = 1", kLeft, "", "40G"},
                                         {"", kInner, "", "11E 12G 40G"},
                                         {"", kLeft, kPending, "11E 10A"}}) {
    EXPECT_EQ(Listed(List(c.type_filter, c.state_join, c.pending)), c.listed) << c.type_filter;
  }
}

TEST_F(InvoiceStatementsTest, TheListsValuesAreOfTheirTypes) {
  auto rows = db_->Open(List("", kLeft, ""));
  EXPECT_EQ(rows->Get<FechaHora>("Fecha"), (FechaHora{2024, 3, 31}));
  EXPECT_EQ(rows->Get<FechaHora>("Fecha_FT"), (FechaHora{1900, 1, 1}));
  EXPECT_EQ(rows->Get<Currency>("Total"), Currency::FromInteger(20));
  EXPECT_EQ(rows->Get<std::string>("nombrePlat") + "/" + rows->Get<std::string>("nombreMsg"),
            "Seres/INVOIC");
  rows->MoveNext();
  rows->MoveNext();
  EXPECT_EQ(rows->Get<FechaHora>("Fecha_FT"), (FechaHora{2024, 3, 15}));
  EXPECT_EQ(rows->Get<Currency>("Total").Units(), 123400);
}

TEST_F(InvoiceStatementsTest, TheListSearchesByDateInAnIndex) {
  const std::string plan = PlanOf(List("", kLeft, ""));
  for (const char* step : {"SEARCH f USING INDEX Facturas_IX_Fecha (Cod_Empresa=? AND Fecha>? AND "
                           "Fecha<?)",
                           "SEARCH ft USING INDEX TPV_Tickets_Factura_IX_Fecha (Cod_Empresa=? AND "
                           "Factura_Fecha>? AND Factura_Fecha<?)"}) {
    EXPECT_NE(plan.find(step), std::string::npos) << plan;
  }
}

TEST_F(InvoiceStatementsTest, TheInvoiceHasItsLinesTotals) {
  const auto query = [](const std::string& codigo) {
    return " SELECT f.*, c.Nombre AS Cli_Nombre, ISNULL(p.ISOCodigo, '') AS Cli_Pais,"
           " dbo.fn_FE_ImporteNetoLineas(1, f.Cod_Empresa, f.Cod_Ejercicio, f.Serie, f.Codigo,"
           " f.TipoDoc) AS ImporteNetoLineas, e.Nif AS Emp_Nif, ISNULL(ef.Cod_EDIPlat, 0) AS"
           " EDI_Tx, ISNULL(ef.EDIFichero,'') AS NombreFichero FROM Clientes c"
           " INNER JOIN Facturas f ON c.Cod_Empresa =1 AND f.Cliente = c.Codigo"
           " INNER JOIN Empresas e ON e.Codigo = f.Cod_Empresa"
           " LEFT JOIN Paises p ON c.Cod_Pais = p.Cod_Pais LEFT JOIN EDI_Envio_Facturas ef"
           " ON f.Cod_Empresa = ef.Cod_Empresa AND f.Cod_Ejercicio = ef.Cod_Ejercicio"
           " AND f.Serie = ef.Serie AND f.Codigo = ef.Codigo AND f.TipoDoc = ef.TipoDoc"
           " WHERE f.Cod_Empresa =1 AND c.Codigo = 5  AND f.Cod_Ejercicio =2024 AND f.Serie =1"
           " AND f.Codigo =" +
           codigo + " AND f.TipoDoc =0 ORDER BY f.Fecha, f.Serie, f.Codigo, f.TipoDoc, f.Hora";
  };
  auto rows = db_->Open(query("10"));
  EXPECT_EQ(rows->Get<Currency>("ImporteNetoLineas").Units(), 77510);  // 6.750 + 1.001
  EXPECT_EQ(rows->Get<std::int32_t>("Codigo"), 10);
  EXPECT_EQ(rows->Get<std::string>("Cli_Pais"), "ES");
  EXPECT_EQ(rows->Get<std::string>("NombreFichero"), "");
  EXPECT_EQ(db_->Open(query("12"))->Get<Currency>("ImporteNetoLineas"), Currency{});
  EXPECT_NE(PlanOf(query("10")).find("SEARCH kvr_fn_fe_importenetolineas_l USING INDEX"),
            std::string::npos);
}

TEST_F(InvoiceStatementsTest, ExclusionIsStoredByKey) {
  EXPECT_EQ(
      db_->Execute("UPDATE Facturas SET ExcluirEDI = 1 WHERE Cod_Empresa = 1   AND "
                   "Cod_Ejercicio = 2024   AND Serie = 1   AND Codigo = 10   AND TipoDoc = 0"),
      1);
  EXPECT_EQ(db_->Execute("UPDATE TPV_Tickets_Factura SET ExcluirEDI = 1 WHERE Cod_Empresa = 1"
                         "   AND Cod_Almacen = 2   AND Caja = 3   AND Fecha = '15/03/2024'"
                         "   AND Codigo = 99"),
            1);
  EXPECT_EQ(Listed(List("", kLeft, "")), "11E 12G 40GE 10EA");
}

TEST_F(InvoiceStatementsTest, NumbersAgainstTextsUseTheCompanionIndex) {
  db_->Run(
      "CREATE TABLE EDI_PedidosClientes (Doc_Num varchar(17), GLN varchar(35), OK bit);"
      "CREATE INDEX IX_Doc ON EDI_PedidosClientes (Doc_Num)");
  db_->Execute("INSERT INTO EDI_PedidosClientes (Doc_Num) VALUES ('00004711'), ('4712')");
  EXPECT_EQ(
      db_->Execute("UPDATE EDI_PedidosClientes SET  GLN ='8412345678901' WHERE Doc_Num =4711"), 1);
  EXPECT_NE(PlanOf("SELECT * FROM EDI_PedidosClientes cli WHERE cli.Doc_Num =4711")
                .find("USING INDEX EDI_PedidosClientes_IX_Doc_numero (Doc_Num=?)"),
            std::string::npos);
  EXPECT_NE(PlanOf("SELECT * FROM EDI_PedidosClientes cli WHERE cli.Doc_Num ='4712 '")
                .find("USING INDEX EDI_PedidosClientes_IX_Doc (Doc_Num=?)"),
            std::string::npos);
}

}  // namespace
}  // namespace kvraedi::sqlite
