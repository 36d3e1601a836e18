CREATE TABLE Cabeceras (Terminal nvarchar(40), Numero int, Nombre nvarchar(80), Fecha datetime, Total money);
CREATE TABLE Lineas (Numero int, Linea int, Texto nvarchar(80), Unidades decimal(12,4), Precio money, Rebaja decimal(7,4), Nota nvarchar(20));
INSERT INTO Cabeceras VALUES ('T''1', 5, '<b>O''Hara & "Cía"</b>', '02/03/2024', -1234567.345);
INSERT INTO Cabeceras VALUES ('T2', 6, 'Otra', NULL, 0);
INSERT INTO Lineas VALUES (5, 2, 'dos', -1.5, 0.01, 10, NULL);
INSERT INTO Lineas VALUES (5, 1, 'uno', 1234.5, 3, 0, 'no es un número');
INSERT INTO Lineas VALUES (6, 1, 'ajena', 1, 1, 0, '');
