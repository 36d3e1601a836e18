UPDATE Paises SET ISO3Codigo = 'ESP';
UPDATE Empresas SET email = 'facturas@nandu.example';
UPDATE Clientes SET Nombre_Comercial = 'O''Donnell', Cod_EDIPlat_Fra = 3, EDI_Rol_Fiscal = 'C1', EDI_Rol_Receptor = 'C1', EDI_Rol_Pagador = 'C1';
INSERT INTO EDI_Centros_Administrativos VALUES ('C1', 'Oficina', 'C/ Real, 1', '35001', 'Las Palmas', 'Las Palmas', 34, 'Oficina contable');
INSERT INTO EDI_Plataforma VALUES (3, 'FACTURAE');
INSERT INTO EDI_TipoMsg VALUES (3, 1, 'FACTURA');
INSERT INTO Empresas_Parametros VALUES (1, 'EDI_PathCertificadoDigital', 'empresa.pfx');
INSERT INTO Empresas_Parametros VALUES (1, 'EDI_PasswordCertificadoDigital', 'clave&<empresa>');
