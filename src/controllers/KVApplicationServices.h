#pragma once

#include <QString>
#include <QUrl>

#include <optional>

/// What the desktop gives to the application. Each is an action without a result: where the service is
/// missing nothing happens. Main thread.
class KVApplicationServices {
  public:
    virtual ~KVApplicationServices() = default;

    /// With a topic it replaces the last notification of the same topic.
    virtual void postUserNotification(const QString &title, const QString &subtitle,
                                      const QString &topic = {}) = 0;
    /// A sound of the desktop's theme, by the event that it stands for.
    virtual void playFinishedSound() = 0;
    virtual void putComputerToSleep() = 0;
    virtual void requestUserAttention() = 0;
    virtual void openURL(const QUrl &url) = 0;
    virtual void showInFileManager(const QUrl &url) = 0;
    /// While true the machine does not fall asleep on its own.
    virtual void setKeepsAwake(bool keepsAwake) = 0;
    /// On the application's icon in the taskbar; nothing hides it.
    virtual void showTaskbarProgress(std::optional<double> progress) = 0;
    /// The country of the user's time zone or locale as two letters; empty where it is not known.
    virtual QString countryCode() const = 0;
    /// Whether the program can write only where the user lets it.
    virtual bool isSandboxed() const = 0;
};

/// The application's overall bar.
class KVConversionProgressBar {
  public:
    virtual ~KVConversionProgressBar() = default;
    virtual bool isVisible() const = 0;
    virtual void slideIn(const QString &statusString) = 0;
    virtual void slideOut() = 0;
    virtual void setProgress(double progressValue, const QString &statusString) = 0;
};
