#pragma once

#include "kvraedi/export.h"

namespace kvraedi {

/// What is done with a Facturae invoice that a program was sending when it was interrupted, so that
/// nobody knows whether it was delivered.
enum class FacturasDudosas {
  kPreguntar,  ///< ask the user, who may also leave it as it is
  kReenviar,   ///< send it again
  kRegistrar,  ///< record it as sent with the answer that the signing program left; refuse it when
               ///< there is none
};

/// For the whole process, from now on; it asks at first. Such an invoice is met when it is sent
/// again; one that is left as it is counts as failed.
KVRAEDI_API void ResolverFacturasDudosas(FacturasDudosas que);

}  // namespace kvraedi
