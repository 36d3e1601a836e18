-- What a database does behind every Connection, one promise a section. It begins with the empty table
-- Notas. A line is a statement, or begins with what is expected of it:
--   ? query => the first column of its rows, joined by |, a null as NULL
--   # n     a change of n rows
--   !       a statement that is refused as an error of the database

== TextsCompareWithoutCaseAndTrailingBlanks
INSERT INTO Notas (Nombre) VALUES ('Peñón  ')
? SELECT COUNT(*) FROM Notas WHERE Nombre = 'peñón' => 1
? SELECT COUNT(*) FROM Notas WHERE ISNULL(Nombre,'') = 'peñón' => 1
? SELECT COUNT(*) FROM Notas WHERE Nombre IN ('x', 'peñón') => 1
? SELECT COUNT(*) FROM Notas WHERE Nombre = 'PEÑÓN' => 1
? SELECT COUNT(*) FROM Notas WHERE ISNULL(Nombre,'') = 'PEÑÓN' => 1
? SELECT COUNT(*) FROM Notas WHERE Nombre IN ('x', 'PEÑÓN') => 1
? SELECT COUNT(*) FROM Notas WHERE Nombre = 'Peñón      ' => 1
? SELECT COUNT(*) FROM Notas WHERE ISNULL(Nombre,'') = 'Peñón      ' => 1
? SELECT COUNT(*) FROM Notas WHERE Nombre IN ('x', 'Peñón      ') => 1
? SELECT COUNT(*) FROM Notas WHERE Nombre = 'Penon' => 0
? SELECT COUNT(*) FROM Notas WHERE ISNULL(Nombre,'') = 'Penon' => 0
? SELECT COUNT(*) FROM Notas WHERE Nombre IN ('x', 'Penon') => 0
? SELECT COUNT(*) FROM Notas WHERE Nombre = 'peñon' => 0
? SELECT COUNT(*) FROM Notas WHERE ISNULL(Nombre,'') = 'peñon' => 0
? SELECT COUNT(*) FROM Notas WHERE Nombre IN ('x', 'peñon') => 0
? SELECT COUNT(*) FROM Notas WHERE Nombre = ' Peñón' => 0
? SELECT COUNT(*) FROM Notas WHERE ISNULL(Nombre,'') = ' Peñón' => 0
? SELECT COUNT(*) FROM Notas WHERE Nombre IN ('x', ' Peñón') => 0

== GroupsFollowTheSameComparison
INSERT INTO Notas (Nombre, Fecha, Serie) VALUES ('Ñu', '1/3/2024', 1), ('ñu ', '20240301', 2), ('nu', '20240302', 4)
? SELECT SUM(n.Serie) FROM Notas n GROUP BY n.Nombre ORDER BY n.Nombre => 4|3
? SELECT SUM(Serie) FROM Notas GROUP BY Fecha ORDER BY Fecha => 3|4
? SELECT SUM(Serie) FROM Notas GROUP BY ISNULL(Nombre, ''), Fecha ORDER BY 1 => 3|4
? SELECT COUNT(DISTINCT Nombre) FROM Notas => 2
? SELECT COUNT(*) FROM (SELECT Nombre FROM Notas UNION SELECT 'ÑU') T => 2

== TextsAreOrderedAsInSpanish
INSERT INTO Notas (Nombre) VALUES ('oca'), ('ñu'), ('Nube'), ('zorro'), ('éter'), ('esta'), ('nz'), ('Ábaco'), ('abad')
? SELECT Nombre FROM Notas ORDER BY Nombre => Ábaco|abad|esta|éter|Nube|nz|ñu|oca|zorro

