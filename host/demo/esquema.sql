-- Tables and indexes of the suite, as far as the component and its reference components use them.
-- T-SQL for every database; batches end at GO. Date columns of documents carry no time of day, and
-- what is not a key may be null, as in the suite.

CREATE TABLE Empresas (
  Codigo smallint NOT NULL PRIMARY KEY,
  Nombre_1 nvarchar(100) NOT NULL,
  Nombre_2 nvarchar(100) NULL,
  Direccion nvarchar(100) NULL,
  CP nvarchar(20) NULL,
  Localidad nvarchar(60) NULL,
  Provincia nvarchar(60) NULL,
  Pais nvarchar(60) NULL,
  Telefono nvarchar(40) NULL,
  Fax nvarchar(40) NULL,
  Nif nvarchar(35) NULL,
  email nvarchar(100) NULL,
  Emp_Articulos smallint NOT NULL,
  Emp_Clientes smallint NOT NULL,
  Emp_Proveedores smallint NOT NULL,
  Aplica_IGIC bit NOT NULL DEFAULT 0
)
GO

CREATE TABLE Empresas_Parametros (
  Cod_Empresa smallint NOT NULL,
  Nombre nvarchar(60) NOT NULL,
  Valor nvarchar(250) NULL,
  PRIMARY KEY (Cod_Empresa, Nombre)
)
GO

CREATE TABLE Series (
  Cod_Empresa smallint NOT NULL,
  Codigo smallint NOT NULL,
  Nombre nvarchar(60) NULL,
  rutaCertificado nvarchar(250) NULL,
  contraseñaCertificado nvarchar(100) NULL,
  PRIMARY KEY (Cod_Empresa, Codigo)
)
GO

CREATE TABLE Impuestos (
  Codigo smallint NOT NULL PRIMARY KEY,
  Nombre nvarchar(60) NOT NULL,
  Porcentaje money NOT NULL
)
GO

-- Rates of the taxes by the dates in which they hold; Tipo is the code in Impuestos.
CREATE TABLE Igic_Tipos (
  Cod_Empresa smallint NOT NULL,
  Tipo smallint NOT NULL,
  FechaI datetime NOT NULL,
  FechaF datetime NOT NULL,
  Imp_Valor money NULL DEFAULT 0,
  PRIMARY KEY (Cod_Empresa, Tipo, FechaI)
)
GO

CREATE TABLE Articulos (
  Cod_Empresa smallint NOT NULL,
  Codigo int NOT NULL,
  Descripcion nvarchar(4000) NULL,
  PRIMARY KEY (Cod_Empresa, Codigo)
)
GO

CREATE TABLE Paises (
  Cod_Pais smallint NOT NULL PRIMARY KEY,
  Nombre nvarchar(60) NOT NULL,
  ISOCodigo nvarchar(2) NULL,
  ISO3Codigo nvarchar(3) NULL
)
GO

-- Postal codes as numbers; a code that several towns share leads to the first of them.
CREATE TABLE Codigos_Postales (
  Codigo int NOT NULL PRIMARY KEY,
  Localidad nvarchar(60) NOT NULL,
  Provincia nvarchar(60) NOT NULL,
  Cod_Pais smallint NOT NULL
)
GO

CREATE TABLE Almacenes (
  Cod_Empresa smallint NOT NULL,
  Codigo smallint NOT NULL,
  Nombre nvarchar(100) NOT NULL,
  Direccion nvarchar(100) NULL,
  CP nvarchar(20) NULL,
  Localidad nvarchar(60) NULL,
  Provincia nvarchar(60) NULL,
  EDI_GLN nvarchar(35) NULL,
  PedProv_Consignacion nvarchar(35) NULL,
  PRIMARY KEY (Cod_Empresa, Codigo)
)
GO

CREATE TABLE Cadenas (
  Cod_Empresa smallint NOT NULL,
  Nivel smallint NOT NULL,
  Codigo smallint NOT NULL,
  Nombre nvarchar(60) NOT NULL,
  PRIMARY KEY (Cod_Empresa, Nivel, Codigo)
)
GO

CREATE TABLE EDI_Plataforma (
  Cod_EDIPlat smallint NOT NULL PRIMARY KEY,
  Nombre nvarchar(40) NOT NULL
)
GO

CREATE TABLE EDI_TipoMsg (
  Cod_EDIPlat smallint NOT NULL,
  Cod_EDITipoMsg smallint NOT NULL,
  Nombre nvarchar(40) NOT NULL,
  PRIMARY KEY (Cod_EDIPlat, Cod_EDITipoMsg)
)
GO

