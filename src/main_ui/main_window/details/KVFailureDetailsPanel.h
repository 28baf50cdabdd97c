#pragma once

#include "controllers/KVFailureDetails.h"

#include <QDialog>

class QBoxLayout;
class QLabel;
class QPushButton;

/// Shows why a conversion failed and what can be done, or what a result lacks, with the command and the end
/// of the log. Not modal; deletes itself when it is closed.
class KVFailureDetailsPanel : public QDialog {
    Q_OBJECT

  public:
    KVFailureDetailsPanel(KVFailureDetails details, QWidget *parent);

  Q_SIGNALS:
    void retryRequested(KVFailureRetry retry);

  protected:
    void changeEvent(QEvent *event) override;

  private:
    void _addHeading(QBoxLayout &layout);
    void _addRetries(QBoxLayout &layout);
    void _addTexts(QBoxLayout &layout);
    void _addButtons(QBoxLayout &layout);
    QPushButton *_retryButton(const char *title, KVFailureRetry retry);
    void _copy() const;
    void _save();
    void _updateColors();

    KVFailureDetails _details;
    QLabel *_sign;
    QLabel *_heading;
};
