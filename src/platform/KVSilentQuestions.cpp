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
    if (!alert.isReportedElsewhere) _tell(alert.messageText, answer);
    return response;
}

QList<QUrl> KVSilentQuestions::runOpenPanel(const KVOpenPanel &panel) {
    _tell(panel.message, noAnswer);
    return {};
}

std::optional<QUrl> KVSilentQuestions::runSavePanel(const KVSavePanel &panel) {
    _tell(panel.message.isEmpty() ? "Save as" : panel.message, noAnswer);
    return {};
}

std::optional<QString> KVSilentQuestions::runTextPrompt(const KVTextPrompt &prompt) {
    _tell(prompt.messageText, noAnswer);
    return {};
}

/// Questions end with a mark of their own; a request to choose ends with a full stop.
void KVSilentQuestions::_tell(const QString &question, const QString &answer) const {
    QString line = question;
    if (line.endsWith(u'.')) line.chop(1);
    if (!line.endsWith(u':') && !line.endsWith(u'?')) line += ':';
    _say(line + ' ' + answer);
}