== DatesCompareInEveryForm
DELETE FROM Notas
INSERT INTO Notas (Fecha) VALUES ('02/01/2024')
? SELECT COUNT(*) FROM Notas WHERE Fecha = '20240102' => 1
DELETE FROM Notas
INSERT INTO Notas (Fecha) VALUES ('20240301')
? SELECT COUNT(*) FROM Notas WHERE Fecha = '1/3/2024' => 1
DELETE FROM Notas
INSERT INTO Notas (Fecha) VALUES ('20240301')
? SELECT COUNT(*) FROM Notas WHERE Fecha BETWEEN '01/03/2024' AND '31/03/2024' => 1
DELETE FROM Notas
INSERT INTO Notas (Fecha) VALUES ('31/03/2024')
? SELECT COUNT(*) FROM Notas WHERE Fecha BETWEEN '01/03/2024' AND '31/03/2024' => 1
DELETE FROM Notas
INSERT INTO Notas (Fecha) VALUES ('09/03/2024')
? SELECT COUNT(*) FROM Notas WHERE '10/03/2024' > Fecha => 1
DELETE FROM Notas
INSERT INTO Notas (Fecha) VALUES ('01/03/2024')
? SELECT COUNT(*) FROM Notas WHERE Fecha IN ('29/02/2024', '2024-03-01T00:00:00') => 1
DELETE FROM Notas
INSERT INTO Notas (Fecha) VALUES ('01/03/2024 10:20')
? SELECT COUNT(*) FROM Notas WHERE Fecha > '01/03/2024' => 1
DELETE FROM Notas
INSERT INTO Notas (Fecha) VALUES ('01/03/2024 10:20')
? SELECT COUNT(*) FROM Notas WHERE Fecha = '20240301 10:20:00' => 1
DELETE FROM Notas
INSERT INTO Notas (Fecha) VALUES ('01/03/2024 00:00:00')
? SELECT COUNT(*) FROM Notas WHERE Fecha = '01/03/2024' => 1
DELETE FROM Notas
INSERT INTO Notas (Fecha) VALUES ('')
? SELECT COUNT(*) FROM Notas WHERE Fecha = '01/01/1900' => 1
DELETE FROM Notas
INSERT INTO Notas (Fecha) VALUES ('01/01/1900')
? SELECT COUNT(*) FROM Notas WHERE Fecha = '' => 1
DELETE FROM Notas
INSERT INTO Notas (Fecha) VALUES ('01/10/2023')
? SELECT COUNT(*) FROM Notas WHERE Fecha < '02/03/2024' => 1
DELETE FROM Notas
INSERT INTO Notas (Fecha) VALUES ('01/10/2023')
? SELECT COUNT(*) FROM Notas WHERE ISNULL(Fecha, '') < '02/03/2024' => 1

== ImpossibleDatesAreErrorsOnAnEmptyTable
! SELECT * FROM Notas n WHERE n.Fecha = '31/02/2024'
! SELECT * FROM Notas WHERE Fecha BETWEEN '01/01/2024' AND 'abc'
! SELECT * FROM Notas WHERE Hora IN ('20240101', '20241301')
! SELECT * FROM (SELECT Fecha FROM Notas WHERE '29/02/2023' < Fecha) T
! INSERT INTO Notas (Nombre, Fecha) VALUES ('a', '32/01/2024')
! UPDATE Notas SET Nombre = 'b', Fecha = '20240230'
! DELETE FROM Notas WHERE Fecha < '00/01/2024'
? SELECT COUNT(*) FROM Notas WHERE Nombre IS NOT NULL => 0

== ColumnsOfOneNameAreToldApart
CREATE TABLE Textos (ID [int], Fecha [varchar](20))
INSERT INTO Textos (ID, Fecha) VALUES (1, '31/02/2024')
INSERT INTO Notas (Fecha) VALUES ('01/03/2024')
? SELECT t.ID FROM Notas n INNER JOIN Textos AS t ON t.ID = n.ID WHERE t.Fecha = '31/02/2024' AND n.Fecha = '20240301' => 1
! SELECT t.ID FROM Notas n INNER JOIN Textos AS t ON t.ID = n.ID WHERE n.Fecha = '31/02/2024'
? SELECT ID FROM Notas n WHERE n.Fecha = '1/3/2024' AND EXISTS (SELECT * FROM Textos n WHERE n.Fecha = '31/02/2024') => 1

== LikeKnowsSpanishLettersWildcardsAndEscapes
INSERT INTO Notas (Nombre) VALUES ('Núñez'), ('NÚÑEZ e Hijos'), ('Nunez'), ('50% más'), ('a_b')
? SELECT COUNT(*) FROM Notas WHERE Nombre LIKE 'nÚÑ%' => 2
? SELECT COUNT(*) FROM Notas WHERE Nombre LIKE '%hijos' => 1
? SELECT COUNT(*) FROM Notas WHERE Nombre LIKE 'n_ñez' => 1
? SELECT COUNT(*) FROM Notas WHERE Nombre LIKE '%%%' => 5
? SELECT COUNT(*) FROM Notas WHERE Nombre LIKE '50!% m%' ESCAPE '!' => 1
? SELECT COUNT(*) FROM Notas WHERE Nombre LIKE 'a!_b' ESCAPE '!' => 1
? SELECT COUNT(*) FROM Notas WHERE Nombre LIKE 'nunez' => 1
? SELECT COUNT(*) FROM Notas WHERE Nombre LIKE 'x%' => 0
? SELECT COUNT(*) FROM Notas WHERE Nombre LIKE '%e%h%s' => 1
? SELECT COUNT(*) FROM Notas WHERE Nombre LIKE '' => 0