CREATE TABLE EDI_Centros_Administrativos (
  Codigo nvarchar(20) NOT NULL PRIMARY KEY,
  Nombre nvarchar(100) NOT NULL,
  Direccion nvarchar(100) NULL,
  CodigoPostal nvarchar(10) NULL,
  Localidad nvarchar(60) NULL,
  Provincia nvarchar(60) NULL,
  Cod_Pais smallint NULL,
  Descripcion nvarchar(250) NULL
)
GO

CREATE TABLE Clientes (
  Cod_Empresa smallint NOT NULL,
  Codigo int NOT NULL,
  Nombre nvarchar(100) NOT NULL,
  Nombre_Comercial nvarchar(100) NULL,
  Tipo smallint NULL DEFAULT 0,
  Nif nvarchar(35) NULL,
  IntraCom bit NULL DEFAULT 0,
  Direccion nvarchar(100) NULL,
  CP nvarchar(10) NULL,
  Localidad nvarchar(60) NULL,
  Provincia nvarchar(60) NULL,
  Cod_Pais smallint NULL,
  Telefono nvarchar(40) NULL,
  Fax nvarchar(40) NULL,
  Cta_Bancaria nvarchar(35) NULL,
  Tipo_Venta smallint NULL DEFAULT 0,
  Tipo_Impresion smallint NULL DEFAULT 0,
  EDI_GLN nvarchar(35) NULL,
  Cod_EDIPlat_Fra smallint NULL,
  Cod_EDITipoMsg_Fra smallint NULL,
  EDI_Rol_Fiscal nvarchar(20) NULL,
  EDI_Rol_Receptor nvarchar(20) NULL,
  EDI_Rol_Pagador nvarchar(20) NULL,
  EDI_Rol_Comprador nvarchar(20) NULL,
  Cad_Nivel_1 smallint NULL DEFAULT 0,
  Cad_Nivel_2 smallint NULL DEFAULT 0,
  Cad_Nivel_3 smallint NULL DEFAULT 0,
  Cad_Nivel_4 smallint NULL DEFAULT 0,
  Cad_Nivel_5 smallint NULL DEFAULT 0,
  Cad_Nivel_6 smallint NULL DEFAULT 0,
  Cad_Nivel_7 smallint NULL DEFAULT 0,
  Cad_Nivel_8 smallint NULL DEFAULT 0,
  Cad_Nivel_9 smallint NULL DEFAULT 0,
  Cad_Nivel_10 smallint NULL DEFAULT 0,
  PRIMARY KEY (Cod_Empresa, Codigo)
)
GO
CREATE INDEX IX_Clientes_Nombre ON Clientes (Cod_Empresa, Nombre)
GO
CREATE INDEX IX_Clientes_EDI_GLN ON Clientes (Cod_Empresa, EDI_GLN)
GO

CREATE TABLE Facturas (
  Cod_Empresa smallint NOT NULL,
  Cod_Ejercicio smallint NOT NULL,
  Serie smallint NOT NULL,
  Codigo int NOT NULL,
  TipoDoc smallint NOT NULL,
  Fecha datetime NOT NULL,
  Hora datetime NULL,
  Cliente int NOT NULL,
  Almacen smallint NOT NULL,
  TipoFactura smallint NULL DEFAULT 0,
  FormaPago smallint NULL DEFAULT 0,
  ImporteB money NULL DEFAULT 0,
  Dto1 money NULL DEFAULT 0,
  TDto1 smallint NULL DEFAULT 0,
  Dto2 money NULL DEFAULT 0,
  TDto2 smallint NULL DEFAULT 0,
  Importe_Portes money NULL DEFAULT 0,
  Impuestos money NULL DEFAULT 0,
  Total money NULL DEFAULT 0,
  Observ nvarchar(4000) NULL,
  Ent_Nombre nvarchar(100) NULL,
  Ent_Nif nvarchar(35) NULL,
  Ent_Direccion nvarchar(100) NULL,
  Ent_Cp nvarchar(10) NULL,
  Ent_Localidad nvarchar(60) NULL,
  Ent_Provincia nvarchar(60) NULL,
  Ent_Pais nvarchar(60) NULL,
  Ent_Contacto nvarchar(60) NULL,
  Ent_Telefono nvarchar(40) NULL,
  Ent_Fax nvarchar(40) NULL,
  ExcluirEDI bit NULL DEFAULT 0,
  PRIMARY KEY (Cod_Empresa, Cod_Ejercicio, Serie, Codigo, TipoDoc)
)
GO
CREATE INDEX IX_Facturas_Fecha ON Facturas (Cod_Empresa, Fecha)
GO
CREATE INDEX IX_Facturas_Cliente ON Facturas (Cod_Empresa, Cliente, Fecha)
GO

