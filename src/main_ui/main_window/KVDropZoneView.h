#pragma once

#include <QWidget>

/// What the window shows while nothing is queued: where to drop files, and a button for those who would
/// rather pick them.
class KVDropZoneView : public QWidget {
    Q_OBJECT

  public:
    explicit KVDropZoneView(QWidget *parent = nullptr);

    /// A drag with files is over the window.
    void setIsTargeted(bool isTargeted);

  Q_SIGNALS:
    void addFilesRequested();

  protected:
    void paintEvent(QPaintEvent *event) override;

  private:
    bool _isTargeted = false;
};
