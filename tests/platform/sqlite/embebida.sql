-- What the embedded database does in words of its own or tells in Spanish; read as promesas.sql is.
--   ! statement => a part of the error's text

== ExpressionsAreComparedAsTheirColumns
CREATE TABLE T (ID int, Nombre varchar(20), Resto varchar(20), Fecha datetime, Dia date, Total money)
INSERT INTO T VALUES (1, 'abc', '007', '01/03/2024', '01/03/2024', 2.5)
INSERT INTO T VALUES (2, 'Abd', 'x', '02/03/2024 10:00', '02/03/2024', 12)
? SELECT ID FROM T WHERE RTRIM(Nombre) = 'ABC ' => 1
? SELECT ID FROM T WHERE 'ABC ' = RTRIM(T.Nombre) => 1
? SELECT ID FROM T WHERE LOWER(Nombre) = UPPER(Nombre) => 1|2
? SELECT ID FROM T WHERE RTRIM(Nombre) IN ('X', 'ABC') => 1
? SELECT ID FROM T WHERE RTRIM(Nombre) IN (SELECT UPPER(Nombre) FROM T WHERE ID = 2) => 2
? SELECT ID FROM T WHERE UPPER(Nombre) NOT BETWEEN 'aba' AND 'abc' => 2
? SELECT ID FROM T WHERE COALESCE(NULL, Nombre, '') = 'ABC' => 1
? SELECT ID FROM T WHERE ISNULL(Nombre, '') + 'Z' = 'abcz' => 1
? SELECT ID FROM T WHERE RTRIM(Resto) = 7 => 1
? SELECT ID FROM T WHERE COALESCE(Fecha, GETDATE()) = '20240301' => 1
? SELECT ID FROM T WHERE COALESCE(Dia, Fecha) > '01/03/2024 00:00' => 2
? SELECT ID FROM T WHERE (SELECT MAX(x.Fecha) FROM T x WHERE x.ID = T.ID) = '01/03/2024' => 1
? SELECT ID FROM T WHERE GETDATE() > '6/5/2024' => 1|2
? SELECT ID FROM T WHERE CAST(Fecha AS date) = '02/03/2024' => 2
? SELECT ID FROM T WHERE Total + 1 = '3.50' => 1
? SELECT ID FROM T WHERE ABS(-Total) BETWEEN '2' AND '10' => 1
? SELECT ID FROM T WHERE CASE WHEN ID - 1 > 0 THEN Nombre ELSE '' END = 'ABD' => 2
? SELECT ID FROM T WHERE 'a' = 'A ' => 1|2
? SELECT g.Nombre FROM [Gestión 2026].dbo.T g, otra.[dbo].T o WHERE o.ID = g.ID => abc|Abd
? SELECT Nombre FROM T GROUP BY Nombre HAVING MAX(Fecha) = '01/03/2024' => abc

== SumsAreToldFromJoinedTexts
CREATE TABLE T (ID int, Nombre varchar(20), Resto varchar(20), Fecha datetime, Dia date, Total money)
INSERT INTO T VALUES (1, 'abc', '007', '01/03/2024', '01/03/2024', 2.5)
INSERT INTO T VALUES (2, 'Abd', 'x', '02/03/2024 10:00', '02/03/2024', 12)
? SELECT RTRIM(Nombre) + LTRIM(Resto) FROM T WHERE ID = 1 => abc007
? SELECT (Nombre + Resto) + UPPER(Nombre) FROM T WHERE ID = 1 => abc007ABC
? SELECT CAST(ID AS varchar(3)) + CONVERT(varchar(3), ID) FROM T WHERE ID = 1 => 11
? SELECT CASE ID WHEN 1 THEN 'a' END + CASE ID WHEN 1 THEN RTRIM(Resto) END FROM T WHERE ID = 1 => a007
? SELECT (Total * 2) + (Total - 1) FROM T WHERE ID = 1 => 6.5
? SELECT SUM(Total) + COUNT(ID) FROM T WHERE ID = 1 => 3.5
? SELECT -Total + ISNULL(Total, 0) + -1 FROM T WHERE ID = 1 => -1
? SELECT (SELECT x.Total FROM T x WHERE x.ID = 1) + ROUND(Total, 0) FROM T WHERE ID = 1 => 5.5

