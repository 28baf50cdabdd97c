#pragma once

#include <QLabel>
#include <QWidget>

class KVProgressLine;
class QPropertyAnimation;
class QPushButton;

/// The window's footer: add files, start or pause everything, progress and time left of all, and how much is
/// still being loaded.
class KVFooterView : public QWidget {
    Q_OBJECT

  public:
    explicit KVFooterView(QWidget *parent = nullptr);

    /// `progress` from 0 to 1.
    void setProgress(double progress, const QString &status);
    /// The bar slides in and out.
    void setShowsProgress(bool isShown);
    bool showsProgress() const { return _showsProgress; }
    /// What the buttons can do. Start is in sight while something waits or nothing runs, Pause All while
    /// something runs.
    struct Commands {
        bool canStart = false;
        bool canPause = false;
        bool isAnyWaiting = false; ///< Or paused.
    };
    void setCommands(const Commands &commands);
    /// 0 while nothing is loading.
    void setNumberOfLoadingFiles(int number);
    bool isLoading() const { return !_loading->isHidden(); }

  Q_SIGNALS:
    void addFilesRequested();
    void startRequested();
    void pauseRequested();

  protected:
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

  private:
    void _loadIcons();
    void _slide(bool isIn);

    QPushButton *_addButton;
    QPushButton *_startButton;
    QPushButton *_pauseButton;
    QLabel *_loading;
    QWidget *_progressArea; ///< Keeps its place, so that nothing jumps; what is inside it slides.
    QWidget *_slidingPart;
    KVProgressLine *_progressBar;
    QLabel *_status;
    QPropertyAnimation *_sliding;
    bool _showsProgress = false;
};
