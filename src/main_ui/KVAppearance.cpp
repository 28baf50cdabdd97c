#include "main_ui/KVAppearance.h"

#include "main_ui/main_window/KVLook.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QStyle>

namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");
const QString group = QStringLiteral("org.freedesktop.appearance");
const QString key = QStringLiteral("color-scheme");

constexpr uint preferDark = 1; // as the portal says it

/// The portal wraps the value once or twice, depending on its version.
uint numberIn(QVariant value) {
    while (value.metaType() == QMetaType::fromType<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value.toUInt();
}

QPalette darkPalette() {
    const QColor window(0x2b, 0x2c, 0x30);
    const QColor text(0xec, 0xec, 0xee);
    const QColor faint(0x86, 0x88, 0x8f);
    QPalette palette(QColor(0x3a, 0x3c, 0x42), window);
    palette.setColor(QPalette::Base, QColor(0x1f, 0x20, 0x23));
    palette.setColor(QPalette::AlternateBase, QColor(0x26, 0x27, 0x2b));
    palette.setColor(QPalette::ToolTipBase, QColor(0x3a, 0x3c, 0x42));
    palette.setColor(QPalette::Highlight, QColor(0x4a, 0x86, 0xd8));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(0x7f, 0xb2, 0xf5));
    palette.setColor(QPalette::PlaceholderText, faint);
    for (const auto role :
         {QPalette::Text, QPalette::WindowText, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, faint);
    }
    return palette;
}

} // namespace

KVAppearance::KVAppearance(QObject *parent)
    : QObject(parent) {
    // A desktop whose own theme is dark has told the toolkit already.
    if (KVLook::isDark(QApplication::palette())) return;
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return;
    bus.connect(service, path, interface, QStringLiteral("SettingChanged"), this,
                SLOT(settingChanged(QString, QString, QDBusVariant)));
    _ask();
}

void KVAppearance::setIsDark(bool isDark) {
    if (isDark == KVLook::isDark(QApplication::palette())) return;
    QApplication::setPalette(isDark ? darkPalette() : QApplication::style()->standardPalette());
}

void KVAppearance::_ask() {
    auto message = QDBusMessage::createMethodCall(service, path, interface, QStringLiteral("Read"));
    message << group << key;
    auto *watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(message), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [](QDBusPendingCallWatcher *finished) {
        const QDBusPendingReply<QDBusVariant> reply = *finished;
        if (reply.isValid()) setIsDark(numberIn(reply.value().variant()) == preferDark);
        finished->deleteLater();
    });
}

void KVAppearance::settingChanged(const QString &changedGroup, const QString &changedKey,
                                  const QDBusVariant &value) {
    if (changedGroup == group && changedKey == key) setIsDark(numberIn(value.variant()) == preferDark);
}