== NumbersFindTextsByValue
INSERT INTO Notas (Doc_Num) VALUES ('00004711'), ('4711'), ('47110')
? SELECT Doc_Num FROM Notas WHERE Doc_Num = '4711' => 4711
? SELECT COUNT(*) FROM Notas WHERE Doc_Num =00004711 => 2
? SELECT COUNT(*) FROM Notas WHERE Doc_Num IN (4711, 12) => 2
# 2 UPDATE Notas SET Nombre = 'hallado' WHERE 4711 = Doc_Num

== ATextThatIsNoNumberIsNotComparedWithOne
INSERT INTO Notas (Doc_Num) VALUES ('4711x')
! SELECT COUNT(*) FROM Notas WHERE Doc_Num =4711
! SELECT COUNT(*) FROM Notas WHERE Doc_Num <> 4711
! SELECT COUNT(*) FROM Notas WHERE 4711 < Doc_Num
! SELECT COUNT(*) FROM Notas WHERE Doc_Num IN (1, 2)
! SELECT COUNT(*) FROM Notas WHERE Doc_Num BETWEEN 1 AND 2
! SELECT COUNT(*) FROM Notas WHERE Doc_Num = ID
! DELETE FROM Notas WHERE Doc_Num = 4711
? SELECT COUNT(*) FROM Notas WHERE Doc_Num = '4711x' => 1

== NumbersStoredInTextsKeepTheirDigits
DELETE FROM Notas
INSERT INTO Notas (Doc_Num) VALUES (4711)
? SELECT Doc_Num FROM Notas => 4711
? SELECT COUNT(*) FROM Notas WHERE Doc_Num = 4711 => 1
UPDATE Notas SET Doc_Num = 4711
? SELECT Doc_Num FROM Notas => 4711
DELETE FROM Notas
INSERT INTO Notas (Doc_Num) VALUES (00004711)
? SELECT Doc_Num FROM Notas => 4711
? SELECT COUNT(*) FROM Notas WHERE Doc_Num = 00004711 => 1
UPDATE Notas SET Doc_Num = 00004711
? SELECT Doc_Num FROM Notas => 4711
DELETE FROM Notas
INSERT INTO Notas (Doc_Num) VALUES (0)
? SELECT Doc_Num FROM Notas => 0
? SELECT COUNT(*) FROM Notas WHERE Doc_Num = 0 => 1
UPDATE Notas SET Doc_Num = 0
? SELECT Doc_Num FROM Notas => 0
DELETE FROM Notas
INSERT INTO Notas (Doc_Num) VALUES (123456789012345678)
? SELECT Doc_Num FROM Notas => 123456789012345678
? SELECT COUNT(*) FROM Notas WHERE Doc_Num = 123456789012345678 => 1
UPDATE Notas SET Doc_Num = 123456789012345678
? SELECT Doc_Num FROM Notas => 123456789012345678
DELETE FROM Notas
INSERT INTO Notas (Doc_Num) VALUES (00123456789012345678901234)
? SELECT Doc_Num FROM Notas => 123456789012345678901234
? SELECT COUNT(*) FROM Notas WHERE Doc_Num = 00123456789012345678901234 => 1
UPDATE Notas SET Doc_Num = 00123456789012345678901234
? SELECT Doc_Num FROM Notas => 123456789012345678901234
DELETE FROM Notas
INSERT INTO Notas (Doc_Num) VALUES (12.50)
? SELECT Doc_Num FROM Notas => 12.50
? SELECT COUNT(*) FROM Notas WHERE Doc_Num = 12.50 => 1
UPDATE Notas SET Doc_Num = 12.50
? SELECT Doc_Num FROM Notas => 12.50

