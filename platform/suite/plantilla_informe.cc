#include "platform/suite/plantilla_informe.h"

#include <algorithm>

#include "kvraedi/error.h"
#include "platform/suite/texto_sql.h"

namespace kvraedi::suite {
namespace {

constexpr std::string_view kSeparador = "---";

bool EsLetra(char c) {
  const bool ascii = Minuscula(c) >= 'a' && Minuscula(c) <= 'z';
  return ascii || c == '_' || static_cast<unsigned char>(c) >= 0x80U;
}

bool EsIdentificador(std::string_view text) {
  const auto sigue = [](char c) { return EsLetra(c) || (c >= '0' && c <= '9'); };
  return !text.empty() && EsLetra(text.front()) && std::all_of(text.begin(), text.end(), sigue);
}

std::vector<std::string_view> Partir(std::string_view text, char marca) {
  std::vector<std::string_view> partes;
  for (std::size_t inicio = 0; inicio <= text.size();) {
    const std::size_t fin = std::min(text.find(marca, inicio), text.size());
    partes.push_back(Recortar(text.substr(inicio, fin - inicio)));
    inicio = fin + 1;
  }
  return partes;
}

/// The first word of a text, which is taken off it.
std::string_view Palabra(std::string_view& text) {
  const std::size_t fin = std::min(text.find(' '), text.size());
  const std::string_view palabra = text.substr(0, fin);
  text = Recortar(text.substr(fin));
  return palabra;
}

[[noreturn]] void Fallar(const std::string& texto) { throw Error(kErrorFile, "Informe", texto); }

std::string Identificador(std::string_view text) {
  if (!EsIdentificador(text)) Fallar("«" + std::string(text) + "» no es un nombre");
  return std::string(text);
}

/// Reads the head, line by line.
class Lector {
 public:
  PlantillaInforme Leer(std::string_view texto) {
    for (int linea = 1; !texto.empty(); ++linea) {
      const std::size_t fin = std::min(texto.find('\n'), texto.size());
      std::string_view renglon = texto.substr(0, fin);
      texto.remove_prefix(std::min(fin + 1, texto.size()));
      if (!renglon.empty() && renglon.back() == '\r') renglon.remove_suffix(1);
      renglon = Recortar(renglon);
      if (renglon == kSeparador) {
        plantilla_.cuerpo = texto;
        return std::move(plantilla_);
      }
      LeerRenglon(renglon, linea);
    }
    Fallar("falta la línea «---» que separa la cabecera del cuerpo");
  }

 private:
  void LeerRenglon(std::string_view renglon, int linea) {
    if (renglon.empty() || renglon.front() == '#') return;
    try {
      LeerOrden(Palabra(renglon), renglon);
    } catch (const Error& error) {
      Fallar("línea " + std::to_string(linea) + ": " + error.Description());
    }
  }

  void LeerOrden(std::string_view orden, std::string_view resto) {
    if (orden == "titulo") {
      plantilla_.titulo = resto;
    } else if (orden == "pie") {
      plantilla_.pie = resto;
    } else if (orden == "subinforme") {
      LeerSubinforme(resto);
    } else if (orden == "tabla") {
      LeerTabla(resto);
    } else if (orden == "orden") {
      for (const auto campo : Partir(resto, ',')) Tabla().orden.push_back(Identificador(campo));
    } else if (orden == "campos") {
      for (const auto campo : Partir(resto, ',')) LeerCampo(campo);
    } else {
      Fallar("«" + std::string(orden) + "» no es una palabra de la cabecera");
    }
  }

  void LeerSubinforme(std::string_view fichero) {
    if (fichero.empty() || fichero.find_first_of("/\\:") != std::string_view::npos) {
      Fallar("un subinforme es un fichero de la misma carpeta");
    }
    plantilla_.subinformes.emplace_back(fichero);
  }

  TablaInforme& Tabla() {
    if (plantilla_.tablas.empty()) Fallar("falta la tabla");
    return plantilla_.tablas.back();
  }

  /// "NOMBRE [de TABLA] [en PADRE por COLUMNA[=CAMPO], ...]".
  void LeerTabla(std::string_view resto) {
    TablaInforme tabla;
    tabla.nombre = Identificador(Palabra(resto));
    tabla.tabla = tabla.nombre;
    std::string_view palabra = Palabra(resto);
    if (palabra == "de") {
      tabla.tabla = Identificador(Palabra(resto));
      palabra = Palabra(resto);
    }
    if (palabra == "en") {
      LeerPadre(resto, tabla);
    } else if (!palabra.empty()) {
      Fallar("no se entiende «" + std::string(palabra) + "»");
    }
    plantilla_.tablas.push_back(std::move(tabla));
  }

