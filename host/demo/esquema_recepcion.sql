-- Tables and indexes of received invoices. T-SQL for every database; batches end at GO.

CREATE TABLE SGD_USUARIOS (
  Codigo smallint NOT NULL PRIMARY KEY,
  Nombre nvarchar(60) NOT NULL
)
GO