CREATE TABLE Facturas_Lineas (
  Cod_Empresa smallint NOT NULL,
  Cod_Ejercicio smallint NOT NULL,
  Serie smallint NOT NULL,
  Codigo int NOT NULL,
  TipoDoc smallint NOT NULL,
  Num_Linea int NOT NULL,
  Cod_Articulo int NOT NULL,
  Descripcion nvarchar(4000) NULL,
  Peso decimal(12,4) NULL DEFAULT 0,
  Bultos decimal(12,4) NULL DEFAULT 0,
  Unidades decimal(12,4) NULL DEFAULT 0,
  PrecioG money NULL DEFAULT 0,
  Precio money NULL DEFAULT 0,
  PDescuento decimal(7,4) NULL DEFAULT 0,
  Descuento money NULL DEFAULT 0,
  Impuesto smallint NULL DEFAULT 0,
  PRIMARY KEY (Cod_Empresa, Cod_Ejercicio, Serie, Codigo, TipoDoc, Num_Linea)
)
GO

CREATE TABLE Facturas_Impuestos (
  Cod_Empresa smallint NOT NULL,
  Cod_Ejercicio smallint NOT NULL,
  Serie smallint NOT NULL,
  Codigo int NOT NULL,
  TipoDoc smallint NOT NULL,
  Tipo smallint NOT NULL,
  Base money NULL DEFAULT 0,
  Importe money NULL DEFAULT 0,
  PRIMARY KEY (Cod_Empresa, Cod_Ejercicio, Serie, Codigo, TipoDoc, Tipo)
)
GO

CREATE TABLE Facturas_PrevCobros (
  Cod_Empresa smallint NOT NULL,
  Cod_Ejercicio smallint NOT NULL,
  Serie smallint NOT NULL,
  Codigo int NOT NULL,
  TipoDoc smallint NOT NULL,
  Apunte int NOT NULL,
  Fecha_Vto datetime NULL,
  Importe money NULL DEFAULT 0,
  PRIMARY KEY (Cod_Empresa, Cod_Ejercicio, Serie, Codigo, TipoDoc, Apunte)
)
GO

-- Delivery notes that a summary invoice (TipoFactura 2) groups.
CREATE TABLE Albaranes_F (
  Cod_Empresa smallint NOT NULL,
  Cod_Ejercicio smallint NOT NULL,
  Serie smallint NOT NULL,
  Codigo int NOT NULL,
  Factura_Codigo int NULL,
  Fecha datetime NULL,
  Ent_Nombre nvarchar(100) NULL,
  Ent_Nif nvarchar(35) NULL,
  Ent_Direccion nvarchar(100) NULL,
  Ent_Cp nvarchar(10) NULL,
  Ent_Localidad nvarchar(60) NULL,
  Ent_Provincia nvarchar(60) NULL,
  Ent_Pais nvarchar(60) NULL,
  PRIMARY KEY (Cod_Empresa, Cod_Ejercicio, Serie, Codigo)
)
GO
CREATE INDEX IX_Albaranes_F_Factura
  ON Albaranes_F (Cod_Empresa, Cod_Ejercicio, Serie, Factura_Codigo, Fecha)
GO

CREATE TABLE Albaranes_F_Lineas (
  Cod_Empresa smallint NOT NULL,
  Cod_Ejercicio smallint NOT NULL,
  Serie smallint NOT NULL,
  Codigo int NOT NULL,
  Num_Linea int NOT NULL,
  Cod_Articulo int NOT NULL,
  Descripcion nvarchar(4000) NULL,
  Unidades decimal(12,4) NULL DEFAULT 0,
  Precio money NULL DEFAULT 0,
  PvpBase money NULL DEFAULT 0,
  PRIMARY KEY (Cod_Empresa, Cod_Ejercicio, Serie, Codigo, Num_Linea)
)
GO

CREATE TABLE Albaranes_F_Impuestos (
  Cod_Empresa smallint NOT NULL,
  Cod_Ejercicio smallint NOT NULL,
  Serie smallint NOT NULL,
  Codigo int NOT NULL,
  Tipo smallint NOT NULL,
  Base money NULL DEFAULT 0,
  Importe money NULL DEFAULT 0,
  PRIMARY KEY (Cod_Empresa, Cod_Ejercicio, Serie, Codigo, Tipo)
)
GO

CREATE TABLE TPV_Tickets (
  Cod_Empresa smallint NOT NULL,
  Cod_Almacen smallint NOT NULL,
  Caja smallint NOT NULL,
  Fecha datetime NOT NULL,
  Codigo int NOT NULL,
  Total money NULL DEFAULT 0,
  PRIMARY KEY (Cod_Empresa, Cod_Almacen, Caja, Fecha, Codigo)
)
GO