== WhatCouldOnlyBeGuessedIsRefused
CREATE TABLE T (ID int, Nombre varchar(20), Resto varchar(20), Fecha datetime, Dia date, Total money)
INSERT INTO T VALUES (1, 'abc', '007', '01/03/2024', '01/03/2024', 2.5)
INSERT INTO T VALUES (2, 'Abd', 'x', '02/03/2024 10:00', '02/03/2024', 12)
! SELECT Fecha + 30 FROM T => La base de datos integrada
! SELECT GETDATE() - 1 => La base de datos integrada
! SELECT MAX(Dia) + 1 FROM T => La base de datos integrada
! SELECT Nombre + ID FROM T => La base de datos integrada
! SELECT '1' + 2 => La base de datos integrada
! SELECT RTRIM(Nombre) + SUM(Total) FROM T => La base de datos integrada
! SELECT s.a + s.b FROM (SELECT ID AS a, ID AS b FROM T) s => La base de datos integrada
! SELECT CASE ID WHEN 1 THEN 'a' END + CASE ID WHEN 1 THEN 2 END FROM T => La base de datos integrada
! SELECT ID FROM T WHERE hex(Nombre) = 'a' => La base de datos integrada

== DatesThatAServerWouldReadOtherwiseAreRefused
CREATE TABLE T (ID int, Nombre varchar(20), Resto varchar(20), Fecha datetime, Dia date, Total money)
INSERT INTO T VALUES (1, 'abc', '007', '01/03/2024', '01/03/2024', 2.5)
INSERT INTO T VALUES (2, 'Abd', 'x', '02/03/2024 10:00', '02/03/2024', 12)
! UPDATE T SET Fecha = '2024-03-05' => aaaammdd
! SELECT ID FROM T WHERE Fecha > N'2024-03-05 10:00' => aaaammdd
! INSERT INTO T (Fecha) VALUES ('2024-3-5') => aaaammdd
! CREATE TABLE X (F datetime DEFAULT '2024-03-05') => aaaammdd
? SELECT ID FROM T WHERE Fecha = '2024-03-01T00:00:00' OR Dia = '2024-03-02' => 1|2

== ErrorsAreSpanish
CREATE TABLE T (ID int, Nombre varchar(20), Resto varchar(20), Fecha datetime, Dia date, Total money)
INSERT INTO T VALUES (1, 'abc', '007', '01/03/2024', '01/03/2024', 2.5)
INSERT INTO T VALUES (2, 'Abd', 'x', '02/03/2024 10:00', '02/03/2024', 12)
CREATE TABLE C (Codigo int NOT NULL PRIMARY KEY, N varchar(3))
INSERT INTO C VALUES (1, 'a')
! INSERT INTO C (N) VALUES ('b') => el valor NULL en la columna 'Codigo', tabla 'C'
! INSERT INTO C VALUES (1, 'b') => clave duplicada en C.Codigo
! UPDATE C SET N = 'abcd' => truncarían en la tabla 'C', columna 'N'. Valor truncado: 'abc'
! UPDATE C SET Codigo = 3000000000 => tipo de datos int, valor = 3000000000. Tabla 'C', columna 'Codigo'
! INSERT INTO C VALUES (1) => no corresponden a la definición
! DELETE FROM NoEsta => El nombre de objeto 'NoEsta' no es válido
! DELETE FROM C WHERE NoEsta = 1 => El nombre de columna 'NoEsta' no es válido
! UPDATE C SET N = N WHERE OR => Sintaxis incorrecta cerca de 'OR'
! CREATE TABLE C (A int) => Ya hay un objeto
! SET DATEFORMAT mdy => no admite SET DATEFORMAT mdy
! DELETE FROM T WHERE Fecha = '31/02/2024' => '31/02/2024' en fecha no es posible

