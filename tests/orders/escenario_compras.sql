UPDATE Empresas SET Emp_Articulos = 7, Emp_Proveedores = 8 WHERE Codigo = 1;
INSERT INTO Almacenes (Cod_Empresa, Codigo, Nombre, Direccion, CP, Localidad, EDI_GLN, PedProv_Consignacion)
  VALUES (1, 3, 'Almacén Norte', 'Muelle, 2', '35002', 'Arucas', '843.7000.000031', 'CONSIG-3');
INSERT INTO Articulos (Cod_Empresa, Codigo, Descripcion) VALUES (7, 501, 'Queso'), (7, 502, 'Gofio');
INSERT INTO Articulos_CBarras VALUES (7, 501, '8400000005018', 1), (7, 501, '8400000005019', 0);
INSERT INTO Proveedores (Cod_Empresa, Codigo, Nombre, Cod_EDIPlat, Cod_EDITipoMsg)
  VALUES (8, 20, 'Quesería', 4, 1), (1, 20, 'De otro fichero', 9, 9);
INSERT INTO Proveedores_GLN VALUES (8, 20, '841.2345.678901', 1), (8, 20, '8499999999999', 0);
INSERT INTO Pedidos_Proveedores VALUES (1, 1234, 20, 3, '02/03/2026', '09/03/2026', NULL, 2, 24.25);
INSERT INTO Pedidos_Proveedores_Lineas VALUES (1, 1234, 1, 501, 'REF-1', 'Queso', 12, 2, 0.5, 1.5);
INSERT INTO Pedidos_Proveedores_Lineas VALUES (1, 1234, 2, 502, NULL, 'Gofio de 1 €', 2.5, 1, 0, 2.5);
