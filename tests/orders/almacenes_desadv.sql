DROP TABLE EDI_Ficheros_Recibidos;
INSERT INTO Almacenes (Cod_Empresa, Codigo, Nombre, EDI_GLN) VALUES (1, 6, 'Norte', '8430000000066');
INSERT INTO Almacenes (Cod_Empresa, Codigo, Nombre, EDI_GLN) VALUES (1, 7, 'Norte 2', '8430000000066');
INSERT INTO Articulos VALUES (1, 101, 'Queso');
INSERT INTO Articulos VALUES (1, 102, 'Aceite');
INSERT INTO Articulos VALUES (1, 103, 'Vino');
INSERT INTO Articulos VALUES (2, 999, 'De otra empresa');
