#pragma once

#include "platform/KVUserQuestions.h"

#include <cstdio>

/// Asks on a terminal: prints to `output`, reads a line from `input`. An empty line takes what is
/// proposed; the end of the input is the answer that changes nothing.
class KVTerminalQuestions : public KVUserQuestions {
  public:
    /// Does not own the streams. Relative paths mean the folder in which the program is now: it may go to
    /// another one later.
    KVTerminalQuestions(std::FILE *input, std::FILE *output);

    KVAlertResponse runAlert(const KVAlert &alert) override;
    QList<QUrl> runOpenPanel(const KVOpenPanel &panel) override;
    std::optional<QUrl> runSavePanel(const KVSavePanel &panel) override;
    std::optional<QString> runTextPrompt(const KVTextPrompt &prompt) override;

  private:
    std::optional<int> _choose(const QStringList &entries);
    void _print(const QString &text);
    std::optional<QString> _readLine();

    std::FILE *_input;
    std::FILE *_output;
    const QString _workingFolder;
};
