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
  GLN nvarchar(50) NOT NULL,
  Principal bit NOT NULL DEFAULT 0,
  PRIMARY KEY (Cod_Empresa, Cod_Prov, GLN)
)
GO

CREATE TABLE Articulos_CBarras (
  Cod_Empresa smallint NOT NULL,
  Cod_Articulo int NOT NULL,
  Cod_Barras nvarchar(35) NOT NULL,
  Principal bit NOT NULL DEFAULT 0,
  PRIMARY KEY (Cod_Empresa, Cod_Articulo, Cod_Barras)
)
GO
CREATE INDEX IX_Articulos_CBarras ON Articulos_CBarras (Cod_Empresa, Cod_Barras)
GO

-- Names that the suppliers give to the articles.
CREATE TABLE Articulos_Ref (
  Cod_Empresa smallint NOT NULL,
  Cod_Articulo int NOT NULL,
  Cod_Prov int NOT NULL,
  Ref nvarchar(35) NOT NULL,
  Principal bit NOT NULL DEFAULT 0,
  PRIMARY KEY (Cod_Empresa, Cod_Articulo, Cod_Prov, Ref)
)
GO

CREATE TABLE Pedidos_Proveedores (
  Cod_Empresa smallint NOT NULL,
  Codigo int NOT NULL,
  Cod_Proveedor int NOT NULL,
  Cod_Almacen smallint NOT NULL,
  Fecha datetime NOT NULL,
  Fecha_Esperada datetime NULL,
  Fecha_EsperadaFin datetime NULL,
  Num_Lineas int NULL DEFAULT 0,
  Importe money NULL DEFAULT 0,
  PRIMARY KEY (Cod_Empresa, Codigo)
)
GO
CREATE INDEX IX_Pedidos_Proveedores ON Pedidos_Proveedores (Cod_Empresa, Cod_Proveedor, Fecha)
GO

CREATE TABLE Pedidos_Proveedores_Lineas (
  Cod_Empresa smallint NOT NULL,
  Codigo int NOT NULL,
  Num_Linea int NOT NULL,
  Cod_Articulo int NOT NULL,
  Ref nvarchar(35) NULL,
  Descripcion nvarchar(4000) NULL,
  Unidades decimal(12,4) NULL DEFAULT 0,
  Bultos decimal(12,4) NULL DEFAULT 0,
  Palets decimal(12,4) NULL DEFAULT 0,
  CFraCImp money NULL DEFAULT 0,
  PRIMARY KEY (Cod_Empresa, Codigo, Num_Linea)
)
GO

CREATE TABLE Entradas (
  Cod_Empresa smallint NOT NULL,
  Cod_Ejercicio smallint NOT NULL,
  Cod_Almacen smallint NOT NULL,
  Codigo int NOT NULL,
  Fecha datetime NOT NULL,
  Proveedor int NOT NULL,
  Cod_Pedido int NULL DEFAULT 0,
  Documento nvarchar(35) NULL,
  ImporteFra money NULL DEFAULT 0,
  ImporteTotal money NULL DEFAULT 0,
  PRIMARY KEY (Cod_Empresa, Cod_Ejercicio, Cod_Almacen, Codigo)
)
GO
CREATE INDEX IX_Entradas_Proveedor ON Entradas (Cod_Empresa, Proveedor, Fecha)
GO

CREATE TABLE Entradas_Impuestos (
  Cod_Empresa smallint NOT NULL,
  Cod_Ejercicio smallint NOT NULL,
  Cod_Almacen smallint NOT NULL,
  Codigo int NOT NULL,
  Tipo smallint NOT NULL,
  Base money NULL DEFAULT 0,
  Valor_Tipo money NULL DEFAULT 0,
  Importe money NULL DEFAULT 0,
  PRIMARY KEY (Cod_Empresa, Cod_Ejercicio, Cod_Almacen, Codigo, Tipo)
)
GO

-- Purchases; ID tells the order in which they were made.
CREATE TABLE Compras_Mini (
  ID int IDENTITY(1,1),
  Cod_Empresa smallint NOT NULL,
  Cod_Ejercicio smallint NOT NULL,
  Codigo int NOT NULL,
  Cod_Proveedor int NOT NULL,
  Cod_Almacen smallint NOT NULL,
  Fecha datetime NOT NULL,
  Documento nvarchar(35) NULL,
  Cod_Usuario smallint NULL DEFAULT 0,
  PRIMARY KEY (Cod_Empresa, Cod_Ejercicio, Codigo)
)
GO

CREATE TABLE Compras_Mini_Lineas (
  Cod_Empresa smallint NOT NULL,
  Cod_Ejercicio smallint NOT NULL,
  Codigo int NOT NULL,
  Num_Linea int NOT NULL,
  Cod_Articulo int NOT NULL,
  Unidades money NULL DEFAULT 0,
  Lote_Caducidad datetime NULL,
  Lote_Numero nvarchar(50) NULL,
  PRIMARY KEY (Cod_Empresa, Cod_Ejercicio, Codigo, Num_Linea)
)
GO

