-- The ledger of received files: with this table, a file whose content was taken in before is not
-- taken in again. T-SQL for every database; batches end at GO.

CREATE TABLE EDI_Ficheros_Recibidos (
  ID int IDENTITY(1,1) NOT NULL PRIMARY KEY,
  Tipo varchar(10) NOT NULL,
  Fichero nvarchar(255) NOT NULL,
  SHA256 varchar(64) NOT NULL,
  Bytes numeric(18,0) NOT NULL,
  Hora datetime NOT NULL,
  Terminal nvarchar(50) NOT NULL,
  Documentos int NOT NULL,
  Reprocesar bit NOT NULL DEFAULT 0
)
GO
CREATE INDEX IX_EDI_Ficheros_Recibidos ON EDI_Ficheros_Recibidos (SHA256, Tipo)
GO
