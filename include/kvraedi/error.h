#pragma once

#include <cstdint>
#include <exception>
#include <string>

#include "kvraedi/export.h"

namespace kvraedi {

/// The one exception type of the component and of its adapters. `what()` is the description, a
/// Spanish text for people (UTF-8); it never holds a password.
class KVRAEDI_API Error : public std::exception {
 public:
  Error(std::int32_t number, std::string source, std::string description);
  ~Error() override;

  std::int32_t Number() const noexcept { return number_; }
  const std::string& Source() const noexcept { return source_; }
  const std::string& Description() const noexcept { return description_; }
  const char* what() const noexcept override { return description_.c_str(); }

 private:
  std::int32_t number_;
  std::string source_;
  std::string description_;
};

/// Numbers of the errors that several places raise; the texts are those of the suite's language.
enum ErrorNumber : std::int32_t {
  kErrorOverflow = 6,         ///< "Desbordamiento"
  kErrorTypeMismatch = 13,    ///< "No coinciden los tipos"
  kErrorInvalidNull = 94,     ///< "Uso no válido de Null"
  kErrorItemNotFound = 3265,  ///< a recordset has no field of that name
  kErrorDatabase = -2147217900,
  kErrorFile = 75,
};

[[noreturn]] KVRAEDI_API void ThrowOverflow();
[[noreturn]] KVRAEDI_API void ThrowTypeMismatch();
[[noreturn]] KVRAEDI_API void ThrowInvalidNull();

}  // namespace kvraedi
