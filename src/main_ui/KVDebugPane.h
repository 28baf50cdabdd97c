#pragma once

#include <QWidget>

class QPlainTextEdit;

/// Shows the log as it is written. The log is kept from the moment at which the pane is made.
class KVDebugPane : public QWidget {
    Q_OBJECT

  public:
    explicit KVDebugPane(QWidget *parent = nullptr);
    ~KVDebugPane() override;

  private:
    QPlainTextEdit *_text;
};
