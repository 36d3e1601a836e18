#pragma once

#include <memory>

#include "platform/odbc/session.h"

namespace kvraedi::odbc {

/// Sets what the component's statements count on and proves that the server does it; raises an
/// error that says what to change.
void PrepareServer(const std::shared_ptr<Session>& session);

}  // namespace kvraedi::odbc
