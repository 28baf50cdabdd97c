#pragma once

#include <QUrl>

#include <memory>
#include <optional>

/// Holds the name of an output that is being written, so that no other conversion, in this process or in
/// another, takes it. The name is claimed by creating an empty file that must not have existed, in one step.
///
/// A claim that ends without `keep` removes what stands under the name: undo by scope for every way out but
/// success. Any thread; one owner at a time.
class KVOutputClaim {
  public:
    /// What came of the attempt.
    enum class Outcome {
        claimed,   ///< The name is ours.
        nameTaken, ///< Something stands there, or another conversion has it.
    };
    struct Attempt {
        Outcome outcome;
        std::shared_ptr<KVOutputClaim> claim; ///< Present with `claimed`.
    };

    /// Where the file cannot be created for another reason than its existence (no room, no permission) the
    /// name is claimed within this process alone, and whoever writes reports the problem.
    static Attempt attempt(const QUrl &url);

    ~KVOutputClaim();
    KVOutputClaim(const KVOutputClaim &) = delete;
    KVOutputClaim &operator=(const KVOutputClaim &) = delete;

    QUrl url() const { return _url; }

    /// The output is whole: it stays.
    void keep();

  private:
    explicit KVOutputClaim(const QUrl &url)
        : _url(url) {}

    QUrl _url;
    bool _isKept = false;
};
