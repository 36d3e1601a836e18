-- Tables and indexes of received invoices. T-SQL for every database; batches end at GO.

CREATE TABLE SGD_USUARIOS (
  Codigo smallint NOT NULL PRIMARY KEY,
  Nombre nvarchar(60) NOT NULL
)
GO

-- Invoices that arrived from suppliers; EDIFichero stands in the folder of the fiscal year below the
-- reception root.
CREATE TABLE EDI_Recepcion_Facturas (
  IdentificadorMsg nvarchar(40) NOT NULL PRIMARY KEY,
  Cod_Empresa smallint NOT NULL,
  Cod_Ejercicio smallint NOT NULL,
  Cod_Proveedor int NOT NULL DEFAULT 0,
  Documento nvarchar(35) NOT NULL,
  Fecha datetime NOT NULL,
  Total money NOT NULL DEFAULT 0,
  Cod_Usuario_Visado smallint NOT NULL DEFAULT 0,
  Observ nvarchar(max) NULL,
  Cod_EDIPlat smallint NOT NULL DEFAULT 0,
  Cod_EDITipoMsg smallint NOT NULL DEFAULT 0,
  EDIFichero nvarchar(260) NULL,
  EDIFechaRecepcion datetime NULL
)
GO
CREATE INDEX IX_EDI_Recepcion_Facturas_Fecha ON EDI_Recepcion_Facturas (Cod_Empresa, Fecha, Documento)
GO

-- Received files whose supplier is not known.
CREATE TABLE EDI_PdteClasificar (
  EDIFichero nvarchar(260) NOT NULL PRIMARY KEY,
  EDIFechaRecepcion datetime NOT NULL,
  Cod_EDIPlat smallint NOT NULL DEFAULT 0,
  Cod_EDITipoMsg smallint NOT NULL DEFAULT 0,
  GLN nvarchar(35) NULL,
  Proveedor nvarchar(175) NULL,
  GLN_Comprador nvarchar(35) NULL,
  Comprador nvarchar(175) NULL
)
GO
CREATE INDEX IX_EDI_PdteClasificar_Fecha ON EDI_PdteClasificar (EDIFechaRecepcion)
GO

-- What each terminal printed last of a received invoice: header, general discounts, lines and their
-- discounts. Texts are those of the file; a date is shown as it came.
CREATE TABLE Temp_EDI_Factura_Cab (
  Terminal nvarchar(64) NOT NULL PRIMARY KEY,
  Mensaje nvarchar(20) NULL,
  Codigo nvarchar(20) NULL,
  Tipo nvarchar(30) NULL,
  Estado nvarchar(30) NULL,
  FechaDocumento nvarchar(10) NULL,
  CodigoEmisor nvarchar(20) NULL,
  Nombre nvarchar(175) NULL,
  NIF nvarchar(35) NULL,
  Direccion nvarchar(140) NULL,
  Ciudad nvarchar(35) NULL,
  CP nvarchar(10) NULL,
  ImporteNeto money NULL,
  ImporteBase money NULL,
  ImporteImpuesto money NULL,
  ImportePagar money NULL,
  Observaciones nvarchar(max) NULL
)
GO

CREATE TABLE Temp_EDI_Factura_Desc_Cab (
  Terminal nvarchar(64) NOT NULL,
  Numero nvarchar(10) NULL,
  Indicador nvarchar(20) NULL,
  Porcentaje money NULL,
  Importe money NULL,
  Tipo nvarchar(20) NULL
)
GO
CREATE INDEX IX_Temp_EDI_Factura_Desc_Cab ON Temp_EDI_Factura_Desc_Cab (Terminal)
GO

CREATE TABLE Temp_EDI_Factura_Lineas (
  Terminal nvarchar(64) NOT NULL,
  NumLinea int NOT NULL,
  Codigo nvarchar(15) NULL,
  Descripcion nvarchar(360) NULL,
  Unidades money NULL,
  Neto money NULL,
  Bruto money NULL,
  NetoLinea money NULL,
  PRIMARY KEY (Terminal, NumLinea)
)
GO

CREATE TABLE Temp_EDI_Factura_Desc_Linea (
  Terminal nvarchar(64) NOT NULL,
  NumLinea int NOT NULL,
  Numero nvarchar(10) NULL,
  Indicador nvarchar(20) NULL,
  Porcentaje money NULL,
  Importe money NULL,
  Tipo nvarchar(20) NULL
)
GO
CREATE INDEX IX_Temp_EDI_Factura_Desc_Linea ON Temp_EDI_Factura_Desc_Linea (Terminal, NumLinea)
GO
