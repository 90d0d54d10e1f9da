#include "Foundation/Date.h"

#include "Foundation/Environment.h"

namespace tavrine::foundation {

Date Date::now() { return Environment::current().clock().now(); }

}  // namespace tavrine::foundation
