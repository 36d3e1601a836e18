DROP TABLE EDI_Ficheros_Recibidos;
INSERT INTO Almacenes (Cod_Empresa, Codigo, Nombre, EDI_GLN) VALUES (1, 6, 'Norte', '8430000000066');
INSERT INTO Almacenes (Cod_Empresa, Codigo, Nombre, EDI_GLN) VALUES (1, 7, 'Norte 2', '8430000000066');
INSERT INTO Clientes (Cod_Empresa, Codigo, Nombre, EDI_GLN) VALUES (1, 201, 'Uno', '8419999999999');
INSERT INTO Clientes (Cod_Empresa, Codigo, Nombre, EDI_GLN) VALUES (1, 202, 'Otro', '8419999999999');
INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras, Principal) VALUES (1, 501, '8410000000501', 1);
INSERT INTO Articulos_CBarras (Cod_Empresa, Cod_Articulo, Cod_Barras, Principal) VALUES (1, 502, '8410000000502', 1);
