#include "kvraedi/error.h"

#include <utility>

namespace kvraedi {

Error::Error(std::int32_t number, std::string source, std::string description)
    : number_(number), source_(std::move(source)), description_(std::move(description)) {}

Error::~Error() = default;

void ThrowOverflow() { throw Error(kErrorOverflow, "kvraedi", "Desbordamiento"); }
void ThrowTypeMismatch() { throw Error(kErrorTypeMismatch, "kvraedi", "No coinciden los tipos"); }
void ThrowInvalidNull() { throw Error(kErrorInvalidNull, "kvraedi", "Uso no válido de Null"); }

}  // namespace kvraedi
