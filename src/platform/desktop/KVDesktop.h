#pragma once

#include "kvcore/KVFileDescriptor.h"
#include "platform/desktop/KVCompletionSound.h"

#include <QHash>
#include <QObject>
#include <QString>
#include <QUrl>

#include <optional>
#include <utility>

/// The services of the user's session, over D-Bus. Each is an action without a result: where a service is
/// missing nothing happens, and nothing waits for an answer. Main thread.
class KVDesktop {
  public:
    KVDesktop();
    ~KVDesktop();
    KVDesktop(const KVDesktop &) = delete;
    KVDesktop &operator=(const KVDesktop &) = delete;

    /// org.freedesktop.Notifications. With a topic it replaces the last notification of the same topic.
    void postNotification(const QString &title, const QString &text, const QString &topic = {});
    /// The sound theme's event for something that is complete, through libcanberra.
    void playCompleteSound();
    /// logind's Suspend.
    void suspend();
    /// org.freedesktop.FileManager1; without it the folder is opened.
    void showInFileManager(const QUrl &url);
    /// While true the machine does not fall asleep on its own: logind's inhibitor, else the desktop portal's.
    void setKeepsAwake(bool keepsAwake);
    /// On the launcher's icon, as docks understand it; nothing hides it.
    void showTaskbarProgress(std::optional<double> progress);
    /// ISO 3166 code of the user's country: that of the system's time zone, else of the locale. Empty where
    /// neither tells.
    static QString countryCode();
    /// Inside a container of applications, which keeps the user's folders away.
    static bool isSandboxed();

  private:
    /// The notification of a topic that is shown now.
    struct Shown {
        uint id = 0; ///< The service's number; 0 until the service has replied.
        bool isPending = false;
        std::optional<std::pair<QString, QString>> next{}; ///< Title and text that wait for the number.
    };

    void _askManagerToKeepAwake();
    void _askPortalToKeepAwake();

    QHash<QString, Shown> _shown; ///< By topic.
    QObject _context;             ///< Replies that come after our end are ignored.
    KVCompletionSound _sound;
    KVFileDescriptor _inhibitor; ///< Holds logind's inhibitor.
    QString _inhibitionRequest;  ///< Object path of the portal's inhibitor.
    bool _keepsAwake = false;
    int _shownPercent = -1; ///< In the taskbar; below 0 none.
};
