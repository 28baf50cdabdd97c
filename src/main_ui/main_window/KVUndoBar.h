#pragma once

#include <QTimer>
#include <QWidget>

class QLabel;
class QPushButton;

/// A bar that says what the user has just done and offers to take it back. Hides after ten seconds, in which
/// the mouse is not on it.
class KVUndoBar : public QWidget {
    Q_OBJECT

  public:
    static constexpr int secondsShown = 10;

    explicit KVUndoBar(QWidget *parent = nullptr);

    void showStep(const QString &message);
    /// A message without the button.
    void showNote(const QString &message);
    QString message() const;

  Q_SIGNALS:
    void undoRequested();

  protected:
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

  private:
    void _show(const QString &message, bool canUndo);

    QLabel *_label;
    QPushButton *_undo;
    QTimer _timer;
};