== KeysDefaultsAndIdentity
CREATE TABLE [dbo].[Cab] (ID int IDENTITY(1,1) NOT NULL, Codigo smallint NOT NULL, Nombre varchar(20) NOT NULL CONSTRAINT DF_N DEFAULT ('it''s; GO'), Alta datetime NOT NULL DEFAULT GETDATE(), Baja datetime DEFAULT '31/12/9999', Tasa decimal(5,2) DEFAULT -1.5, CONSTRAINT [PK_Cab] PRIMARY KEY CLUSTERED ([Codigo] ASC) ON [PRIMARY]) ON [PRIMARY]
CREATE TABLE Lin (Cab int NOT NULL, Num int, PRIMARY KEY (Cab, Num))
ALTER TABLE Lin ADD Texto varchar(10) NOT NULL DEFAULT ''
INSERT INTO Cab (Codigo) VALUES (7)
? SELECT Nombre FROM Cab WHERE ID = 1 AND Alta = '20240605 07:08:09' AND Baja = '31/12/9999' AND Tasa = -1.5 => it's; GO
! INSERT INTO Cab (Codigo) VALUES (7)
! INSERT INTO Lin (Cab) VALUES (7)
# 1 INSERT Lin VALUES (7, 1, 'a')
# 1 DELETE Lin WHERE Texto = 'A'
! CREATE TABLE X (F datetime DEFAULT '30/02/2024')

== ComputedColumnsFollowTheOnesTheyName
CREATE TABLE P (ID int IDENTITY(1,1), Ini datetime, Precio money, Unidades int, Envio AS Ini, Total AS (Precio * (Unidades + 1)) PERSISTED, Fin datetime)
# 1 INSERT INTO P VALUES ('1/2/2024', 1.5, 3, '')
? SELECT Envio FROM P WHERE Envio = '20240201' AND Total = 6 => 2024-02-01
? SELECT Total FROM P => 6
UPDATE P SET Ini = '31/01/2024'
? SELECT ID FROM P WHERE Envio < '01/02/2024' => 1
! UPDATE P SET Envio = '1/1/2024'
! CREATE TABLE X (A AS B, B int)

== TriggersAreSqlites
CREATE TABLE A (N int, OK bit NOT NULL DEFAULT 0)
CREATE TABLE B (N int)
CREATE TRIGGER Mover AFTER UPDATE OF OK ON A WHEN NEW.OK = 1 AND OLD.OK = 0 BEGIN INSERT INTO B (N) SELECT CASE WHEN NEW.N > 5 THEN 5 ELSE NEW.N END; DELETE FROM B WHERE N = 3; END
INSERT INTO A (N) VALUES (2), (3), (9)
# 3 UPDATE A SET OK = 1
? SELECT N FROM B ORDER BY N => 2|5
DROP TRIGGER Mover
UPDATE A SET OK = 0
UPDATE A SET OK = 1
? SELECT COUNT(*) FROM B => 2

== IndexNamesBelongToTheirTable
CREATE TABLE A (Fecha datetime, Doc varchar(20), N int)
CREATE TABLE B (Fecha datetime)
CREATE INDEX IX_1 ON A (Fecha DESC, N)
CREATE NONCLUSTERED INDEX IX_1 ON dbo.B (Fecha) INCLUDE (Fecha) WITH (FILLFACTOR = 90)
CREATE UNIQUE INDEX IX_2 ON A (Doc DESC, N)
? SELECT name FROM sqlite_master WHERE type = 'index' ORDER BY name => A_IX_1|A_IX_2|A_IX_2_numero|B_IX_1
DROP INDEX IX_2 ON A
DROP INDEX B.IX_1
? SELECT name FROM sqlite_master WHERE type = 'index' ORDER BY name => A_IX_1
! CREATE INDEX I ON A (N) WHERE N = 1

== NamesInQuotesAreNeverTexts
CREATE TABLE [Con blanco] ([De]]r"echo] int)
INSERT INTO [Con blanco] ([De]]r"echo]) VALUES (3)
? SELECT t."De]r""echo" FROM "con blanco" t => 3
! SELECT "Nada" FROM [Con blanco]

