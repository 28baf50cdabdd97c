#include "cli/KVCommandQuestions.h"

#include "cli/KVConsole.h"
#include "platform/KVSilentQuestions.h"
#include "platform/KVTerminalQuestions.h"

#include <cstdio>
#include <utility>

#include <unistd.h>

void KVCommandQuestions::plugIn(KVConsole &console, bool isAskingAllowed) {
    std::unique_ptr<KVUserQuestions> responder;
    if (isAskingAllowed && ::isatty(STDIN_FILENO))
        responder = std::make_unique<KVTerminalQuestions>(stdin, stderr);
    else
        responder =
            std::make_unique<KVSilentQuestions>([&console](const QString &line) { console.say(line); });
    KVUserQuestion::setResponder(std::make_shared<KVCommandQuestions>(console, std::move(responder)));
}

KVCommandQuestions::KVCommandQuestions(KVConsole &console, std::unique_ptr<KVUserQuestions> responder)
    : _console(console)
    , _responder(std::move(responder)) {}

KVAlertResponse KVCommandQuestions::runAlert(const KVAlert &alert) {
    if (alert.buttons.size() < 2) {
        if (!alert.isReportedElsewhere) _console.say(alert.messageText);
        return {};
    }
    _console.paint({});
    return _responder->runAlert(alert);
}

QList<QUrl> KVCommandQuestions::runOpenPanel(const KVOpenPanel &panel) {
    _console.paint({});
    return _responder->runOpenPanel(panel);
}

std::optional<QUrl> KVCommandQuestions::runSavePanel(const KVSavePanel &panel) {
    _console.paint({});
    return _responder->runSavePanel(panel);
}

std::optional<QString> KVCommandQuestions::runTextPrompt(const KVTextPrompt &prompt) {
    _console.paint({});
    return _responder->runTextPrompt(prompt);
}
