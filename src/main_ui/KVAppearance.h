#pragma once

#include <QObject>

class QDBusVariant;

/// Follows the desktop's wish for light or dark where the toolkit does not do so by itself: the session's
/// settings portal tells it, now and whenever it changes. Without a session bus everything stays as it is.
/// Main thread.
class KVAppearance : public QObject {
    Q_OBJECT

  public:
    explicit KVAppearance(QObject *parent = nullptr);

    /// Dresses the whole application.
    static void setIsDark(bool isDark);

  private Q_SLOTS:
    void settingChanged(const QString &group, const QString &key, const QDBusVariant &value);

  private:
    void _ask();
};
