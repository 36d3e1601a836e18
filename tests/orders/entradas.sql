INSERT INTO Almacenes (Cod_Empresa, Codigo, Nombre) VALUES (1, 4, 'Oeste'), (1, 6, 'Este');
INSERT INTO Articulos_CBarras VALUES (7, 80002, '8480002', 1), (7, 81002, '8481002', 1), (7, 82002, '8482002', 1), (7, 2, '8400002', 1), (7, 80003, 'no', 0);
INSERT INTO Entradas VALUES (1, 2026, 3, 157, '09/03/2026 10:00:00', 20, 1234, '12345678901234567890', 0, 0);
INSERT INTO Entradas_Impuestos VALUES (1, 2026, 3, 157, 2, 100.5, 3, 3.015), (1, 2026, 3, 157, 3, 0, 7, 0);
