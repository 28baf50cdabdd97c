#include "platform/KVSilentQuestions.h"

KVSilentQuestions::KVSilentQuestions(std::function<void(const QString &line)> say)
    : _say(say ? std::move(say) : [](const QString &) {}) {}

KVAlertResponse KVSilentQuestions::runAlert(const KVAlert &alert) {
    KVAlertResponse response;
    response.returnCode = KVAlertResponse::firstButtonReturn + alert.buttonThatChangesNothing;
    QString answer = alert.buttons.value(alert.buttonThatChangesNothing);
    if (!alert.accessoryItems.isEmpty()) {
        response.accessoryIndex = alert.accessoryItemThatChangesNothing;
        answer += " (" + alert.accessoryItems.value(alert.accessoryItemThatChangesNothing) + ")";
    }
    _say(alert.messageText + ": " + answer);
    return response;
}

QList<QUrl> KVSilentQuestions::runOpenPanel(const KVOpenPanel &panel) {
    _say(panel.message + ": -");
    return {};
}

std::optional<QUrl> KVSilentQuestions::runSavePanel(const KVSavePanel &panel) {
    _say(panel.message + ": -");
    return {};
}

std::optional<QString> KVSilentQuestions::runTextPrompt(const KVTextPrompt &prompt) {
    _say(prompt.messageText + ": -");
    return {};
}
