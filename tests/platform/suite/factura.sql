UPDATE Empresas SET Nif = 'B35' WHERE Codigo = 7;
INSERT INTO Clientes (Cod_Empresa, Codigo, Nombre, Nif, Cta_Bancaria) VALUES (1, 100, 'O''Donnell', 'A28', '12345678901234567890');
INSERT INTO Facturas (Cod_Empresa, Cod_Ejercicio, Serie, Codigo, TipoDoc, Fecha, Cliente, Almacen, ImporteB, Total) VALUES (7, 2024, 3, 12, 0, '20/02/2024', 100, 1, 1000, 1070);
INSERT INTO Facturas_Lineas (Cod_Empresa, Cod_Ejercicio, Serie, Codigo, TipoDoc, Num_Linea, Cod_Articulo, Descripcion, Unidades, Precio, PDescuento, Impuesto) VALUES (7, 2024, 3, 12, 0, 1, 501, 'Queso', 4, 25, 10, 3);
