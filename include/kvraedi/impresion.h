#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "kvraedi/export.h"

namespace kvraedi {

/// A text laid out for paper (A4), not yet divided into pages: rich text in a small HTML (tables
/// with `thead`, paragraphs, headings, `style` attributes of sizes, colours, borders and
/// alignments). Who shows or prints it makes the pages and repeats the head of a table that goes
/// on.
struct DocumentoImprimible {
  std::string titulo;
  std::string html;  ///< UTF-8
  std::string pie;   ///< stands at the foot of every page, before "Página n de m"
};

/// Puts documents on paper. Operations raise `Error`.
class KVRAEDI_API Impresora {
 public:
  virtual ~Impresora();
  /// The document as the bytes of a PDF file.
  virtual std::string Pdf(const DocumentoImprimible& documento) = 0;
  /// Sends it to the system's default printer.
  virtual void Imprimir(const DocumentoImprimible& documento) = 0;
};

/// Which invoice is printed, and where to.
struct DatosImpresionFactura {
  std::int16_t serie = 0;
  std::int16_t ejercicio = 0;
  std::int16_t tipoDoc = 0;
  std::int32_t codigo = 0;
  std::int16_t usuario = 0;
  std::filesystem::path ficheroPdf;  ///< made or replaced
};

/// The suite's printing of one invoice.
class KVRAEDI_API ImpresionFactura {
 public:
  virtual ~ImpresionFactura();
  /// Prints the invoice into the PDF file. Raises `Error`; then there is no file of that name that
  /// this call made.
  virtual void Imprimir(const DatosImpresionFactura& datos) = 0;
};

}  // namespace kvraedi
