#pragma once

#include "engine/VelEng.h"
#include "engine/VelUtil.h"
#include "tests/platform/export/FakeImageService.h"
#include "tests/platform/export/ReadPng.h"
#include "tests/platform/page/EngineFixture.h"

#include <string>
#include <vector>

namespace velmora::test {

/// A started engine with an off-screen image service, and a folder to export into.
class ExportFixture : public EngineFixture {
protected:
    ExportFixture();

    static VelExportImageOptions options(int width, int height, int supersample = 1);
    /// Exports to a file of that name in the folder; its path. The test fails if the export does.
    std::string exported(const std::string& name, const VelExportImageOptions& wanted);
    PngPicture picture(const VelExportImageOptions& wanted);
    /// Exports into the folder, and expects a refusal that says all of that and leaves no stray
    /// file, no image and no busy engine behind.
    void expectRefusal(const std::string& path, const VelExportImageOptions& wanted,
                       const std::vector<std::string>& texts);
    /// The same for an interruption.
    void expectInterruption(const std::string& path, const VelExportImageOptions& wanted);
    /// Stops at the first turn after the progress has spoken of `what`.
    void stopWhen(const std::string& what);

    std::string path(const std::string& name) const { return folder + "/" + name; }
    std::vector<std::string> files() const; ///< names in the folder, in order
    static std::string content(const std::string& path);

    FakeImageService service;
    std::string folder;
    std::vector<std::string> told; ///< what the progress spoke of, each time

private:
    static void heard(const char* what, double fraction, long self);
};

} // namespace velmora::test