== ColumnsTakeWhatFitsThem
-- ~ column value => what is read back of it, after an insertion and after a change; nothing when it is refused.
CREATE TABLE Tipos (T5 varchar(5), N5 nvarchar(5), TI tinyint, SI smallint, I int, BI bigint, B bit, D decimal(6,2), DOC numeric(17,0), M money, SM smallmoney)
~ T5 'ñañañ' => ñañañ
~ T5 'abcde   ' => abcde
~ T5 'abcdef' =>
~ T5 'abc' + 'def' =>
~ T5 123456 =>
~ N5 'ñandús' =>
~ TI 255 => 255
~ TI 256 =>
~ TI -1 =>
~ SI '-32768' => -32768
~ SI 32768 =>
~ SI ' 0012 ' => 12
~ SI 'doce' =>
~ I 2147483647 => 2147483647
~ I '2147483648' =>
~ I 2147483647 + 1 =>
~ I 12.9 => 12
~ I '12.9' =>
~ BI 9223372036854775807 => 9223372036854775807
~ BI 9223372036854775808 =>
~ D '1234.565' => 1234.57
~ D -9999.994 => -9999.99
~ D 9999.995 =>
~ D '' =>
~ D 1 + 0.125 => 1.13
~ DOC '00012345678901234567' => 12345678901234567
~ DOC 123456789012345678 =>
~ M '1.00005' => 1.0001
~ M '' => 0
~ M 1000000000000000 =>
~ SM 214748.3647 => 214748.3647
~ SM 214748.3648 =>
~ T5 NULL => NULL
DELETE FROM Tipos
INSERT INTO Tipos (N5) VALUES ('ab   ')
? SELECT N5 + '.' FROM Tipos => ab   .
DELETE FROM Tipos
INSERT INTO Tipos (B) VALUES (7), ('TRUE'), (0), ('false')
? SELECT COUNT(*) FROM Tipos WHERE B = 1 => 2

== DatesFitTheirColumn
CREATE TABLE Tipos (Fecha smalldatetime, Hora datetime)
~ Fecha '01/03/2024 10:20:29' => 2024-03-01 10:20:00
~ Fecha '20240301 10:20:29.998' => 2024-03-01 10:20:00
~ Fecha '20240301 10:20:29.999' => 2024-03-01 10:21:00
~ Fecha '31/12/2024 23:59:30' => 2025-01-01
~ Fecha '01/01/1900' => 1900-01-01
~ Fecha '31/12/1899' =>
~ Fecha '20790606 23:59:29' => 2079-06-06 23:59:00
~ Fecha '06/06/2079 23:59:30' =>
~ Fecha CAST('20790607' AS datetime) =>
~ Fecha 0 => 1900-01-01
~ Hora '31/12/9999 23:59:59' => 9999-12-31 23:59:59
~ Hora '01/01/1753' => 1753-01-01
~ Hora '31/12/1752' =>
! SELECT COUNT(*) FROM Notas WHERE Fecha < '07/06/2079'

== WhatACopyDoesNotFitIsRefused
CREATE TABLE Corta (Nombre varchar(3) NOT NULL, Total money)
INSERT INTO Notas (Nombre, Total) VALUES ('abcd', 1.5)
! INSERT INTO Corta SELECT Nombre, Total FROM Notas
! INSERT INTO Corta (Total) SELECT Total t FROM Notas
! INSERT INTO Corta (Nombre) SELECT 'x' UNION SELECT Nombre FROM Notas
# 1 INSERT INTO Corta (Nombre, Total) SELECT 'x' AS n, Total t FROM Notas
! UPDATE Corta SET Nombre = Nombre + 'yzv'
? SELECT Nombre FROM Corta => x

== SettingsAreHonouredOrRefused
SET NOCOUNT ON
set dateformat DMY
SET LANGUAGE Español;
! SET NADA ON

== ExpressionsGiveTheirValue
? SELECT ROUND(1.0005, 3) => 1.001
? SELECT ROUND(-1.0005, 3) => -1.001
? SELECT ROUND(2.5 * 3 - 2.5 * 3 * 10 / 100, 3) => 6.75
? SELECT ROUND(1.00449999, 2) => 1
? SELECT ROUND(9.995, 2) => 10
? SELECT ROUND(0.0004, 3) => 0
? SELECT ROUND(0.5, 0) => 1
? SELECT ROUND(1250.0, -2) => 1300
? SELECT ROUND(NULL, 2) => NULL
? SELECT CONVERT(int, '12') => 12
? SELECT CAST('12.34567' AS money) => 12.3457
? SELECT CAST(1.005 AS decimal(9, 2)) => 1.01
? SELECT CONVERT(varchar(3), 'abcdef') => abc
? SELECT CONVERT(varchar(5), 'abcdef') => abcde
? SELECT LEN('añ ') => 2
? SELECT 00123456789012345678901234 => 123456789012345678901234
? SELECT 999999999999999999 => 999999999999999999
? SELECT CAST(1 AS float) / 3 => 0.333333333333333
? SELECT CAST(0.1 AS float) + 0.2 => 0.3
? SELECT CAST('1e300' AS float) => 1E+300
! SELECT CAST('31/02/2024' AS datetime)
? SELECT OBJECT_ID('No_Hay') => NULL
? SELECT COUNT(OBJECT_ID('notas')) => 1

