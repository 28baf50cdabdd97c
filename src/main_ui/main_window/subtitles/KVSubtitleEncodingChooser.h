#pragma once

#include <QDialog>
#include <QUrl>

#include <optional>

class QComboBox;
class QDialogButtonBox;
class QLabel;
class QPlainTextEdit;

/// Lets the user pick the text encoding of a subtitles file while seeing the text decoded.
class KVSubtitleEncodingChooser : public QDialog {
    Q_OBJECT

  public:
    /// `encoding` is selected at first, if the file can be read with it.
    KVSubtitleEncodingChooser(const QUrl &subtitles, const QString &encoding, QWidget *parent = nullptr);

    /// Shows the window and blocks; the chosen encoding's name, or nothing after a cancel.
    std::optional<QString> chooseEncoding();

  private:
    void _loadEncodingsPopUpMenu(const QString &selected);
    void _encodingChanged();

    QByteArray _text;
    QLabel *_messageTextField;
    QComboBox *_encodingPopUpButton;
    QPlainTextEdit *_previewTextView;
    QDialogButtonBox *_buttons;
};
