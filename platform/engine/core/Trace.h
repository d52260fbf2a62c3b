#pragma once

#include <string>

namespace velmora::engine {

/// Somebody outside who watches the engine and interferes with it: a test. The engine asks at the places below
/// and knows nothing else of tests. GUI thread only.
class Trace {
public:
    virtual ~Trace() = default;

    /// Whether `called` is worth its text.
    virtual bool wantsCalls() const = 0;
    /// An entry point was called, with what matters of its arguments.
    virtual void called(const std::string& entry) = 0;
    /// The engine passes a point of that name; may throw, as the engine's own work might there.
    virtual void passed(const char* point) = 0;
    /// What a write of this style path shall answer; 0 lets it happen.
    virtual int styleWriteCode(const std::string& path) const = 0;
    virtual bool styleReadFails(const std::string& path) const = 0;

    /// The one that watches, or null.
    static Trace* current() { return s_current; }
    static void install(Trace* trace) { s_current = trace; }

private:
    static inline Trace* s_current = nullptr;
};

/// Tells of a call of an entry point. `entry` makes the text, and only when somebody wants it.
template <typename MakeText>
void traceCallOf(const MakeText& entry)
{
    if (Trace::current() && Trace::current()->wantsCalls())
        Trace::current()->called(entry());
}

inline void traceCall(const char* name)
{
    traceCallOf([name] { return std::string(name); });
}

inline void tracePoint(const char* point)
{
    if (Trace::current())
        Trace::current()->passed(point);
}

} // namespace velmora::engine