== RejectedStatementsChangeNothing
CREATE TABLE Clave (Codigo [int] NOT NULL, CONSTRAINT PK_Clave PRIMARY KEY (Codigo))
INSERT INTO Clave (Codigo) VALUES (2)
! INSERT INTO Clave (Codigo) VALUES (1), (2)
! INSERT INTO Clave (Codigo) VALUES (NULL)
! INSERT INTO Clave (Nada) VALUES (1)
! UPDATE Clave SET Codigo = 'x'
! SELEC 1
! INSERT INTO Clave (Codigo) VALUES ('sin cerrar)
! 
! UPDATE Clave SET Codigo = (1
? SELECT Codigo FROM Clave => 2

== IdentityIsGivenBack
INSERT INTO Notas VALUES ('a', '1', '', '', 1, 2, 3, 1, 0x00)
INSERT INTO Notas (Nombre) VALUES ('b')
? SELECT @@IDENTITY AS ID => 2
? SELECT SCOPE_IDENTITY() => 2
DELETE FROM Notas
INSERT INTO Notas (Nombre) VALUES ('c')
? SELECT ID FROM Notas => 3

== TemporaryTablesComeAndGo
CREATE TABLE #EDI_Albaran815 (Fichero [varchar](100), Unidades [money] NOT NULL DEFAULT ((0)), LoteCaducidad [smalldatetime] NOT NULL DEFAULT (''), ID [int] IDENTITY(1,1))
INSERT INTO #EDI_Albaran815 (Fichero) VALUES ('f')
UPDATE #EDI_Albaran815 SET Unidades = Unidades + 2.5 WHERE Fichero ='F'
? SELECT a.Unidades FROM #EDI_Albaran815 a WHERE a.LoteCaducidad = '1/1/1900' => 2.5
DROP TABLE #EDI_Albaran815
CREATE TABLE #EDI_Albaran815 (Fichero [varchar](100), Unidades [money] NOT NULL DEFAULT ((0)), LoteCaducidad [smalldatetime] NOT NULL DEFAULT (''), ID [int] IDENTITY(1,1))
INSERT INTO #EDI_Albaran815 (Fichero) VALUES ('f')
UPDATE #EDI_Albaran815 SET Unidades = Unidades + 2.5 WHERE Fichero ='F'
? SELECT a.Unidades FROM #EDI_Albaran815 a WHERE a.LoteCaducidad = '1/1/1900' => 2.5
DROP TABLE #EDI_Albaran815

== FullOuterJoinsFindWhatHasNoPartner
CREATE TABLE Lineas (Doc_Num [varchar](30))
INSERT INTO Lineas (Doc_Num) VALUES ('a '), ('c')
INSERT INTO Notas (Doc_Num) VALUES ('A'), ('b')
? SELECT COUNT(*) AS Existe FROM Notas cli FULL OUTER JOIN  Lineas lin ON lin.Doc_Num = cli.Doc_Num WHERE cli.Doc_Num IS NULL OR lin.Doc_Num IS NULL => 2

== TopTakesTheFirstRows
INSERT INTO Notas (Serie) VALUES (3), (1), (2)
? SELECT TOP 1 Serie FROM Notas ORDER BY Serie => 1
? SELECT DISTINCT TOP (2) Serie FROM Notas ORDER BY 1 DESC => 3|2
? SELECT Serie FROM Notas WHERE Serie = (SELECT TOP 1 Serie FROM Notas WHERE Serie > 1 ORDER BY Serie) ORDER BY Serie => 2

== TextsAreJoinedWithPlus
INSERT INTO Notas (Nombre) VALUES ('a')
? SELECT 'x' + Nombre + 'y' FROM Notas => xay
? SELECT Nombre + Nombre FROM Notas => aa
? SELECT 1 + 2 + ID FROM Notas => 4

== MoneyIsExactToFourDecimals
DELETE FROM Notas
INSERT INTO Notas (Total) VALUES (0.1 + 0.2)
? SELECT Total FROM Notas => 0.3
DELETE FROM Notas
INSERT INTO Notas (Total) VALUES (1.0005)
? SELECT Total FROM Notas => 1.0005
DELETE FROM Notas
INSERT INTO Notas (Total) VALUES (-2147483.6475)
? SELECT Total FROM Notas => -2147483.6475
DELETE FROM Notas
INSERT INTO Notas (Total) VALUES (9999999999.9999)
? SELECT Total FROM Notas => 9999999999.9999
DELETE FROM Notas
INSERT INTO Notas (Total) VALUES (7)
? SELECT Total FROM Notas => 7
DELETE FROM Notas
INSERT INTO Notas (Total) VALUES (1.00005)
? SELECT Total FROM Notas => 1.0001
UPDATE Notas SET Total = 10
? SELECT Total / 4 FROM Notas => 2.5
