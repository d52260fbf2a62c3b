#include "tests/platform/export/ExportFixture.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace velmora::test {

ExportFixture::ExportFixture() : folder(std::filesystem::path(write("mark", "")).parent_path().string() + "/out")
{
    std::filesystem::create_directory(folder);
    VelEngProgressRegisterCallback(heard, reinterpret_cast<long>(this));
}

void ExportFixture::heard(const char* what, double fraction, long clientData)
{
    auto* const self = reinterpret_cast<ExportFixture*>(clientData);
    self->told.emplace_back(what);
    self->progress.push_back(fraction);
}

VelExportImageOptions ExportFixture::options(int width, int height, int supersample)
{
    return {width,
            height,
            supersample,
            sdk::integration::ExportRegion_CurrentFrame,
            sdk::integration::ImageRenderingStrategy_Software,
            0};
}

std::string ExportFixture::exported(const std::string& name, const VelExportImageOptions& wanted)
{
    EXPECT_EQ(VelUtilExportImage(path(name).c_str(), &wanted), 1) << VelUtilLastErrorMessage();
    EXPECT_STREQ(VelUtilLastErrorMessage(), "");
    EXPECT_EQ(VelUtilWasInterrupted(), 0);
    EXPECT_EQ(service.alive, 0);
    EXPECT_LE(service.mostAlive, 1);
    return path(name);
}

PngPicture ExportFixture::picture(const VelExportImageOptions& wanted)
{
    PngPicture read = readPng(exported("picture.png", wanted));
    EXPECT_EQ(read.problem, "");
    EXPECT_EQ(read.width, wanted.width);
    EXPECT_EQ(read.height, wanted.height);
    return read;
}

void ExportFixture::expectRefusal(const std::string& path, const VelExportImageOptions& wanted,
                                  const std::vector<std::string>& texts)
{
    const std::vector<std::string> before = files();
    EXPECT_EQ(VelUtilExportImage(path.c_str(), &wanted), 0);
    const std::string message = VelUtilLastErrorMessage();
    EXPECT_EQ(VelUtilWasInterrupted(), 0);
    EXPECT_EQ(VelUtilIsBusy(), 0);
    EXPECT_EQ(service.alive, 0);
    EXPECT_EQ(files(), before);
    for (const std::string& text : texts)
        EXPECT_NE(message.find(text), std::string::npos) << "\"" << text << "\" is not in \"" << message << "\"";
}

void ExportFixture::expectInterruption(const std::string& path, const VelExportImageOptions& wanted)
{
    const std::vector<std::string> before = files();
    EXPECT_EQ(VelUtilExportImage(path.c_str(), &wanted), 0);
    EXPECT_STREQ(VelUtilLastErrorMessage(), "");
    EXPECT_EQ(VelUtilWasInterrupted(), 1);
    EXPECT_EQ(VelUtilIsBusy(), 0);
    EXPECT_EQ(service.alive, 0);
    EXPECT_EQ(files(), before);
}

void ExportFixture::stopWhen(const std::string& what)
{
    told.clear();
    inTurn = [this, what] { return !told.empty() && told.back().find(what) == 0 ? 1 : 0; };
}

std::vector<std::string> ExportFixture::files() const
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

std::string ExportFixture::content(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

} // namespace velmora::test
