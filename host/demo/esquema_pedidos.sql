-- Tables and indexes of purchases, orders and logistics. T-SQL for every database; batches end at GO.

CREATE TABLE Proveedores (
  Cod_Empresa smallint NOT NULL,
  Codigo int NOT NULL,
  Nombre nvarchar(100) NOT NULL,
  Nif nvarchar(35) NULL,
  Direccion nvarchar(100) NULL,
  CP nvarchar(10) NULL,
  Localidad nvarchar(60) NULL,
  Provincia nvarchar(60) NULL,
  Cod_EDIPlat smallint NULL DEFAULT 0,
  Cod_EDITipoMsg smallint NULL DEFAULT 0,
  PRIMARY KEY (Cod_Empresa, Codigo)
)
GO
CREATE INDEX IX_Proveedores_Nombre ON Proveedores (Cod_Empresa, Nombre)
GO

CREATE TABLE Proveedores_GLN (
  Cod_Empresa smallint NOT NULL,
  Cod_Prov int NOT NULL,
  GLN nvarchar(35) NOT NULL,
  Principal bit NOT NULL DEFAULT 0,
  PRIMARY KEY (Cod_Empresa, Cod_Prov, GLN)
)
GO
