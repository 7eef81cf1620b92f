// A generator that makes nothing. A description that runs on it executes every statement, evaluates every
// expression and lays its views out, and raises the assertions of all of them.
#pragma once

#include "view/generator.h"

namespace brixen::zeve {

class CVerifyGenerator : public CGenerator {
public:
    void PrepareView(std::string_view, CExpressionScope&, CExpressionScope&) override {}
    ViewHandle CreateView(std::string_view, CExpressionScope&, ViewHandle) override { return nullptr; }
};

} // namespace brixen::zeve