  void LeerPadre(std::string_view resto, TablaInforme& tabla) {
    tabla.padre = Palabra(resto);
    const auto esPadre = [&](const TablaInforme& otra) { return otra.nombre == tabla.padre; };
    if (std::none_of(plantilla_.tablas.begin(), plantilla_.tablas.end(), esPadre)) {
      Fallar("la tabla «" + tabla.padre + "» no está declarada");
    }
    if (Palabra(resto) != "por") Fallar("se esperaba «por» y los campos que enlazan");
    for (const auto enlace : Partir(resto, ',')) {
      const auto lados = Partir(enlace, '=');
      tabla.enlaces.push_back({Identificador(lados.front()), Identificador(lados.back())});
    }
  }

  /// "NOMBRE[:FORMATO][=CAMPO*CAMPO[-CAMPO%]]".
  void LeerCampo(std::string_view texto) {
    CampoInforme campo;
    const auto lados = Partir(texto, '=');
    const auto partes = Partir(lados.front(), ':');
    if (partes.size() > 2 || lados.size() > 2)
      Fallar("no se entiende «" + std::string(texto) + "»");
    campo.nombre = Identificador(partes.front());
    if (partes.size() == 2) LeerFormato(partes.back(), campo);
    if (lados.size() == 2) campo.calculo = LeerCalculo(lados.back());
    Tabla().campos.push_back(std::move(campo));
  }

  static void LeerFormato(std::string_view formato, CampoInforme& campo) {
    constexpr int kMasDecimales = 4;
    std::string_view texto = formato;
    if (texto.ends_with('?')) campo.validez = ValidezCampo::kSinCero;
    if (texto.ends_with('+')) campo.validez = ValidezCampo::kPositivos;
    if (campo.validez != ValidezCampo::kTodos) texto.remove_suffix(1);
    const auto decimales = Entero(texto);
    if (decimales && *decimales >= 0 && *decimales <= kMasDecimales) {
      campo.formato = FormatoCampo::kNumero;
      campo.decimales = *decimales;
    } else if (texto == "n") {
      campo.formato = FormatoCampo::kCantidad;
    } else if (texto == "f") {
      campo.formato = FormatoCampo::kFecha;
    } else if (texto != "t") {
      Fallar("«" + std::string(formato) + "» no es un formato");
    }
  }

  CalculoInforme LeerCalculo(std::string_view texto) {
    const auto restas = Partir(texto, '-');
    const auto factores = Partir(restas.front(), '*');
    const bool conPorcentaje = restas.size() == 2 && restas.back().ends_with('%');
    if (factores.size() != 2 || restas.size() > 2 || conPorcentaje != (restas.size() == 2)) {
      Fallar("no se entiende el cálculo «" + std::string(texto) + "»");
    }
    CalculoInforme calculo{Columna(factores.front()), Columna(factores.back()), {}};
    if (conPorcentaje) {
      calculo.porcentaje = Columna(restas.back().substr(0, restas.back().size() - 1));
    }
    return calculo;
  }

  /// The name of a column that the table has so far.
  std::string Columna(std::string_view nombre) {
    const auto& campos = Tabla().campos;
    const auto esColumna = [&](const CampoInforme& campo) {
      return !campo.calculo && campo.nombre == nombre;
    };
    if (std::none_of(campos.begin(), campos.end(), esColumna)) {
      Fallar("el campo «" + std::string(nombre) + "» no está delante en la tabla");
    }
    return std::string(nombre);
  }

  PlantillaInforme plantilla_;
};

/// Fails on a name in braces that is none of the report's.
void ComprobarCuerpo(const PlantillaInforme& plantilla) {
  const auto conocido = [&](std::string_view nombre) {
    for (const TablaInforme& tabla : plantilla.tablas) {
      if (tabla.nombre == nombre) return true;
      for (const CampoInforme& campo : tabla.campos) {
        if (campo.nombre == nombre) return true;
      }
    }
    return std::any_of(
        plantilla.subinformes.begin(), plantilla.subinformes.end(),
        [&](const std::string& fichero) { return NombreDeSubinforme(fichero) == nombre; });
  };
  for (std::string_view texto :
       {std::string_view(plantilla.titulo), std::string_view(plantilla.pie),
        std::string_view(plantilla.cuerpo)}) {
    for (std::size_t i = texto.find("{{"); i != std::string_view::npos; i = texto.find("{{")) {
      texto.remove_prefix(i + 2);
      std::string_view nombre = texto.substr(0, texto.find('}'));
      if (nombre.starts_with('!')) continue;
      if (nombre.find_first_of("#^/{") == 0) nombre.remove_prefix(1);
      nombre = Recortar(nombre);
      if (!conocido(nombre)) {
        Fallar("«" + std::string(nombre) + "» no es un campo ni una tabla del informe");
      }
    }
  }
}

}  // namespace

PlantillaInforme LeerPlantilla(std::string_view texto) {
  PlantillaInforme plantilla = Lector().Leer(texto);
  ComprobarCuerpo(plantilla);
  return plantilla;
}

std::string NombreDeSubinforme(std::string_view fichero) {
  return std::string(fichero.substr(0, fichero.rfind('.')));
}

}  // namespace kvraedi::suite
