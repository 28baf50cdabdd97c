#pragma once

#include <QString>

#include <algorithm>
#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

/// Name of a notification whose object is a `T`, so that a poster and an observer cannot disagree about the
/// type.
template <class T>
struct KVNotificationName {
    const char *text;
};

/// Tells observers by name. Posting calls the observers on the posting thread, with no lock held; an observer
/// may add, drop or post meanwhile; one that was dropped is not called any more. All operations may be called
/// from any thread; dropping does not wait for a call that another thread is just making.
class KVNotificationCenter {
  public:
    /// Keeps one observation alive; dropping it ends the observation. The centre must outlive it.
    class Observation {
      public:
        Observation() = default;
        Observation(KVNotificationCenter *center, quint64 token)
            : _center(center)
            , _token(token) {}
        Observation(Observation &&other) noexcept
            : _center(std::exchange(other._center, nullptr))
            , _token(other._token) {}
        Observation &operator=(Observation &&other) noexcept;
        ~Observation() { end(); }
        void end();

      private:
        KVNotificationCenter *_center = nullptr;
        quint64 _token = 0;
    };

    static KVNotificationCenter &defaultCenter();

    /// Calls `observer` for every notification of that name; with `object`, only for that one.
    template <class T>
    [[nodiscard]] Observation addObserver(KVNotificationName<T> name,
                                          std::function<void(const std::shared_ptr<T> &)> observer,
                                          const std::shared_ptr<T> &object = nullptr) {
        return _add(name.text, object.get(),
                    [observer = std::move(observer)](const std::shared_ptr<void> &posted) {
                        observer(std::static_pointer_cast<T>(posted));
                    });
    }

    template <class T, class U>
    void post(KVNotificationName<T> name, const std::shared_ptr<U> &object) {
        const std::shared_ptr<T> typed = object;
        _post(name.text, typed);
    }

  private:
    using Callback = std::function<void(const std::shared_ptr<void> &)>;
    struct Entry {
        quint64 token = 0;
        const void *object = nullptr;
        Callback callback;
        std::atomic<bool> hasEnded = false;
    };

    Observation _add(const char *name, const void *object, Callback callback);
    void _remove(quint64 token);
    void _post(const char *name, const std::shared_ptr<void> &object);

    std::mutex _mutex;
    quint64 _lastToken = 0;
    std::unordered_map<std::string, std::vector<std::shared_ptr<Entry>>> _entries;
};
