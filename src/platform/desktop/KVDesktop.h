#pragma once

#include "kvcore/KVFileDescriptor.h"
#include "platform/desktop/KVCompletionSound.h"

#include <QObject>
#include <QString>
#include <QUrl>

#include <optional>

/// The services of the user's session, over D-Bus. Each is an action without a result: where a service is
/// missing nothing happens, and nothing waits for an answer. Main thread.
class KVDesktop {
  public:
    KVDesktop();
    ~KVDesktop();
    KVDesktop(const KVDesktop &) = delete;
    KVDesktop &operator=(const KVDesktop &) = delete;

    /// org.freedesktop.Notifications
    void postNotification(const QString &title, const QString &text);
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
    void _askManagerToKeepAwake();
    void _askPortalToKeepAwake();

    QObject _context; ///< Answers that come after our end find nobody.
    KVCompletionSound _sound;
    KVFileDescriptor _inhibitor; ///< Holds logind's inhibitor.
    QString _inhibitionRequest;  ///< Object path of the portal's inhibitor.
    bool _keepsAwake = false;
    int _shownPercent = -1; ///< In the taskbar; below 0 none.
};
