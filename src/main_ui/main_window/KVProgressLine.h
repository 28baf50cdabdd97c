#pragma once

#include <QProgressBar>

/// A progress bar as thin as those of the rows.
class KVProgressLine : public QProgressBar {
    Q_OBJECT

  public:
    explicit KVProgressLine(QWidget *parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent *event) override;
};
