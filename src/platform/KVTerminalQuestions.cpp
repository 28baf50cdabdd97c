#include "platform/KVTerminalQuestions.h"

#include "kvcore/KVLocalizationCenter.h"
#include "platform/KVSilentQuestions.h"

#include <QDir>
#include <QFileInfo>

namespace {

/// "1) Yes" and so on, one on each line.
QString numbered(const QStringList &entries) {
    QString lines;
    for (qsizetype index = 0; index < entries.size(); ++index)
        lines += QStringLiteral("  %1) %2\n").arg(index + 1).arg(entries[index]);
    return lines;
}

/// The index of the entry that the line names by its number or its text; nothing where it names none.
std::optional<int> chosen(const QString &line, const QStringList &entries) {
    bool isNumber = false;
    const int number = line.toInt(&isNumber);
    if (isNumber && number >= 1 && number <= entries.size()) return number - 1;
    const auto index = entries.indexOf(line, 0);
    if (index >= 0) return static_cast<int>(index);
    return {};
}

/// A typed path, relative to the folder.
QUrl typedURL(const QString &line, const QString &folder) {
    const QString path = line.startsWith("~/") ? QDir::homePath() + line.sliced(1) : line;
    return QUrl::fromLocalFile(QDir::cleanPath(QDir(folder).absoluteFilePath(path)));
}

QString joined(const QString &message, const QString &information) {
    return information.isEmpty() ? message + "\n" : message + "\n" + information + "\n";
}

} // namespace

KVTerminalQuestions::KVTerminalQuestions(std::FILE *input, std::FILE *output)
    : _input(input)
    , _output(output)
    , _workingFolder(QDir::currentPath()) {}

KVAlertResponse KVTerminalQuestions::runAlert(const KVAlert &alert) {
    _print(joined(alert.messageText, alert.informativeText));
    const auto unanswered = [&] { return KVSilentQuestions().runAlert(alert); };
    KVAlertResponse response;
    if (!alert.accessoryItems.isEmpty()) {
        response.accessoryIndex = _choose(alert.accessoryItems);
        if (!response.accessoryIndex) return unanswered();
    }
    const auto button = _choose(alert.buttons);
    if (!button) return unanswered();
    response.returnCode = KVAlertResponse::firstButtonReturn + *button;
    if (alert.suppressionTitle) {
        _print(*alert.suppressionTitle + " [y/N] ");
        response.isSuppressed = _readLine().value_or(QString()).startsWith('y', Qt::CaseInsensitive);
    }
    return response;
}

QList<QUrl> KVTerminalQuestions::runOpenPanel(const KVOpenPanel &panel) {
    _print(panel.message + "\n");
    const QString folder = panel.directory ? panel.directory->toLocalFile() : _workingFolder;
    QList<QUrl> urls;
    while (true) {
        _print("> ");
        const auto line = _readLine();
        if (!line || line->isEmpty()) return urls;
        const QUrl url = typedURL(*line, folder);
        const QFileInfo file(url.toLocalFile());
        if (file.isDir() ? panel.canChooseFolders : file.exists() && panel.canChooseFiles)
            urls.append(url);
        else
            _print(KVLocalizationCenter::localized("There is no such file or folder.") + "\n");
        if (!urls.isEmpty() && !panel.allowsMultipleSelection) return urls;
    }
}

std::optional<QUrl> KVTerminalQuestions::runSavePanel(const KVSavePanel &panel) {
    const QString folder = panel.directory.isLocalFile() ? panel.directory.toLocalFile() : _workingFolder;
    const QUrl proposal = typedURL(panel.proposedName, folder);
    const QString message =
        panel.message.isEmpty() ? KVLocalizationCenter::localized("Save as:") : panel.message;
    _print(joined(message, " [" + proposal.toLocalFile() + "]"));
    while (true) {
        _print("> ");
        const auto line = _readLine();
        if (!line) return {};
        QUrl url = line->isEmpty() ? proposal : typedURL(*line, folder);
        if (QFileInfo(url.toLocalFile()).isDir()) url = typedURL(panel.proposedName, url.toLocalFile());
        const QFileInfo file(url.toLocalFile());
        if (!file.exists() && !file.isSymLink()) return url;
        // Whoever asks would write over it.
        _print(KVLocalizationCenter::localized("There is a file of that name already.") + "\n");
    }
}

std::optional<QString> KVTerminalQuestions::runTextPrompt(const KVTextPrompt &prompt) {
    const QString proposal = prompt.defaultValue.isEmpty() ? QString() : " [" + prompt.defaultValue + "]";
    _print(joined(prompt.messageText, prompt.informativeText) + proposal + "> ");
    const auto line = _readLine();
    if (!line) return {};
    return line->isEmpty() ? prompt.defaultValue : *line;
}

/// Asks until one of the entries is named; an empty line takes the first. Nothing at the end of the input.
std::optional<int> KVTerminalQuestions::_choose(const QStringList &entries) {
    while (true) {
        _print(numbered(entries) + "> ");
        const auto line = _readLine();
        if (!line) return {};
        if (line->isEmpty()) return 0;
        if (const auto index = chosen(*line, entries)) return index;
    }
}

void KVTerminalQuestions::_print(const QString &text) {
    std::fputs(text.toUtf8().constData(), _output);
    std::fflush(_output);
}

std::optional<QString> KVTerminalQuestions::_readLine() {
    QByteArray line;
    int character = 0;
    while ((character = std::fgetc(_input)) != EOF && character != '\n')
        line.append(static_cast<char>(character));
    if (character == EOF && line.isEmpty()) return {};
    return QString::fromUtf8(line).trimmed();
}
