#include "workflow/resources/resource_handler.h"

namespace brixen::pvn::pvn_workflow {

void* PVNResourceHandler::Load(const std::string&, const std::string&, std::uint32_t) { return nullptr; }

void PVNResourceHandler::Release(const std::string&) {}

} // namespace brixen::pvn::pvn_workflow
