#include "platform/qt/impresora_qt.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QPdfWriter>
#include <QPrinter>
#include <QPrinterInfo>
#include <algorithm>
#include <array>

#include "kvraedi/error.h"
#include "platform/qt/paged_document.h"
#include "platform/qt/texts.h"

namespace kvraedi {
namespace {

/// Blanks the dates of the file's description out; no byte moves.
void QuitarFecha(std::string& pdf) {
  constexpr std::string_view kFecha = "/CreationDate (";
  const auto inicio = pdf.rfind(kFecha);
  const auto fin = inicio == std::string::npos ? inicio : pdf.find(')', inicio);
  if (fin == std::string::npos) return;
  std::fill(pdf.begin() + static_cast<std::ptrdiff_t>(inicio),
            pdf.begin() + static_cast<std::ptrdiff_t>(fin) + 1, ' ');
}

}  // namespace

struct ImpresoraQt::Aplicacion {
  std::array<char, 8> programa{"kvraedi"};
  std::array<char, 10> opcion{"-platform"};
  std::array<char, 10> plataforma{"offscreen"};
  std::array<char*, 4> argumentos{programa.data(), opcion.data(), plataforma.data(), nullptr};
  int cuantos = 3;
  QGuiApplication aplicacion{cuantos, argumentos.data()};
};

ImpresoraQt::ImpresoraQt() = default;
ImpresoraQt::~ImpresoraQt() = default;

void ImpresoraQt::AsegurarAplicacion() {
  if (QCoreApplication::instance() == nullptr) aplicacion_ = std::make_unique<Aplicacion>();
}

std::string ImpresoraQt::Pdf(const DocumentoImprimible& documento) {
  constexpr int kPuntosPorPulgada = 600;
  AsegurarAplicacion();
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  {
    QPdfWriter pdf(&buffer);
    pdf.setResolution(kPuntosPorPulgada);
    pdf.setPageLayout(qt::PaperLayout());
    pdf.setTitle(qt::ToQt(documento.titulo));
    pdf.setCreator(QStringLiteral("KVRAEDI"));
    qt::PaintPages(documento, pdf);
  }
  std::string bytes = buffer.data().toStdString();
  QuitarFecha(bytes);
  return bytes;
}

void ImpresoraQt::Imprimir(const DocumentoImprimible& documento) {
  AsegurarAplicacion();
  const QPrinterInfo info = QPrinterInfo::defaultPrinter();
  if (info.isNull()) {
    throw Error(kErrorItemNotFound, "Impresora",
                "Este equipo no tiene una impresora predeterminada");
  }
  QPrinter impresora(info, QPrinter::HighResolution);
  impresora.setPageLayout(qt::PaperLayout());
  impresora.setDocName(qt::ToQt(documento.titulo));
  qt::PaintPages(documento, impresora);
}

}  // namespace kvraedi
