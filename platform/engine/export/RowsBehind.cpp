#include "engine/export/RowsBehind.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <exception>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace velmora::engine {
namespace {

/// Rows that follow each other.
struct Portion {
    int firstRow = 0;
    std::vector<unsigned char> bytes;
};

constexpr std::size_t PortionBytes = std::size_t{256} * 1024;
/// Far less than a slice, so that the waiting thread can give the application its turn.
constexpr std::chrono::milliseconds Moment{1};

} // namespace

struct RowsBehind::Shared {
    Shared(RowSink& to, std::size_t bytes, int behind)
        : sink(to), rowBytes(bytes), mostBytes(std::max(bytes * static_cast<std::size_t>(behind), PortionBytes)),
          worker([this] { work(); })
    {}
    ~Shared()
    {
        {
            const std::lock_guard<std::mutex> lock(mutex);
            ending = true;
        }
        forWorker.notify_one();
        worker.join();
    }
    Shared(const Shared&) = delete;
    Shared& operator=(const Shared&) = delete;

    // ---- on the worker's thread

    void work()
    {
        while (const std::unique_ptr<Portion> portion = next()) {
            try {
                write(*portion);
            } catch (...) {
                const std::lock_guard<std::mutex> lock(mutex);
                failure = std::current_exception();
                ending = true;
            }
            done(portion->bytes.size());
        }
    }

    std::unique_ptr<Portion> next()
    {
        std::unique_lock<std::mutex> lock(mutex);
        forWorker.wait(lock, [this] { return ending || !waiting.empty(); });
        if (ending)
            return nullptr;
        auto portion = std::make_unique<Portion>(std::move(waiting.front()));
        waiting.pop_front();
        return portion;
    }

    void write(const Portion& portion) const
    {
        int row = portion.firstRow;
        for (std::size_t at = 0; at < portion.bytes.size(); at += rowBytes)
            sink.takeRow(row++, portion.bytes.data() + at);
    }

    void done(std::size_t bytes)
    {
        {
            const std::lock_guard<std::mutex> lock(mutex);
            bytesBehind -= bytes;
        }
        forOwner.notify_one();
    }

    // ---- on the owner's thread

    /// Hands over what was collected.
    void send()
    {
        if (collected.bytes.empty())
            return;
        {
            const std::lock_guard<std::mutex> lock(mutex);
            bytesBehind += collected.bytes.size();
            waiting.push_back(std::exchange(collected, Portion()));
        }
        forWorker.notify_one();
    }

    template <typename Condition>
    bool waitAMoment(const Condition& condition)
    {
        std::unique_lock<std::mutex> lock(mutex);
        const bool met = forOwner.wait_for(lock, Moment, [&] { return failure || condition(); });
        if (failure)
            std::rethrow_exception(failure);
        return met;
    }

    RowSink& sink;
    const std::size_t rowBytes;
    const std::size_t mostBytes;
    Portion collected; ///< the owner's
    std::mutex mutex;  ///< of what follows
    std::condition_variable forWorker;
    std::condition_variable forOwner;
    std::deque<Portion> waiting;
    std::size_t bytesBehind = 0; ///< handed over and not written
    std::exception_ptr failure;
    bool ending = false;
    std::thread worker; ///< the last member: it uses all others
};

RowsBehind::RowsBehind(RowSink& sink, std::size_t rowBytes, int behind)
    : m_shared(std::make_unique<Shared>(sink, rowBytes, behind))
{}

RowsBehind::~RowsBehind() = default;

void RowsBehind::takeRow(int row, const unsigned char* rgb)
{
    Portion& collected = m_shared->collected;
    if (collected.bytes.empty())
        collected.firstRow = row;
    collected.bytes.insert(collected.bytes.end(), rgb, rgb + m_shared->rowBytes);
    if (collected.bytes.size() >= PortionBytes)
        m_shared->send();
}

bool RowsBehind::hasRoom()
{
    return m_shared->waitAMoment([this] { return m_shared->bytesBehind < m_shared->mostBytes; });
}

bool RowsBehind::isDone()
{
    m_shared->send();
    return m_shared->waitAMoment([this] { return m_shared->bytesBehind == 0; });
}

} // namespace velmora::engine