CREATE TABLE TPV_Tickets_Lineas (
  Cod_Empresa smallint NOT NULL,
  Cod_Almacen smallint NOT NULL,
  Caja smallint NOT NULL,
  Fecha datetime NOT NULL,
  Codigo int NOT NULL,
  Num_Linea int NOT NULL,
  Cod_Articulo int NULL,
  Cantidad decimal(12,4) NULL DEFAULT 0,
  Pvp money NULL DEFAULT 0,
  Dto decimal(7,4) NULL DEFAULT 0,
  Importe_sinDto money NULL DEFAULT 0,
  Importe money NULL DEFAULT 0,
  TipoImpuesto smallint NULL DEFAULT 0,
  PA bit NULL DEFAULT 0,
  PRIMARY KEY (Cod_Empresa, Cod_Almacen, Caja, Fecha, Codigo, Num_Linea)
)
GO

CREATE TABLE TPV_Tickets_Factura (
  Cod_Empresa smallint NOT NULL,
  Cod_Almacen smallint NOT NULL,
  Caja smallint NOT NULL,
  Fecha datetime NOT NULL,
  Codigo int NOT NULL,
  Cliente int NOT NULL,
  Factura_Serie smallint NOT NULL,
  Factura_Codigo int NOT NULL,
  Factura_Almacen smallint NOT NULL,
  Factura_TipoDoc smallint NULL DEFAULT 0,
  Factura_Fecha datetime NOT NULL,
  Hora datetime NULL,
  ExcluirEDI bit NULL,
  PRIMARY KEY (Cod_Empresa, Cod_Almacen, Caja, Fecha, Codigo)
)
GO
CREATE INDEX IX_TPV_Tickets_Factura_Fecha ON TPV_Tickets_Factura (Cod_Empresa, Factura_Fecha)
GO
CREATE INDEX IX_TPV_Tickets_Factura_Cliente
  ON TPV_Tickets_Factura (Cod_Empresa, Cliente, Factura_Fecha)
GO

-- One invoice may have several sendings, so neither of its two document keys is unique.
CREATE TABLE EDI_Envio_Facturas (
  Cod_EDIPlat smallint NULL,
  Cod_EDITipoMsg smallint NULL,
  IdentificadorMsg nvarchar(70) NULL,
  Hora datetime NULL,
  Cod_Empresa smallint NULL,
  Cod_Ejercicio smallint NULL,
  Serie smallint NULL,
  Codigo int NULL,
  TipoDoc smallint NULL,
  Cod_Empresa_FT smallint NULL,
  Cod_Almacen_FT smallint NULL,
  Caja_FT smallint NULL,
  Fecha_FT datetime NULL,
  Codigo_FT int NULL,
  Copias smallint NULL,
  EDIFichero nvarchar(100) NULL,
  EDINumeroRegistro nvarchar(100) NULL,
  EDIFechaRegistro datetime NULL,
  Revision smallint NULL
)
GO
CREATE INDEX IX_EDI_Envio_Facturas_Factura
  ON EDI_Envio_Facturas (Cod_Empresa, Cod_Ejercicio, Serie, Codigo, TipoDoc)
GO
CREATE INDEX IX_EDI_Envio_Facturas_Ticket
  ON EDI_Envio_Facturas (Cod_Empresa_FT, Cod_Almacen_FT, Caja_FT, Fecha_FT, Codigo_FT)
GO

-- Only one of the two document keys is filled; the other one keeps its defaults. A document may have
-- several attachments of one name; ID tells them apart.
CREATE TABLE EDI_Anexos (
  ID int IDENTITY(1,1) NOT NULL PRIMARY KEY,
  Cod_EDIPlat smallint NOT NULL,
  Cod_EDITipoMsg smallint NOT NULL,
  Hora datetime NULL,
  Cod_Empresa smallint NOT NULL DEFAULT 0,
  Cod_Ejercicio smallint NOT NULL DEFAULT 0,
  Serie smallint NOT NULL DEFAULT 0,
  Codigo int NOT NULL DEFAULT 0,
  TipoDoc smallint NOT NULL DEFAULT 0,
  Cod_Empresa_FT smallint NOT NULL DEFAULT 0,
  Cod_Almacen_FT smallint NOT NULL DEFAULT 0,
  Caja_FT smallint NOT NULL DEFAULT 0,
  Fecha_FT datetime NOT NULL DEFAULT '19000101',
  Codigo_FT int NOT NULL DEFAULT 0,
  NombreAnexo nvarchar(260) NOT NULL,
  DescripcionAnexo nvarchar(250) NULL,
  Stream varbinary(MAX) NULL
)
GO
CREATE INDEX IX_EDI_Anexos_Factura
  ON EDI_Anexos (Cod_Empresa, Cod_Ejercicio, Serie, Codigo, TipoDoc, Cod_EDIPlat, Cod_EDITipoMsg)
GO
CREATE INDEX IX_EDI_Anexos_Ticket
  ON EDI_Anexos (Cod_Empresa_FT, Cod_Almacen_FT, Caja_FT, Fecha_FT, Codigo_FT, Cod_EDIPlat,
                 Cod_EDITipoMsg)
GO
