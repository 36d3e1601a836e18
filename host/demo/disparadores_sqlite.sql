-- Triggers in the words of the embedded database; batches end at GO.

-- When a received order is marked as done, its lines go to the customer order that was made of it.
CREATE TRIGGER EDI_PedidosClientes_OK AFTER UPDATE OF OK ON EDI_PedidosClientes
WHEN NEW.OK = 1
BEGIN
  UPDATE Pedidos_Clientes SET EDI_ID = NEW.ID, EDI_Doc_Num = NEW.Doc_Num WHERE EDI_ID = 0;
  INSERT INTO Pedidos_Clientes_Lineas (Cod_Empresa, Cod_Ejercicio, Codigo, Num_Linea, Cod_Articulo,
    Cod_Barras, Tipo_EAN, EDI_Num_Linea, Desc_Calificador, Desc_Caracteristica, Desc_Cod,
    Descripcion, Cantidad_Calificador, Cantidad, Cantidad_Medida, Importe_Neto_Linea)
  SELECT p.Cod_Empresa, p.Cod_Ejercicio, p.Codigo, ROW_NUMBER() OVER (ORDER BY lin.ID),
    (SELECT MIN(b.Cod_Articulo) FROM Articulos_CBarras b
      WHERE b.Cod_Empresa = e.Emp_Articulos AND b.Cod_Barras = lin.Cod_Barras),
    lin.Cod_Barras, lin.Tipo_EAN, lin.Num_Linea, lin.Desc_Calificador, lin.Desc_Caracteristica,
    lin.Desc_Cod, lin.Descripcion, lin.Cantidad_Calificador, lin.Cantidad, lin.Cantidad_Medida,
    lin.Importe_Neto_Linea
  FROM Pedidos_Clientes p
  INNER JOIN Empresas e ON e.Codigo = p.Cod_Empresa
  INNER JOIN EDI_PedidosClientes_Lineas lin ON lin.Doc_Num = NEW.Doc_Num
  WHERE p.EDI_ID = NEW.ID;
  DELETE FROM EDI_PedidosClientes_Lineas
  WHERE Doc_Num = NEW.Doc_Num
    AND EXISTS (SELECT * FROM Pedidos_Clientes p WHERE p.EDI_ID = NEW.ID);
END
GO
