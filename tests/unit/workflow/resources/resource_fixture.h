// A resource layer over a temporary folder, with the log caught.
#pragma once

#include "frame/frame_state.h"
#include "frame/log.h"
#include "support/resource_folder.h"
#include "workflow/platform/headless/resource_recorder.h"
#include "workflow/resources/resource_layer.h"
#include "workflow/resources/resource_manager.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

namespace brixen::pvn::pvn_workflow {

class ResourceFixture : public testing::Test {
protected:
    ResourceFixture() : savedLog(GetFrameState().gLogStream) { GetFrameState().gLogStream = std::tmpfile(); }
    ~ResourceFixture() override {
        ShutDownResources();
        platform::TheResourceRecorder().Reset();
        std::fclose(GetFrameState().gLogStream);
        GetFrameState().gLogStream = savedLog;
    }

    void Select(const std::string& language) {
        SelectLanguage(language);
        SetResourceRootBelow(files.Utf8());
    }

    // Bodies of the log's lines so far.
    static std::string Logged() {
        std::string text;
        std::rewind(GetFrameState().gLogStream);
        for (char line[1024]; std::fgets(line, sizeof line, GetFrameState().gLogStream);) {
            const std::string whole = line;
            text += whole.substr(std::min(whole.find("] ") + 2, whole.size()));
        }
        return text;
    }

    static std::filesystem::path Picture(const char* name) {
        return std::filesystem::path(PAVANE_TEST_DATA) / "bitmaps" / name;
    }

    // The file found, relative to PVResources; empty when none is.
    std::string Found(const std::string& name, const std::string& locale, std::uint32_t mode) const {
        const PathUnits path = PVNResourceManager::Get().FindResourceFile(name, "txt", locale, mode);
        if (!path) return "";
        const std::string text = std::filesystem::path(path.get()).string();
        return text.substr(text.find("PVResources") + 12);
    }

    pavane_test::ResourceFolder files;

private:
    std::FILE* savedLog;
};

} // namespace brixen::pvn::pvn_workflow