== FunctionsGetTheirArguments
CREATE TABLE F (Serie int, Codigo int, Fecha datetime)
CREATE TABLE L (Serie int, Codigo int, Importe money, Fecha datetime)
INSERT INTO F (Serie, Codigo, Fecha) VALUES (1, 1, '1/1/2024'), (1, 2, '2/1/2024')
INSERT INTO L (Serie, Codigo, Importe, Fecha) VALUES (1, 1, 10.005, '1/1/2024'), (1, 1, 2.5, '2/1/2024'), (1, 2, 7, '2/1/2024')
CREATE FUNCTION dbo.fn_Suma(@uno int, @Serie smallint, @codigo int) RETURNS money AS BEGIN RETURN (SELECT ISNULL(SUM(ROUND(f.Importe, 2)), 0) FROM L f WHERE f.Serie = @serie AND f.Codigo = @Codigo); END
CREATE FUNCTION [dbo].[fn_Clase](@x money) RETURNS varchar(10) AS BEGIN RETURN CASE WHEN @x > 10 THEN 'alto' ELSE 'it''s bajo' END END
-- The function's own alias is f too: it must not hide the one of the statement.
? SELECT dbo.fn_Suma(1, f.Serie, f.Codigo) AS S FROM F f ORDER BY f.Codigo => 12.51|7
? SELECT dbo.fn_suma(1, 1, 1 + 1) => 7
? SELECT dbo.fn_Clase(dbo.fn_Suma(1, f.Serie, f.Codigo)) AS S FROM F f WHERE dbo.fn_Suma(1, f.Serie, f.Codigo) > 7 => alto
? SELECT dbo.fn_Clase(3) => it's bajo
? SELECT dbo.fn_Clase(30) => alto
CREATE FUNCTION dbo.fn_Dia(@d datetime) RETURNS int AS BEGIN RETURN (SELECT COUNT(*) FROM L WHERE L.Fecha = @d AND L.Fecha > '31/12/2023') END
? SELECT dbo.fn_Dia('02/01/2024') => 2
! SELECT dbo.fn_Dia('02/13/2024')

== WrongCallsAndDefinitionsOfFunctionsAreErrors
CREATE TABLE F (Serie int, Codigo int, Fecha datetime)
CREATE TABLE L (Serie int, Codigo int, Importe money, Fecha datetime)
INSERT INTO F (Serie, Codigo, Fecha) VALUES (1, 1, '1/1/2024'), (1, 2, '2/1/2024')
INSERT INTO L (Serie, Codigo, Importe, Fecha) VALUES (1, 1, 10.005, '1/1/2024'), (1, 1, 2.5, '2/1/2024'), (1, 2, 7, '2/1/2024')
CREATE FUNCTION dbo.fn_Suma(@uno int, @Serie smallint, @codigo int) RETURNS money AS BEGIN RETURN (SELECT ISNULL(SUM(ROUND(f.Importe, 2)), 0) FROM L f WHERE f.Serie = @serie AND f.Codigo = @Codigo); END
CREATE FUNCTION [dbo].[fn_Clase](@x money) RETURNS varchar(10) AS BEGIN RETURN CASE WHEN @x > 10 THEN 'alto' ELSE 'it''s bajo' END END
! SELECT dbo.fn_Nada(1)
! SELECT dbo.fn_Suma(1, 2)
! SELECT dbo.fn_Suma(1, Serie, f.Codigo) FROM F f
! CREATE FUNCTION dbo.fn_Suma(@a int) RETURNS int AS BEGIN RETURN 1 END
! CREATE FUNCTION dbo.g(@a int) RETURNS int AS BEGIN DECLARE @x int RETURN @x END
! DROP FUNCTION dbo.fn_Nada
CREATE FUNCTION dbo.g(@a int) RETURNS int AS BEGIN RETURN dbo.g(@a) END
! SELECT dbo.g(1)
ALTER FUNCTION dbo.fn_Clase(@x money) RETURNS int AS BEGIN RETURN @x + 1 END
? SELECT dbo.fn_Clase(3) => 4
DROP FUNCTION dbo.fn_Clase
DROP FUNCTION IF EXISTS dbo.fn_Clase
! SELECT dbo.fn_Clase(3)

== OneStatementAtATime
CREATE TABLE T (ID int, Nombre varchar(20), Resto varchar(20), Fecha datetime, Dia date, Total money)
INSERT INTO T VALUES (1, 'abc', '007', '01/03/2024', '01/03/2024', 2.5)
INSERT INTO T VALUES (2, 'Abd', 'x', '02/03/2024 10:00', '02/03/2024', 12)
!  ; 
! -- nada
! DELETE FROM T; DELETE FROM T
! SELECT 'a
! SELECT [a
! SELECT 1 /* x

== RealsAsTextHaveFifteenDigits
? SELECT 0.1 + 0.2 => 0.3
? SELECT 1.0 / 3.0 => 0.333333333333333
? SELECT 2.0 => 2
? SELECT -0.0001 => -0.0001
? SELECT 123456789.125 => 123456789.125
? SELECT 1000000.0 * 1000000.0 => 1000000000000
? SELECT 1e300 => 1E+300
? SELECT 0.0 => 0
? SELECT CAST(2.50 AS varchar(10)) => 2.5
