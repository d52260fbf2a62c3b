#pragma once

namespace velmora::test {

/// Sets an integer of "Interface"/"OpenGLConfig"/"ImageRendering" for the life of the object.
class ImageSetting {
public:
    ImageSetting(const char* key, int value);
    ~ImageSetting();
    ImageSetting(const ImageSetting&) = delete;
    ImageSetting& operator=(const ImageSetting&) = delete;

private:
    const char* m_key;
    int m_previous;
};

} // namespace velmora::test
