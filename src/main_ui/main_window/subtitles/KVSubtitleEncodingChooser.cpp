#include "main_ui/main_window/subtitles/KVSubtitleEncodingChooser.h"

#include "kvcore/KVLocalizationCenter.h"
#include "kvcore/KVMainThread.h"
#include "main_ui/main_window/KVLook.h"
#include "platform/KVFileManager.h"
#include "presets/video/base/KVSubtitlesFile.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFile>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {

// Subtitles are small; of what is larger the beginning decides.
constexpr qint64 mostBytesRead = qint64{32} * 1024 * 1024;
// What all encodings are tried on while the window waits, and what the preview shows.
constexpr qsizetype bytesAtFirst = qsizetype{128} * 1024;

} // namespace

KVSubtitleEncodingChooser::KVSubtitleEncodingChooser(const QUrl &subtitles, const QString &encoding,
                                                     QWidget *parent)
    : QDialog(parent)
    , _messageTextField(new QLabel)
    , _encodingPopUpButton(new QComboBox)
    , _previewTextView(new QPlainTextEdit)
    , _buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel)) {
    KVLook::setButton(*_buttons, QDialogButtonBox::Ok, "OK");
    KVLook::setButton(*_buttons, QDialogButtonBox::Cancel, "Cancel");
    if (QFile file(subtitles.toLocalFile()); file.open(QIODevice::ReadOnly)) {
        _text = file.read(mostBytesRead);
        _isWhole = file.atEnd();
    }

    setWindowTitle(KVLocalizationCenter::localized("Subtitle Encoding"));
    _messageTextField->setText(KVLocalizationCenter::localized(
        "Choose the text encoding of '%@' so that the text below reads correctly.",
        {KVFileManager::lastPathComponent(subtitles)}));
    _messageTextField->setWordWrap(true);
    _messageTextField->setBuddy(_encodingPopUpButton);
    _encodingPopUpButton->setAccessibleName(KVLocalizationCenter::localized("Text encoding"));
    _previewTextView->setReadOnly(true);
    _previewTextView->setTabChangesFocus(true);
    _previewTextView->setAccessibleName(KVLocalizationCenter::localized("Preview"));

    auto *layout = new QVBoxLayout(this);
    auto *legend = new QLabel(KVLocalizationCenter::localized("\u2605 likely for this file"));
    legend->setFont(KVLook::smaller(legend->font()));
    layout->addWidget(_messageTextField);
    layout->addWidget(_encodingPopUpButton);
    layout->addWidget(legend);
    layout->addWidget(_previewTextView, 1);
    layout->addWidget(_buttons);
    resize(520, 420);
    connect(_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    _loadEncodingsPopUpMenu(encoding);
    connect(_encodingPopUpButton, &QComboBox::currentIndexChanged, this, [this] { _encodingChanged(); });
    _encodingChanged();
}

KVSubtitleEncodingChooser::~KVSubtitleEncodingChooser() = default;

std::optional<QString> KVSubtitleEncodingChooser::chooseEncoding() {
    if (exec() != QDialog::Accepted || _encodingPopUpButton->currentIndex() < 0) return std::nullopt;
    return _encodingPopUpButton->currentData().toString();
}

void KVSubtitleEncodingChooser::_loadEncodingsPopUpMenu(const QString &selected) {
    const bool isShort = _text.size() <= bytesAtFirst;
    _showEncodings(
        KVTextEncodingsThatDecode(_text.first(std::min(bytesAtFirst, _text.size())), isShort && _isWhole),
        selected);
    if (!isShort) _checkWholeText();
}

/// Removes the encodings that decode the beginning only.
void KVSubtitleEncodingChooser::_checkWholeText() {
    _checking =
        std::jthread([self = QPointer(this), text = _text, isWhole = _isWhole](const std::stop_token &stop) {
            const auto encodings =
                KVTextEncodingsThatDecode(text, isWhole, [&] { return stop.stop_requested(); });
            if (stop.stop_requested()) return;
            KVMainThread::async([self, encodings] {
                if (!self) return;
                self->_showEncodings(encodings, self->_encodingPopUpButton->currentData().toString());
                self->_encodingChanged();
            });
        });
}

void KVSubtitleEncodingChooser::_showEncodings(const QList<KVTextEncoding> &encodings,
                                               const QString &selected) {
    const QSignalBlocker blocker(_encodingPopUpButton);
    _encodingPopUpButton->clear();
    for (const KVTextEncoding &encoding : encodings) {
        _encodingPopUpButton->addItem(encoding.isLikely() ? encoding.localizedName + "  \u2605"
                                                          : encoding.localizedName,
                                      encoding.name);
        if (encoding.isLikely())
            _encodingPopUpButton->setItemData(_encodingPopUpButton->count() - 1,
                                              KVLocalizationCenter::localized("Likely for this file"),
                                              Qt::ToolTipRole);
    }
    const auto isSelected = [&](const KVTextEncoding &encoding) {
        return encoding.name.compare(selected, Qt::CaseInsensitive) == 0;
    };
    auto shown = std::ranges::find_if(encodings, isSelected);
    // The one that the file has had so far does not fit: the likeliest is a better start than the first.
    if (shown == encodings.end())
        shown = std::ranges::max_element(encodings, {}, &KVTextEncoding::likelihood);
    if (shown != encodings.end()) _encodingPopUpButton->setCurrentIndex(int(shown - encodings.begin()));
    // A file that can be read under no encoding leaves nothing but the cancel.
    _buttons->button(QDialogButtonBox::Ok)->setEnabled(!encodings.isEmpty());
}

void KVSubtitleEncodingChooser::_encodingChanged() {
    const QString encoding = _encodingPopUpButton->currentData().toString();
    const QByteArray beginning = _text.first(std::min(bytesAtFirst, _text.size()));
    const bool isAll = _isWhole && beginning.size() == _text.size();
    const auto text = isAll ? KVSubtitlesFile::decoded(beginning, encoding)
                            : KVSubtitlesFile::decodedBeginning(beginning, encoding);
    _previewTextView->setPlainText(text.value_or(QString()));
}