-- Received orders as they were read, until customer orders are made of them. The dates that the
-- suite delivers by are the ones that the customer asked for. Statements compare Doc_Num with bare
-- numbers, so it is one: as a text it could neither use its index nor hold anything but digits.
CREATE TABLE EDI_PedidosClientes (
  ID int IDENTITY(1,1) NOT NULL PRIMARY KEY,
  Fichero nvarchar(260) NOT NULL,
  Doc_Num numeric(17,0) NOT NULL,
  Doc_Tipo nvarchar(10) NULL,
  Doc_Funcion nvarchar(10) NULL,
  Hora datetime NULL,
  Fecha_Emision datetime NULL,
  Fecha_Ini_Entrega datetime NULL,
  Fecha_Fin_Entrega datetime NULL,
  GLN_Proveedor nvarchar(35) NULL,
  GLN_Cliente nvarchar(35) NULL,
  Nombre_Cliente nvarchar(175) NULL,
  Direccion_Cliente nvarchar(175) NULL,
  Localidad_Cliente nvarchar(70) NULL,
  CP_Cliente nvarchar(10) NULL,
  Nif_Cliente nvarchar(35) NULL,
  GLN_ClienteEntrega nvarchar(35) NULL,
  Nombre_ClienteEntrega nvarchar(175) NULL,
  Direccion_ClienteEntrega nvarchar(175) NULL,
  Localidad_ClienteEntrega nvarchar(70) NULL,
  CP_ClienteEntrega nvarchar(10) NULL,
  Importe_Neto money NULL,
  Importe_Bruto money NULL,
  Importe_Impuestos money NULL,
  Importe_Pagar money NULL,
  Importe_Base_Imponible money NULL,
  Bultos money NULL,
  Palets money NULL,
  Num_Articulos money NULL,
  Num_Lineas money NULL,
  Peso_Bruto_Total money NULL,
  OK bit NOT NULL DEFAULT 0,
  Fecha_Envio AS Fecha_Ini_Entrega,
  Fecha_EnvioFin AS Fecha_Fin_Entrega
)
GO
CREATE INDEX IX_Doc_Num ON EDI_PedidosClientes (Doc_Num)
GO

CREATE TABLE EDI_PedidosClientes_Lineas (
  ID int IDENTITY(1,1) NOT NULL PRIMARY KEY,
  Fichero nvarchar(260) NOT NULL,
  Doc_Num numeric(17,0) NOT NULL,
  Cod_Barras nvarchar(35) NOT NULL,
  Tipo_EAN nvarchar(10) NULL,
  Num_Linea nvarchar(10) NULL,
  Hora datetime NULL,
  Desc_Calificador nvarchar(10) NULL,
  Desc_Caracteristica nvarchar(10) NULL,
  Desc_Cod nvarchar(35) NULL,
  Descripcion nvarchar(350) NULL,
  Cantidad_Calificador nvarchar(10) NULL,
  Cantidad money NULL,
  Cantidad_Medida nvarchar(10) NULL,
  Importe_Neto_Linea money NULL,
  OK bit NOT NULL DEFAULT 0
)
GO
CREATE INDEX IX_Doc_Num ON EDI_PedidosClientes_Lineas (Doc_Num, Cod_Barras)
GO

-- EDI_ID and EDI_Doc_Num tell of which received order a customer order was made; EDI_ID is 0 while
-- its lines have not come, and null in an order that somebody typed.
CREATE TABLE Pedidos_Clientes (
  Cod_Empresa smallint NOT NULL,
  Cod_Ejercicio smallint NOT NULL,
  Codigo int NOT NULL,
  Cod_Almacen smallint NOT NULL,
  Cod_Cliente int NOT NULL,
  Fecha datetime NOT NULL,
  Fecha_Entrega datetime NULL,
  Fecha_EntregaFin datetime NULL,
  Usuario smallint NULL DEFAULT 0,
  Ent_Nombre nvarchar(175) NULL,
  Ent_Nombre_2 nvarchar(175) NULL,
  Ent_Direccion nvarchar(175) NULL,
  Ent_CP int NULL DEFAULT 0,
  Ent_Localidad nvarchar(70) NULL,
  EDI_ID int NULL,
  EDI_Doc_Num numeric(17,0) NULL,
  PRIMARY KEY (Cod_Empresa, Cod_Ejercicio, Codigo)
)
GO
CREATE INDEX IX_EDI_ID ON Pedidos_Clientes (EDI_ID)
GO
CREATE INDEX IX_EDI_Doc_Num ON Pedidos_Clientes (Cod_Empresa, Cod_Cliente, EDI_Doc_Num)
GO

-- The columns from Cod_Barras on are those of the received line; Cod_Articulo is null while no
-- article carries its bar code.
CREATE TABLE Pedidos_Clientes_Lineas (
  Cod_Empresa smallint NOT NULL,
  Cod_Ejercicio smallint NOT NULL,
  Codigo int NOT NULL,
  Num_Linea int NOT NULL,
  Cod_Articulo int NULL,
  Cod_Barras nvarchar(35) NULL,
  Tipo_EAN nvarchar(10) NULL,
  EDI_Num_Linea nvarchar(10) NULL,
  Desc_Calificador nvarchar(10) NULL,
  Desc_Caracteristica nvarchar(10) NULL,
  Desc_Cod nvarchar(35) NULL,
  Descripcion nvarchar(350) NULL,
  Cantidad_Calificador nvarchar(10) NULL,
  Cantidad money NULL,
  Cantidad_Medida nvarchar(10) NULL,
  Importe_Neto_Linea money NULL,
  PRIMARY KEY (Cod_Empresa, Cod_Ejercicio, Codigo, Num_Linea)
)
GO
