#pragma once

namespace velmora::sdk::integration::intern {

/// A library that is used where it is installed and not missed where it is not.
struct SharedLibrary {
    const char* name;     ///< as the system's loader finds it
    const char* variable; ///< of the environment; names another file, which is then the only one tried

    /// Loads it for the life of the process; null when it is not there. Not an error.
    void* load() const;
    /// The same for a library that the process has loaded already.
    void* loaded() const;
    /// An entry point of the loaded library. A program's own definition comes first, like that of a tracer
    /// that was put in front.
    template <typename Function>
    static bool find(void* library, const char* entryPoint, Function& function)
    {
        function = reinterpret_cast<Function>(address(library, entryPoint));
        return function != nullptr;
    }

private:
    void* open(int flags) const;
    static void* address(void* library, const char* entryPoint);
};

} // namespace velmora::sdk::integration::intern
