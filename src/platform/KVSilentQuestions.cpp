#include "platform/KVSilentQuestions.h"

namespace {

const QString noAnswer = "nobody can be asked";

} // namespace

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
    _tell(alert.messageText, answer);
    return response;
}

QList<QUrl> KVSilentQuestions::runOpenPanel(const KVOpenPanel &panel) {
    _tell(panel.message, noAnswer);
    return {};
}

std::optional<QUrl> KVSilentQuestions::runSavePanel(const KVSavePanel &panel) {
    _tell(panel.message, noAnswer);
    return {};
}

std::optional<QString> KVSilentQuestions::runTextPrompt(const KVTextPrompt &prompt) {
    _tell(prompt.messageText, noAnswer);
    return {};
}

/// Some questions end with a colon of their own.
void KVSilentQuestions::_tell(const QString &question, const QString &answer) const {
    _say((question.endsWith(u':') ? question : question + ':') + ' ' + answer);
}
