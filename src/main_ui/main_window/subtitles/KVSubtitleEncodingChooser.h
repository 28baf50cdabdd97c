#pragma once

#include "controllers/KVTextEncodings.h"

#include <QDialog>
#include <QUrl>

#include <optional>
#include <thread>

class QComboBox;
class QDialogButtonBox;
class QLabel;
class QPlainTextEdit;

/// Lets the user pick the text encoding of a subtitles file while seeing the text decoded. Of a large file
/// the beginning decides at first which encodings are offered; those that cannot decode the rest go a moment
/// later, so that the window never waits.
class KVSubtitleEncodingChooser : public QDialog {
    Q_OBJECT

  public:
    /// `encoding` is selected at first, if the file can be read with it.
    KVSubtitleEncodingChooser(const QUrl &subtitles, const QString &encoding, QWidget *parent = nullptr);
    ~KVSubtitleEncodingChooser() override;

    /// Shows the window and blocks; the chosen encoding's name, or nothing after a cancel.
    std::optional<QString> chooseEncoding();

  private:
    void _loadEncodingsPopUpMenu(const QString &selected);
    void _showEncodings(const QList<KVTextEncoding> &encodings, const QString &selected);
    void _checkWholeText();
    void _encodingChanged();

    QByteArray _text;
    bool _isWhole = true; ///< False if the file is longer than `_text`.
    std::jthread _checking;
    QLabel *_messageTextField;
    QComboBox *_encodingPopUpButton;
    QPlainTextEdit *_previewTextView;
    QDialogButtonBox *_buttons;
};
