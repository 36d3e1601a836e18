-- Triggers in the words of SQL Server; batches end at GO.

-- When received orders are marked as done, their lines go to the customer orders that were made of
-- them. Several may be marked at once: of one day, the first order is the first customer order.
CREATE TRIGGER EDI_PedidosClientes_OK ON EDI_PedidosClientes AFTER UPDATE AS
BEGIN
  SET NOCOUNT ON;
  UPDATE Pedidos_Clientes SET EDI_ID = par.ID, EDI_Doc_Num = par.Doc_Num
  FROM (SELECT nuevo.Cod_Empresa, nuevo.Cod_Ejercicio, nuevo.Codigo, hecho.ID, hecho.Doc_Num
        FROM (SELECT p.Cod_Empresa, p.Cod_Ejercicio, p.Codigo, p.Fecha,
                ROW_NUMBER() OVER (PARTITION BY p.Fecha ORDER BY p.Codigo) AS Orden
              FROM Pedidos_Clientes p WHERE p.EDI_ID = 0) nuevo
        INNER JOIN (SELECT i.ID, i.Doc_Num, i.Fecha_Emision,
                      ROW_NUMBER() OVER (PARTITION BY i.Fecha_Emision ORDER BY i.ID) AS Orden
                    FROM inserted i WHERE i.OK = 1) hecho
          ON hecho.Fecha_Emision = nuevo.Fecha AND hecho.Orden = nuevo.Orden) par
  WHERE Pedidos_Clientes.Cod_Empresa = par.Cod_Empresa
    AND Pedidos_Clientes.Cod_Ejercicio = par.Cod_Ejercicio
    AND Pedidos_Clientes.Codigo = par.Codigo;
  INSERT INTO Pedidos_Clientes_Lineas (Cod_Empresa, Cod_Ejercicio, Codigo, Num_Linea, Cod_Articulo,
    Cod_Barras, Tipo_EAN, EDI_Num_Linea, Desc_Calificador, Desc_Caracteristica, Desc_Cod,
    Descripcion, Cantidad_Calificador, Cantidad, Cantidad_Medida, Importe_Neto_Linea)
  SELECT p.Cod_Empresa, p.Cod_Ejercicio, p.Codigo,
    ROW_NUMBER() OVER (PARTITION BY p.Cod_Empresa, p.Cod_Ejercicio, p.Codigo ORDER BY lin.ID),
    (SELECT MIN(b.Cod_Articulo) FROM Articulos_CBarras b
      WHERE b.Cod_Empresa = e.Emp_Articulos AND b.Cod_Barras = lin.Cod_Barras),
    lin.Cod_Barras, lin.Tipo_EAN, lin.Num_Linea, lin.Desc_Calificador, lin.Desc_Caracteristica,
    lin.Desc_Cod, lin.Descripcion, lin.Cantidad_Calificador, lin.Cantidad, lin.Cantidad_Medida,
    lin.Importe_Neto_Linea
  FROM inserted i
  INNER JOIN Pedidos_Clientes p ON p.EDI_ID = i.ID
  INNER JOIN Empresas e ON e.Codigo = p.Cod_Empresa
  INNER JOIN EDI_PedidosClientes_Lineas lin ON lin.Doc_Num = i.Doc_Num
  WHERE i.OK = 1;
  DELETE FROM EDI_PedidosClientes_Lineas
  WHERE EXISTS (SELECT * FROM inserted i INNER JOIN Pedidos_Clientes p ON p.EDI_ID = i.ID
                WHERE i.OK = 1 AND i.Doc_Num = EDI_PedidosClientes_Lineas.Doc_Num);
END
GO
