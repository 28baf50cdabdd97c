#pragma once

#include <QString>
#include <QStringList>
#include <QUrl>

#include <memory>
#include <optional>

/// A modal question with buttons, an optional box "do not ask again" and an optional choice among named
/// items.
struct KVAlert {
    QString messageText = {};
    QString informativeText = {};
    QStringList buttons = {}; ///< From the first (default) on; at least one.
    std::optional<QString> suppressionTitle =
        {};                          ///< With a text the alert shows a box that the user can tick.
    QStringList accessoryItems = {}; ///< With items the alert shows a pop-up of them, the first selected.
    /// Which button (0 is the first) changes nothing: taken where nobody can be asked.
    int buttonThatChangesNothing = 0;
    /// Which accessory item is taken where nobody can be asked; none presses `buttonThatChangesNothing`'s
    /// plain meaning.
    int accessoryItemThatChangesNothing = 0;
    /// Whoever made the alert also tells an observer or a list of errors of it.
    bool isReportedElsewhere = false;
    /// Which button the Escape key presses; `buttonThatChangesNothing` if empty.
    std::optional<int> escapeButton = {};
};

struct KVAlertResponse {
    static constexpr int firstButtonReturn = 1000; ///< The code of the first button; the next ones count up.
    int returnCode = firstButtonReturn;
    bool isSuppressed = false;
    std::optional<int> accessoryIndex = {}; ///< The selected item, if there is one.

    bool isFirstButton() const { return returnCode == firstButtonReturn; }
};

struct KVOpenPanel {
    QString message = {};
    bool canChooseFiles = false;
    bool canChooseFolders = true;
    bool allowsMultipleSelection = false;
    std::optional<QUrl> directory = {};
    QStringList allowedExtensions = {}; ///< Empty allows all.
};

struct KVSavePanel {
    QString message = {};
    QUrl directory = {};
    QString proposedName = {};
    QStringList allowedExtensions = {};
};

struct KVTextPrompt {
    QString messageText = {};
    QString informativeText = {};
    QString defaultValue = {};
    QStringList buttons = {}; ///< The first confirms.
};

/// How the engine asks the person at the machine. The application plugs in what it has: a terminal, windows,
/// a script. Implementations are called on the main thread only and block until answered.
class KVUserQuestions {
  public:
    virtual ~KVUserQuestions() = default;
    virtual KVAlertResponse runAlert(const KVAlert &alert) = 0;
    /// The chosen URLs; none when the user did not confirm.
    virtual QList<QUrl> runOpenPanel(const KVOpenPanel &panel) = 0;
    virtual std::optional<QUrl> runSavePanel(const KVSavePanel &panel) = 0;
    virtual std::optional<QString> runTextPrompt(const KVTextPrompt &prompt) = 0;
};

/// The door that the engine uses: any thread may call it; the question runs on the main thread and the caller
/// waits.
namespace KVUserQuestion {
/// Replaces who answers. Until then every question gets the answer that changes nothing. Main thread.
void setResponder(std::shared_ptr<KVUserQuestions> responder);

KVAlertResponse runModalOnMainThread(const KVAlert &alert);
QList<QUrl> runModalOnMainThread(const KVOpenPanel &panel);
std::optional<QUrl> runModalOnMainThread(const KVSavePanel &panel);
std::optional<QString> runModalOnMainThread(const KVTextPrompt &prompt);
} // namespace KVUserQuestion
