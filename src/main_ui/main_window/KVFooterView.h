#pragma once

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QWidget>

/// The window's footer: add files, start or pause everything, progress and time left of all.
class KVFooterView : public QWidget {
    Q_OBJECT

  public:
    explicit KVFooterView(QWidget *parent = nullptr);

    /// `progress` from 0 to 1.
    void setProgress(double progress, const QString &status);
    void setShowsProgress(bool isShown);
    void setIsWorking(bool isWorking);
    void setCanStart(bool canStart);

  Q_SIGNALS:
    void addFilesRequested();
    void startRequested();
    void pauseRequested();

  private:
    QPushButton *_startButton;
    QProgressBar *_progressBar;
    QLabel *_status;
    bool _isWorking = false;
};
