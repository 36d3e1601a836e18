#pragma once

#include <iosfwd>
#include <span>
#include <string_view>

#include "host/cli/argumentos.h"

namespace kvraedi::cli {

/// Where a command writes: results and messages.
struct Salida {
  std::ostream& resultado;
  std::ostream& mensajes;
};

/// One command of the program.
struct Orden {
  std::string_view grupo;  ///< the word before the name; "" when there is none
  std::string_view nombre;
  std::string_view descripcion;
  std::span<const Opcion> (*opciones)();  ///< null when it has none of its own
  /// Gives back the exit code; may raise Fallo or Error.
  int (*ejecutar)(const Argumentos& argumentos, const Salida& salida);
};

std::span<const Orden> Ordenes();

int EjecutarDemo(const Argumentos& argumentos, const Salida& salida);
int EjecutarListar(const Argumentos& argumentos, const Salida& salida);
int EjecutarEnviar(const Argumentos& argumentos, const Salida& salida);
int EjecutarExportar(const Argumentos& argumentos, const Salida& salida);
int EjecutarAnexosListar(const Argumentos& argumentos, const Salida& salida);
int EjecutarAnexosAnadir(const Argumentos& argumentos, const Salida& salida);
int EjecutarAnexosQuitar(const Argumentos& argumentos, const Salida& salida);
int EjecutarCentrosListar(const Argumentos& argumentos, const Salida& salida);
int EjecutarCentrosAnadir(const Argumentos& argumentos, const Salida& salida);
int EjecutarCentrosModificar(const Argumentos& argumentos, const Salida& salida);
int EjecutarCentrosEliminar(const Argumentos& argumentos, const Salida& salida);
int EjecutarPedidosExportar(const Argumentos& argumentos, const Salida& salida);
int EjecutarOrdersInsertar(const Argumentos& argumentos, const Salida& salida);
int EjecutarOrdersPendientes(const Argumentos& argumentos, const Salida& salida);
int EjecutarOrdersReprocesar(const Argumentos& argumentos, const Salida& salida);
int EjecutarOrdersApartar(const Argumentos& argumentos, const Salida& salida);
int EjecutarOrdersGenerar(const Argumentos& argumentos, const Salida& salida);
int EjecutarRecadvGenerar(const Argumentos& argumentos, const Salida& salida);
int EjecutarDesadvInsertar(const Argumentos& argumentos, const Salida& salida);
int EjecutarDesadvReprocesar(const Argumentos& argumentos, const Salida& salida);
int EjecutarRecibidasListar(const Argumentos& argumentos, const Salida& salida);
int EjecutarRecibidasVisar(const Argumentos& argumentos, const Salida& salida);
int EjecutarRecibidasComentar(const Argumentos& argumentos, const Salida& salida);
int EjecutarRecibidasVer(const Argumentos& argumentos, const Salida& salida);
int EjecutarRecibidasImprimir(const Argumentos& argumentos, const Salida& salida);
int EjecutarPendientesListar(const Argumentos& argumentos, const Salida& salida);
int EjecutarComparar(const Argumentos& argumentos, const Salida& salida);
int EjecutarVer(const Argumentos& argumentos, const Salida& salida);
int EjecutarPantallas(const Argumentos& argumentos, const Salida& salida);

}  // namespace kvraedi::cli
