#include "frame/puertos.h"

#include <string>

#include "frame/clsView.h"
#include "frame/modMsgOp.h"
#include "frame/peticion_firma.h"
#include "kvraedi/conexion.h"
#include "kvraedi/empresa.h"

namespace kvraedi {

Recordset::~Recordset() = default;
Connection::~Connection() = default;
Empresa::~Empresa() = default;
FileWriter::~FileWriter() = default;
FileReader::~FileReader() = default;
FileHold::~FileHold() = default;
Entorno::~Entorno() = default;
Suite::~Suite() = default;
DocumentoXml::~DocumentoXml() = default;
FicheroLog::~FicheroLog() = default;
CompraMini::~CompraMini() = default;
PedidoCliente::~PedidoCliente() = default;
Impresora::~Impresora() = default;
ImpresionFactura::~ImpresionFactura() = default;
Informe::~Informe() = default;

namespace {

Adaptadores& Instalados() {
  static Adaptadores adaptadores;
  return adaptadores;
}

template <class Port>
Port& Required(Port* port, const char* name) {
  if (port == nullptr) {
    throw Error(kErrorItemNotFound, "kvraedi",
                std::string("El programa principal no ha instalado el adaptador: ") + name);
  }
  return *port;
}

}  // namespace

void InstalarAdaptadores(const Adaptadores& adaptadores) {
  CerrarMsgOp();
  CerrarVistaPrevia();
  Instalados() = adaptadores;
  if (adaptadores.entorno != nullptr) BorrarPeticionAbandonada(*adaptadores.entorno);
}

Entorno& EntornoActual() { return Required(Instalados().entorno, "entorno"); }
Suite& SuiteActual() { return Required(Instalados().suite, "suite"); }

namespace ui {

Toolkit& CurrentToolkit() { return Required(Instalados().toolkit, "toolkit"); }

}  // namespace ui
}  // namespace kvraedi
