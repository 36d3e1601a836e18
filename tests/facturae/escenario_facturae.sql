UPDATE Empresas SET email = 'facturas@nandu.es';
UPDATE Paises SET ISO3Codigo = 'ESP';
INSERT INTO Paises VALUES (33, 'Francia', 'FR', 'FRA');
INSERT INTO Paises VALUES (49, 'Alemania', 'DE', 'DEU');
INSERT INTO Paises VALUES (1, 'Estados Unidos', 'US', 'USA');
INSERT INTO Paises VALUES (30, 'Grecia', 'GR', 'GRC');
INSERT INTO Paises VALUES (99, 'Sin código', '', 'XXX');
INSERT INTO Igic_Tipos VALUES (1, 1, '01/01/2020', '31/12/2099', 7);
INSERT INTO Igic_Tipos VALUES (1, 2, '01/01/2020', '31/12/2099', 3);
INSERT INTO Igic_Tipos VALUES (1, 1, '01/01/2010', '31/12/2019', 5);
INSERT INTO EDI_Centros_Administrativos VALUES ('L01', 'Intervención', 'Plaza 1', '35500', 'Arrecife', 'Las Palmas', 34, 'Oficina contable');
INSERT INTO EDI_Centros_Administrativos VALUES ('L02', 'Alcaldía', 'Plaza 2', '35501', 'Arrecife', 'Las Palmas', 34, 'Órgano gestor');
INSERT INTO EDI_Centros_Administrativos VALUES ('L03', 'Compras', 'Plaza 3', '35502', 'Arrecife', 'Las Palmas', 34, '');
INSERT INTO EDI_Centros_Administrativos VALUES ('L04', 'Farmacia', 'Plaza 4', '35503', 'Arrecife', 'Las Palmas', 34, 'Órgano proponente');
INSERT INTO Clientes (Cod_Empresa, Codigo, Nombre, Nombre_Comercial, Tipo, Nif, Direccion, CP, Localidad, Provincia, Cod_Pais, Cod_EDIPlat_Fra, Cod_EDITipoMsg_Fra, EDI_Rol_Fiscal, EDI_Rol_Receptor, EDI_Rol_Pagador)
  VALUES (1, 200, 'Ayuntamiento de Puerto Azul', '', 0, 'P3530303A', 'Pza. Mayor, 1', '35500', 'Arrecife', 'Las Palmas', 34, 3, 1, 'L01', 'L02', 'L03');
INSERT INTO Articulos VALUES (1, 501, 'Queso');
INSERT INTO TPV_Tickets VALUES (1, 2, 3, '05/03/2024', 77, 16.05);
INSERT INTO TPV_Tickets_Factura (Cod_Empresa, Cod_Almacen, Caja, Fecha, Codigo, Cliente, Factura_Serie, Factura_Codigo, Factura_Almacen, Factura_Fecha)
  VALUES (1, 2, 3, '05/03/2024', 77, 200, 52, 900, 2, '07/03/2024');
