#pragma once

#include "facturae/documento.h"

namespace kvraedi::facturae {

/// Appends the stored attachments of the document, if it has any, to its invoice.
void EscribirAnexos(DocumentoXml& xml, NodoXml factura, const ClaveDocumento& clave);

}  // namespace kvraedi::facturae
