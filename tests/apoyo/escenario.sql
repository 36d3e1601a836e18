INSERT INTO Empresas (Codigo, Nombre_1, Nombre_2, Direccion, CP, Localidad, Provincia, Pais, Telefono, Fax, Nif, Emp_Articulos, Emp_Clientes, Emp_Proveedores, Aplica_IGIC)
  VALUES (1, 'Ñandú y Cía, S.L.', 'Mayorista', 'C/ Mayor, 1', '35001', 'Las Palmas', 'Las Palmas de GC', 'ESP', '928000000', '928000001', 'B35000000', 1, 1, 1, 1);
INSERT INTO Empresas_Parametros VALUES (1, 'EDI_PathFichEnvios', 'Envíos EDI');
INSERT INTO Empresas_Parametros VALUES (1, 'EDI_GLNEmpresa', '8400000000017');
INSERT INTO Empresas_Parametros VALUES (1, 'EDI_RegistroMercantil', 'R.M. Las Palmas T.1 F.2');
INSERT INTO Empresas_Parametros VALUES (1, 'EDI_PathFichRecibir', 'Recepción');
INSERT INTO Empresas_Parametros VALUES (1, 'UsuarioActual', '7');
INSERT INTO Impuestos VALUES (1, 'IGIC 7', 7);
INSERT INTO Impuestos VALUES (2, 'IGIC 3', 3);
INSERT INTO Paises (Cod_Pais, Nombre, ISOCodigo) VALUES (34, 'España', 'ES');
INSERT INTO Almacenes (Cod_Empresa, Codigo, Nombre, EDI_GLN) VALUES (1, 5, 'Almacén Sur', '8430000000055');
INSERT INTO EDI_Plataforma VALUES (2, 'SERES');
INSERT INTO EDI_TipoMsg VALUES (2, 1, 'INVOIC');
INSERT INTO Clientes (Cod_Empresa, Codigo, Nombre, Nif, Direccion, CP, Localidad, Provincia, Cod_Pais, Telefono, Fax, EDI_GLN, Cod_EDIPlat_Fra, Cod_EDITipoMsg_Fra)
  VALUES (1, 100, 'O''Donnell, S.A.', 'A28000000', 'Gran Vía, 2', '28013', 'Madrid', 'Madrid', 34, '910000000', '910000001', '8411111111111', 2, 1);
