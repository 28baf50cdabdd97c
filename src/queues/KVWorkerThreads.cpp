#include "queues/KVWorkerThreads.h"

#include "kvcore/KVMainThread.h"

#include <map>
#include <mutex>
#include <thread>

struct KVWorkerThreads::Private {
    ~Private() {
        for (auto &[number, thread] : threads)
            end(thread);
    }

    void join(int number) {
        std::unique_lock lock(mutex);
        auto node = threads.extract(number);
        lock.unlock();
        if (node) end(node.mapped());
    }

    static void end(std::thread &thread) {
        // The last one may find nobody left who could join it.
        if (thread.get_id() == std::this_thread::get_id())
            thread.detach();
        else
            thread.join();
    }

    std::mutex mutex;
    std::map<int, std::thread> threads;
    int lastNumber = 0;
};

KVWorkerThreads::KVWorkerThreads()
    : _p(std::make_shared<Private>()) {}

void KVWorkerThreads::run(std::function<void()> work) {
    const std::scoped_lock lock(_p->mutex);
    const int number = ++_p->lastNumber;
    _p->threads.emplace(number, [p = _p, number, work = std::move(work)]() mutable {
        work();
        work = nullptr;
        KVMainThread::async([p = std::move(p), number] { p->join(number); });
    });
}

bool KVWorkerThreads::isEmpty() const {
    const std::scoped_lock lock(_p->mutex);
    return _p->threads.empty();
}
