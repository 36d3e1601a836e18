#pragma once

#include <string>

#include "kvraedi/export.h"
#include "kvraedi/sesion.h"

namespace kvraedi {

/// Takes in the despatch advices (DESADV) of the central supplier.
class KVRAEDI_API clsDesadv : public PropiedadesSesion {
 public:
  /// Turns the delivery notes of one file into purchases of the suite. `strFile` (UTF-8) is the
  /// name, without folder, of a file in the folder Rx below the company's reception root
  /// (EDI_PathFichRecibir). The file ends in the folder OK and every note is a purchase, or in the
  /// folder Error and there is no purchase; OrmoPCCOM.log in the root says why.
  ///
  /// Every failure ends here: nothing is shown and nothing raised. Without a reception root, or
  /// without company, connection or adapters, nothing is done: the file stays where it was.
  void Insertar(const std::string& strFile);
};

}  // namespace kvraedi
