#pragma once

#include "engine/VelEng.h"

namespace velmora::engine {

/// A function of the binding together with the client data it was registered with. Calling one that
/// is not registered answers a value-initialised result.
template <typename Signature>
class Callback;

template <typename Result, typename... Arguments>
class Callback<Result(Arguments...)> {
public:
    using Function = Result (*)(Arguments..., long clientData);

    void set(Function function, long clientData)
    {
        m_function = function;
        m_clientData = clientData;
    }
    explicit operator bool() const { return m_function != nullptr; }
    Result operator()(Arguments... arguments) const
    {
        return m_function ? m_function(arguments..., m_clientData) : Result();
    }

private:
    Function m_function = nullptr;
    long m_clientData = 0;
};

using SetResult = void (*)(const char* text, void* result);

/// Everything that the binding has registered. It outlives the engine: stopping and starting again
/// leaves it as it is. GUI thread only.
struct Callbacks {
    Callback<void()> notBusy;
    Callback<int()> processWhileBusy;
    Callback<void(const char* what, double fraction)> progress;
    Callback<void()> turnRequested;

    Callback<unsigned(const char* message, int type)> messageBox;
    Callback<int(int option, const char* text1, const char* text2, const char* text3, SetResult, void* result)>
        selectFile;
    Callback<void(int on)> waitCursor;
    Callback<void(velmora::sdk::integration::PageInterface*, int style)> baseCursor;
    Callback<void(double x1, double y1, double x2, double y2, int addToSelection)> selectRegion;

    VelEngMiscCallbacks misc = {};
    long miscClientData = 0;
    VelEngOffscreenImageCallbacks offscreenImage = {};
    long offscreenImageClientData = 0;
};

Callbacks& callbacks();

} // namespace velmora::engine
