// A generator that records the reader's calls, for tests of descriptions. Its handles are made up and never
// dereferenced.
#pragma once

#include "view/generator.h"
#include "view/scope/expression_scope.h"

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace pavane_test {

class RecordingGenerator : public brixen::zeve::CGenerator {
public:
    using Scope = brixen::zeve::CExpressionScope;

    // A view as it was created.
    struct Created {
        std::string keyword;
        std::map<std::string, std::int64_t> numbers; // those of `watched` that it has
        brixen::zeve::ViewHandle handle;
        brixen::zeve::ViewHandle parent;
    };

    void PrepareView(std::string_view keyword, Scope& viewAttributes, Scope& attributes) override {
        prepared.emplace_back(keyword);
        if (onPrepare) onPrepare(keyword, viewAttributes, attributes);
    }

    brixen::zeve::ViewHandle CreateView(std::string_view keyword, Scope& attributes,
                                        brixen::zeve::ViewHandle parent) override {
        Created view{std::string(keyword), {}, MakeHandle(created.size() + 1), parent};
        for (const std::string& name : watched) {
            std::int64_t number = 0;
            if (attributes.GetLong(name, &number)) view.numbers[name] = number;
        }
        created.push_back(view);
        return view.handle;
    }

    static brixen::zeve::ViewHandle MakeHandle(std::size_t number) {
        return brixen::zeve::ReferenceFrom<brixen::zeve::CEveBox>(static_cast<std::int64_t>(number * 16));
    }

    std::vector<std::string> watched;
    std::vector<std::string> prepared; // keywords, in the order of the calls
    std::vector<Created> created;
    std::function<void(std::string_view, Scope&, Scope&)> onPrepare;
};

} // namespace pavane_test
