#include <sys/stat.h>

#include <algorithm>

#include "orders/crear_pedidos.h"
#include "orders/procesar_ficheros.h"
#include "tests/orders/recepcion_pedidos.h"

namespace kvraedi {
namespace {

constexpr std::string_view kFallo = "clsOrders:ProcesarFicheros: ";
constexpr std::string_view kFalloCrear = "clsOrders:CrearPedidosClientes: ";

TEST_F(RecepcionPedidos, UnFicheroSeHacePedido) {
  Dejar("Ñu 'x'.DAT",
        "ORDERS_D_93A_UN_EAN007   \n"
        "ORD|00004711|220|9\n"
        "DTM|20240226|20240305\n"
        "NADSU|8400000000017|1\n"
        "NADBY|8411111111111||||O'Donnell; S.A.|Gran V\355a, 2|Madrid|28013|A28000000|de m\341s\n"
        "NADDP|8430000000055||Tienda|Calle, 1|Vigo|3620A\n"
        "LIN|8410000000501|EN|1\nIMDLIN|F|M||Queso\nQTYLIN|21|2,5|KGM\nMOALIN|18.50\n"
        "LIN|999|EN\nQTYLIN|21||PCE\n"
        "XYZ|1\n\nsolo\n"
        "MOARES|37|37|0|39.59|37\nCNTRES|3||12|2");
  ProcesarFicheros(ordenes);
  EXPECT_EQ(Filas("Fichero, Doc_Num, Doc_Tipo, Doc_Funcion, Hora, Fecha_Emision, Fecha_Envio,"
                  " Fecha_EnvioFin, GLN_Proveedor, GLN_Cliente, Nombre_Cliente, Direccion_Cliente,"
                  " Localidad_Cliente, CP_Cliente, Nif_Cliente, GLN_ClienteEntrega,"
                  " Nombre_ClienteEntrega, Importe_Pagar, Importe_Base_Imponible, Bultos, Palets,"
                  " Num_Articulos, Num_Lineas, Peso_Bruto_Total, OK",
                  "EDI_PedidosClientes"),
            "Ñu 'x'.DAT|4711|220|9|2024-03-01 09:08:07|2024-02-26|2024-03-05||8400000000017|"
            "8411111111111|O'Donnell; S.A.|Gran Vía, 2|Madrid|28013|A28000000|8430000000055|"
            "Tienda|39.59|37|3|0|12|2||0\n");
  EXPECT_EQ(Filas("Doc_Num, Cod_Barras, Tipo_EAN, Num_Linea, Desc_Calificador,"
                  " Desc_Caracteristica, Desc_Cod, Descripcion, Cantidad_Calificador, Cantidad,"
                  " Cantidad_Medida, Importe_Neto_Linea",
                  "EDI_PedidosClientes_Lineas"),
            "4711|8410000000501|EN|1|F|M||Queso|21|2.5|KGM|18.5\n"
            "4711|999|EN||||||21|0|PCE|\n");
  CrearPedidosClientes(ordenes);
  EXPECT_EQ(Filas("Cod_Empresa, Cod_Ejercicio, Codigo, Cod_Almacen, Cod_Cliente, Fecha,"
                  " Fecha_Entrega, Fecha_EntregaFin, Usuario, Ent_Nombre, Ent_Nombre_2,"
                  " Ent_Direccion, Ent_CP, Ent_Localidad, EDI_ID, EDI_Doc_Num",
                  "Pedidos_Clientes"),
            "1|2024|1|5|100|2024-02-26|2024-03-05||7|Tienda|Tienda|Calle, 1|0|Vigo|1|4711\n");
  EXPECT_EQ(Filas("Codigo, Num_Linea, Cod_Articulo, Cod_Barras, EDI_Num_Linea, Descripcion,"
                  " Cantidad, Cantidad_Medida, Importe_Neto_Linea",
                  "Pedidos_Clientes_Lineas ORDER BY Num_Linea"),
            "1|1|501|8410000000501|1|Queso|2.5|KGM|18.5\n1|2||999|||0|PCE|\n");
  EXPECT_EQ(Contar("SELECT COUNT(*) FROM EDI_PedidosClientes"), 0);
  EXPECT_EQ(Contar("SELECT COUNT(*) FROM EDI_PedidosClientes_Lineas"), 0);
  EXPECT_EQ(Donde("Ñu 'x'.DAT"), "OK");
  EXPECT_EQ(Registro("ProcesarFicheros"),
            "ProcesarFicheros\tInicio Lectura Fichero: Ñu 'x'.DAT\n"
            "ProcesarFicheros\tFin Lectura Fichero: Ñu 'x'.DAT\n"
            "ProcesarFicheros\tMoviendo Fichero a carpeta OK: Ñu 'x'.DAT\n"
            "ProcesarFicheros\tEliminando Fichero de la carpeta Temp: Ñu 'x'.DAT\n");
  EXPECT_EQ(Registro("CrearPedidosClientes"),
            "CrearPedidosClientes\tInicio Creación de Pedidos Clientes.\n"
            "CrearPedidosClientes\tSe inserta la entrada en el sistema.\n"
            "CrearPedidosClientes\tFin Creación de Pedidos Clientes.\n");
}

TEST_F(RecepcionPedidos, LasSentenciasSonLasDelFormato) {
  Dejar("a'b.dat", std::string(kInicioPedidos) +
                       "ORD|4711|220\r\nDTM|20240226||\r\nNADSU|8412345678901|7\r\n"
                       "NADBY|8411111111111||||Ana|Sol|Ibi\r\nLIN|84'1\r\nQTYLIN|21||PCE\r\n"
                       "MOARES|1.50|,5|-2\r\n");
  ProcesarFicheros(ordenes);
  std::string sentencias;
  for (const std::string& sentencia : conexion->sentencias) sentencias += sentencia + "\n";
  EXPECT_EQ(
      sentencias,
      "SELECT OBJECT_ID('EDI_Ficheros_Recibidos') AS Libro\n"
      "SELECT COUNT(*) AS Existe FROM EDI_PedidosClientes WHERE Doc_Num ='4711'\n"
      "INSERT INTO EDI_PedidosClientes (Fichero, Doc_Num, Doc_Tipo, Doc_Funcion, Hora) VALUES "
      "('a''b.dat', '4711', '220', '', '01/03/2024 9:08:07')\n"
      "UPDATE EDI_PedidosClientes SET  Fecha_Emision ='20240226' ,Fecha_Ini_Entrega ='' "
      ",Fecha_Fin_Entrega ='' WHERE Doc_Num =4711\n"
      "UPDATE EDI_PedidosClientes SET  GLN_Proveedor ='8412345678901' WHERE Doc_Num =4711\n"
      "UPDATE EDI_PedidosClientes SET  GLN_Cliente ='8411111111111' ,Nombre_Cliente ='Ana' "
      ",Direccion_Cliente ='Sol' ,Localidad_Cliente ='Ibi' WHERE Doc_Num =4711\n"
      "INSERT INTO EDI_PedidosClientes_Lineas (Fichero, Doc_Num, Cod_Barras, Tipo_EAN, "
      "Num_Linea, Hora) VALUES ('a''b.dat', '4711', '84''1', '', '', '01/03/2024 9:08:07')\n"
      "UPDATE EDI_PedidosClientes_Lineas SET  Cantidad_Calificador ='21' ,Cantidad =0 "
      ",Cantidad_Medida ='PCE' WHERE Doc_Num =4711   AND Cod_Barras ='84''1'\n"
      "UPDATE EDI_PedidosClientes SET  Importe_Neto =1.5 ,Importe_Bruto =0.5 "
      ",Importe_Impuestos =-2 WHERE Doc_Num =4711\n");
}

/// A file that cannot be taken in, or looks so.
struct Hostil {
  const char* nombre;
  std::string contenido;
  const char* lugar;
  const char* dice;  ///< in the box of the first pass; "" for no box
};

std::vector<Hostil> Hostiles() {
  const std::string inicio(kInicioPedidos);
  const std::string dtm = "DTM|20240226\r\n";
  const std::string ord = inicio + "ORD|1|220|9\r\n" + dtm + "LIN|A|EN|1\r\n";
  const std::string fecha = inicio + "ORD|1\r\nDTM|";
  const std::string cifras(38, '9');
  return {
      {"vacío", "", "Error", ""},
      {"binario", std::string("\0\x01\xFF|\n\0", 6), "Error", ""},
      {"sin línea de inicio", "ORD|1|220|9\r\n", "Error", ""},
      {"inicio que sigue", "ORDERS_D_96A_UN_EAN008|\r\n", "Error", ""},
      {"8 MB sin fin de línea", std::string(8'000'000, 'x'), "Error", ""},
      {"sólo el inicio", "ORDERS_D_96A_UN_EAN008", "OK", ""},
      {"línea de 8 MB", ord + "FTX|" + std::string(8'000'000, 'x') + "\r\n", "OK", ""},
      {"un millón de campos", ord + "QTYLIN|21|5" + std::string(1'000'000, '|'), "OK", ""},
      {"etiquetas desconocidas", inicio + "BGM|1\r\nord|2\r\n" + "ORD|1\r\n" + dtm + "|x\r\n", "OK",
       ""},
      {"pedido sin número", inicio + "ORD||220\r\n", "Temp", "línea 2, registro ORD, campo 1"},
      {"número que es SQL", inicio + "ORD|1 OR 1=1\r\n", "Temp", "no \"1 OR 1=1\""},
      {"número de 18 cifras", inicio + "ORD|123456789012345678\r\n", "Temp", "17 cifras"},
      {"registro antes del pedido", inicio + "DTM|20240101\r\n", "Temp", "línea 2, registro DTM"},
      {"cantidad antes de la línea", inicio + "ORD|1\r\nQTYLIN|21|5\r\n", "Temp", "línea 3"},
      {"línea de otro pedido", ord + "ORD|2\r\n" + dtm + "MOALIN|5\r\n", "Temp",
       "línea 7, registro MOALIN"},
      {"dos pedidos de un número", ord + "ORD|001\r\n", "Temp", "línea 5, registro ORD, campo 1"},
      {"dos líneas iguales", ord + "LIN|a |EN|1 \r\n", "Temp", "línea 5, registro LIN, campo 3"},
      {"dos líneas sin código ni número", ord + "LIN|\r\nLIN|\r\n", "Temp", "línea 6"},
      {"dos líneas de un código", ord + "LIN|A|EN|2\r\nQTYLIN|21|5\r\n", "OK", ""},
      {"cantidad que es SQL", ord + "QTYLIN|21|1); DROP TABLE Facturas\r\n", "Temp", "campo 2"},
      {"más que el dinero de la base", ord + "MOALIN|-" + cifras + "\r\n", "Temp",
       "línea 5, registro MOALIN: "},
      {"más cifras que las de la base", ord + "MOALIN|1" + cifras + "\r\n", "Temp",
       "campo 1: se esperaba un número de 38 cifras"},
      {"comillas y puntos y coma", ord + "IMDLIN|F|M|'|'; DELETE FROM Facturas --\r\n", "OK", ""},
      {"emisión imposible", fecha + "20240230\r\n", "Temp", "línea 3, registro DTM, campo 1"},
      {"emisión que la base no guarda", fecha + "18991230\r\n", "Temp",
       "fecha de emisión del pedido 1"},
      {"emisión vacía", fecha + " |20240305\r\n", "Temp", "fecha de emisión del pedido 1"},
      {"sin emisión", inicio + "ORD|1\r\nLIN|A\r\nORD|2\r\n" + dtm, "Temp", "pedido 1: no tiene"},
      {"entrega que es texto", fecha + "20240226|pronto\r\n", "Temp",
       "línea 3, registro DTM, campo 2"},
      {"GLN de entrega vacío", ord + "NADDP||\r\n", "Temp",
       "registro NADDP, campo 1: se esperaba un GLN"},
      {"GLN de cliente en blanco", ord + "NADBY|   \r\n", "Temp", "registro NADBY, campo 1"},
      {"texto más ancho", ord + "LIN|" + std::string(36, '\xF1') + "\r\n", "Temp", "truncarían"},
      {"texto que cabe", ord + "LIN|" + std::string(35, '\xF1') + "\r\n", "OK", ""},
      {"carácter nulo", ord + std::string("LIN|a\0b\r\n", 9), "Temp", "caracteres de control"},
  };
}

TEST_F(RecepcionPedidos, LosFicherosHostilesSeTomanBienOSeRechazanConSuRazon) {
  for (const Hostil& caso : Hostiles()) {
    SCOPED_TRACE(caso.nombre);
    Dejar("f.dat", caso.contenido);
    try {
      ProcesarFicheros(ordenes);
      EXPECT_STREQ(caso.dice, "");
    } catch (const Error& error) {
      ASSERT_STRNE(caso.dice, "") << error.what();
      EXPECT_EQ(error.Description().rfind("f.dat, ", 0), 0U) << error.what();
      EXPECT_NE(error.Description().find(caso.dice), std::string::npos) << error.what();
    }
    EXPECT_EQ(Donde("f.dat"), caso.lugar);
    EXPECT_EQ(Leer(std::string(caso.lugar) + "/f.dat"), caso.contenido);
    const int pedidos = Contar("SELECT COUNT(*) FROM EDI_PedidosClientes");
    EXPECT_EQ(pedidos > 0, caso.contenido.find("\r\nORD|") != std::string::npos &&
                               std::string_view(caso.lugar) == "OK");
    for (const char* tabla : {"EDI_PedidosClientes", "EDI_PedidosClientes_Lineas"}) {
      base->Execute("DELETE FROM " + std::string(tabla));
    }
    for (const char* lugar : {"Temp", "OK", "Error"})
      std::filesystem::remove(ordenes / lugar / "f.dat");
  }
}

TEST_F(RecepcionPedidos, UnFicheroMaloNoDetieneLoYaLeidoYSeDice) {
  Dejar("1.dat", std::string(kInicioPedidos) + "ORD|x\r\n");
  EXPECT_TRUE(clsOrders().Insertar());
  EXPECT_EQ(Avisos(), std::string(kFallo) +
                          "1.dat, línea 2, registro ORD, campo 1: se esperaba un número de pedido "
                          "de 1 a 17 cifras, no \"x\"\n");
  EXPECT_EQ(Donde("1.dat"), "Temp");
  EXPECT_EQ(Registro("CrearPedidosClientes"),
            "CrearPedidosClientes\tInicio Creación de Pedidos Clientes.\n"
            "CrearPedidosClientes\tFin Creación de Pedidos Clientes.\n");
  Dejar("1.dat", std::string(kInicioPedidos) + Pedido("1"));
  EXPECT_TRUE(clsOrders().Insertar());
  EXPECT_EQ(Avisos(), "");
  EXPECT_EQ(Contar("SELECT COUNT(*) FROM Pedidos_Clientes_Lineas WHERE Cod_Articulo = 501"), 1);
}

TEST_F(RecepcionPedidos, SinCarpetaOSinFicheros) {
  std::filesystem::remove_all(ordenes);
  EXPECT_TRUE(clsOrders().Insertar());
  EXPECT_TRUE(std::filesystem::is_directory(ordenes / "Temp"));
  std::filesystem::remove_all(ordenes.parent_path());
  EXPECT_FALSE(clsOrders().Insertar());
  EXPECT_EQ(Avisos().rfind("clsOrders:Insertar: ", 0), 0U);
}

/// What keeps the second pass from making orders.
struct Impedimento {
  const char* nombre;
  std::string pedido;
  const char* dice;  ///< in its box; "" when only the log tells
};

TEST_F(RecepcionPedidos, LaSegundaPasadaLoHaceTodoONada) {
  const std::vector<Impedimento> casos = {
      {"sin líneas", "ORD|2|220\r\nDTM|20240101\r\n", ""},
      {"GLN de ningún almacén", Pedido("2", "1"),
       "Pedido 2: su GLN de entrega no es el de ningún almacén"},
      {"GLN de dos almacenes", Pedido("2", "8430000000066"),
       "Pedido 2: su GLN de entrega es el de más de un almacén"},
      {"cliente desconocido", Pedido("2", "8430000000055", "8410000000000"),
       "Pedido 2: el GLN 8410000000000 no es el de ningún cliente"},
      {"código que no es de cliente", Pedido("2", "8430000000055", "101"),
       "Pedido 2: el GLN 101 no es el de ningún cliente"},
      {"GLN de dos clientes", Pedido("2", "8430000000055", "8419999999999"),
       "Pedido 2: el GLN 8419999999999 es el de más de un cliente"},
      {"sin cliente", "ORD|2\r\nDTM|20240101\r\nNADDP|8430000000055\r\nLIN|A\r\n",
       "Pedido 2: no tiene GLN de cliente (NADBY, campo 1)"},
  };
  for (const Impedimento& caso : casos) {
    SCOPED_TRACE(caso.nombre);
    Dejar("1.dat", std::string(kInicioPedidos) + Pedido("1") + caso.pedido);
    EXPECT_TRUE(clsOrders().Insertar());
    EXPECT_EQ(Avisos(), *caso.dice == '\0' ? "" : std::string(kFalloCrear) + caso.dice + "\n");
    EXPECT_EQ(Contar("SELECT COUNT(*) FROM EDI_PedidosClientes WHERE OK = 0"), 2);
    EXPECT_EQ(Contar("SELECT COUNT(*) FROM Pedidos_Clientes"), 0);
    const std::string fin =
        *caso.dice == '\0'
            ? "Inicio Creación de Pedidos Clientes.\nCrearPedidosClientes\tLas Tablas de"
              " EDI_PedidosClientes no están congruentes.\n"
            : "Se inserta la entrada en el sistema.\nCrearPedidosClientes\tError: " +
                  std::string(caso.dice) + "\n";
    const std::string registro = Registro("CrearPedidosClientes");
    EXPECT_TRUE(registro.ends_with(fin)) << registro;
    base->Execute(*caso.dice == '\0' ? "DELETE FROM EDI_PedidosClientes WHERE Doc_Num = 2"
                                     : "UPDATE EDI_PedidosClientes SET Fecha_Emision ='20240101',"
                                       " GLN_Cliente ='100', GLN_ClienteEntrega ='8430000000055'");
    EXPECT_TRUE(clsOrders().Insertar());
    EXPECT_EQ(Avisos(), "");
    EXPECT_EQ(Contar("SELECT COUNT(*) FROM EDI_PedidosClientes"), 0);
    EXPECT_EQ(Contar("SELECT COUNT(*) FROM EDI_PedidosClientes_Lineas"), 0);
    EXPECT_EQ(Contar("SELECT COUNT(*) FROM Pedidos_Clientes"), *caso.dice == '\0' ? 1 : 2);
    base->Execute("DELETE FROM Pedidos_Clientes");
    base->Execute("DELETE FROM Pedidos_Clientes_Lineas");
  }
}

TEST_F(RecepcionPedidos, AlmacenDeLaEmpresaEjercicioDeLaFechaYTambienLosYaMarcados) {
  base->Run(
      "INSERT INTO Almacenes (Cod_Empresa, Codigo, Nombre, EDI_GLN) VALUES (2, 9, 'Ajeno', "
      "'8430000000055')");
  const std::string del23 =
      "ORD|3\r\nDTM|20231231|20240105\r\nNADBY|100 \r\nNADDP|8430000000055|||||36201 \r\nLIN|A\r\n";
  Dejar("1.dat", std::string(kInicioPedidos) + Pedido("1") + Pedido("12345678901234567") + del23);
  ProcesarFicheros(ordenes);
  base->Execute("UPDATE EDI_PedidosClientes SET OK = 1 WHERE Doc_Num = 1");
  CrearPedidosClientes(ordenes);
  EXPECT_EQ(
      Filas("p.Cod_Ejercicio, p.Codigo, Cod_Almacen, Cod_Cliente, Ent_CP, EDI_Doc_Num, Cod_Barras",
            "Pedidos_Clientes p LEFT JOIN Pedidos_Clientes_Lineas lin ON"
            " lin.Cod_Ejercicio = p.Cod_Ejercicio AND lin.Codigo = p.Codigo ORDER BY EDI_ID"),
      "2024|1|5|100|36201|1|8410000000501\n"
      "2024|2|5|100|36201|12345678901234567|8410000000501\n"
      "2023|1|5|100|36201|3|A\n");
}

TEST_F(RecepcionPedidos, LasLineasDeUnCodigoSeDistinguenPorSuNumero) {
  const auto linea = [](const char* numero, const char* cantidad) {
    return std::string("LIN|A|EN|") + numero + "\r\nQTYLIN|21|" + cantidad + "\r\n";
  };
  Dejar("1.dat", std::string(kInicioPedidos) + "ORD|1\r\nDTM|20240226\r\n" + linea("1", "5") +
                     linea("2", "6") + "LIN|B|EN|2\r\nQTYLIN|21|8\r\n" + linea("", "7") +
                     "MOALIN|2\r\nORD|2\r\nDTM|20240226\r\n" + linea("1", "9"));
  ProcesarFicheros(ordenes);
  EXPECT_EQ(Filas("Doc_Num, Cod_Barras, Num_Linea, Cantidad, Importe_Neto_Linea",
                  "EDI_PedidosClientes_Lineas ORDER BY ID"),
            "1|A|1|5|\n1|A|2|6|\n1|B|2|8|\n1|A||7|2\n2|A|1|9|\n");
  const auto& sentencias = conexion->sentencias;
  const auto dice = [&](const char* fin) {
    return std::any_of(sentencias.begin(), sentencias.end(),
                       [&](const std::string& sentencia) { return sentencia.ends_with(fin); });
  };
  EXPECT_TRUE(dice("=1   AND Cod_Barras ='A'"));
  EXPECT_TRUE(dice("=1   AND Cod_Barras ='A'   AND Num_Linea ='2'"));
  EXPECT_TRUE(dice("=2   AND Cod_Barras ='A'"));
}

TEST_F(RecepcionPedidos, FechasYGlnDeTodasLasFormasSonLosMismos) {
  base->Execute("UPDATE Clientes SET EDI_GLN = '84.11111.11111.1' WHERE EDI_GLN = '8411111111111'");
  base->Execute("UPDATE Almacenes SET EDI_GLN = '8430000.000055' WHERE EDI_GLN = '8430000000055'");
  base->Execute(
      "INSERT INTO Almacenes (Cod_Empresa, Codigo, Nombre, EDI_GLN) VALUES (1, 8, 'Sin', '')");
  int numero = 0;
  std::string pedidos(kInicioPedidos);
  for (const char* fecha : {"20260305", "2026-03-05", "2026-03-05T10:11", "05/03/2026 10:11:12",
                            " 5/3/2026|20791231|2026-03-06 23:59"}) {
    pedidos += "ORD|" + std::to_string(++numero) + "\r\nDTM|" + fecha +
               "\r\nNADBY|8411111111111\r\nNADDP|84.30000000055\r\nLIN|A\r\n";
  }
  Dejar("1.dat", pedidos);
  EXPECT_TRUE(clsOrders().Insertar());
  EXPECT_EQ(Avisos(), "");
  const std::string comun = "5|100|2026-03-05|";
  EXPECT_EQ(
      Filas("Cod_Almacen, Cod_Cliente, Fecha, Fecha_Entrega, Fecha_EntregaFin",
            "Pedidos_Clientes ORDER BY Codigo"),
      comun + "|\n" + comun + "|\n" + comun + "|\n" + comun + "|\n" + comun + "|2026-03-06\n");
}

TEST_F(RecepcionPedidos, SoloSeLeenFicheros) {
  ASSERT_EQ(::mkfifo((ordenes / "Temp" / "tubo.dat").c_str(), 0600), 0);
  Dejar("x.dat", std::string(kInicioPedidos));
  EXPECT_TRUE(clsOrders().Insertar());
  EXPECT_EQ(Donde("x.dat"), "OK");
  EXPECT_NE(Registro("ProcesarFicheros").find("x.dat"), std::string::npos);
  EXPECT_EQ(Donde("tubo.dat"), "Temp");
}

TEST_F(RecepcionPedidos, LosLogsPierdenLoViejo) {
  std::ofstream(ordenes / "Log" / "ProcesarFicheros.log")
      << "2024-01-30 09:08:06\t0\tProcesarFicheros\tViejo\r\n";
  std::ofstream(ordenes / "Log" / "CrearPedidosClientes.log")
      << "2024-01-31 09:08:06\t0\tCrearPedidosClientes\tViejo\r\n";
  Dejar("1.dat", std::string(kInicioPedidos));
  EXPECT_TRUE(clsOrders().Insertar());
  EXPECT_EQ(Registro("ProcesarFicheros").find("Viejo"), std::string::npos);
  EXPECT_EQ(Registro("CrearPedidosClientes").find("Viejo"), std::string::npos);
}

}  // namespace
}  // namespace kvraedi
