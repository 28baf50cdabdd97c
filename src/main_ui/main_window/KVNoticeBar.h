#pragma once

#include <QFrame>

#include <functional>

class QHBoxLayout;
class QLabel;
class QPushButton;
class QToolButton;

/// A line above the footer that says something the user need not answer, with buttons for what can be done
/// about it and one that closes it. Hidden until it is shown with a text.
class KVNoticeBar : public QFrame {
    Q_OBJECT

  public:
    /// `symbol` is one of KVLook's.
    explicit KVNoticeBar(const QString &symbol, QWidget *parent = nullptr);

    /// Adds a button in front of the close button. The bar owns it.
    QPushButton *addButton(const QString &title, std::function<void()> action);

    /// Shows the bar with the text, or hides it if the text is empty. A quiet notice is drawn in the
    /// secondary colour and has no symbol.
    void setNotice(const QString &text, bool isQuiet = false);
    QString notice() const;

  Q_SIGNALS:
    /// The user pressed the close button. The bar is hidden by then.
    void closed();

  protected:
    void changeEvent(QEvent *event) override;

  private:
    void _updateColors();

    const QString _symbolName;
    QLabel *_symbol;
    QLabel *_text;
    QToolButton *_closeButton;
    QHBoxLayout *_layout;
    bool _isQuiet = false;
};
