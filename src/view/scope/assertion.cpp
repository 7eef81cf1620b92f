#include "view/scope/assertion.h"

#include <stdexcept>
#include <string>

namespace brixen::zeve {

void FailAssertion(const char* expression) {
    throw std::logic_error("Warning! (" + std::string(expression) + ")");
}

} // namespace brixen::zeve
