-- Functions of the invoice statements. T-SQL for every database; batches end at GO.
-- @Tipo is the document kind; only invoices are asked for.

CREATE FUNCTION dbo.fn_FE_ImporteNetoLineas(@Tipo smallint, @Cod_Empresa smallint,
  @Cod_Ejercicio smallint, @Serie smallint, @Codigo int, @TipoDoc smallint)
RETURNS money AS
BEGIN
  RETURN (SELECT ISNULL(SUM(ROUND(ROUND(
            nl.Precio * nl.Unidades - (nl.Precio * nl.Unidades * nl.PDescuento) / 100.0, 4), 3)), 0)
          FROM Facturas_Lineas nl
          WHERE nl.Cod_Empresa = @Cod_Empresa AND nl.Cod_Ejercicio = @Cod_Ejercicio
            AND nl.Serie = @Serie AND nl.Codigo = @Codigo AND nl.TipoDoc = @TipoDoc
            AND nl.Cod_Articulo <> -1)
END
GO

CREATE FUNCTION dbo.fn_FE_ImporteBrutoLineas(@Tipo smallint, @Cod_Empresa smallint,
  @Cod_Ejercicio smallint, @Serie smallint, @Codigo int, @TipoDoc smallint)
RETURNS money AS
BEGIN
  RETURN (SELECT ISNULL(SUM(ROUND(bl.PrecioG * bl.Unidades, 4)), 0)
          FROM Facturas_Lineas bl
          WHERE bl.Cod_Empresa = @Cod_Empresa AND bl.Cod_Ejercicio = @Cod_Ejercicio
            AND bl.Serie = @Serie AND bl.Codigo = @Codigo AND bl.TipoDoc = @TipoDoc
            AND bl.Cod_Articulo <> -1)
END
GO

CREATE FUNCTION dbo.fn_FE_PrevCobros(@Tipo smallint, @Cod_Empresa smallint,
  @Cod_Ejercicio smallint, @Serie smallint, @Codigo int, @TipoDoc smallint)
RETURNS money AS
BEGIN
  RETURN (SELECT COUNT(*)
          FROM Facturas_PrevCobros pc
          WHERE pc.Cod_Empresa = @Cod_Empresa AND pc.Cod_Ejercicio = @Cod_Ejercicio
            AND pc.Serie = @Serie AND pc.Codigo = @Codigo AND pc.TipoDoc = @TipoDoc)
END
GO
